// A colour as the transcoder's command line has it: red, green and blue as integers, 255 being full.
#pragma once

#include <quillonic/platform/color.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillonic::color_text {

// Three decimal numbers with commas between them; nothing for any other text.
std::optional<Color> fromOutOf255(std::string_view text);

// Nothing for a colour without an RGB form, or with a component that no 64-bit integer holds.
std::optional<std::string> outOf255(const Color& color);

}  // namespace quillonic::color_text
