/// Classes of frame sizes, from quarter-VGA to 16K.
///
///     static_assert(fromDimensions<VideoResolution>({1998, 1080}) == VideoResolution::twoK);
///     static_assert(standardDimensions(VideoResolution::twoK) == VideoSize{2048, 1080});
#pragma once

#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/enumerated_setting.hpp>
#include <quillonic/media/video_size.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quillonic {

/// A named class of frame sizes.
enum class VideoResolution : std::uint8_t {
  qvga,
  vga,
  qHD,
  hd,
  fullHd,
  twoK,
  fourK,
  fiveK,
  sixK,
  eightK,
  sixteenK,
};

/// One resolution, its text and its sizes in pixels, the standard one first.
struct VideoResolutionRow : CaseRow<VideoResolution> {
  /// Never empty; the first size is the standard one.
  std::span<const VideoSize> validDimensions;
};

namespace detail {

// Not the 320 x 220 of the dimension with that name; both are fixed.
inline constexpr VideoSize qvgaSizes[] = {{320, 230}};
inline constexpr VideoSize vgaSizes[] = {{640, 480}};
inline constexpr VideoSize qHDSizes[] = {{960, 540}};
inline constexpr VideoSize hdSizes[] = {{1280, 720}};
inline constexpr VideoSize fullHdSizes[] = {{1920, 1080}};
inline constexpr VideoSize twoKSizes[] = {{2048, 1080}, {1998, 1080}, {2048, 858},
                                          {2048, 1536}, {1920, 1200}, {2048, 1152}};
inline constexpr VideoSize fourKSizes[] = {{4096, 2160}, {4096, 3072}, {4096, 2560}, {4096, 2304},
                                           {4096, 1716}, {3996, 2160}, {3840, 2400}, {3840, 2160},
                                           {3840, 1600}, {3840, 1080}};
inline constexpr VideoSize fiveKSizes[] = {{5120, 1440}, {5120, 2160}, {5120, 2560},
                                           {4800, 2700}, {5120, 2700}, {5120, 2880},
                                           {5120, 3200}, {5120, 3840}, {5120, 4096}};
inline constexpr VideoSize sixKSizes[] = {{6144, 3456}, {6144, 2560}};
inline constexpr VideoSize eightKSizes[] = {{7680, 4320}, {7680, 2160}, {7680, 3200}, {7680, 3240},
                                            {8192, 4320}, {8192, 4608}, {8192, 5120}, {8192, 8192}};
inline constexpr VideoSize sixteenKSizes[] = {{15360, 8640}};

}  // namespace detail

/// The resolutions, ascending.
template <> struct CaseTable<VideoResolution> {
  static constexpr auto rows = std::to_array<VideoResolutionRow>({
      {{VideoResolution::qvga, "qvga"}, detail::qvgaSizes},
      {{VideoResolution::vga, "vga"}, detail::vgaSizes},
      {{VideoResolution::qHD, "qHD"}, detail::qHDSizes},
      {{VideoResolution::hd, "hd"}, detail::hdSizes},
      {{VideoResolution::fullHd, "fullHd"}, detail::fullHdSizes},
      {{VideoResolution::twoK, "2k"}, detail::twoKSizes},
      {{VideoResolution::fourK, "4k"}, detail::fourKSizes},
      {{VideoResolution::fiveK, "5k"}, detail::fiveKSizes},
      {{VideoResolution::sixK, "6k"}, detail::sixKSizes},
      {{VideoResolution::eightK, "8k"}, detail::eightKSizes},
      {{VideoResolution::sixteenK, "16k"}, detail::sixteenKSizes},
  });
};

static_assert(RawHashCase<VideoResolution>);

/// The raw value, for people, pickers and programs alike; it is not translated.
constexpr std::string_view description(VideoResolution resolution) noexcept {
  return rawValue(resolution);
}
/// The raw value, as in `description`.
constexpr std::string_view pickerDescription(VideoResolution resolution) noexcept {
  return rawValue(resolution);
}
/// The raw value, as in `description`.
constexpr std::string_view tag(VideoResolution resolution) noexcept {
  return rawValue(resolution);
}

/// The sizes in pixels of a class, the standard one first; none for an unlisted value. The span stays valid
/// for the life of the program.
constexpr std::span<const VideoSize> validDimensions(VideoResolution resolution) noexcept {
  const auto* row = detail::rowOf(resolution);
  return row ? row->validDimensions : std::span<const VideoSize>{};
}

/// The first of the sizes; 0 x 0 for an unlisted value.
constexpr VideoSize standardDimensions(VideoResolution resolution) noexcept {
  const auto sizes = validDimensions(resolution);
  return sizes.empty() ? VideoSize{} : sizes.front();
}

/// The first case with exactly this size; nothing when there is none.
template <class Resolution>
constexpr std::optional<Resolution> fromDimensions(VideoSize dimensions) noexcept = delete;

/// The first case with a size of exactly this width; nothing when there is none.
template <class Resolution> constexpr std::optional<Resolution> fromWidth(double width) noexcept = delete;

/// The first resolution with exactly this size; nothing when there is none.
template <> constexpr std::optional<VideoResolution> fromDimensions(VideoSize dimensions) noexcept {
  for (const auto& row : CaseTable<VideoResolution>::rows) {
    for (const auto& size : row.validDimensions) {
      if (size == dimensions) return row.value;
    }
  }
  return std::nullopt;
}

/// The first resolution with a size of exactly this width; nothing when there is none. 1920 gives `fullHd`,
/// although 2K has such a size too.
template <> constexpr std::optional<VideoResolution> fromWidth(double width) noexcept {
  for (const auto& row : CaseTable<VideoResolution>::rows) {
    for (const auto& size : row.validDimensions) {
      if (size.width == width) return row.value;
    }
  }
  return std::nullopt;
}

/// The first resolution with the stored width and height; nothing when there is none.
template <>
constexpr std::optional<VideoResolution> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  return fromDimensions<VideoResolution>({video.width, video.height});
}

/// Stores the standard size and clears the scale.
constexpr void storeIn(VideoResolution resolution,
                       Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  const auto size = standardDimensions(resolution);
  video.width = size.width;
  video.height = size.height;
  video.scale = 0;
}

}  // namespace quillonic
