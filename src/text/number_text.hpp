// Numbers as text, the same in every locale.
#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::number_text {

// The shortest decimal that reads back to the same value, without an exponent and with a digit after the
// point: "400.0", "0.25". Or "inf", "-inf" or "nan".
std::string shortest(double number);
std::string shortest(float number);

// Exactly this many digits, 1 to 50, after the point, rounded to nearest: "90.0". Or "inf", "-inf" or "nan".
std::string rounded(double number, int places);

// Adds leading zeros up to this many characters, the sign included: "05", "-5".
std::string padded(std::int64_t number, std::size_t width);

// Reads the whole text as a number: decimal digits after an optional "-"; a floating-point number may have a
// fraction and an exponent, or be "inf" or "nan". Nothing for spaces, a "+", an empty text, or a number that
// does not fit.
template <class Number>
requires std::integral<Number> || std::floating_point<Number> std::optional<Number> read(
    std::string_view text)
noexcept {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

}  // namespace quillonic::number_text
