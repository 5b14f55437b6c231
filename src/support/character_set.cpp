#include <quillonic/support/character_set.hpp>

#include <algorithm>
#include <utility>

#include "text/utf8.hpp"

namespace quillonic {

void CharacterSet::addBeyondAscii(std::string_view text) {
  std::u32string scalars;
  for (std::size_t at = 0; at < text.size();) {
    const auto [scalar, length, valid] = utf8::decode(text.substr(at));
    if (valid && scalar >= ascii_.size()) scalars.push_back(scalar);
    at += length;
  }
  std::ranges::sort(scalars);
  scalars.erase(std::unique(scalars.begin(), scalars.end()), scalars.end());
  if (!scalars.empty()) beyondAscii_ = std::move(scalars);
}

}  // namespace quillonic
