#include <quillonic/transcode_cli/media_settings.hpp>

#include <cmath>

namespace quillonic {
namespace {

using CodecType = Cloud_ConversionOptions::CodecType;
using LayoutValue = VAVTranscodeArgumentAudioChannelLayoutValue;

struct Layout {
  const LayoutValue& value;
  ChannelLayout layout;
};

constexpr Layout layouts[] = {
    {VAVMonoAudioLayout, ChannelLayout::mono},
    {VAVStereoAudioLayout, ChannelLayout::stereo},
    {VAVQuadraphonicAudioLayout, ChannelLayout::quadrophonic},
    {VAVPentagonalAudioLayout, ChannelLayout::pentagonal},
    {VAVHexagonalAudioLayout, ChannelLayout::hexagonal},
    {VAVOctagonalAudioLayout, ChannelLayout::octagonal},
};

bool isPositive(double number) noexcept {
  return number > 0 && std::isfinite(number);
}

// A whole number of pixels above 0.
std::optional<std::int64_t> pixels(double side) noexcept {
  constexpr double end = 0x1p63;
  const bool isWhole = isPositive(side) && side < end && side == std::floor(side);
  return isWhole ? std::optional(static_cast<std::int64_t>(side)) : std::nullopt;
}

// The setting for an option: `unset` without its flag.
template <class Setting, class Value, class Read>
std::optional<Setting> setting(const TranscodeCliArguments& settings, std::string_view flag,
                               const Setting& unset, const std::optional<Value>& value, Read read) {
  if (!settings.hasArgumentFlag(flag)) return unset;
  return value ? std::optional<Setting>(read(*value)) : std::nullopt;
}

}  // namespace

std::optional<CodecType> codecType(const VAVTranscodeArgumentVideoCodecValue& codec) noexcept {
  const auto* row = codecWithText(codec);
  return row ? std::optional(row->type) : std::nullopt;
}

std::optional<VAVTranscodeArgumentVideoCodecValue> codecValue(CodecType type) noexcept {
  const auto* row = codecWithType(type);
  return row ? VAVTranscodeArgumentVideoCodecValue::fromStringValue(row->text) : std::nullopt;
}

std::optional<ChannelLayout> channelLayout(const LayoutValue& layout) noexcept {
  for (const auto& row : layouts) {
    if (row.value == layout) return row.layout;
  }
  return std::nullopt;
}

std::optional<LayoutValue> channelLayoutValue(std::int64_t channelCount) noexcept {
  for (const auto& row : layouts) {
    if (row.layout.channelCount() == channelCount) return row.value;
  }
  return std::nullopt;
}

std::optional<TimecodeRate> timecodeRate(const FrameRate& rate) noexcept {
  const bool isScale = rate.kind() == FrameRate::Kind::match || rate.kind() == FrameRate::Kind::halfstep;
  return isScale ? std::nullopt : TimecodeRate::fromDecimal(rate.value());
}

bool storeIn(CodecType codec, TranscodeCliArguments& settings) {
  const auto value = codecValue(codec);
  if (!value && codec != CodecType{}) return false;
  settings.setVideoFormat(value);
  return true;
}

bool storeIn(const FrameRate& rate, TranscodeCliArguments& settings) {
  const bool isMatch = rate.kind() == FrameRate::Kind::match;
  const bool isHalf = rate.kind() == FrameRate::Kind::halfstep;
  if (isHalf || (!isMatch && !isPositive(rate.value()))) return false;
  const auto counted = timecodeRate(rate);
  const auto decimal = counted ? counted->decimal() : rate.value();
  settings.setVideoFrameRate(isMatch ? std::nullopt : std::optional(decimal));
  return true;
}

bool storeIn(const VideoDimension& dimension, TranscodeCliArguments& settings) {
  if (dimension == VideoDimension::match) {
    settings.setVideoDimensions(std::nullopt);
    return true;
  }
  const auto width = pixels(dimension.size().width);
  const auto height = pixels(dimension.size().height);
  if (dimension.isScaleOption() || !width || !height) return false;
  settings.setVideoDimensions(FrameSize{*width, *height});
  return true;
}

bool storeIn(const VideoDataRate& rate, TranscodeCliArguments& settings) {
  if (rate.isRestrict() && !isPositive(rate.doubleForProto())) return false;
  settings.setVideoBitRate(rate.isRestrict() ? std::optional(rate.doubleForProto()) : std::nullopt);
  return true;
}

bool storeIn(ColorDepth depth, TranscodeCliArguments& settings) {
  const auto bits = rawValue(depth);
  if (bits == 0) return false;
  settings.setVideoBitDepth(bits);
  return true;
}

bool storeIn(const SampleRate& rate, TranscodeCliArguments& settings) {
  const bool isMatch = rate == SampleRate::matchSource;
  if (!isMatch && rate.hertz() < 1) return false;
  settings.setAudioSampleRate(isMatch ? std::nullopt : std::optional(rate.hertz()));
  return true;
}

bool storeIn(const ChannelLayout& layout, TranscodeCliArguments& settings) {
  const auto value = channelLayoutValue(layout.channelCount());
  if (!value && layout != ChannelLayout::matchSource) return false;
  settings.setAudioChannelLayout(value);
  return true;
}

template <> std::optional<CodecType> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](const auto& codec) { return codecType(codec); };
  return setting(settings, VAVVideoFormatFlag, CodecType{}, settings.videoFormat(), read);
}

template <> std::optional<FrameRate> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](double decimal) -> std::optional<FrameRate> {
    if (!isPositive(decimal)) return std::nullopt;
    const auto counted = TimecodeRate::fromDecimal(decimal);
    for (const auto& rate : FrameRate::wellDefinedCases()) {
      if (counted && timecodeRate(rate) == counted) return rate;
    }
    return FrameRate::custom(decimal);
  };
  return setting(settings, VAVVideoFrameRateFlag, FrameRate::match, settings.videoFrameRate(), read);
}

template <> std::optional<VideoDimension> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](const FrameSize& frame) -> std::optional<VideoDimension> {
    if (frame.width == 0 || frame.height == 0) return std::nullopt;
    const VideoSize size{static_cast<double>(frame.width), static_cast<double>(frame.height)};
    return VideoDimension::fromProto({.width = size.width, .height = size.height});
  };
  return setting(settings, VAVVideoDimensionsFlag, VideoDimension::match, settings.videoDimensions(), read);
}

template <> std::optional<VideoDataRate> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](double rate) {
    return rate > 0 ? std::optional(VideoDataRate::restrict(rate)) : std::nullopt;
  };
  return setting(settings, VAVVideoBitRateFlag, VideoDataRate::auto_, settings.videoBitRate(), read);
}

template <> std::optional<ColorDepth> fromArguments(const TranscodeCliArguments& settings) {
  const auto bits = settings.videoBitDepth();
  return bits ? fromRawValue<ColorDepth>(*bits) : std::nullopt;
}

template <> std::optional<SampleRate> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](std::int64_t hertz) {
    return hertz > 0 ? std::optional(SampleRate::fromHertz(hertz)) : std::nullopt;
  };
  return setting(settings, VAVAudioSampleRateFlag, SampleRate::matchSource, settings.audioSampleRate(), read);
}

template <> std::optional<ChannelLayout> fromArguments(const TranscodeCliArguments& settings) {
  const auto read = [](const LayoutValue& value) { return channelLayout(value); };
  return setting(settings, VAVAudioChannelLayoutFlag, ChannelLayout::matchSource,
                 settings.audioChannelLayout(), read);
}

}  // namespace quillonic
