// Takes flags and values in, and makes a model of them at the end.
#pragma once

#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text.hpp"
#include "transcode_cli/key_places.hpp"
#include "transcode_cli/known_flags.hpp"

namespace quillonic {

// A flag that occurs again overwrites its entry in place, so a list of repeats takes no more room than the flags
// there are. A known flag finds its entry by its number, any other by its text.
class TranscodeCliArguments::Intake {
 public:
  // `words` is how many words are to come.
  Intake(std::size_t words, bool maintainOriginalOrdering)
      : words_(words), keepsOrder_(maintainOriginalOrdering) {
    const auto likely = std::min(words / 2 + 1, known_flags::count / 2);
    valid_.reserve(likely);
    if (keepsOrder_) order_.reserve(likely);
  }

  // Both texts trimmed.
  void add(std::string_view flag, std::string_view value) {
    ++flags_;
    auto key = text::lowerCased(flag);
    const auto known = known_flags::indexOf(key);
    auto stored = known_flags::takesPath(key, known) ? std::string(value) : text::lowerCased(value);

    auto* const slot = known == known_flags::none ? &slotOfOther(key) : nullptr;
    const Place place = slot ? slot->place() : placeOfKnown_[known];
    if (place != KeyPlaces::nowhere) {
      entryAt(place).value = std::move(stored);
      return;
    }
    const bool valid = known_flags::isValid(key, known);
    auto& target = valid ? valid_ : invalid_;
    if (target.size() == target.capacity()) {
      const auto expected = expectedFor(target.size());
      target.reserve(expected);
      if (keepsOrder_) order_.reserve(expected);
    }
    if (keepsOrder_) order_.append(key);
    target.emplace_back(std::move(key), std::move(stored));
    const auto added = placeAt(target.size() - 1, valid);
    if (slot) {
      others_.take(*slot, added);
    } else {
      placeOfKnown_[known] = added;
    }
  }

  TranscodeCliArguments model() && {
    others_ = KeyPlaces();  // the dictionaries need room for a while
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
  using Place = std::uint64_t;
  static Place placeAt(std::size_t position, bool valid) noexcept {
    return 2 * (position + 1) + (valid ? 0 : 1);
  }
  TextDictionary::Entry& entryAt(Place place) noexcept {
    return (place % 2 == 0 ? valid_ : invalid_)[place / 2 - 1];
  }

  KeyPlaces::Slot& slotOfOther(std::string_view key) {
    if (others_.isFull()) {
      others_ = KeyPlaces(expectedFor(valid_.size() + invalid_.size()));
      for (const bool valid : {true, false}) {
        const auto& entries = valid ? valid_ : invalid_;
        for (std::size_t i = 0; i < entries.size(); ++i) {
          others_.take(others_.slotOf(entries[i].key, [](Place) { return false; }), placeAt(i, valid));
        }
      }
    }
    return others_.slotOf(key, [&](Place place) { return entryAt(place).key == key; });
  }

  // How many entries there will be if the rest of the line is like its beginning: to double alone would move the entries
  // of a long line time and again. The guess counts once it is near.
  std::size_t expectedFor(std::size_t entries) const noexcept {
    const auto expected = words_ / 2 * entries / flags_;
    return (expected < 8 * entries ? std::max(expected, 2 * entries) : 4 * entries) + 16;
  }

  std::size_t words_;
  std::size_t flags_ = 0;
  bool keepsOrder_;
  std::vector<TextDictionary::Entry> valid_;
  std::vector<TextDictionary::Entry> invalid_;
  std::array<Place, known_flags::count> placeOfKnown_{};
  KeyPlaces others_;
  FlagOrder order_;
};

}  // namespace quillonic
