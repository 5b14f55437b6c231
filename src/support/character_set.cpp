#include <quillonic/support/character_set.hpp>

#include "platform/utf8.hpp"

namespace quillonic {

void CharacterSet::addBeyondAscii(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto [scalar, length, valid] = utf8::decode(text.substr(at));
    if (valid && scalar >= 0x80) beyondAscii_.push_back(scalar);
    at += length;
  }
  std::ranges::sort(beyondAscii_);
  beyondAscii_.erase(std::unique(beyondAscii_.begin(), beyondAscii_.end()), beyondAscii_.end());
}

}  // namespace quillonic
