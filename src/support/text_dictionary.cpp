#include <quillonic/support/text_dictionary.hpp>

#include <algorithm>
#include <functional>
#include <iterator>

#include "support/key_order.hpp"
#include "support/scratch.hpp"

namespace quillonic {
namespace {

using Entry = TextDictionary::Entry;

constexpr auto key = &Entry::key;

}  // namespace

TextDictionary::TextDictionary(std::vector<Entry> entries) : entries_(std::move(entries)) {
  const auto ascending = [](const Entry& a, const Entry& b) { return a.key < b.key; };
  if (std::ranges::adjacent_find(entries_, std::not_fn(ascending)) == entries_.end()) return;

  Scratch<key_order::Rank, key_order::fewRanks> scratch(entries_.size());
  const auto ranks = scratch.elements();
  key_order::rank(ranks, [&](std::size_t i) -> const std::string& { return entries_[i].key; });
  std::vector<Entry> placed;
  placed.reserve(entries_.size());
  for (const auto& rank : ranks) {
    auto& entry = entries_[rank.position];
    if (!placed.empty() && placed.back().key == entry.key) placed.pop_back();
    placed.push_back(std::move(entry));
  }
  entries_ = std::move(placed);
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
    ++keyChanges_;
  }
}

void TextDictionary::merge(const TextDictionary& other) {
  std::vector<Entry> merged;
  merged.reserve(size() + other.size());
  // Of two equal keys std::set_union takes the first range's entry.
  std::ranges::set_union(other.entries_, entries_, std::back_inserter(merged), {}, key, key);
  entries_ = std::move(merged);
  ++keyChanges_;
}

bool TextDictionary::remove(std::string_view wanted) {
  const auto found = std::ranges::lower_bound(entries_, wanted, {}, key);
  if (found == entries_.end() || found->key != wanted) return false;
  entries_.erase(found);
  ++keyChanges_;
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
  if (range.empty()) return;
  const auto first = entries_.begin() + (range.data() - entries_.data());
  entries_.erase(first, first + static_cast<std::ptrdiff_t>(range.size()));
  ++keyChanges_;
}

}  // namespace quillonic
