/// Video frame sizes: a scale of the source, a common size, or any other.
///
///     static_assert(VideoDimension::tenEightyP.size() == VideoSize{1920, 1080});
///     static_assert(VideoDimension::half.isScaleOption());
///     VideoDimension::custom(400, 300).description();                        // "Custom: 400.0 x 300.0"
///     VideoDimension dimension = VideoDimension::fromProto(preset.videoOptions);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/case_with_payload.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/video_size.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic {

/// The cases of `VideoDimension`, in order.
enum class VideoDimensionKind : std::uint8_t {
  custom,
  scaled,
  match,
  half,
  quarter,
  eighth,
  sixteenth,
  twoTwentyP,
  twoSeventyP,
  fourEightyP,
  fiveFortyP,
  sevenTwentyP,
  tenEightyP,
  fourK,
};

namespace detail {

struct VideoDimensionRow {
  VideoDimensionKind kind;
  VideoSize size;
  std::string_view text;
};

inline constexpr auto videoDimensionRows = std::to_array<VideoDimensionRow>({
    {VideoDimensionKind::custom, {}, "custom"},
    {VideoDimensionKind::scaled, {}, "scaled"},
    {VideoDimensionKind::match, {0, 0}, "Match"},
    {VideoDimensionKind::half, {0.5, 0.5}, "Half"},
    {VideoDimensionKind::quarter, {0.25, 0.25}, "Quarter"},
    {VideoDimensionKind::eighth, {0.125, 0.125}, "Eighth"},
    {VideoDimensionKind::sixteenth, {0.0625, 0.0625}, "Sixteenth"},
    // Both the 220 lines and the missing spaces are intended: presets and pickers rely on them.
    {VideoDimensionKind::twoTwentyP, {320, 220}, "QVGA (320x220)"},
    {VideoDimensionKind::twoSeventyP, {480, 270}, "270p (480 x 270)"},
    {VideoDimensionKind::fourEightyP, {640, 480}, "VGA (640 x 480)"},
    {VideoDimensionKind::fiveFortyP, {960, 540}, "qHD (960 x 540)"},
    {VideoDimensionKind::sevenTwentyP, {1280, 720}, "HD (1280 x 720)"},
    {VideoDimensionKind::tenEightyP, {1920, 1080}, "Full HD (1920 x 1080)"},
    {VideoDimensionKind::fourK, {3840, 2160}, "4K UHD (3840 x 2160)"},
});

QUILLONIC_EXPORT void reportUnfitDimension(double width, double height);

}  // namespace detail

/// A frame size.
class VideoDimension : public CaseWithPayload<VideoDimensionKind, VideoSize> {
 public:
  /// The size of the source.
  static const VideoDimension match;
  /// Half of each side of the source.
  static const VideoDimension half;
  /// A quarter of each side.
  static const VideoDimension quarter;
  /// An eighth of each side.
  static const VideoDimension eighth;
  /// A sixteenth of each side.
  static const VideoDimension sixteenth;
  /// 320 x 220, unlike the 320 x 230 of `VideoResolution::qvga`: a fixed contract with stored presets.
  static const VideoDimension twoTwentyP;
  /// 480 x 270.
  static const VideoDimension twoSeventyP;
  /// 640 x 480.
  static const VideoDimension fourEightyP;
  /// 960 x 540.
  static const VideoDimension fiveFortyP;
  /// 1280 x 720.
  static const VideoDimension sevenTwentyP;
  /// 1920 x 1080.
  static const VideoDimension tenEightyP;
  /// 3840 x 2160.
  static const VideoDimension fourK;
  /// Any size in pixels, kept as given. Sides of 0, negative sides and NaN mean that no size has been typed
  /// yet.
  static constexpr VideoDimension custom(double width, double height) noexcept {
    return {Kind::custom, {width, height}};
  }
  /// The source's size times any factor, kept as given.
  static constexpr VideoDimension scaled(double factor) noexcept { return {Kind::scaled, {factor, factor}}; }

  /// The factor proposed by a picker.
  static constexpr double customScaleDefaultValue = 0.9;

  /// Pixels; the factor in both fields for `scaled` and the scale cases; 0 x 0 for `match`.
  constexpr VideoSize size() const noexcept { return isCustom() || isCustomScale() ? payload() : row().size; }
  /// The preview frame in pixels: the size, or 1920 x 1080 when it depends on the source.
  constexpr VideoSize previewSize() const noexcept {
    return isScaleOption() ? VideoSize{1920, 1080} : size();
  }

