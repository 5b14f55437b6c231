#include <quillonic/filesystem/file_attributes.hpp>

#include <algorithm>
#include <compare>
#include <iterator>
#include <utility>

#include "text/find_sorted.hpp"

namespace quillonic {
namespace {

constexpr auto keyOf = [](const FileAttributes::Entry& entry) { return entry.key.rawValue(); };

// Calls the block with the two entries of each common key until the block stops. The dictionaries must not
// change meanwhile: a walk that calls a host's block uses copies.
template <class Block> void walkCommon(const FileAttributes& a, const FileAttributes& b, Block block) {
  bool stop = false;
  auto mine = a.begin();
  auto other = b.begin();
  while (!stop && mine != a.end() && other != b.end()) {
    const auto order = keyOf(*mine) <=> keyOf(*other);
    if (std::is_eq(order)) block(*mine, *other, stop);
    if (std::is_lteq(order)) ++mine;
    if (std::is_gteq(order)) ++other;
  }
}

std::optional<FileAttributes::KeyList> unlessEmpty(FileAttributes::KeyList keys) {
  return keys.empty() ? std::nullopt : std::optional(std::move(keys));
}

}  // namespace

FileAttributes::FileAttributes(std::vector<Entry> entries) : entries_(std::move(entries)) {
  const auto unordered = std::ranges::adjacent_find(entries_, std::ranges::greater_equal{}, keyOf);
  if (unordered == entries_.end()) return;
  std::ranges::stable_sort(entries_, {}, keyOf);
  // The last of equal keys stays: from the end it is the first.
  const auto kept = std::unique(entries_.rbegin(), entries_.rend(),
                                [](const Entry& a, const Entry& b) { return a.key == b.key; });
  entries_.erase(entries_.begin(), kept.base());
}

const AnyValue* FileAttributes::find(std::string_view key) const noexcept {
  const auto* found = findSorted(entries_, key, keyOf);
  return found ? &found->value : nullptr;
}

void FileAttributes::set(const FileAttributeKey& key, AnyValue value) {
  const auto place = std::ranges::lower_bound(entries_, key.rawValue(), {}, keyOf);
  if (place != entries_.end() && place->key == key) {
    place->value = std::move(value);
  } else {
    entries_.insert(place, Entry{key, std::move(value)});
  }
}

bool FileAttributes::remove(std::string_view key) {
  const auto* found = findSorted(entries_, key, keyOf);
  if (!found) return false;
  entries_.erase(entries_.begin() + (found - entries_.data()));
  return true;
}

std::optional<FileAttributes::KeyList> FileAttributes::commonAttributeKeys(
    const FileAttributes& other) const {
  KeyList keys;
  walkCommon(*this, other, [&](const Entry& mine, const Entry&, bool&) { keys.push_back(mine.key); });
  return unlessEmpty(std::move(keys));
}

std::optional<FileAttributes::KeyList> FileAttributes::objcAttributesIntersection(
    const FileAttributes& other) const {
  KeyList keys;
  walkCommon(*this, other, [&](const Entry& mine, const Entry& its, bool&) {
    if (!mine.value.empty() && mine.value == its.value) keys.push_back(mine.key);
  });
  return unlessEmpty(std::move(keys));
}

FileAttributes FileAttributes::intersection(std::span<const FileAttributeKey> keys) const {
  std::vector<Entry> entries;
  for (const auto& key : keys) {
    if (const auto* value = find(key)) entries.push_back({key, *value});
  }
  return FileAttributes(std::move(entries));
}

std::optional<FileAttributes::KeyList> FileAttributes::missingEqualityAttributes(
    std::span<const FileAttributeKey> inList) const {
  KeyList keys;
  for (const auto& key : inList) {
    if (!contains(key) && std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
  }
  return unlessEmpty(std::move(keys));
}

void FileAttributes::correlatedEnumerateCommonKeyValueEntries(const FileAttributes& other,
                                                              CommonEntryBlock block) const {
  walkCommon(FileAttributes(*this), FileAttributes(other),
             [&](const Entry& mine, const Entry& its, bool& stop) {
               block(mine.key, &mine.value, &its.value, stop);
             });
}

void FileAttributes::compare(const FileAttributes& other, MatchBlock didMatch,
                             MismatchBlock didMismatch) const {
  walkCommon(FileAttributes(*this), FileAttributes(other),
             [&](const Entry& mine, const Entry& its, bool& stop) {
               if (mine.value == its.value) {
                 didMatch(mine.key, mine.value, stop);
               } else {
                 didMismatch(mine.key, mine.value, its.value, stop);
               }
             });
}

}  // namespace quillonic
