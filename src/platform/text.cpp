#include "platform/text.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "platform/utf8.hpp"

namespace quillonic::text {
namespace {

constexpr bool isWhiteSpace(char32_t scalar) noexcept {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 || scalar == 0x2029 ||
         scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

// How many bytes of white space the text begins with, 0 when it begins with something else.
std::size_t leadingWhiteSpace(std::string_view text) noexcept {
  const auto [scalar, length, valid] = utf8::decode(text);
  return valid && isWhiteSpace(scalar) ? length : 0;
}

// The same for its end. White space takes at most three bytes, and a byte that begins a scalar is never the
// middle of another one, so looking back from the end finds what reading from the start would.
std::size_t trailingWhiteSpace(std::string_view text) noexcept {
  for (std::size_t length = 1; length <= std::min<std::size_t>(3, text.size()); ++length) {
    const auto tail = text.substr(text.size() - length);
    if (leadingWhiteSpace(tail) == length) return length;
  }
  return 0;
}

// Upper-case scalars from `first` to `last`, `step` apart, each `distance` away from its lower-case form.
struct LowerCaseRange {
  char32_t first;
  char32_t last;
  std::uint32_t step;
  std::int32_t distance;
};

constexpr auto lowerCaseRanges = std::to_array<LowerCaseRange>({
#include "platform/lower_case_table.inc"
});

char32_t simpleLowerCase(char32_t scalar) noexcept {
  const auto next = std::ranges::upper_bound(lowerCaseRanges, scalar, {}, &LowerCaseRange::first);
  if (next == lowerCaseRanges.begin()) return scalar;
  const auto& range = *std::prev(next);
  if (scalar > range.last || (scalar - range.first) % range.step != 0) return scalar;
  return static_cast<char32_t>(static_cast<std::int32_t>(scalar) + range.distance);
}

// What lower-casing the ASCII letters of a text came across.
struct Seen {
  std::uint64_t bytes = 0;
  std::uint64_t upperCase = 0;
};

// Lower-cases the ASCII letters among eight bytes at once. With the high bits out of the way, adding carries into a
// byte's high bit where the byte is at least "A", or beyond "Z".
void lowerCaseEight(char* bytes, Seen& seen) noexcept {
  constexpr std::uint64_t ones = 0x0101010101010101U;
  std::uint64_t before = 0;
  std::memcpy(&before, bytes, sizeof before);
  const auto low = before & (0x7FU * ones);
  const auto fromA = low + (0x80U - 'A') * ones;
  const auto beyondZ = low + (0x7FU - 'Z') * ones;
  const auto isUpper = fromA & ~beyondZ & ~before & (0x80U * ones);
  const auto after = before | isUpper >> 2U;
  std::memcpy(bytes, &after, sizeof after);
  seen.bytes |= before;
  seen.upperCase |= isUpper;
}

void lowerCaseOne(char& byte, Seen& seen) noexcept {
  seen.bytes |= static_cast<unsigned char>(byte);
  if (byte < 'A' || byte > 'Z') return;
  byte = static_cast<char>(byte + ('a' - 'A'));
  seen.upperCase = 1;
}

void lowerCaseUnicode(std::string_view text, std::string& result) {
  result.clear();
  result.reserve(text.size());
  while (!text.empty()) {
    const auto [scalar, length, valid] = utf8::decode(text);
    if (!valid) {
      result.push_back(text.front());
    } else if (scalar == 0x130) {
      result.append("i\u0307");
    } else {
      utf8::append(result, simpleLowerCase(scalar));
    }
    text.remove_prefix(length);
  }
}

}  // namespace

std::string_view trimmed(std::string_view text) noexcept {
  // The usual word begins and ends with a printable character of ASCII.
  const auto isPrintable = [](char c) { return c > ' ' && c < '\x7F'; };
  if (!text.empty() && isPrintable(text.front()) && isPrintable(text.back())) return text;
  while (!text.empty()) {
    const auto length = leadingWhiteSpace(text);
    if (length == 0) break;
    text.remove_prefix(length);
  }
  while (!text.empty()) {
    const auto length = trailingWhiteSpace(text);
    if (length == 0) break;
    text.remove_suffix(length);
  }
  return text;
}

std::string lowerCased(std::string_view text) {
  std::string result;
  lowerCase(text, result);
  return result;
}

bool lowerCase(std::string_view text, std::string& result) {
  result.assign(text);
  Seen seen;
  if (result.size() >= 8) {
    // The last eight may be met twice, which changes nothing.
    for (std::size_t at = 0; at + 8 < result.size(); at += 8) lowerCaseEight(&result[at], seen);
    lowerCaseEight(&result[result.size() - 8], seen);
  } else {
    for (char& c : result) lowerCaseOne(c, seen);
  }
  constexpr std::uint64_t highBits = 0x8080808080808080U;
  if ((seen.bytes & highBits) == 0) return seen.upperCase != 0;
  lowerCaseUnicode(text, result);
  return result != text;
}

}  // namespace quillonic::text
