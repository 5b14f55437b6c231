// Takes flags and values in, and makes a model of them at the end.
#pragma once

#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text.hpp"
#include "transcode_cli/known_flags.hpp"

namespace quillonic {

// A flag that occurs again overwrites its entry in place, so a list of repeats takes no more room than the flags
// there are. A known flag finds its entry by its number; the others share one hash table, which is not made before
// the first of them comes.
class TranscodeCliArguments::Intake {
 public:
  // `words` is how many words are to come.
  Intake(std::size_t words, bool maintainOriginalOrdering) : keepsOrder_(maintainOriginalOrdering) {
    const auto likely = std::min(words / 2 + 1, known_flags::count / 2);
    valid_.reserve(likely);
    if (keepsOrder_) order_.reserve(likely);
  }

  // Both texts trimmed.
  void add(std::string_view flag, std::string_view value) {
    auto key = text::lowerCased(flag);
    const auto known = known_flags::indexOf(key);
    auto stored = known_flags::takesPath(key, known) ? std::string(value) : text::lowerCased(value);

    auto& place = known != known_flags::none ? placeOfKnown_[known] : placeOfOther(key);
    if (place != nowhere) {
      entryAt(place).value = std::move(stored);
      return;
    }
    if (keepsOrder_) order_.append(key);
    const bool valid = known_flags::isValid(key, known);
    auto& target = valid ? valid_ : invalid_;
    target.emplace_back(std::move(key), std::move(stored));
    place = valid ? 2 * target.size() : 2 * target.size() + 1;
    if (known == known_flags::none) ++others_;
  }

  TranscodeCliArguments model() && {
    slots_ = {};  // the dictionaries need room for a while
    TranscodeCliArguments model;
    // Where every flag is valid, which is the usual line, the n-th in order is the n-th entry.
    const bool locates = keepsOrder_ && invalid_.empty();
    model.flagValueLookup_ = TextDictionary(std::move(valid_), [&](std::size_t given, std::size_t position) {
      if (locates) order_.setEntryPosition(given, position);
    });
    if (locates) order_.setLocatedIn(model.flagValueLookup_);
    model.invalidKeyValueLookup_ = TextDictionary(std::move(invalid_));
    if (order_.size() > 0) model.orderedFlags_ = std::move(order_);
    return model;
  }

 private:
  // Where an entry stands: its position from 1 on, doubled, and one more among the invalid ones.
  using Place = std::size_t;
  static constexpr Place nowhere = 0;

  TextDictionary::Entry& entryAt(Place place) { return (place % 2 == 0 ? valid_ : invalid_)[place / 2 - 1]; }

  // The hash of a key stands beside its place, so that neither a collision nor a greater table has to look at keys.
  struct Slot {
    std::size_t hash;
    Place place;
  };

  // The place of a key that is not known by itself: where it stands, or a free one for it.
  Place& placeOfOther(std::string_view key) {
    if (2 * others_ >= slots_.size()) makeRoom();
    const auto hash = std::hash<std::string_view>{}(key);
    auto& slot =
        probe(hash, [&](const Slot& taken) { return taken.hash == hash && entryAt(taken.place).key == key; });
    slot.hash = hash;
    return slot.place;
  }

  // The first slot from where a hash belongs that is free or the one.
  template <class IsTheOne> Slot& probe(std::size_t hash, IsTheOne isTheOne) {
    const auto mask = slots_.size() - 1;
    auto at = hash & mask;
    while (slots_[at].place != nowhere && !isTheOne(slots_[at])) at = (at + 1) & mask;
    return slots_[at];
  }

  void makeRoom() {
    const auto slots = std::exchange(slots_, std::vector<Slot>(std::max<std::size_t>(16, 2 * slots_.size())));
    for (const auto& slot : slots) {
      if (slot.place != nowhere) probe(slot.hash, [](const Slot&) { return false; }) = slot;
    }
  }

  bool keepsOrder_;
  std::vector<TextDictionary::Entry> valid_;
  std::vector<TextDictionary::Entry> invalid_;
  std::array<Place, known_flags::count> placeOfKnown_{};
  std::vector<Slot> slots_;
  std::size_t others_ = 0;
  FlagOrder order_;
};

}  // namespace quillonic
