#include <quillonic/filesystem/legal_names.hpp>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/utf8.hpp"

namespace quillonic {
namespace {

bool isWanted(const CharacterSet& set, bool wanted, char c) noexcept {
  return set.containsByte(static_cast<unsigned char>(c)) == wanted;
}

// Each byte is written and counts only where it stays, so that there is no branch to guess.
std::string filteredByBytes(std::string_view text, const CharacterSet& set, bool wanted) {
  std::string kept(text.size(), '\0');
  char* end = kept.data();
  for (const char c : text) {
    *end = c;
    end += static_cast<std::ptrdiff_t>(isWanted(set, wanted, c));
  }
  kept.resize(static_cast<std::size_t>(end - kept.data()));
  return kept;
}

std::string filteredByScalars(std::string_view text, const CharacterSet& set, bool wanted) {
  constexpr std::size_t longestBeginning = 3;
  std::string kept(text);
  std::size_t end = 0;
  // How many bytes at the end of what is kept are not UTF-8.
  std::size_t loose = 0;
  for (std::size_t at = 0; at < kept.size();) {
    const auto [scalar, length, valid] = utf8::decode(std::string_view(kept).substr(at));
    const bool stays = valid ? set.contains(scalar) == wanted : isWanted(set, wanted, kept[at]);
    const char* const from = kept.data() + at;
    at += length;
    if (stays) {
      std::memmove(kept.data() + end, from, length);
      end += length;
      loose = valid ? 0 : loose + 1;
    } else {
      // Bytes that stood apart may be a character now, which must not come in by this door: they are read again
      // with what follows.
      const auto again = std::min(loose, longestBeginning);
      at -= again;
      end -= again;
      std::memmove(kept.data() + at, kept.data() + end, again);
      loose -= again;
    }
  }
  kept.resize(end);
  return kept;
}

// The characters whose membership in the set is as wanted.
std::string filtered(std::string_view text, const CharacterSet& set, bool wanted) {
  return set.isDecidedByBytes() ? filteredByBytes(text, set, wanted) : filteredByScalars(text, set, wanted);
}

}  // namespace

std::string removingDisallowedCharacters(std::string_view text, const CharacterSet& disallowedCharactersSet) {
  return filtered(text, disallowedCharactersSet, false);
}

std::string removingAllExcept(std::string_view text, const CharacterSet& allowedCharactersSet) {
  return filtered(text, allowedCharactersSet, true);
}

std::string removingInvalidLtfsCharacters(std::string_view text) {
  return removingDisallowedCharacters(text, invalidLtfsCharacters);
}

std::string removingDisallowedMacOSFilesystemCharacters(std::string_view text) {
  return removingDisallowedCharacters(text, disallowedMacOSCharacters);
}

}  // namespace quillonic
