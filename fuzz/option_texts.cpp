// Any text, one per line, as a number, a frame size, a colour and a fixed value of the flags that take them.
#include <quillonic/transcode_cli.hpp>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Model = TranscodeCliArguments;

bool hasOnly(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

std::string textOf(const Model& model, std::string_view flag) {
  return std::string(model.argumentFlagValue(flag).value_or("absent"));
}

// Sets the value that was read; it must then read back equal and be written the same again.
template <class Value, class Set, class Get>
std::string written(Model& model, std::string_view flag, const Value& value, Set set, Get get) {
  (model.*set)(value);
  require((model.*get)() == value, "a value that is set reads back");
  auto text = textOf(model, flag);
  model.setArgumentFlagValue(flag, text);
  (model.*set)((model.*get)());
  require(textOf(model, flag) == text, "a value that was written is written the same again");
  return text;
}

void checkDecimal(std::string_view given) {
  Model model;
  model.setArgumentFlagValue(VAVVideoFrameRateFlag, given);
  const auto value = model.videoFrameRate();
  // Digits around one point need no library to be read.
  const bool isPlain =
      hasOnly(given, "0123456789.") && given.front() != '.' && given.find('.') == given.rfind('.');
  require(!isPlain || value.has_value() || given.size() > 300, "a plain decimal reads");
  if (!value) return;
  require(std::isfinite(*value) && *value >= 0, "a number is zero or more and finite");
  if (isPlain)
    require(*value == std::strtod(std::string(given).c_str(), nullptr),
            "a decimal is read as the C library does");
  const auto text =
      written(model, VAVVideoFrameRateFlag, value, &Model::setVideoFrameRate, &Model::videoFrameRate);
  require(hasOnly(text, "0123456789.") && text.find('.') > 0 && text.find('.') + 1 < text.size(),
          "a decimal is written with a digit on both sides of its point");
}

void checkInteger(std::string_view given) {
  Model model;
  model.setArgumentFlagValue(VAVVideoBitDepthFlag, given);
  const auto value = model.videoBitDepth();
  if (hasOnly(given, "0123456789") && given.size() <= 18) {
    require(value == std::strtoll(std::string(given).c_str(), nullptr, 10), "digits read as their number");
  }
  if (!value) return;
  require(*value >= 0, "an integer is zero or more");
  const auto text =
      written(model, VAVVideoBitDepthFlag, value, &Model::setVideoBitDepth, &Model::videoBitDepth);
  require(text == std::to_string(*value), "an integer is written in digits");

  // Tracks hold any integer; they are read in order, each once.
  model.setArgumentFlagValue("-ac_omit_7", given);
  model.setArgumentFlagValue("-ac_omit_3", given);
  const auto tracks = model.ignoredAudioTracks();
  require(tracks == std::vector<std::int64_t>{*value}, "equal tracks count once");
}

void checkFrameSize(std::string_view given) {
  Model model;
  model.setArgumentFlagValue(VAVVideoDimensionsFlag, given);
  const auto value = model.videoDimensions();
  if (!value) return;
  require(value->width >= 0 && value->height >= 0, "a frame size is zero or more");
  const auto text =
      written(model, VAVVideoDimensionsFlag, value, &Model::setVideoDimensions, &Model::videoDimensions);
  require(text == std::to_string(value->width) + "x" + std::to_string(value->height),
          "a frame size is written plainly");
}

// The colour is written as the integers of these numbers, and then the same again when it was read.
void checkWritten(const Color& color, const std::array<double, 3>& numbers) {
  Model model;
  model.setTimecodeBurnFontColor(color);
  std::string expected;
  for (const double number : numbers) {
    const double full = std::trunc(number);
    if (!(full >= -0x1p63 && full < 0x1p63)) {
      require(!model.hasArgumentFlag(VAVTimecodeBurnFontRGB),
              "a colour that no integers hold is not written");
      return;
    }
    expected += (expected.empty() ? "" : ",") + std::to_string(static_cast<std::int64_t>(full));
  }
  require(textOf(model, VAVTimecodeBurnFontRGB) == expected,
          "a colour is written as its integers out of 255");
  const auto read = model.timecodeBurnFontColor();
  require(read.has_value(), "a colour that is written reads");
  Model other;
  other.setTimecodeBurnFontColor(read);
  require(textOf(other, VAVTimecodeBurnFontRGB) == expected, "a colour that was read is written the same");
}

void checkColor(std::string_view given) {
  Model model;
  model.setArgumentFlagValue(VAVTimecodeBurnFontRGB, given);
  const auto color = model.timecodeBurnFontColor();
  if (!color) return;
  const auto rgb = color->rgbComponents();
  require(rgb && rgb->alpha == 1.0 && std::isfinite(rgb->red) && std::isfinite(rgb->green) &&
              std::isfinite(rgb->blue),
          "a colour reads as an opaque one with finite parts");
  require(color->inGenericRgbSpace() == color, "an RGB colour is its own RGB form");

  // A colour that was read is written with its numbers, and one made of the same fractions by their rule.
  const auto numbers = color->outOf255().value();
  checkWritten(*color, {numbers.red, numbers.green, numbers.blue});
  const auto scaled = [](double part) { return part < 1 ? 255 * part : part; };
  checkWritten(Color::rgb(rgb->red, rgb->green, rgb->blue),
               {scaled(rgb->red), scaled(rgb->green), scaled(rgb->blue)});
}

void checkFixedValue(std::string_view given) {
  Model model;
  model.setArgumentFlagValue(VAVVideoColorSpaceFlag, given);
  if (const auto value = model.videoColorSpace()) {
    const auto text =
        written(model, VAVVideoColorSpaceFlag, value, &Model::setVideoColorSpace, &Model::videoColorSpace);
    require(VAVTranscodeArgumentColorSpaceValue::fromStringValue(text) == value, "only listed values read");
  }
  model.setVideoProfile(given);
  require(model.videoProfile() == std::optional<std::string>(given), "a text is kept to the byte");
}

}  // namespace

void run(std::string_view bytes) {
  for (const auto line : lines(bytes)) {
    checkDecimal(line);
    checkInteger(line);
    checkFrameSize(line);
    checkColor(line);
    checkFixedValue(line);
  }
}

}  // namespace quillonic::fuzz
