#include <algorithm>
#include <functional>
#include <iterator>

#include <quillonic/support/text_dictionary.hpp>

namespace quillonic {
namespace {

constexpr auto key = &TextDictionary::Entry::key;

}  // namespace

TextDictionary::TextDictionary(std::vector<Entry> entries) : entries_(std::move(entries)) {
  const auto ascending = [](const Entry& a, const Entry& b) { return a.key < b.key; };
  if (std::ranges::adjacent_find(entries_, std::not_fn(ascending)) == entries_.end()) return;
  std::ranges::stable_sort(entries_, ascending);
  // Backwards, so that the last of several equal keys is the first one met and stays.
  const auto superseded = std::ranges::unique(entries_.rbegin(), entries_.rend(), {}, key);
  entries_.erase(entries_.begin(), superseded.begin().base());
}

const TextDictionary::Entry* TextDictionary::find(std::string_view wanted) const noexcept {
  const auto found = std::ranges::lower_bound(entries_, wanted, {}, key);
  return found != entries_.end() && found->key == wanted ? &*found : nullptr;
}

void TextDictionary::set(std::string_view wanted, std::string_view value) {
  const auto found = std::ranges::lower_bound(entries_, wanted, {}, key);
  if (found != entries_.end() && found->key == wanted) {
    found->value = value;
  } else {
    entries_.insert(found, Entry{std::string(wanted), std::string(value)});
  }
}

void TextDictionary::merge(const TextDictionary& other) {
  std::vector<Entry> merged;
  merged.reserve(size() + other.size());
  // Of two equal keys std::set_union takes the first range's entry.
  std::ranges::set_union(other.entries_, entries_, std::back_inserter(merged), {}, key, key);
  entries_ = std::move(merged);
}

bool TextDictionary::remove(std::string_view wanted) {
  const auto found = std::ranges::lower_bound(entries_, wanted, {}, key);
  if (found == entries_.end() || found->key != wanted) return false;
  entries_.erase(found);
  return true;
}

std::span<const TextDictionary::Entry> TextDictionary::prefixed(std::string_view prefix) const noexcept {
  const auto first = std::ranges::lower_bound(entries_, prefix, {}, key);
  const auto last = std::partition_point(first, entries_.end(),
                                         [&](const Entry& entry) { return entry.key.starts_with(prefix); });
  return {first, last};
}

void TextDictionary::removePrefixed(std::string_view prefix) {
  const auto range = prefixed(prefix);
  const auto first = entries_.begin() + (range.data() - entries_.data());
  entries_.erase(first, first + static_cast<std::ptrdiff_t>(range.size()));
}

}  // namespace quillonic
