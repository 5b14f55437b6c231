/// Media settings on the transcoder's command line: pickers' values to options and back.
///
///     if (!storeIn(FrameRate::fps23_98, settings)) refuse();                // "-vr" "23.976"
///     storeIn(ChannelLayout::matchSource, settings);                        // removes "-acl"
///     auto size = fromArguments<VideoDimension>(settings);    // `match` without "-dims"
///     for (ColorDepth depth : allowed<ColorDepth>(VAVProRes422)) { ... }
///     channelLayout(VAVHexagonalAudioLayout)->channelCount();               // 6
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/channel_layout.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/color_depth.hpp>
#include <quillonic/media/enumerated_setting.hpp>
#include <quillonic/media/frame_rate.hpp>
#include <quillonic/media/sample_rate.hpp>
#include <quillonic/media/video_data_rate.hpp>
#include <quillonic/media/video_dimension.hpp>
#include <quillonic/media/video_extension.hpp>
#include <quillonic/time/timecode_rate.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <concepts>
#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>

namespace quillonic {

/// The stored number of a codec; nothing for an unlisted text.
QUILLONIC_EXPORT std::optional<Cloud_ConversionOptions::CodecType> codecType(
    const VAVTranscodeArgumentVideoCodecValue& codec) noexcept;
/// The codec with a stored number; nothing for an unlisted number, including 0.
QUILLONIC_EXPORT std::optional<VAVTranscodeArgumentVideoCodecValue> codecValue(
    Cloud_ConversionOptions::CodecType type) noexcept;

/// The layout for pickers, which tells the number of channels; nothing for an unlisted text.
QUILLONIC_EXPORT std::optional<ChannelLayout> channelLayout(
    const VAVTranscodeArgumentAudioChannelLayoutValue& layout) noexcept;
/// The layout with so many channels; nothing when the transcoder has none, as for 3.
QUILLONIC_EXPORT std::optional<VAVTranscodeArgumentAudioChannelLayoutValue> channelLayoutValue(
    std::int64_t channelCount) noexcept;

/// The rate at which timecodes are counted, as an exact fraction: 24000/1001 for `fps23_98`. Nothing for a
/// rate that depends on the source, or without timecodes, such as 12.5.
QUILLONIC_EXPORT std::optional<TimecodeRate> timecodeRate(const FrameRate& rate) noexcept;

/// The settings that a codec accepts, as by its stored number: those of an unlisted codec have no limits.
/// `Setting` is one of the settings below, or `VideoExtension`.
template <class Setting> std::span<const Setting> allowed(const VAVTranscodeArgumentVideoCodecValue& codec) {
  const auto type = codecType(codec).value_or(Cloud_ConversionOptions::CodecType{});
  if constexpr (std::same_as<Setting, VideoDimension>) {
    return VideoDimension::allAllowedOptions(type);
  } else if constexpr (std::is_enum_v<Setting>) {
    return allowed<Setting>(type);
  } else {
    return Setting::allowed(type);
  }
}

/// Sets "-vcodec"; the number 0 removes it. This and every other `storeIn` returns false, without any change,
/// for a setting that a command line cannot say: nothing is approximated. Here that is an unlisted number.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(Cloud_ConversionOptions::CodecType codec,
                                            TranscodeCliArguments& settings);
/// Sets "-vr"; `match` removes it. A rate that `TimecodeRate::fromDecimal` reads is written as its `decimal`:
/// 24000/1001 is "23.976", be it given as `fps23_98` or as a custom 23.98. Half the source's rate and a
/// custom rate that is not above 0 cannot be said.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(const FrameRate& rate, TranscodeCliArguments& settings);
/// Sets "-dims"; `match` removes it. Only whole pixels above 0 can be said, and no other scale of the source.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(const VideoDimension& dimension, TranscodeCliArguments& settings);
/// Sets "-vbr", in megabits per second; `auto_` removes it. A rate that is not above 0 cannot be said.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(const VideoDataRate& rate, TranscodeCliArguments& settings);
/// Sets "-vbd". An unlisted depth cannot be said.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(ColorDepth depth, TranscodeCliArguments& settings);
/// Sets "-asr", in hertz; `matchSource` removes it. A rate below 1 cannot be said.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(const SampleRate& rate, TranscodeCliArguments& settings);
/// Sets "-acl"; `matchSource` removes it. Only 1, 2, 4, 5, 6 and 8 channels can be said.
[[nodiscard]] QUILLONIC_EXPORT bool storeIn(const ChannelLayout& layout, TranscodeCliArguments& settings);

/// A setting as `storeIn` would have written it: the fixed case with the option's number, else a custom one.
/// Without the flag, the case that removes it. Nothing when the option cannot be read or is 0.
template <class Setting> std::optional<Setting> fromArguments(const TranscodeCliArguments& settings) = delete;

/// The codec's stored number; 0 without "-vcodec".
template <>
QUILLONIC_EXPORT std::optional<Cloud_ConversionOptions::CodecType> fromArguments(
    const TranscodeCliArguments& settings);
/// The frame rate; `match` without "-vr". 23.976, 23.98 and the like are `fps23_98`; 0.5 is a custom rate,
/// not half the source's.
template <> QUILLONIC_EXPORT std::optional<FrameRate> fromArguments(const TranscodeCliArguments& settings);
/// The frame size; `match` without "-dims".
template <>
QUILLONIC_EXPORT std::optional<VideoDimension> fromArguments(const TranscodeCliArguments& settings);
/// The data rate; `auto_` without "-vbr".
template <>
QUILLONIC_EXPORT std::optional<VideoDataRate> fromArguments(const TranscodeCliArguments& settings);
/// The colour depth; nothing without "-vbd", or for a number without a case.
template <> QUILLONIC_EXPORT std::optional<ColorDepth> fromArguments(const TranscodeCliArguments& settings);
/// The sample rate; `matchSource` without "-asr".
template <> QUILLONIC_EXPORT std::optional<SampleRate> fromArguments(const TranscodeCliArguments& settings);
/// The channel layout; `matchSource` without "-acl".
template <>
QUILLONIC_EXPORT std::optional<ChannelLayout> fromArguments(const TranscodeCliArguments& settings);

}  // namespace quillonic
