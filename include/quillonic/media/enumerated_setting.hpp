/// What a setting that is an enumeration answers by its type, as other settings do by a static function.
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

/// The stored setting; nothing when no case has the stored number.
template <class Setting>
constexpr std::optional<Setting> fromProto(
    const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept = delete;

}  // namespace quillonic
