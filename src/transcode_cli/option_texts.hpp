// The texts of option values: how a value stands on a command line, and which value a text is.
#pragma once

#include <quillonic/platform/color.hpp>
#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/number_text.hpp"
#include "platform/text.hpp"

namespace quillonic::option_texts {

// Texts that are the value, taken to the byte.
template <class Value>
concept Verbatim = std::same_as<Value, std::string> || std::same_as<Value, std::string_view> ||
    std::same_as<Value, std::filesystem::path>;

template <class Value>
concept Number = std::same_as<Value, double> || std::same_as<Value, std::int64_t>;

// A word that begins with a hyphen is a flag, so no negative number can stand on a command line.
template <Number Value> bool isWritable(Value number) noexcept {
  return number >= 0 && std::isfinite(static_cast<double>(number));
}

template <Number Value> std::optional<Value> number(std::string_view text) noexcept {
  const auto read = number_text::read<Value>(text);
  return read && isWritable(*read) ? read : std::nullopt;
}

inline std::optional<FrameSize> frameSize(std::string_view text) noexcept {
  const auto divide = text.find_first_of("xX");
  if (divide == std::string_view::npos) return std::nullopt;
  const auto width = number<std::int64_t>(text.substr(0, divide));
  const auto height = number<std::int64_t>(text.substr(divide + 1));
  return width && height ? std::optional(FrameSize{*width, *height}) : std::nullopt;
}

inline std::optional<Color> color(std::string_view text) {
  std::array<double, 3> components;
  for (std::size_t i = 0; i < components.size(); ++i) {
    const bool isLast = i + 1 == components.size();
    const auto divide = text.find(',');
    if (isLast != (divide == std::string_view::npos)) return std::nullopt;
    const auto component = number_text::read<double>(text.substr(0, divide));
    if (!component || !std::isfinite(*component)) return std::nullopt;
    components[i] = *component / 255;
    if (!isLast) text.remove_prefix(divide + 1);
  }
  return Color::rgb(components[0], components[1], components[2]).inGenericRgbSpace();
}

// Without regard to case, because parsing has lower-cased what it read.
template <class Value> std::optional<Value> listed(std::string_view text) {
  const auto wanted = text::lowerCased(text);
  const auto found = std::ranges::find(allCases<Value>(), wanted,
                                       [](const Value& value) { return text::lowerCased(value.rawValue()); });
  return found != allCases<Value>().end() ? std::optional(*found) : std::nullopt;
}

// The value that the text of a flag is.
template <class Value> std::optional<Value> read(std::string_view text) {
  if constexpr (Verbatim<Value>) {
    return Value(text);
  } else if constexpr (Number<Value>) {
    return number<Value>(text::trimmed(text));
  } else if constexpr (std::same_as<Value, FrameSize>) {
    return frameSize(text::trimmed(text));
  } else if constexpr (std::same_as<Value, Color>) {
    return color(text::trimmed(text));
  } else if constexpr (TranscodeAnchor<Value>) {
    return read<VAVTranscodeArgumentOverlayAnchorValue>(text);
  } else {
    return listed<Value>(text::trimmed(text));
  }
}

// The text of a value; nothing for a value that has none.

// Red, green and blue, 255 being full.
inline std::optional<std::array<double, 3>> components(const Color& color) noexcept {
  if (const auto rgb = color.rgbComponents()) {
    const auto scaled = [](double component) { return component < 1 ? 255 * component : component; };
    return std::array{scaled(rgb->red), scaled(rgb->green), scaled(rgb->blue)};
  }
  if (const auto generic = color.inGenericRgbSpace()) {
    const auto rgb = *generic->rgbComponents();
    return std::array{255 * rgb.red, 255 * rgb.green, 255 * rgb.blue};
  }
  return std::nullopt;
}

inline std::optional<std::string> written(const Color& color) {
  const auto numbers = components(color);
  if (!numbers) return std::nullopt;
  std::string text;
  for (const double number : *numbers) {
    // Also turns down what is not a number.
    if (!(number >= -0x1p63 && number < 0x1p63)) return std::nullopt;
    text.append(text.empty() ? "" : ",").append(std::to_string(static_cast<std::int64_t>(number)));
  }
  return text;
}

template <Number Value> std::optional<std::string> written(Value number) {
  if (!isWritable(number)) return std::nullopt;
  if constexpr (std::same_as<Value, double>) {
    return number_text::shortest(number + 0.0);  // Takes the sign off a negative zero.
  } else {
    return std::to_string(number);
  }
}

inline std::optional<std::string> written(const FrameSize& size) {
  const auto width = written(size.width);
  const auto height = written(size.height);
  return width && height ? std::optional(*width + "x" + *height) : std::nullopt;
}

inline std::optional<std::string> written(std::string_view text) {
  return std::string(text);
}

inline std::optional<std::string> written(const std::filesystem::path& path) {
  return path.string();
}

template <TranscodeAnchor Value> std::optional<std::string> written(const Value& anchor) {
  return std::string(anchor.rawValue());
}

}  // namespace quillonic::option_texts
