#include <quillonic/filesystem/legal_names.hpp>

#include <cstddef>

#include "platform/utf8.hpp"

namespace quillonic {
namespace {

// The characters whose membership in the set is as wanted.
std::string filtered(std::string_view text, const CharacterSet& set, bool wanted) {
  std::string kept(text.size(), '\0');
  char* end = kept.data();
  const auto staysAsByte = [&](char c) { return set.containsByte(static_cast<unsigned char>(c)) == wanted; };
  if (set.isDecidedByBytes()) {
    // Each byte is written and counts only where it stays, so that there is no branch to guess.
    for (const char c : text) {
      *end = c;
      end += static_cast<std::ptrdiff_t>(staysAsByte(c));
    }
  } else {
    for (std::size_t at = 0; at < text.size();) {
      const auto [scalar, length, valid] = utf8::decode(text.substr(at));
      const bool stays = valid ? set.contains(scalar) == wanted : staysAsByte(text[at]);
      if (stays) end += text.copy(end, length, at);
      at += length;
    }
  }
  kept.resize(static_cast<std::size_t>(end - kept.data()));
  return kept;
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
