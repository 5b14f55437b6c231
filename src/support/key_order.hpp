// The order of keys, for lists that are to become dictionaries.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillonic::key_order {

// Where a key stands before the sorting, and what it is sorted by.
struct Rank {
  std::uint64_t bytes;
  std::size_t position;
};

// So many are sorted without an allocation.
inline constexpr std::size_t fewRanks = 64;

inline std::size_t commonPrefix(std::string_view a, std::string_view b) noexcept {
  return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

// The first eight bytes of a text as a number that sorts as they do.
inline std::uint64_t leadingBytes(std::string_view text) noexcept {
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < sizeof bytes; ++i) {
    bytes = bytes << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  }
  return bytes;
}

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

// Ranks keys in ascending byte order, equal keys by their positions; `keyAt` tells the key at a position. Long lists
// are mostly numbered keys that share a long beginning, so what is sorted is eight bytes behind that beginning, and two
// whole keys are compared only where these are equal.
template <class KeyAt> void rank(std::span<Rank> ranks, KeyAt keyAt) {
  if (ranks.empty()) return;
  const std::string_view first = keyAt(0);
  auto shared = first.size();
  for (std::size_t i = 1; i < ranks.size(); ++i) shared = commonPrefix(first.substr(0, shared), keyAt(i));

  for (std::size_t i = 0; i < ranks.size(); ++i) {
    ranks[i] = {leadingBytes(std::string_view(keyAt(i)).substr(shared)), i};
  }
  const auto before = [&](const Rank& a, const Rank& b) {
    if (a.bytes != b.bytes) return a.bytes < b.bytes;
    const int order = std::string_view(keyAt(a.position)).compare(keyAt(b.position));
    return order != 0 ? order < 0 : a.position < b.position;
  };
  if (ranks.size() <= fewRanks) {
    std::ranges::sort(ranks, before);
  } else {
    sortRuns(ranks, before);
  }
}

}  // namespace quillonic::key_order
