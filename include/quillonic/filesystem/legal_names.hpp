/// File names reduced to the characters that a tape or a desktop volume accepts.
///
///     std::string name = removingInvalidLtfsCharacters("a:b/c*d?");                // "a:b/cd"
///     name = removingDisallowedMacOSFilesystemCharacters("a:b/c*d?");              // "abc*d?"
///     name = removingDisallowedCharacters("1+1", CharacterSet::of("+"));           // "11"
///
/// A character here is a Unicode scalar: of a letter written with a combining mark only the mark may go.
/// Nothing is replaced, everything else keeps its order, and nothing may be left of a name. Bytes that are
/// not UTF-8 are in no listed set of characters: LTFS cleaning, which keeps a list, drops them, and desktop
/// cleaning, which drops a list, keeps them. Where such bytes become a character because what stood between
/// them goes, that character is judged too: cleaning a cleaned text changes nothing.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/character_set.hpp>

#include <array>
#include <string>
#include <string_view>

namespace quillonic {

/// The printable ASCII characters that a name on an LTFS tape must not hold.
inline constexpr std::string_view standardIllegalLtfsCharacters = "*?<>\"|\\";

namespace detail {

inline constexpr auto legalLtfsCharacters = [] {
  std::array<char, '~' - ' ' + 1 - standardIllegalLtfsCharacters.size()> legal{};
  auto next = legal.begin();
  for (char c = ' '; c <= '~'; ++c) {
    if (standardIllegalLtfsCharacters.find(c) == std::string_view::npos) *next++ = c;
  }
  return legal;
}();

}  // namespace detail

/// The 88 characters that a name on an LTFS tape may hold, in ascending order: printable ASCII without the
/// illegal ones. Colon and slash are among them.
inline constexpr std::string_view legalLtfsCharacters(detail::legalLtfsCharacters.data(),
                                                      detail::legalLtfsCharacters.size());
/// The same as a set, and everything else: control characters, all of Unicode beyond "~", the illegal ones.
inline constexpr CharacterSet validLtfsCharacters = CharacterSet::of(legalLtfsCharacters);
/// What LTFS cleaning drops: all that `validLtfsCharacters` lacks.
inline constexpr CharacterSet invalidLtfsCharacters = validLtfsCharacters.inverted();

/// The characters that separate folders on a desktop volume, in one or the other of its forms of a path.
inline constexpr std::string_view disallowedMacOSFilesystemCharacters = "/:";
/// The same as a set.
inline constexpr CharacterSet disallowedMacOSCharacters =
    CharacterSet::of(disallowedMacOSFilesystemCharacters);

/// The text without the characters of a set.
QUILLONIC_EXPORT std::string removingDisallowedCharacters(std::string_view text,
                                                          const CharacterSet& disallowedCharactersSet);
/// The characters of the text that are in a set.
QUILLONIC_EXPORT std::string removingAllExcept(std::string_view text,
                                               const CharacterSet& allowedCharactersSet);
/// The text without what a name on an LTFS tape must not hold. Colon and slash stay.
QUILLONIC_EXPORT std::string removingInvalidLtfsCharacters(std::string_view text);
/// The text without slash and colon; all else stays, control characters too.
QUILLONIC_EXPORT std::string removingDisallowedMacOSFilesystemCharacters(std::string_view text);

}  // namespace quillonic
