// Where the keys of a list stand, found by their texts.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "transcode_cli/text_hash.hpp"

namespace quillonic {

// An open hash table that holds places only, which are numbers of up to 40 bits; the keys stay in the list. Long lists
// are mostly numbered keys, one after the other, so those that differ in the last character alone share a few lines of
// the cache.
class KeyPlaces {
 public:
  static constexpr std::uint64_t nowhere = 0;

  // Where a key stands, and above it a part of the key's hash, so that a collision seldom has to look at keys.
  class Slot {
   public:
    std::uint64_t place() const noexcept { return word_ & allPlaces; }

   private:
    friend KeyPlaces;
    std::uint64_t word_ = nowhere;
  };

  // Room for a number of keys.
  explicit KeyPlaces(std::size_t keys = 0) : slots_(keys == 0 ? 0 : std::bit_ceil(2 * keys)) {}

  // Whether the table has to be made anew, with more room, before a key is looked for.
  bool isFull() const noexcept { return 2 * taken_ >= slots_.size(); }

  // The slot of a key, or the one to `take` for it, which stands nowhere. `isAt` tells whether the key is at a place.
  template <class IsAt> Slot& slotOf(std::string_view key, IsAt isAt) {
    const auto last = key.empty() ? 0U : static_cast<unsigned char>(key.back());
    const auto stem = key.substr(0, key.empty() ? 0 : key.size() - 1);
    const auto hash = text_hash::spread(text_hash::of(stem));
    const auto tag = (hash ^ std::uint64_t{last} << placeBits) & ~allPlaces;
    const auto mask = slots_.size() - 1;
    auto at = (hash >> 20U << 4U | (last & 15U)) & mask;
    for (; slots_[at].place() != nowhere; at = (at + 1) & mask) {
      if ((slots_[at].word_ & ~allPlaces) == tag && isAt(slots_[at].place())) return slots_[at];
    }
    slots_[at].word_ = tag;
    return slots_[at];
  }

  void take(Slot& slot, std::uint64_t place) noexcept {
    slot.word_ |= place;
    ++taken_;
  }

 private:
  static constexpr unsigned placeBits = 40;
  static constexpr std::uint64_t allPlaces = (std::uint64_t{1} << placeBits) - 1;

  std::vector<Slot> slots_;
  std::size_t taken_ = 0;
};

}  // namespace quillonic
