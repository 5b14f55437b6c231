/// Containers of a video file.
///
///     static_assert(rawValue(VideoExtension::mov) == "mov");
///     for (VideoExtension extension : allowed<VideoExtension>(preset.codecType)) { ... }
#pragma once

#include <quillonic/media/codec_limits.hpp>
#include <quillonic/platform/conversion_options.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <concepts>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quillonic {

/// The extension of the file, which names its container.
enum class VideoExtension : std::uint8_t { mov, mp4 };

/// One extension, its text and its stored number.
struct VideoExtensionRow : CaseRow<VideoExtension> {
  /// The number that presets store for the container.
  Cloud_ConversionOptions::VideoTranscodeOptions::Container stored;
};

/// The extensions in order.
template <> struct CaseTable<VideoExtension> {
  static constexpr auto rows = std::to_array<VideoExtensionRow>({
      {{VideoExtension::mov, "mov"}, Cloud_ConversionOptions::VideoTranscodeOptions::Container::mov},
      {{VideoExtension::mp4, "mp4"}, Cloud_ConversionOptions::VideoTranscodeOptions::Container::mp4},
  });
};

static_assert(CodableRawHashCase<VideoExtension>);

/// The raw value, for people, pickers and programs alike; it is the same in every language.
constexpr std::string_view description(VideoExtension extension) noexcept {
  return rawValue(extension);
}
/// The same as `description`.
constexpr std::string_view pickerDescription(VideoExtension extension) noexcept {
  return rawValue(extension);
}
/// The same as `description`.
constexpr std::string_view tag(VideoExtension extension) noexcept {
  return rawValue(extension);
}

/// The extensions whose files can hold a codec, in order. The span stays valid for the life of the program.
template <std::same_as<VideoExtension> Extension>
constexpr std::span<const Extension> allowed(Cloud_ConversionOptions::CodecType codec) noexcept {
  return allCases<Extension>().first(codecLimits(codec).livesInMp4 ? 2 : 1);
}

/// The stored extension; nothing when the stored number is that of neither.
template <std::same_as<VideoExtension> Extension>
constexpr std::optional<Extension> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  for (const auto& row : CaseTable<Extension>::rows) {
    if (row.stored == video.container) return row.value;
  }
  return std::nullopt;
}

/// Stores the extension.
constexpr void storeIn(VideoExtension extension,
                       Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  for (const auto& row : CaseTable<VideoExtension>::rows) {
    if (row.value == extension) video.container = row.stored;
  }
}

}  // namespace quillonic
