#include <quillonic/filesystem/legal_names.hpp>

#include <algorithm>
#include <cstddef>

#include "text/utf8.hpp"

namespace quillonic {
namespace {

// The characters that are in the set, or not, as wanted.
std::string filtered(std::string_view text, const CharacterSet& set, bool wanted) {
  std::string kept;
  kept.reserve(text.size());
  while (!text.empty()) {
    const auto [scalar, length, valid] = utf8::decode(text);
    if (set.contains(scalar) == wanted) kept.append(text, 0, length);
    text.remove_prefix(length);
    if (valid) continue;
    // A byte that is not UTF-8 may complete a character now that others are gone; judge that character too.
    for (std::size_t size = 2; size <= std::min<std::size_t>(4, kept.size()); ++size) {
      const auto last = utf8::decode(std::string_view(kept).substr(kept.size() - size));
      if (last.length == size && set.contains(last.scalar) != wanted) kept.resize(kept.size() - size);
    }
  }
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
