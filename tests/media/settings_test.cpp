// What each setting reads, stores and shows.
#include <quillonic/media.hpp>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <syslog.h>
#include <tuple>
#include <utility>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using testing::ElementsAre;
using Stored = Cloud_ConversionOptions::VideoTranscodeOptions;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double leastDouble = std::numeric_limits<double>::denorm_min();
constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto greatest = std::numeric_limits<std::int64_t>::max();

static_assert(FrameRate::fromRawValue(23.967) == FrameRate::fps23_98);
static_assert(FrameRate::custom(24.0) != FrameRate::fps24);
template <class E>
concept HasAllCases = requires {
  allCases<E>();
};
enum class Unlisted {};
static_assert(HasAllCases<FrameRate> && HasAllCases<FileExtension> && HasAllCases<VideoExtension>);
static_assert(!HasAllCases<int> && !HasAllCases<Unlisted>);
static_assert(FrameRate::wellDefinedCases().size() == 10 && FrameRate::scaleOptions().size() == 2);
static_assert(VideoDimension::wellDefinedCases().size() == 12 && VideoDimension::scaleOptions().size() == 6);
static_assert(fromRawValue<VideoExtension>("mp4") == VideoExtension::mp4);
static_assert(!fromRawValue<VideoExtension>("MP4") && !fromRawValue<VideoExtension>("mxf"));
static_assert(standardDimensions(VideoResolution::fourK) == VideoSize{4096, 2160});

// Description, picker description and tag; once if all three are the same.
template <class Setting> std::string textsOf(const Setting& setting) {
  const std::string tag(setting.tag());
  if (setting.description() == tag && setting.pickerDescription() == tag) return tag;
  return setting.description() + "|" + setting.pickerDescription() + "|" + tag;
}

TEST(FrameRate, HasAValueAndItsTexts) {
  const double values[] = {0, 0.5, 23.967, 24, 25, 29.97, 30, 50, 59.94, 60};
  const auto texts =
      split("Match|Half Step|23.97 fps|24 fps|25 fps|29.97 fps|30 fps|50 fps|59.94 fps|60 fps", '|');
  for (std::size_t at = 0; at < texts.size(); ++at) {
    EXPECT_EQ(FrameRate::fromRawValue(values[at]), FrameRate::wellDefinedCases()[at]);
    EXPECT_EQ(FrameRate::wellDefinedCases()[at].value(), values[at]);
    EXPECT_EQ(textsOf(FrameRate::wellDefinedCases()[at]), texts[at]);
  }
  EXPECT_EQ(textsOf(FrameRate::custom(12)), "Custom: 12.0 fps|Custom|custom");
  EXPECT_EQ(textsOf(FrameRate::custom(-24)), "Custom|Custom|custom");
  EXPECT_EQ(FrameRate::custom(-24).frameRateForProto(), -24);
  EXPECT_EQ(FrameRate::fromRawValue(-0.0), FrameRate::match);
  for (const double number : {23.976, leastDouble, 1e300, infinity}) {
    EXPECT_EQ(FrameRate::fromRawValue(number), FrameRate::custom(number)) << number;
  }
}

TEST(FrameRate, SendsAllOtherNumbersToTheSystemLog) {
  // The process chooses where its system log goes; here also to standard error, for the test to see.
  openlog("tool", LOG_PERROR, LOG_USER);
  const double numbers[] = {-1, -leastDouble, nan, -infinity, -1.5e15};
  const auto texts = split("-1.0 -0.000 nan -inf -1500000000000000.0");
  for (std::size_t at = 0; at < texts.size(); ++at) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(FrameRate::fromRawValue(numbers[at]), std::nullopt);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::StartsWith("tool: Could not convert raw value to frame rate: " + texts[at]));
  }
  closelog();
}

