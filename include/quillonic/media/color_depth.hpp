/// Video colour depths.
///
///     static_assert(rawValue(ColorDepth::bpp10) == 10);
///     static_assert(fromRawValue<ColorDepth>(10) == ColorDepth::bpp10);
///     description(ColorDepth::bpp10);                                       // "10 bpp"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/enumerated_setting.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// Bits per pixel component, which is the raw value.
enum class ColorDepth : std::int64_t { bpp8 = 8, bpp10 = 10, bpp12 = 12, bpp16 = 16 };

/// One depth, its number and its text.
struct ColorDepthRow : CaseRow<ColorDepth, std::int64_t> {
  /// The display text in English.
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

/// The text that identifies the depth in programs, "10 bpp"; empty for an unlisted value.
constexpr std::string_view tag(ColorDepth depth) noexcept {
  const auto* row = detail::rowOf(depth);
  return row ? row->text : std::string_view{};
}

/// The tag in the user's language.
QUILLONIC_EXPORT std::string description(ColorDepth depth);
/// The tag in the user's language, like `description`.
QUILLONIC_EXPORT std::string pickerDescription(ColorDepth depth);

/// The depths that a codec accepts, ascending.
template <> constexpr std::span<const ColorDepth> allowed(Cloud_ConversionOptions::CodecType codec) noexcept {
  const auto& limits = codecLimits(codec);
  const auto depths = allCases<ColorDepth>();
  auto first = depths.begin();
  while (first != depths.end() && rawValue(*first) < limits.leastDepth) ++first;
  auto last = first;
  while (last != depths.end() && rawValue(*last) <= limits.greatestDepth) ++last;
  return {first, last};
}

/// The stored depth; nothing for an unlisted number.
template <>
constexpr std::optional<ColorDepth> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  return fromRawValue<ColorDepth>(video.colorDepth);
}

/// Stores the depth.
constexpr void storeIn(ColorDepth depth, Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  video.colorDepth = static_cast<std::int64_t>(depth);
}

}  // namespace quillonic
