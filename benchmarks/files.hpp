// Free names, volume roots and attributes of items.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "rows.hpp"
#include "tree.hpp"

namespace quillonic::benchmarks::files {

inline constexpr const char* topic = "files";
inline constexpr std::size_t itemCount = 10'000;

// Finds a free name for the path, which is taken or free.
using FindFreeName = std::function<std::string(const std::filesystem::path&)>;
// Names "clip.mov" and its numbered forms, from one collision on.
using NameOf = std::function<std::string(int collision)>;

// Adds a row for no, ten and a thousand collisions, as far as the peer supports them. `nameOf` gives the form
// of the peer's numbered names.
bool addNaming(const std::string& who, const std::string& note, const NameOf& nameOf,
               const FindFreeName& find, int leastCollisions = 0);

// Times a question about each of the items, passed in the peer's form. `textOf` gives the answer, which must
// be `expected` for the same item.
template <class Convert, class Ask, class TextOf, class Expected>
void addQuestion(Row row, Convert convert, Ask ask, TextOf textOf, Expected expected) {
  row.topic = topic;
  row.items = static_cast<double>(itemCount);
  using Inputs = std::vector<decltype(convert(std::filesystem::path()))>;
  Lazily<Inputs> inputs([=] {
    Inputs made;
    for (const auto& item : clips(itemCount)) {
      made.push_back(convert(item));
      if (textOf(ask(made.back())) != expected(item)) throw std::runtime_error("answers something else");
    }
    return made;
  });
  add(row, [=](benchmark::State& state) mutable {
    const auto& items = *inputs;
    timeTurns(state, [&] {
      for (const auto& item : items) {
        auto answer = ask(item);
        benchmark::DoNotOptimize(answer);
      }
    });
  });
}

inline constexpr const char* findingRoots = "volume root of each of 10,000 paths, asking the system";
inline constexpr const char* findingRootsByText = "volume root of each of 10,000 paths, by their texts";
inline constexpr const char* readingAttributes = "attributes of 10,000 items";

std::string rootOf(const std::filesystem::path& item);

template <class Convert, class Ask, class TextOf>
bool addRoots(const char* work, const std::string& who, const std::string& note, Convert convert, Ask ask,
              TextOf textOf) {
  addQuestion({"", work, who, note}, convert, ask, textOf, rootOf);
  return true;
}

std::string sizeOf(const std::filesystem::path& item);

template <class Convert, class Ask, class Size>
bool addAttributes(const std::string& who, const std::string& note, Convert convert, Ask ask, Size size) {
  addQuestion(
      {"", readingAttributes, who, note}, convert, ask,
      [=](const auto& answer) { return std::to_string(size(answer)); }, sizeOf);
  return true;
}

}  // namespace quillonic::benchmarks::files
