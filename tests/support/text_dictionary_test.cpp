#include <quillonic/support/text_dictionary.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <utility>

namespace quillonic {
namespace {

std::map<std::string, std::string> asMap(const TextDictionary& dictionary) {
  std::map<std::string, std::string> map;
  for (const auto& [key, value] : dictionary) map.emplace_hint(map.end(), key, value);
  return map;
}

// Any sequence of changes leaves what the same changes leave in a std::map.
TEST(TextDictionary, BehavesLikeAMap) {
  std::mt19937 random(7);
  const auto text = [&] { return std::string(random() % 3, static_cast<char>('a' + random() % 3)); };
  for (int round = 0; round < 2000; ++round) {
    std::map<std::string, std::string> map;
    std::vector<TextDictionary::Entry> entries;
    // Long lists are numbered: in order, or not.
    const auto numbered = [&](auto n) {
      return "n" + std::to_string(round % 100 == 0 ? 400 - n : random() % 200);
    };
    for (auto n = random() % (round % 50 == 0 ? 300 : 8); n > 0; --n) {
      entries.push_back({round % 50 == 0 ? numbered(n) : text(), text()});
      map[entries.back().key] = entries.back().value;
    }
    TextDictionary dictionary(entries);
    ASSERT_EQ(asMap(dictionary), map);
    const auto sorted = std::vector(dictionary.begin(), dictionary.end());
    ASSERT_EQ(TextDictionary(TextDictionary::SortedUnique(), sorted), dictionary);

    const TextDictionary other{{text(), text()}, {text(), text()}};
    const auto countsWhatChangesKeys = [&](auto change) {
      const auto before = dictionary;
      change();
      const bool sameKeys = std::ranges::equal(before, dictionary, {}, &TextDictionary::Entry::key,
                                               &TextDictionary::Entry::key);
      ASSERT_TRUE(sameKeys || dictionary.keyChanges() != before.keyChanges());
    };
    for (const auto& entry : other)
      countsWhatChangesKeys([&] { dictionary.set(entry.value, map[entry.value] = entry.key); });
    countsWhatChangesKeys([&] { dictionary.merge(other); });
    for (const auto& [k, v] : other) map[k] = v;
    const auto gone = text();
    countsWhatChangesKeys([&] { ASSERT_EQ(dictionary.remove(gone), map.erase(gone) == 1); });
    const auto prefix = text();
    const auto begins = [&](const auto& entry) { return entry.first.starts_with(prefix); };
    ASSERT_EQ(dictionary.prefixed(prefix).size(),
              static_cast<std::size_t>(std::ranges::count_if(map, begins)));
    if (!prefix.empty()) {
      countsWhatChangesKeys([&] { dictionary.removePrefixed(prefix); });
      std::erase_if(map, begins);
    }
    ASSERT_EQ(asMap(dictionary), map);
    for (const auto& [k, v] : map) ASSERT_EQ(dictionary.find(k)->value, v);
    ASSERT_EQ(dictionary.find("absent"), nullptr);
    ASSERT_EQ(dictionary, TextDictionary(map));
  }
}

}  // namespace
}  // namespace quillonic
