// Option values as texts on a command line, written and read.
#pragma once

#include <quillonic/platform/color.hpp>
#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/color_text.hpp"
#include "text/number_text.hpp"
#include "text/unicode.hpp"

namespace quillonic::option_texts {

// Values that are texts, unchanged.
template <class Value>
concept Verbatim = std::same_as<Value, std::string> || std::same_as<Value, std::string_view> ||
    std::same_as<Value, std::filesystem::path>;

template <class Value>
concept Number = std::same_as<Value, double> || std::same_as<Value, std::int64_t>;

// A word with a leading hyphen is a flag, so a command line cannot have negative numbers.
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

// Ignores case, because parsing lower-cases values.
template <class Value> std::optional<Value> listed(std::string_view text) {
  const auto wanted = text::lowerCased(text);
  const auto found = std::ranges::find(allCases<Value>(), wanted,
                                       [](const Value& value) { return text::lowerCased(value.rawValue()); });
  return found != allCases<Value>().end() ? std::optional(*found) : std::nullopt;
}

// Reads the text of a flag as a value.
template <class Value> std::optional<Value> read(std::string_view text) {
  if constexpr (Verbatim<Value>) {
    return Value(text);
  } else if constexpr (Number<Value>) {
    return number<Value>(text::trimmed(text));
  } else if constexpr (std::same_as<Value, FrameSize>) {
    return frameSize(text::trimmed(text));
  } else if constexpr (std::same_as<Value, Color>) {
    return color_text::fromOutOf255(text::trimmed(text));
  } else if constexpr (TranscodeAnchor<Value>) {
    return read<VAVTranscodeArgumentOverlayAnchorValue>(text);
  } else {
    return listed<Value>(text::trimmed(text));
  }
}

// Writes a value; nothing for a value without a text.

template <Number Value> std::optional<std::string> written(Value number) {
  if (!isWritable(number)) return std::nullopt;
  if constexpr (std::same_as<Value, double>) {
    return number_text::shortest(number + 0.0);  // Removes the sign of a negative zero.
  } else {
    return std::to_string(number);
  }
}

inline std::optional<std::string> written(const FrameSize& size) {
  const auto width = written(size.width);
  const auto height = written(size.height);
  return width && height ? std::optional(*width + "x" + *height) : std::nullopt;
}

inline std::optional<std::string> written(const Color& color) {
  return color_text::outOf255(color);
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