TEST(VideoDimension, HasASizeAndItsTexts) {
  using D = VideoDimension;
  const std::tuple<D, VideoSize, std::string> rows[] = {
      {D::match, {0, 0}, "Match"},
      {D::half, {0.5, 0.5}, "Half"},
      {D::quarter, {0.25, 0.25}, "Quarter"},
      {D::eighth, {0.125, 0.125}, "Eighth"},
      {D::sixteenth, {0.0625, 0.0625}, "Sixteenth"},
      {D::scaled(0.9), {0.9, 0.9}, "Custom: 90.0%|Custom Scale|scaled"},
      {D::twoTwentyP, {320, 220}, "QVGA (320x220)"},
      {D::twoSeventyP, {480, 270}, "270p (480 x 270)"},
      {D::fourEightyP, {640, 480}, "VGA (640 x 480)"},
      {D::fiveFortyP, {960, 540}, "qHD (960 x 540)"},
      {D::sevenTwentyP, {1280, 720}, "HD (1280 x 720)"},
      {D::tenEightyP, {1920, 1080}, "Full HD (1920 x 1080)"},
      {D::fourK, {3840, 2160}, "4K UHD (3840 x 2160)"},
      {D::custom(400, 400), {400, 400}, "Custom: 400.0 x 400.0|Custom Dimensions|custom"},
      {D::custom(1.5, 2), {1.5, 2}, "Custom: 1.5 x 2.0|Custom Dimensions|custom"},
      {D::scaled(1.0 / 3), {1.0 / 3, 1.0 / 3}, "Custom: 33.3%|Custom Scale|scaled"},
      {D::custom(400, 0), {400, 0}, "Custom Dimensions|Custom Dimensions|custom"}};
  std::vector<D> dimensions;
  for (const auto& [dimension, size, texts] : rows) {
    dimensions.push_back(dimension);
    const bool isScale = size.width < 1;
    EXPECT_EQ(dimension.size(), size) << texts;
    EXPECT_EQ(textsOf(dimension), texts);
    EXPECT_EQ(dimension.isScaleOption(), isScale) << texts;
    EXPECT_EQ(dimension.previewSize(), (isScale ? VideoSize{1920, 1080} : size)) << texts;
  }
  dimensions.resize(14, D::match);
  EXPECT_THAT(dimensions, testing::ElementsAreArray(D::allCases()));
}

TEST(VideoDimension, ReadsStoredNumbersAndPrintsThoseThatFitNoCase) {
  using D = VideoDimension;
  const std::tuple<Stored, D, std::string> rows[] = {
      {{.height = -0.0, .scale = -0.0}, D::match, ""},
      {{.scale = infinity}, D::scaled(infinity), ""},
      {{.width = 0.5, .height = 0.5}, D::half, ""},
      {{.width = 320, .height = 230}, D::custom(320, 230), ""},
      {{.width = 1920, .height = 1080, .scale = nan}, D::tenEightyP, ""},
      {{.width = 1920}, D::match, "1920.0 - pHeight: 0.0"},
      {{.height = 1080, .scale = 0.5}, D::match, "0.0 - pHeight: 1080.0"},
      {{.width = -1, .height = 5.5}, D::match, "-1.0 - pHeight: 5.5"},
      {{.width = nan, .height = infinity}, D::match, "nan - pHeight: inf"},
      {{.scale = nan}, D::match, "0.0 - pHeight: 0.0"},
      {{.width = 9007199254740994, .height = -0.0}, D::match, "9007199254740994.0 - pHeight: -0.0"}};
  const std::string message =
      "Proto failed to parse VideoDimension from Proto. Will reset to match orignal! (pWidth:";
  for (const auto& [stored, dimension, numbers] : rows) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(VideoDimension::fromProto(stored), dimension) << dimension.description();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), numbers.empty() ? "" : message + numbers + "\n");
  }
}

TEST(VideoDataRate, RestrictsAboveNothingAndNamesTheRateAboveOneMegabit) {
  const std::tuple<double, double, std::string> rows[] = {
      {-2.0, 0, "Auto|Auto|auto"},
      {nan, 0, "Auto|Auto|auto"},
      {5e-324, 5e-324, "Restrict|Restrict|restrict"},
      {1.0, 1.0, "Restrict|Restrict|restrict"},
      {1.5, 1.5, "Retrict to 1.5 mbps|Restrict|restrict"},
      {infinity, infinity, "Retrict to inf mbps|Restrict|restrict"}};
  for (const auto& [number, stored, texts] : rows) {
    const auto rate = VideoDataRate::fromRawValue(number);
    EXPECT_EQ(rate.doubleForProto(), stored) << number;
    EXPECT_EQ(textsOf(rate), texts);
    EXPECT_EQ(rate.id(), rate.tag());
  }
}