  /// Whether the size is custom, even with the pixels of a fixed case.
  constexpr bool isCustom() const noexcept { return kind() == Kind::custom; }
  /// Whether the factor is custom, even with that of a fixed case.
  constexpr bool isCustomScale() const noexcept { return kind() == Kind::scaled; }
  /// Whether the size depends on the source: `scaled`, and the scale cases including `match`.
  constexpr bool isScaleOption() const noexcept {
    return kind() >= Kind::scaled && kind() <= Kind::sixteenth;
  }

  /// For people, in the user's language: "Half", "Custom: 90.0%", "Custom: 400.0 x 300.0". The percentage is
  /// rounded to one place. "Custom Dimensions" when a side of a custom size is not above 0.
  QUILLONIC_EXPORT std::string description() const;
  /// Like `description`, but "Custom Dimensions" for any custom size and "Custom Scale" for any custom
  /// factor.
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text that identifies the case in programs: the English description, "custom" or "scaled".
  constexpr std::string_view tag() const noexcept { return row().text; }

  /// The scale options, then the exact ones. All spans stay valid for the life of the program.
  static constexpr std::span<const VideoDimension> allCases() noexcept;
  /// The fixed cases.
  static constexpr std::span<const VideoDimension> wellDefinedCases() noexcept;
  /// `match`, the fixed factors, and a scale of `customScaleDefaultValue`.
  static constexpr std::span<const VideoDimension> scaleOptions() noexcept;
  /// The fixed sizes, and a custom one of 400 x 400.
  static constexpr std::span<const VideoDimension> exactDimensionsOptions() noexcept;

  /// The members of a list that are in `exactDimensionsOptions`, in list order. The only custom size among
  /// them is 400 x 400.
  static std::vector<VideoDimension> filterExactDimensionsOptions(std::span<const VideoDimension> from);
  /// The members of a list that are in `scaleOptions`, in list order. The only custom factor among them is
  /// 0.9.
  static std::vector<VideoDimension> filterScaleOptions(std::span<const VideoDimension> from);

  /// The members of `allCases` that a codec accepts, in that order. A codec with a closed list of sizes takes
  /// `match`, because the source may have one of them, but neither another scale nor a custom size.
  static constexpr std::span<const VideoDimension> allAllowedOptions(
      Cloud_ConversionOptions::CodecType codec) noexcept;
  /// The allowed sizes that `filterExactDimensionsOptions` keeps.
  static std::vector<VideoDimension> allowedExactOptions(Cloud_ConversionOptions::CodecType codec);
  /// The allowed sizes that `filterScaleOptions` keeps.
  static std::vector<VideoDimension> allowedScaledOptions(Cloud_ConversionOptions::CodecType codec);

  /// The case for the stored numbers. Width and height above 0 take precedence: the fixed case with exactly
  /// that `size` (0.5 x 0.5 is `half`), else a custom size. A scale above 0 without width and height gives
  /// the fixed case with that factor, else `scaled`. All zeros give `match`. Anything else, such as a width
  /// without a height, a negative number or NaN, prints one line to standard output and gives `match`.
  static constexpr VideoDimension fromProto(const Cloud_ConversionOptions::VideoTranscodeOptions& video);
  /// Stores pixels as width and height, a factor as the scale, and 0 in the unused fields. A custom size or
  /// factor with a fixed case's numbers reads back as that case.
  constexpr void storeIn(Cloud_ConversionOptions::VideoTranscodeOptions& video) const noexcept {
    const auto pixels = isScaleOption() ? VideoSize{} : size();
    video.width = pixels.width;
    video.height = pixels.height;
    video.scale = isScaleOption() ? size().width : 0;
  }

 private:
  using CaseWithPayload::CaseWithPayload;

  constexpr const detail::VideoDimensionRow& row() const noexcept {
    return detail::videoDimensionRows[static_cast<std::size_t>(kind())];
  }
};

