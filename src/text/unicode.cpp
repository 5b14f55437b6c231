#include "text/unicode.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "text/ascii.hpp"
#include "text/utf8.hpp"

namespace quillonic::text {
namespace {

constexpr bool isWhiteSpace(char32_t scalar) noexcept {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 || scalar == 0x2029 ||
         scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

// The number of leading bytes of white space.
std::size_t leadingWhiteSpace(std::string_view text) noexcept {
  if (text.empty()) return 0;
  const auto [scalar, length, valid] = utf8::decode(text);
  return valid && isWhiteSpace(scalar) ? length : 0;
}

// The number of trailing bytes of white space. White space takes at most three bytes, and a byte that begins
// a scalar is never inside another one, so looking back from the end finds what reading from the start would.
std::size_t trailingWhiteSpace(std::string_view text) noexcept {
  std::size_t length = std::min<std::size_t>(1, text.size());
  while (length < std::min<std::size_t>(3, text.size()) && utf8::isContinuation(text[text.size() - length])) {
    ++length;
  }
  return leadingWhiteSpace(text.substr(text.size() - length)) == length ? length : 0;
}

// Upper-case scalars from `first` to `last`, `step` apart, each `distance` from its lower-case form.
struct LowerCaseRange {
  char32_t first;
  char32_t last;
  std::uint32_t step;
  std::int32_t distance;
};

constexpr auto lowerCaseRanges = std::to_array<LowerCaseRange>({
#include "text/lower_case_table.inc"
});

char32_t simpleLowerCase(char32_t scalar) noexcept {
  const auto next = std::ranges::upper_bound(lowerCaseRanges, scalar, {}, &LowerCaseRange::first);
  if (next == lowerCaseRanges.begin()) return scalar;
  const auto& range = *std::prev(next);
  if (scalar > range.last || (scalar - range.first) % range.step != 0) return scalar;
  return static_cast<char32_t>(static_cast<std::int32_t>(scalar) + range.distance);
}

std::string lowerCasedWith(std::string_view text, std::string_view dottedI) {
  // Most texts are ASCII.
  const auto* const other =
      std::ranges::find_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  auto result = ascii::loweredText(std::string(text.begin(), other));
  for (text = {other, text.end()}; !text.empty();) {
    const auto [scalar, length, valid] = utf8::decode(text);
    if (!valid) {
      result.push_back(text.front());
    } else if (scalar == 0x130) {
      result.append(dottedI);
    } else {
      utf8::append(result, simpleLowerCase(scalar));
    }
    text.remove_prefix(length);
  }
  return result;
}

}  // namespace

std::string_view trimmed(std::string_view text) noexcept {
  while (const auto length = leadingWhiteSpace(text)) text.remove_prefix(length);
  while (const auto length = trailingWhiteSpace(text)) text.remove_suffix(length);
  return text;
}

std::string lowerCased(std::string_view text) {
  return lowerCasedWith(text, "i\u0307");
}

std::string lowerCasedEach(std::string_view text) {
  return lowerCasedWith(text, "i");
}

}  // namespace quillonic::text