TEST(SampleRate, ReadsHertzAndWritesKilohertz) {
  const std::tuple<std::int64_t, std::int64_t, std::string> rows[] = {
      {least, 0, "Match Source"},
      {1000, 1000, "1000 Hz|Custom|custom"},
      {1001, 1001, "1.001 kHz|Custom|custom"},
      {22050, 22050, "22.05 kHz|Custom|custom"},
      {44100, 44100, "44.1 kHz"},
      {48000, 48000, "48 kHz"},
      {96000, 96000, "96 kHz"},
      {greatest, greatest, "9223372036854776.0 kHz|Custom|custom"}};
  for (const auto& [number, hertz, texts] : rows) {
    EXPECT_EQ(SampleRate::fromHertz(number).hertz(), hertz);
    EXPECT_EQ(textsOf(SampleRate::fromHertz(number)), texts);
  }
  EXPECT_EQ(SampleRate::custom(least).description(), "-9223372036854775808 Hz");
}

// The only test that requests the list, so that the default set here is the one at its first use.
TEST(SampleRate, TheSharedListKeepsTheDefaultOfItsFirstUse) {
  EXPECT_EQ(SampleRate::defaultCustomHz(), 48000);
  SampleRate::setDefaultCustomHz(32000);
  const auto common = SampleRate::allCommonCases();
  SampleRate::setDefaultCustomHz(48000);
  EXPECT_THAT(SampleRate::allowed(Cloud_ConversionOptions::CodecType::dnxhd),
              ElementsAre(SampleRate::matchSource, SampleRate::hz44100, SampleRate::hz48000,
                          SampleRate::hz96000, SampleRate::custom(32000)));
  EXPECT_EQ(SampleRate::allCommonCases().data(), common.data());
}

TEST(ChannelLayout, NamesTheCommonCounts) {
  const auto texts = split(
      "Match Source;Mono;Stereo;3 Channels|Custom|custom;Quadrophonic;Pentagonal;Hexagonal;"
      "7 Channels|Custom|custom;Octagonal;9 Channels|Custom|custom",
      ';');
  for (std::size_t count = 0; count < texts.size(); ++count) {
    const auto layout = ChannelLayout::fromChannelCount(static_cast<std::int64_t>(count));
    EXPECT_EQ(layout.channelCount(), count);
    EXPECT_EQ(textsOf(layout), texts[count]);
  }
  EXPECT_EQ(ChannelLayout::custom(1).description(), "1 Channels");
  EXPECT_EQ(ChannelLayout::fromChannelCount(least), ChannelLayout::custom(least));
  EXPECT_EQ(joined(ChannelLayout::allowed({}), '|', &ChannelLayout::description),
            "Match Source|Mono|Stereo|Quadrophonic|Pentagonal|Hexagonal|Octagonal|12 Channels");
}

TEST(VideoResolution, IsFoundByEachOfItsSizesAndByItsWidth) {
  std::size_t sizes = 0;
  for (const auto resolution : allCases<VideoResolution>()) {
    for (const auto& size : validDimensions(resolution)) {
      ++sizes;
      EXPECT_EQ(fromDimensions<VideoResolution>(size), resolution) << size.width << " x " << size.height;
      EXPECT_LE(fromWidth<VideoResolution>(size.width).value(), resolution);
    }
  }
  EXPECT_EQ(sizes, 41U);
  for (const VideoSize size : {VideoSize{320, 220}, {1080, 1920}, {1920.5, 1080}, {}}) {
    EXPECT_EQ(fromDimensions<VideoResolution>(size), std::nullopt) << size.width << " x " << size.height;
    EXPECT_EQ(fromWidth<VideoResolution>(size.width + 0.25), std::nullopt) << size.width;
  }
  EXPECT_EQ(fromWidth<VideoResolution>(1920), VideoResolution::fullHd);
  EXPECT_EQ(fromWidth<VideoResolution>(3840), VideoResolution::fourK);
}

TEST(Filters, KeepTheOrderOfTheListAndComparePayloads) {
  using R = FrameRate;
  const R rates[] = {R::fps60, R::custom(0), R::halfstep, R::custom(12), R::match, R::fps60, R::custom(nan)};
  EXPECT_THAT(R::filterExactFrameRateOptions(rates), ElementsAre(R::fps60, R::custom(0), R::fps60));
  EXPECT_THAT(R::filterScaleOptions(rates), ElementsAre(R::halfstep, R::match));
  using D = VideoDimension;
  const D sizes[] = {D::scaled(0.9),      D::fourK, D::scaled(0.8),
                     D::custom(400, 400), D::match, D::custom(400, 401)};
  EXPECT_THAT(D::filterScaleOptions(sizes), ElementsAre(D::scaled(0.9), D::match));
  EXPECT_THAT(D::filterExactDimensionsOptions(sizes), ElementsAre(D::fourK, D::custom(400, 400)));
}

}  // namespace
}  // namespace quillonic
