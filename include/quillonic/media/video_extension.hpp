/// Video containers.
///
///     static_assert(rawValue(VideoExtension::mov) == "mov");
///     for (VideoExtension extension : allowed<VideoExtension>(preset.codecType)) { ... }
#pragma once

#include <quillonic/media/codec.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/enumerated_setting.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quillonic {

/// The file extension, which names the container.
enum class VideoExtension : std::uint8_t { mov, mp4 };

/// One container: its file-name extension, which is also its text, and its stored number.
struct VideoExtensionRow : CaseRow<VideoExtension> {
  /// Takes the text from the file-name extension.
  consteval VideoExtensionRow(VideoExtension extension, FileExtension file,
                              Cloud_ConversionOptions::VideoTranscodeOptions::Container number)
      : CaseRow<VideoExtension>{extension, quillonic::rawValue(file)}, fileExtension(file), stored(number) {}

  /// The extension of files in the container.
  FileExtension fileExtension;
  /// The number that presets store for the container.
  Cloud_ConversionOptions::VideoTranscodeOptions::Container stored;
};

/// The extensions in order.
template <> struct CaseTable<VideoExtension> {
  static constexpr auto rows = [] {
    using enum VideoExtension;
    using Stored = Cloud_ConversionOptions::VideoTranscodeOptions::Container;
    return std::to_array<VideoExtensionRow>({
        {mov, FileExtension::mov, Stored::mov},
        {mp4, FileExtension::mp4, Stored::mp4},
    });
  }();
};

static_assert(RawHashCase<VideoExtension>);

/// The raw value, for people, pickers and programs alike; it is not translated.
constexpr std::string_view description(VideoExtension extension) noexcept {
  return rawValue(extension);
}
/// The raw value, as in `description`.
constexpr std::string_view pickerDescription(VideoExtension extension) noexcept {
  return rawValue(extension);
}
/// The raw value, as in `description`.
constexpr std::string_view tag(VideoExtension extension) noexcept {
  return rawValue(extension);
}

/// The extensions whose files can hold a codec.
template <>
constexpr std::span<const VideoExtension> allowed(Cloud_ConversionOptions::CodecType codec) noexcept {
  return allCases<VideoExtension>().first(codecLimits(codec).livesInMp4 ? 2 : 1);
}

/// The stored extension; nothing for an unlisted number.
template <>
constexpr std::optional<VideoExtension> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  const auto* row =
      detail::rowWhere(CaseTable<VideoExtension>::rows, &VideoExtensionRow::stored, video.container);
  return row ? std::optional(row->value) : std::nullopt;
}

/// Stores the extension; an unlisted value changes nothing.
constexpr void storeIn(VideoExtension extension,
                       Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
  if (const auto* row = detail::rowOf(extension)) video.container = row->stored;
}

}  // namespace quillonic