inline constexpr VideoDimension VideoDimension::match{VideoDimensionKind::match};
inline constexpr VideoDimension VideoDimension::half{VideoDimensionKind::half};
inline constexpr VideoDimension VideoDimension::quarter{VideoDimensionKind::quarter};
inline constexpr VideoDimension VideoDimension::eighth{VideoDimensionKind::eighth};
inline constexpr VideoDimension VideoDimension::sixteenth{VideoDimensionKind::sixteenth};
inline constexpr VideoDimension VideoDimension::twoTwentyP{VideoDimensionKind::twoTwentyP};
inline constexpr VideoDimension VideoDimension::twoSeventyP{VideoDimensionKind::twoSeventyP};
inline constexpr VideoDimension VideoDimension::fourEightyP{VideoDimensionKind::fourEightyP};
inline constexpr VideoDimension VideoDimension::fiveFortyP{VideoDimensionKind::fiveFortyP};
inline constexpr VideoDimension VideoDimension::sevenTwentyP{VideoDimensionKind::sevenTwentyP};
inline constexpr VideoDimension VideoDimension::tenEightyP{VideoDimensionKind::tenEightyP};
inline constexpr VideoDimension VideoDimension::fourK{VideoDimensionKind::fourK};

namespace detail {

// The scale options, then the exact ones, each with the proposed custom value last.
inline constexpr auto videoDimensions = std::to_array<VideoDimension>({
    VideoDimension::match,
    VideoDimension::half,
    VideoDimension::quarter,
    VideoDimension::eighth,
    VideoDimension::sixteenth,
    VideoDimension::scaled(VideoDimension::customScaleDefaultValue),
    VideoDimension::twoTwentyP,
    VideoDimension::twoSeventyP,
    VideoDimension::fourEightyP,
    VideoDimension::fiveFortyP,
    VideoDimension::sevenTwentyP,
    VideoDimension::tenEightyP,
    VideoDimension::fourK,
    VideoDimension::custom(400, 400),
});

inline constexpr std::size_t fixedScales = 5;

inline constexpr auto fixedVideoDimensions = []<std::size_t... i>(std::index_sequence<i...> /*positions*/) {
  return std::to_array({videoDimensions[i < fixedScales ? i : i + 1]...});
}
(std::make_index_sequence<videoDimensions.size() - 2>{});

// The sizes of the VC-3 compression identifiers that have square pixels.
inline constexpr auto highDefinitionDimensions = std::to_array<VideoDimension>({
    VideoDimension::match,
    VideoDimension::sevenTwentyP,
    VideoDimension::tenEightyP,
});

}  // namespace detail

constexpr std::span<const VideoDimension> VideoDimension::allCases() noexcept {
  return detail::videoDimensions;
}

constexpr std::span<const VideoDimension> VideoDimension::wellDefinedCases() noexcept {
  return detail::fixedVideoDimensions;
}

constexpr std::span<const VideoDimension> VideoDimension::scaleOptions() noexcept {
  return allCases().first(detail::fixedScales + 1);
}

constexpr std::span<const VideoDimension> VideoDimension::exactDimensionsOptions() noexcept {
  return allCases().subspan(scaleOptions().size());
}

inline std::vector<VideoDimension> VideoDimension::filterExactDimensionsOptions(
    std::span<const VideoDimension> from) {
  return detail::membersAmong(from, exactDimensionsOptions());
}

inline std::vector<VideoDimension> VideoDimension::filterScaleOptions(std::span<const VideoDimension> from) {
  return detail::membersAmong(from, scaleOptions());
}

constexpr std::span<const VideoDimension> VideoDimension::allAllowedOptions(
    Cloud_ConversionOptions::CodecType codec) noexcept {
  if (codecLimits(codec).anyFrameSize) return allCases();
  return detail::highDefinitionDimensions;
}

inline std::vector<VideoDimension> VideoDimension::allowedExactOptions(
    Cloud_ConversionOptions::CodecType codec) {
  return filterExactDimensionsOptions(allAllowedOptions(codec));
}

inline std::vector<VideoDimension> VideoDimension::allowedScaledOptions(
    Cloud_ConversionOptions::CodecType codec) {
  return filterScaleOptions(allAllowedOptions(codec));
}

constexpr VideoDimension VideoDimension::fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) {
  const bool inPixels = video.width > 0 && video.height > 0;
  const bool withoutPixels = video.width == 0 && video.height == 0;
  if (!inPixels && !(withoutPixels && video.scale >= 0)) {
    detail::reportUnfitDimension(video.width, video.height);
    return match;
  }
  const auto size = inPixels ? VideoSize{video.width, video.height} : VideoSize{video.scale, video.scale};
  // A stored scale is never mistaken for a size in pixels, because no fixed size is square.
  if (const auto* fixed = detail::rowWhere(wellDefinedCases(), &VideoDimension::size, size)) return *fixed;
  return inPixels ? custom(size.width, size.height) : scaled(size.width);
}

}  // namespace quillonic
