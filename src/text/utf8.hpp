// UTF-8, one scalar at a time. Bytes that are not UTF-8 are reported and never repaired: a file name is
// bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillonic::utf8 {

// In no text, and so in no set of scalars.
inline constexpr char32_t noScalar = 0xFFFFFFFF;

struct Decoded {
  char32_t scalar;     // `noScalar` when invalid
  std::size_t length;  // bytes taken, 1 for a byte that begins no scalar
  bool valid;
};

// Whether a byte can only be a later one of a scalar.
constexpr bool isContinuation(char c) noexcept {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

// The scalar at the start of a text that is not empty.
constexpr Decoded decode(std::string_view text) noexcept {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, 1, true};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {noScalar, 1, false};
  char32_t scalar = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return {noScalar, 1, false};
    scalar = (scalar << 6) | (byte(i) & 0x3FU);
  }
  const bool overlong = (length == 3 && scalar < 0x800) || (length == 4 && scalar < 0x10000);
  const bool surrogate = scalar >= 0xD800 && scalar <= 0xDFFF;
  if (overlong || surrogate || scalar > 0x10FFFF) return {noScalar, 1, false};
  return {scalar, length, true};
}

inline void append(std::string& text, char32_t scalar) {
  const auto put = [&](char32_t byte) {
    text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (scalar < 0x80) {
    put(scalar);
  } else if (scalar < 0x800) {
    put(0xC0 | (scalar >> 6));
    put(0x80 | (scalar & 0x3F));
  } else if (scalar < 0x10000) {
    put(0xE0 | (scalar >> 12));
    put(0x80 | ((scalar >> 6) & 0x3F));
    put(0x80 | (scalar & 0x3F));
  } else {
    put(0xF0 | (scalar >> 18));
    put(0x80 | ((scalar >> 12) & 0x3F));
    put(0x80 | ((scalar >> 6) & 0x3F));
    put(0x80 | (scalar & 0x3F));
  }
}

}  // namespace quillonic::utf8
