// The letters and digits of ASCII, in any locale. Other bytes are neither and stay.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quillonic::ascii {

constexpr bool isDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}
constexpr bool isDigits(std::string_view text) noexcept {
  return std::ranges::all_of(text, isDigit);
}

constexpr bool isUpper(char c) noexcept {
  return c >= 'A' && c <= 'Z';
}
constexpr bool isLower(char c) noexcept {
  return c >= 'a' && c <= 'z';
}
constexpr bool isLetter(char c) noexcept {
  return isUpper(c) || isLower(c);
}

constexpr char lowered(char c) noexcept {
  return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char raised(char c) noexcept {
  return isLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept {
  return std::ranges::equal(a, b, {}, lowered, lowered);
}

inline std::string loweredText(std::string text) {
  for (char& c : text) c = lowered(c);
  return text;
}

}  // namespace quillonic::ascii
