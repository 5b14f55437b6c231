// Any numbers, a line each, as what settings hold: each setting that is stored over any earlier one reads
// back.
#include <quillonic/media.hpp>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Video = Cloud_ConversionOptions::VideoTranscodeOptions;
using Audio = Cloud_ConversionOptions::AudioTranscodeOptions;

template <class Options, class T> void checkRoundTrip(const T& value, Options stored) {
  if constexpr (PayloadCases<T>) {
    value.storeIn(stored);
    const auto read = std::optional<T>(T::fromProto(stored));
    // A payload that is the number of a named case reads as that case, which is stored as the same numbers.
    Options again = stored;
    read->storeIn(again);
    require(again == stored, "a setting that is stored reads back");
    require(read != value || std::unordered_set<T>{value}.contains(*read), "equal settings have one hash");
  } else {
    storeIn(value, stored);
    require(fromProto<T>(stored) == value, "a case that is stored reads back");
    if constexpr (std::same_as<T, VideoResolution>) require(stored.scale == 0, "a resolution has no scale");
  }
}

void checkCases(const Video& video, const Audio& audio) {
  for (const auto& rate : FrameRate::wellDefinedCases()) checkRoundTrip(rate, video);
  for (const auto& dimension : VideoDimension::wellDefinedCases()) checkRoundTrip(dimension, video);
  for (const auto& rate : VideoDataRate::allCommonCases()) checkRoundTrip(rate, video);
  for (const auto depth : allCases<ColorDepth>()) checkRoundTrip(depth, video);
  for (const auto extension : allCases<VideoExtension>()) checkRoundTrip(extension, video);
  for (const auto resolution : allCases<VideoResolution>()) checkRoundTrip(resolution, video);
  for (const auto& rate : SampleRate::wellDefinedCases()) checkRoundTrip(rate, audio);
  for (const auto& layout : ChannelLayout::allCommonCases()) checkRoundTrip(layout, audio);
}

double numberOf(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  // What is not a number equals nothing.
  return std::isnan(number) ? 0 : number;
}

double positive(double number) {
  return number == 0 ? 1.25 : std::abs(number);
}

std::int64_t integerOf(std::string_view text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

void run(std::string_view bytes) {
  std::array<std::string_view, 4> texts{};
  std::array<double, 4> numbers{};
  std::size_t count = 0;
  for (const auto line : lines(bytes)) {
    texts[count % texts.size()] = line;
    numbers[count++ % numbers.size()] = numberOf(line);
  }
  const Video video{.width = numbers[0], .height = numbers[1], .scale = numbers[2], .dataRate = numbers[3]};
  checkCases(video, {});
  checkRoundTrip(FrameRate::custom(positive(numbers[0])), video);
  checkRoundTrip(VideoDimension::custom(1 + positive(numbers[0]), 1 + positive(numbers[1])), video);
  checkRoundTrip(VideoDimension::scaled(positive(numbers[2])), video);
  checkRoundTrip(VideoDataRate::restrict(positive(numbers[3])), video);
  checkRoundTrip(SampleRate::custom((integerOf(texts[0]) & INT64_MAX) | 1), Audio{});
  checkRoundTrip(ChannelLayout::custom(integerOf(texts[1]) | 9), Audio{});
}

}  // namespace quillonic::fuzz
