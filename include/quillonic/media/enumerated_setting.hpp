/// Functions by type for settings that are enumerations; other settings have them as static functions.
///
///     for (VideoExtension extension : allowed<VideoExtension>(preset.codecType)) { ... }
///     std::optional<ColorDepth> depth = fromProto<ColorDepth>(preset.videoOptions);
#pragma once

#include <quillonic/media/conversion_options.hpp>
#include <quillonic/requirements.hpp>

#include <optional>
#include <span>

namespace quillonic {

/// The cases that a codec accepts, in case order. The span stays valid for the life of the program.
template <class Setting>
constexpr std::span<const Setting> allowed(Cloud_ConversionOptions::CodecType codec) noexcept = delete;

/// The stored setting; nothing for an unlisted number.
template <class Setting>
constexpr std::optional<Setting> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept = delete;

}  // namespace quillonic
