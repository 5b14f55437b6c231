/// Colour depths of a video.
///
///     static_assert(rawValue(ColorDepth::bpp10) == 10);
///     static_assert(fromRawValue<ColorDepth>(10) == ColorDepth::bpp10);
///     description(ColorDepth::bpp10);                                       // "10 bpp"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/codec_limits.hpp>
#include <quillonic/platform/conversion_options.hpp>
#include <quillonic/support/enumeration.hpp>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// Bits per pixel component. The raw value is the number of bits; another number is no depth.
enum class ColorDepth : std::int64_t { bpp8 = 8, bpp10 = 10, bpp12 = 12, bpp16 = 16 };

/// One depth, its number and its text.
struct ColorDepthRow : CaseRow<ColorDepth, std::int64_t> {
  /// What is shown of the depth, in English.
  std::string_view text;
};

/// The depths, ascending.
template <> struct CaseTable<ColorDepth> {
  static constexpr auto rows = std::to_array<ColorDepthRow>({
      {{ColorDepth::bpp8, 8}, "8 bpp"},
      {{ColorDepth::bpp10, 10}, "10 bpp"},
      {{ColorDepth::bpp12, 12}, "12 bpp"},
      {{ColorDepth::bpp16, 16}, "16 bpp"},
  });
};

/// The text by which a program tells the depths apart, "10 bpp"; empty for a number that no case bears.
constexpr std::string_view tag(ColorDepth depth) noexcept {
  for (const auto& row : CaseTable<ColorDepth>::rows) {
    if (row.value == depth) return row.text;
  }
  return {};
}

/// The tag in the user's language, also for pickers.
QUILLONIC_EXPORT std::string description(ColorDepth depth);
/// The same as `description`.
QUILLONIC_EXPORT std::string pickerDescription(ColorDepth depth);

/// The depths that a codec accepts, ascending. The span stays valid for the life of the program.
template <std::same_as<ColorDepth> Depth>
constexpr std::span<const Depth> allowed(Cloud_ConversionOptions::CodecType codec) noexcept {
  const auto& limits = codecLimits(codec);
  const auto depths = allCases<Depth>();
  const auto first = std::ranges::lower_bound(depths, limits.leastDepth, {}, rawValue<Depth>);
  const auto last = std::ranges::upper_bound(depths, limits.greatestDepth, {}, rawValue<Depth>);
  return {first, last};
}

/// The stored depth; nothing when the stored number is none of them.
template <std::same_as<ColorDepth> Depth>
constexpr std::optional<Depth> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  return fromRawValue<Depth>(video.colorDepth);
}

/// Stores the depth.
constexpr void storeIn(ColorDepth depth, Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  video.colorDepth = static_cast<std::int64_t>(depth);
}

}  // namespace quillonic
