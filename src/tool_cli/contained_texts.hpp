// A fixed list of texts of which one may occur anywhere within another text.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>

namespace quillonic {

// Sorts the texts and drops every text that begins with another one: where the longer one occurs, the shorter
// one does too. Empty texts match nothing and are dropped as well. Returns the texts that are left.
constexpr std::span<std::string_view> withoutExtensions(std::span<std::string_view> texts) {
  std::ranges::sort(texts);
  std::size_t kept = 0;
  for (const auto text : texts) {
    if (text.empty() || (kept > 0 && text.starts_with(texts[kept - 1]))) continue;
    texts[kept++] = text;
  }
  return texts.first(kept);
}

// Looks for any of the texts in one pass, with one binary search where the first byte of a text stands.
class ContainedTexts {
 public:
  // `texts` must come from `withoutExtensions` and outlive this.
  constexpr explicit ContainedTexts(std::span<const std::string_view> texts) noexcept : texts_(texts) {
    for (const auto text : texts) begins_[static_cast<unsigned char>(text.front())] = true;
  }

  constexpr bool anyOccursIn(std::string_view text) const noexcept {
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (begins_[static_cast<unsigned char>(text[at])] && anyBegins(text.substr(at))) return true;
    }
    return false;
  }

 private:
  // No text begins another one, so only the greatest that does not sort behind `text` can be its beginning.
  constexpr bool anyBegins(std::string_view text) const noexcept {
    const auto behind = std::ranges::upper_bound(texts_, text);
    return behind != texts_.begin() && text.starts_with(*std::prev(behind));
  }

  std::span<const std::string_view> texts_;
  std::array<bool, 256> begins_{};
};

}  // namespace quillonic
