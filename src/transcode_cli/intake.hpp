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
    TranscodeCliArguments model;
    // Where every flag is valid, which is the usual line, the n-th in order is the n-th entry.
    const bool locates = keepsOrder_ && invalid_.empty();
    model.flagValueLookup_ = TextDictionary(std::move(valid_), [&](std::size_t given, std::size_t position) {
      if (locates) order_.setEntryPosition(given, position);
    });
    model.invalidKeyValueLookup_ = TextDictionary(std::move(invalid_));
    if (order_.size() > 0) model.orderedFlags_ = std::move(order_);
    return model;
  }

 private:
  // Where an entry stands: its position from 1 on, doubled, and one more among the invalid ones.
  using Place = std::size_t;
  static constexpr Place nowhere = 0;

  TextDictionary::Entry& entryAt(Place place) { return (place % 2 == 0 ? valid_ : invalid_)[place / 2 - 1]; }

  // The place of a key that is not known by itself: where it stands, or a free one for it.
  Place& placeOfOther(std::string_view key) {
    if (2 * others_ >= places_.size()) makeRoom();
    return probe(key);
  }

  Place& probe(std::string_view key) {
    const auto mask = places_.size() - 1;
    auto slot = std::hash<std::string_view>{}(key)&mask;
    while (places_[slot] != nowhere && entryAt(places_[slot]).key != key) slot = (slot + 1) & mask;
    return places_[slot];
  }

  void makeRoom() {
    const auto places =
        std::exchange(places_, std::vector<Place>(std::max<std::size_t>(16, 2 * places_.size())));
    for (const auto place : places) {
      if (place != nowhere) probe(entryAt(place).key) = place;
    }
  }

  bool keepsOrder_;
  std::vector<TextDictionary::Entry> valid_;
  std::vector<TextDictionary::Entry> invalid_;
  std::array<Place, known_flags::count> placeOfKnown_{};
  std::vector<Place> places_;
  std::size_t others_ = 0;
  FlagOrder order_;
};

}  // namespace quillonic
