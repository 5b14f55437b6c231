/// File names reduced to the characters that tapes or desktop volumes accept.
///
///     std::string name = removingInvalidLtfsCharacters("a:b/c*d?");                // "a:b/cd"
///     name = removingDisallowedMacOSFilesystemCharacters("a:b/c*d?");              // "abc*d?"
///     name = removingDisallowedCharacters("1+1", CharacterSet::of("+"));           // "11"
///
/// A character here is a Unicode scalar: of a letter with a combining mark, only the mark may be removed.
/// Nothing is replaced, the order stays, and a name may become empty. Bytes that are not UTF-8 are in no
/// listed set of characters: LTFS cleaning, which keeps listed characters, drops them, and desktop cleaning,
/// which drops listed characters, keeps them. If a removal joins such bytes into a character, that character
/// is judged too: cleaning a cleaned text changes nothing.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/character_set.hpp>

#include <array>
#include <string>
#include <string_view>

namespace quillonic {

/// The printable ASCII characters that are illegal in a name on an LTFS tape.
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

/// The 88 characters that are legal in a name on an LTFS tape, in ascending order: printable ASCII, including
/// colon and slash, without the illegal ones.
inline constexpr std::string_view legalLtfsCharacters(detail::legalLtfsCharacters.data(),
                                                      detail::legalLtfsCharacters.size());
/// The set of these characters.
inline constexpr CharacterSet validLtfsCharacters = CharacterSet::of(legalLtfsCharacters);
/// What LTFS cleaning drops: everything else, that is control characters, the illegal ones and all of Unicode
/// after "~".
inline constexpr CharacterSet invalidLtfsCharacters = validLtfsCharacters.inverted();

/// The folder separators of a desktop volume, in its two forms of paths.
inline constexpr std::string_view disallowedMacOSFilesystemCharacters = "/:";
/// The set of these characters.
inline constexpr CharacterSet disallowedMacOSCharacters =
    CharacterSet::of(disallowedMacOSFilesystemCharacters);

/// The text without the characters of a set.
QUILLONIC_EXPORT std::string removingDisallowedCharacters(std::string_view text,
                                                          const CharacterSet& disallowedCharactersSet);
/// The characters of the text that are in a set.
QUILLONIC_EXPORT std::string removingAllExcept(std::string_view text,
                                               const CharacterSet& allowedCharactersSet);
/// The text without characters that are illegal on an LTFS tape. Colon and slash stay.
QUILLONIC_EXPORT std::string removingInvalidLtfsCharacters(std::string_view text);
/// The text without slash and colon; everything else stays, even control characters.
QUILLONIC_EXPORT std::string removingDisallowedMacOSFilesystemCharacters(std::string_view text);

}  // namespace quillonic
