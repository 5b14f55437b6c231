// Maps of random 64-bit keys.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {

using Keys = std::vector<std::uint64_t>;

inline Keys randomKeys(std::size_t count) {
  std::mt19937_64 random(count);
  Keys keys(count);
  std::ranges::generate(keys, random);
  return keys;
}

// Many more than a branch predictor learns, also of few keys.
inline constexpr std::size_t turn = 20'000;
inline Keys someOf(const Keys& keys) {
  std::mt19937_64 random(1);
  Keys some(turn);
  std::ranges::generate(some, [&] { return keys[random() % keys.size()]; });
  return some;
}

inline const std::vector<std::pair<std::size_t, std::string>>& treeSizes() {
  static const std::vector<std::pair<std::size_t, std::string>> sizes = {
      {1'000, "1,000"}, {100'000, "100,000"}, {1'000'000, "1,000,000"}};
  return sizes;
}

template <class Map> std::shared_ptr<Map> filled(std::span<const std::uint64_t> keys) {
  auto map = std::make_shared<Map>();
  for (const auto key : keys) map->insert(typename Map::value_type(key, key));
  return map;
}

// A row per size: `work` gets a map of that many keys, and some of these.
template <class Map, class Do>
void addTreeRow(const std::string& name, const std::string& who, const std::string& note, Do work) {
  for (const auto& [size, text] : treeSizes()) {
    add({name + " " + text + " keys, each", who, note, turn, size != 1'000'000}, [=, size = size]() -> Work {
      const auto keys = randomKeys(size);
      return [=, map = filled<Map>(keys), some = someOf(keys)] { work(*map, some); };
    });
  }
}

template <class Map> bool addTree(const std::string& who, const std::string& note = {}) {
  for (const auto& [size, text] : treeSizes()) {
    const auto items = static_cast<double>(size);
    add({"fill and empty a map of " + text + " keys, each", who, note, items, size != 1'000'000},
        [size = size]() -> Work {
          // Others each time, while there are.
          return [size, next = std::size_t{0}, keys = randomKeys(std::max(size, 100 * turn))]() mutable {
            if (next + size > keys.size()) next = 0;
            use(filled<Map>(std::span(keys).subspan(next, size)));
            next += size;
          };
        });
    add({"walk over a map of " + text + " keys, each", who, note, items, size != 1'000'000},
        [size = size]() -> Work {
          return [map = filled<Map>(randomKeys(size))] {
            std::uint64_t sum = 0;
            for (const auto& [key, value] : *map) sum += value;
            use(sum);
          };
        });
  }
  addTreeRow<Map>("find in", who, note, [](Map& map, const Keys& keys) {
    std::uint64_t sum = 0;
    for (const auto key : keys) sum += map.find(key)->second;
    use(sum);
  });
  addTreeRow<Map>("erase and insert again in", who, note, [](Map& map, const Keys& keys) {
    for (const auto key : keys) {
      map.erase(key);
      map.insert(typename Map::value_type(key, key));
    }
  });
  return true;
}

}  // namespace quillonic::benchmarks
