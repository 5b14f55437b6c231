// Patterns of names: matched in one pass, so that a hostile name costs no more than its length times that of
// the pattern.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/ascii.hpp"

namespace quillonic::catalogue {

// ASCII characters as capitals, and whether all other bytes belong too.
struct ByteSet {
  std::array<std::uint64_t, 2> ascii;
  bool hasOthers;

  constexpr bool contains(unsigned char byte) const noexcept {
    return byte < 0x80 ? (ascii[byte / 64] >> (byte % 64U) & 1U) != 0 : hasOthers;
  }
};

// One character of a pattern.
struct Atom {
  std::uint8_t set;
  bool isOptional;
  bool repeats;
  // Which of the pattern's segments it belongs to; they follow each other.
  std::uint8_t segment;
};

struct Pattern {
  std::span<const Atom> atoms;
  // What each segment captures: 'k' the key, 'f' its folder, 'p', 'z' and 'o' numbers, ' ' nothing.
  std::string_view segments;
};

// Appends a name as capitals, in ASCII alone.
inline void appendCapitals(std::string& text, std::string_view name) {
  const auto length = text.size();
  text.append(name);
  std::transform(name.begin(), name.end(), text.begin() + static_cast<std::ptrdiff_t>(length), ascii::raised);
}

// Whether a name ends so, whatever its case; the end is in capitals.
inline bool endsInCapitals(std::string_view name, std::string_view end) noexcept {
  return name.size() >= end.size() &&
         std::ranges::equal(name.substr(name.size() - end.size()), end, {}, ascii::raised);
}

inline std::string capitals(std::string_view name) {
  std::string text;
  appendCapitals(text, name);
  return text;
}

// How many characters at a name's end are those of single atoms at the pattern's; nothing if the name cannot
// match. A quick look that spares most names the rest.
std::optional<std::size_t> fixedEnd(const Pattern& pattern, std::string_view name) noexcept;

// The ways in which a pattern can match the text so far. It can be copied, to go on with several names in one
// folder.
class PatternMatch {
 public:
  // A way then has 32 bytes, which are copied for each character.
  static constexpr std::size_t greatestSegmentCount = 15;

  explicit PatternMatch(const Pattern& pattern);

  // Goes on with more of the text. Returns whether the pattern can still match.
  bool feed(std::string_view text);

  // Where each segment begins, and the last one ends.
  using Bounds = std::array<std::size_t, greatestSegmentCount + 1>;

  // Goes on with the rest of the text, whose fixed end is known; nothing if the whole does not match.
  std::optional<Bounds> finish(std::string_view name, std::size_t fixedEnd);

  const Pattern& pattern() const noexcept { return *pattern_; }

 private:
  // The last atom that took a character, counted from 1, and where the segments up to it begin.
  struct Way {
    std::uint16_t taken = 0;
    std::array<std::uint16_t, greatestSegmentCount> starts{};
  };

  void go(Way& way, std::size_t atom, std::size_t at) const noexcept;

  const Pattern* pattern_;
  std::uint16_t length_ = 0;
  std::vector<Way> ways_;
  std::vector<Way> next_;
};

// What a pattern says of a path.
struct Captured {
  std::string folder;
  std::string key;
  std::optional<std::uint64_t> number;
  // What the number is: 'p' of a part from 1, 'z' of one from 0, 'o' or ' ' of something else.
  char counts = ' ';
};

// Of a path that matches, which is a folder with a trailing slash, and a name. Most keys are in the name.
Captured captured(const Pattern& pattern, const PatternMatch::Bounds& bounds, std::string_view folder,
                  std::string_view name);

// Whether a pattern matches a whole name.
bool matches(const Pattern& pattern, std::string_view name);

// Whether one of several alternatives does.
bool matchesAny(std::span<const Pattern> patterns, std::string_view name);

}  // namespace quillonic::catalogue
