#include <quillonic/support/text_dictionary.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iterator>

#include "support/scratch.hpp"

namespace quillonic {
namespace {

using Entry = TextDictionary::Entry;

constexpr auto key = &Entry::key;

std::size_t commonPrefix(std::string_view a, std::string_view b) noexcept {
  return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

// The first eight bytes of a text as a number that sorts as they do.
std::uint64_t leadingBytes(std::string_view text) noexcept {
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < sizeof bytes; ++i) {
    bytes = bytes << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  }
  return bytes;
}

// Where an entry stands before the sorting, and what its key is sorted by.
struct Rank {
  std::uint64_t bytes;
  std::size_t position;
};

// So many are sorted without an allocation.
constexpr std::size_t fewRanks = 64;

// Numbered keys in the order of their numbers ascend up to each power of ten: a few runs, which are merged.
template <class Before> void sortRuns(std::span<Rank> ranks, Before before) {
  constexpr std::size_t fewRuns = 16;
  std::array<std::span<Rank>::iterator, fewRuns + 1> bounds;
  bounds[0] = ranks.begin();
  std::size_t runs = 0;
  while (bounds[runs] != ranks.end()) {
    if (runs == fewRuns) {
      std::ranges::sort(ranks, before);
      return;
    }
    bounds[runs + 1] = std::ranges::is_sorted_until(bounds[runs], ranks.end(), before);
    ++runs;
  }
  for (std::size_t merged = 1; merged < runs; ++merged) {
    std::ranges::inplace_merge(ranks.begin(), bounds[merged], bounds[merged + 1], before);
  }
}

// Sorts the ranks of entries by their keys, equal keys by their positions. Long lists are mostly numbered keys that
// share a long beginning, so what is sorted is eight bytes behind that beginning, and two whole keys are compared only
// where these are equal.
void rankByKey(std::span<const Entry> entries, std::span<Rank> ranks) {
  const std::string_view first = entries.front().key;
  auto shared = first.size();
  for (const auto& entry : entries) shared = commonPrefix(first.substr(0, shared), entry.key);

  for (std::size_t i = 0; i < entries.size(); ++i) {
    ranks[i] = {leadingBytes(std::string_view(entries[i].key).substr(shared)), i};
  }
  const auto before = [&](const Rank& a, const Rank& b) {
    if (a.bytes != b.bytes) return a.bytes < b.bytes;
    const int order = entries[a.position].key.compare(entries[b.position].key);
    return order != 0 ? order < 0 : a.position < b.position;
  };
  if (ranks.size() <= fewRanks) {
    std::ranges::sort(ranks, before);
  } else {
    sortRuns(ranks, before);
  }
}

}  // namespace

TextDictionary::TextDictionary(std::vector<Entry> entries)
    : TextDictionary(std::move(entries), [](std::size_t /*given*/, std::size_t /*position*/) {}) {}

TextDictionary::TextDictionary(std::vector<Entry> entries,
                               FunctionRef<void(std::size_t given, std::size_t position)> didPlace)
    : entries_(std::move(entries)) {
  const auto ascending = [](const Entry& a, const Entry& b) { return a.key < b.key; };
  if (std::ranges::adjacent_find(entries_, std::not_fn(ascending)) == entries_.end()) {
    for (std::size_t i = 0; i < entries_.size(); ++i) didPlace(i, i);
    return;
  }

  Scratch<Rank, fewRanks> scratch(entries_.size());
  const auto ranks = scratch.elements();
  rankByKey(entries_, ranks);
  const auto isLast = [&](std::size_t i) {
    return i + 1 == ranks.size() || ranks[i].bytes != ranks[i + 1].bytes ||
           entries_[ranks[i].position].key != entries_[ranks[i + 1].position].key;
  };
  std::size_t kept = 0;
  for (std::size_t i = 0; i < ranks.size(); ++i) {
    didPlace(ranks[i].position, kept);
    if (isLast(i)) ranks[kept++] = ranks[i];
  }
  std::vector<Entry> placed;
  placed.reserve(kept);
  for (std::size_t i = 0; i < kept; ++i) {
    constexpr std::size_t ahead = 8;
    if (i + ahead < kept) __builtin_prefetch(&entries_[ranks[i + ahead].position]);
    placed.push_back(std::move(entries_[ranks[i].position]));
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
