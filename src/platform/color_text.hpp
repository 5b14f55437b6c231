// A colour on the transcoder's command line: red, green and blue as integers; 255 is full.
#pragma once

#include <quillonic/platform/color.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillonic::color_text {

// Reads three decimal numbers separated by commas; nothing for other texts.
std::optional<Color> fromOutOf255(std::string_view text);

// Nothing for a colour without an RGB form, or with a component outside 64-bit integers.
std::optional<std::string> outOf255(const Color& color);

}  // namespace quillonic::color_text
