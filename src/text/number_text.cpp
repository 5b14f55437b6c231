#include "text/number_text.hpp"

#include <array>
#include <cmath>

namespace quillonic::number_text {
namespace {

// With `places`, that many digits after the point; without, as many as the number needs.
template <class Number, class... Places> std::string fixedText(Number number, Places... places) {
  if (std::isnan(number)) return "nan";
  // The longest number is the smallest denormal: 324 places and the digits that distinguish it.
  std::array<char, 400> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::fixed, places...);
  std::string text(buffer.data(), result.ptr);
  if (std::isfinite(number) && text.find('.') == std::string::npos) text += ".0";
  return text;
}

}  // namespace

std::string shortest(double number) {
  return fixedText(number);
}
std::string shortest(float number) {
  return fixedText(number);
}
std::string rounded(double number, int places) {
  return fixedText(number, places);
}

std::string padded(std::int64_t number, std::size_t width) {
  auto text = std::to_string(number);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace quillonic::number_text
