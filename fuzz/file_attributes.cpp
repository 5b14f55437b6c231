// Any two dictionaries of attributes, which agree with maps: an entry a line, a line "=" between the two. The
// first character of a line stands for its key and the last one for its value.
#include <quillonic/filesystem/file_attributes.hpp>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Key = FileAttributeKey;
using Map = std::map<std::string, AnyValue>;
using Texts = std::vector<std::string>;

const Key& keyOf(char c) {
  return allCases<Key>()[static_cast<unsigned char>(c) % 6];
}

FileAttributes attributesOf(const std::vector<std::string_view>& lines, Map& map) {
  const AnyValue values[] = {AnyValue(), 1, 1.0, true, "1", Date(std::chrono::seconds(1))};
  std::vector<FileAttributes::Entry> entries;
  for (const auto line : lines) {
    if (line.empty()) continue;
    entries.push_back({keyOf(line.front()), values[static_cast<unsigned char>(line.back()) % 6]});
    map[std::string(entries.back().key)] = entries.back().value;
  }
  return FileAttributes(entries);
}

Texts textsOf(const std::optional<FileAttributes::KeyList>& keys) {
  require(!keys || !keys->empty(), "nothing is never an empty list");
  return keys ? Texts(keys->begin(), keys->end()) : Texts();
}

// What both hold: the keys, those of equal values, and each key with the sign of its comparison.
void checkCommon(const FileAttributes& attributes, const Map& map, const FileAttributes& other,
                 const Map& otherMap, std::size_t most) {
  require((attributes == other) == (map == otherMap), "dictionaries are equal where maps are");
  Texts common;
  Texts equal;
  Texts compared;
  for (const auto& [key, value] : map) {
    const auto found = otherMap.find(key);
    if (found == otherMap.end()) continue;
    common.push_back(key);
    compared.push_back(key + (value == found->second ? "=" : "!"));
    if (value == found->second && !value.empty()) equal.push_back(key);
  }
  require(textsOf(attributes.commonAttributeKeys(other)) == common, "common keys are those of both maps");
  require(textsOf(attributes.objcAttributesIntersection(other)) == equal, "equal entries are in both maps");

  // Both walks stop after a few calls.
  const auto calls = std::min(compared.size(), most);
  compared.resize(calls);
  Texts seen;
  auto changing = attributes;
  const auto see = [&](const Key& key, const char* sign, bool& stop) {
    // A block may change what is walked.
    changing = {};
    seen.push_back(std::string(key) + sign);
    stop = seen.size() == calls;
  };
  changing.correlatedEnumerateCommonKeyValueEntries(
      other, [&](const Key& key, const AnyValue* mine, const AnyValue* its, bool& stop) {
        require(*mine == map.at(std::string(key)) && *its == otherMap.at(std::string(key)),
                "a walk gives the values of both");
        see(key, *mine == *its ? "=" : "!", stop);
      });
  require(std::exchange(seen, {}) == compared, "the walk over common keys is in order");
  changing = attributes;
  changing.compare(
      other, [&](const Key& key, const AnyValue&, bool& stop) { see(key, "=", stop); },
      [&](const Key& key, const AnyValue&, const AnyValue&, bool& stop) { see(key, "!", stop); });
  require(seen == compared, "a comparison tells equal values from others, in order");
}

void checkKeys(FileAttributes attributes, Map map, std::string_view bytes) {
  const auto keys = allCases<Key>().subspan(bytes.size() % 6, bytes.size() / 6 % 6);
  const auto missing = attributes.missingEqualityAttributes(keys).value_or(FileAttributes::KeyList());
  const auto restricted = attributes.intersection(keys);
  require(missing.size() + restricted.size() == keys.size(), "each key is missing or there");
  for (const auto& key : missing) require(!map.contains(std::string(key)), "a missing key is not there");
  for (const auto& [key, value] : restricted) require(map.at(std::string(key)) == value, "values are kept");

  const auto& key = keyOf(bytes.empty() ? 'a' : bytes.back());
  require(attributes.remove(key) == (map.erase(std::string(key)) == 1), "what is there is removed");
  attributes.set(key, "new");
  require(attributes.value<std::string>(key) == "new" && attributes.size() == map.size() + 1,
          "what is set is there");
}

}  // namespace

void run(std::string_view bytes) {
  const auto all = lines(bytes);
  const auto divide = std::ranges::find(all, "=");
  Map map;
  Map otherMap;
  const auto attributes = attributesOf({all.begin(), divide}, map);
  const auto other = attributesOf({divide == all.end() ? divide : divide + 1, all.end()}, otherMap);
  checkCommon(attributes, map, other, otherMap, 1 + bytes.size() % 3);
  checkKeys(attributes, map, bytes);
}

}  // namespace quillonic::fuzz
