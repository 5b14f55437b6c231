#include <quillonic/filesystem/legal_names.hpp>

#include "platform/utf8.hpp"

namespace quillonic {
namespace {

// The characters whose membership in the set is as wanted. Each is written, and counts only where it stays:
// there is no branch to guess for text in ASCII.
std::string filtered(std::string_view text, const CharacterSet& set, bool wanted) {
  std::string kept(text.size(), '\0');
  std::size_t size = 0;
  if (set.isDecidedByBytes()) {
    for (const char c : text) {
      kept[size] = c;
      size += static_cast<std::size_t>(set.containsByte(static_cast<unsigned char>(c)) == wanted);
    }
  } else {
    for (std::size_t at = 0; at < text.size();) {
      const auto [scalar, length, valid] = utf8::decode(text.substr(at));
      const bool isMember =
          valid ? set.contains(scalar) : set.containsByte(static_cast<unsigned char>(text[at]));
      if (isMember == wanted) size += text.copy(kept.data() + size, length, at);
      at += length;
    }
  }
  kept.resize(size);
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
