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
#include "support/key_order.hpp"
#include "support/scratch.hpp"
#include "transcode_cli/key_places.hpp"
#include "transcode_cli/known_flags.hpp"

namespace quillonic {

// Looks at the words where they are until the model is made, so they must stay that long. A flag that occurs again
// replaces its value in place, so a list of repeats takes no more room than the flags there are. A known flag finds its
// setting by its number, any other by its text.
class TranscodeCliArguments::Intake {
 public:
  // `words` is how many words are to come.
  Intake(std::size_t words, bool maintainOriginalOrdering)
      : words_(words), keepsOrder_(maintainOriginalOrdering) {
    reserve(std::min(words / 2 + 1, known_flags::count / 2));
  }

  // Both texts trimmed.
  void add(std::string_view flag, std::string_view value) {
    ++flags_;
    // A known flag is in lower case already where it is found as it stands.
    auto known = known_flags::indexOf(flag);
    if (known == known_flags::none && text::lowerCase(flag, lowered_)) known = known_flags::indexOf(lowered_);
    const std::string_view key = known == known_flags::none ? lowered_ : detail::knownCommandFlags[known];

    auto* const slot = known == known_flags::none ? &slotOfOther(key) : nullptr;
    const Place place = slot ? slot->place() : placeOfKnown_[known];
    if (place != KeyPlaces::nowhere) {
      settings_[place - 1].value = value;
      return;
    }
    if (settings_.size() == settings_.capacity()) reserve(expectedFor(settings_.size()));
    order_.append(key);
    const bool isValid = known_flags::isValid(key, known);
    settings_.push_back({value, isValid, known_flags::takesPath(key, known)});
    if (!isValid) ++invalid_;
    if (slot) {
      others_.take(*slot, settings_.size());
    } else {
      placeOfKnown_[known] = settings_.size();
    }
  }

  TranscodeCliArguments model() && {
    others_ = KeyPlaces();  // the dictionaries need room
    TranscodeCliArguments model;
    if (invalid_ == 0) {
      // The usual line.
      model.flagValueLookup_ = dictionary(settings_.size(), [](std::size_t i) { return i; });
      order_.setLocatedIn(model.flagValueLookup_);
    } else {
      model.flagValueLookup_ = dictionary(true);
      model.invalidKeyValueLookup_ = dictionary(false);
    }
    if (keepsOrder_ && order_.size() > 0) model.orderedFlags_ = std::move(order_);
    return model;
  }

 private:
  // Where a flag's setting stands, from 1 on.
  using Place = std::uint64_t;

  struct Setting {
    std::string_view value;
    bool isValid;
    bool takesPath;
  };

  void reserve(std::size_t settings) {
    settings_.reserve(settings);
    order_.reserve(settings);
  }

  // How many settings there will be if the rest of the line is like its beginning: to double alone would move those of
  // a long line time and again. The guess counts once it is near.
  std::size_t expectedFor(std::size_t settings) const noexcept {
    const auto expected = words_ / 2 * settings / flags_;
    return (expected < 8 * settings ? std::max(expected, 2 * settings) : 4 * settings) + 16;
  }

  KeyPlaces::Slot& slotOfOther(std::string_view key) {
    if (others_.isFull()) {
      others_ = KeyPlaces(expectedFor(settings_.size()));
      for (std::size_t i = 0; i < settings_.size(); ++i) {
        others_.take(others_.slotOf(order_[i], [](Place) { return false; }), i + 1);
      }
    }
    return others_.slotOf(key, [&](Place place) { return order_[place - 1] == key; });
  }

  TextDictionary dictionary(bool ofValid) {
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < settings_.size(); ++i) {
      if (settings_[i].isValid == ofValid) positions.push_back(i);
    }
    return dictionary(positions.size(), [&](std::size_t i) { return positions[i]; });
  }

  // Of the settings at these positions.
  template <class PositionAt> TextDictionary dictionary(std::size_t size, PositionAt positionAt) {
    Scratch<key_order::Rank, key_order::fewRanks> scratch(size);
    const auto ranks = scratch.elements();
    key_order::rank(ranks, [&](std::size_t i) { return order_[positionAt(i)]; });
    // In the order of the line, so that what is read and what is allocated lies in a row.
    for (std::size_t i = 0; i < size; ++i) ranks[ranks[i].position].bytes = i;
    std::vector<TextDictionary::Entry> entries(size);
    for (std::size_t i = 0; i < size; ++i) {
      const auto position = positionAt(i);
      const auto& [value, isValid, takesPath] = settings_[position];
      const std::size_t entryPosition = ranks[i].bytes;
      if (isValid) order_.setEntryPosition(position, entryPosition);
      auto& entry = entries[entryPosition];
      entry.key = std::string(order_[position]);
      entry.value = takesPath ? std::string(value) : text::lowerCased(value);
    }
    return {TextDictionary::SortedUnique{}, std::move(entries)};
  }

  std::size_t words_;
  std::size_t flags_ = 0;
  std::size_t invalid_ = 0;
  bool keepsOrder_;
  // The flags, and what was set by each.
  FlagOrder order_;
  std::vector<Setting> settings_;
  std::array<Place, known_flags::count> placeOfKnown_{};
  KeyPlaces others_;
  std::string lowered_;
};

}  // namespace quillonic
