// What each setting means and how it is written.
#include <quillonic/media.hpp>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <syslog.h>
#include <tuple>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double leastDouble = std::numeric_limits<double>::denorm_min();
constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto greatest = std::numeric_limits<std::int64_t>::max();

static_assert(FrameRate::fromRawValue(23.967) == FrameRate::fps23_98);
static_assert(FrameRate::fromRawValue(-0.0) == FrameRate::match &&
              FrameRate::custom(24.0) != FrameRate::fps24);
static_assert(FrameRate::wellDefinedCases().size() == 10 && FrameRate::allCases().size() == 11);
static_assert(FrameRate::filterScaleOptions(FrameRate::allCases()).size() == 2);
static_assert(VideoDimension::fromProto({.width = 960, .height = 540}) == VideoDimension::fiveFortyP);
static_assert(VideoDimension::allowedScaledOptions({}).back() == VideoDimension::scaled(0.9));
static_assert(VideoDimension::allowedExactOptions({}).back() == VideoDimension::custom(400, 400));
static_assert(VideoDimension::wellDefinedCases().size() == 12 && VideoDimension::scaleOptions().size() == 6);
static_assert(allowed<ColorDepth>(Cloud_ConversionOptions::CodecType::h265).size() == 2);
static_assert(fromRawValue<VideoExtension>("mp4") == VideoExtension::mp4);
static_assert(!fromRawValue<VideoExtension>("MP4") && !fromRawValue<VideoExtension>("mxf"));
static_assert(VideoDataRate::fromRawValue(0.5) == VideoDataRate::restrict(0.5));
static_assert(SampleRate::fromHertz(22050) == SampleRate::custom(22050));
static_assert(ChannelLayout::wellDefinedCases().front() == ChannelLayout::mono);

// The texts of a setting, one after another.
template <class Setting> std::string textsOf(const Setting& setting) {
  return setting.description() + "|" + setting.pickerDescription() + "|" + std::string(setting.tag());
}

std::string thrice(const std::string& text) {
  return text + "|" + text + "|" + text;
}

TEST(FrameRate, HasAValueAndItsTexts) {
  const double values[] = {0, 0.5, 23.967, 24, 25, 29.97, 30, 50, 59.94, 60};
  const auto texts =
      split("Match|Half Step|23.97 fps|24 fps|25 fps|29.97 fps|30 fps|50 fps|59.94 fps|60 fps", '|');
  for (std::size_t at = 0; at < texts.size(); ++at) {
    const auto& rate = FrameRate::wellDefinedCases()[at];
    EXPECT_EQ(rate, FrameRate::fromRawValue(values[at]));
    EXPECT_EQ(rate.value(), values[at]);
    EXPECT_EQ(rate.frameRateForProto(), values[at]);
    EXPECT_EQ(textsOf(rate), thrice(texts[at]));
  }
  for (const double number : {12.0, 0.0, -24.0}) {
    const auto rate = FrameRate::custom(number);
    EXPECT_EQ(rate.frameRateForProto(), number);
    EXPECT_EQ(textsOf(rate), number > 0 ? "Custom: 12.0 fps|Custom|custom" : "Custom|Custom|custom");
  }
  for (const double number : {23.976, leastDouble, 1e300, infinity}) {
    EXPECT_EQ(FrameRate::fromRawValue(number), FrameRate::custom(number)) << number;
  }
}

TEST(FrameRate, SendsAllOtherNumbersToTheSystemLog) {
  // The process chooses where its system log goes; here also to standard error, where a test can see it.
  openlog("tool", LOG_PERROR, LOG_USER);
  const std::pair<double, std::string> rows[] = {{-1, "-1.0"},
                                                 {-leastDouble, "-0.000"},
                                                 {nan, "nan"},
                                                 {-infinity, "-inf"},
                                                 {-1.5e15, "-1500000000000000.0"}};
  for (const auto& [number, text] : rows) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(FrameRate::fromRawValue(number), std::nullopt);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::StartsWith("tool: Could not convert raw value to frame rate: " + text));
  }
  closelog();
}

TEST(VideoDimension, HasASizeAndItsTexts) {
  using D = VideoDimension;
  EXPECT_THAT(D::wellDefinedCases(), ElementsAre(D::match, D::half, D::quarter, D::eighth, D::sixteenth,
                                                 D::twoTwentyP, D::twoSeventyP, D::fourEightyP, D::fiveFortyP,
                                                 D::sevenTwentyP, D::tenEightyP, D::fourK));
  std::vector<D> all(D::wellDefinedCases().begin(), D::wellDefinedCases().end());
  all.insert(all.end(),
             {D::scaled(0.9), D::scaled(1.0 / 3), D::custom(400, 400), D::custom(0.5, 2), D::custom(400, 0)});
  const VideoSize sizes[] = {{0, 0},       {0.5, 0.5},   {0.25, 0.25}, {0.125, 0.125},     {0.0625, 0.0625},
                             {320, 220},   {480, 270},   {640, 480},   {960, 540},         {1280, 720},
                             {1920, 1080}, {3840, 2160}, {0.9, 0.9},   {1.0 / 3, 1.0 / 3}, {400, 400},
                             {0.5, 2},     {400, 0}};
  const auto texts = split(
      "Match|Half|Quarter|Eighth|Sixteenth|QVGA (320x220)|270p (480 x 270)|VGA (640 x 480)|qHD (960 x 540)|"
      "HD (1280 x 720)|Full HD (1920 x 1080)|4K UHD (3840 x 2160)|Custom: 90.0%|Custom: 33.3%|"
      "Custom: 400.0 x 400.0|Custom: 0.5 x 2.0|Custom Dimensions",
      '|');
  for (std::size_t at = 0; at < all.size(); ++at) {
    const auto& dimension = all[at];
    const auto& text = texts[at];
    const bool custom = at >= 14;
    const bool scaled = !custom && at >= 12;
    EXPECT_EQ(dimension.size(), sizes[at]) << text;
    EXPECT_EQ(dimension.isScaleOption(), scaled || at < 5) << text;
    EXPECT_EQ(dimension.previewSize(), sizes[dimension.isScaleOption() ? 10 : at]) << text;
    EXPECT_EQ(textsOf(dimension), custom   ? text + "|Custom Dimensions|custom"
                                  : scaled ? text + "|Custom Scale|scaled"
                                           : thrice(text));
  }
}

// The stored numbers, the case, and the end of the message that is printed where none fits.
TEST(VideoDimension, ReadsStoredNumbers) {
  using D = VideoDimension;
  const std::tuple<Cloud_ConversionOptions::VideoTranscodeOptions, D, std::string> rows[] = {
      {{.width = -0.0, .height = 0.0, .scale = -0.0}, D::match, ""},
      {{.scale = 0.0625}, D::sixteenth, ""},
      {{.scale = 0.9}, D::scaled(0.9), ""},
      {{.scale = infinity}, D::scaled(infinity), ""},
      {{.width = 0.5, .height = 0.5}, D::half, ""},
      {{.width = 320, .height = 230}, D::custom(320, 230), ""},
      {{.width = 1920, .height = 1080, .scale = nan}, D::tenEightyP, ""},
      {{.width = 5e-324, .height = 1e300}, D::custom(5e-324, 1e300), ""},
      {{.width = 1920}, D::match, "1920.0 - pHeight: 0.0"},
      {{.height = 1080, .scale = 0.5}, D::match, "0.0 - pHeight: 1080.0"},
      {{.width = -1, .height = 5.5}, D::match, "-1.0 - pHeight: 5.5"},
      {{.width = nan, .height = infinity}, D::match, "nan - pHeight: inf"},
      {{.scale = -0.5}, D::match, "0.0 - pHeight: 0.0"},
      {{.scale = nan}, D::match, "0.0 - pHeight: 0.0"},
      {{.width = 9007199254740994, .height = -0.0}, D::match, "9007199254740994.0 - pHeight: -0.0"}};
  const std::string message =
      "Proto failed to parse VideoDimension from Proto. Will reset to match orignal! (pWidth:";
  for (const auto& [stored, dimension, numbers] : rows) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(D::fromProto(stored), dimension) << dimension.description();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), numbers.empty() ? "" : message + numbers + "\n");
  }
}

TEST(Filters, KeepTheOrderOfTheListAndComparePayloads) {
  using R = FrameRate;
  const R rates[] = {R::fps60, R::custom(0), R::halfstep, R::custom(12),
                     R::match, R::fps24,     R::fps60,    R::custom(nan)};
  EXPECT_THAT(R::filterExactFrameRateOptions(rates), ElementsAre(R::fps60, R::custom(0), R::fps24, R::fps60));
  EXPECT_THAT(R::filterScaleOptions(rates), ElementsAre(R::halfstep, R::match));
  EXPECT_THAT(R::exactFrameRateOptions(), ElementsAre(R::fps23_98, R::fps24, R::fps25, R::fps29_97, R::fps30,
                                                      R::fps50, R::fps59_94, R::fps60, R::custom(0)));
  using D = VideoDimension;
  const D sizes[] = {D::scaled(0.9),      D::fourK, D::scaled(0.8),
                     D::custom(400, 400), D::match, D::custom(400, 401)};
  EXPECT_THAT(D::filterScaleOptions(sizes), ElementsAre(D::scaled(0.9), D::match));
  EXPECT_THAT(D::filterExactDimensionsOptions(sizes), ElementsAre(D::fourK, D::custom(400, 400)));
}

TEST(VideoDataRate, RestrictsAboveNothingAndNamesTheRateAboveOneMegabit) {
  const std::pair<double, std::string> rows[] = {
      {-2.0, ""}, {nan, ""}, {leastDouble, "Restrict"}, {1.0, "Restrict"}, {1.5, "Retrict to 1.5 mbps"}};
  for (const auto& [number, text] : rows) {
    const auto rate = VideoDataRate::fromRawValue(number);
    const bool isRestrict = !text.empty();
    EXPECT_EQ(rate, isRestrict ? VideoDataRate::restrict(number) : VideoDataRate::auto_) << number;
    EXPECT_EQ(rate.doubleForProto(), isRestrict ? number : 0.0);
    EXPECT_EQ(textsOf(rate), isRestrict ? text + "|Restrict|restrict" : "Auto|Auto|auto");
    EXPECT_EQ(rate.id(), rate.tag());
  }
}

TEST(SampleRate, ReadsHertzAndWritesKilohertz) {
  const std::int64_t numbers[] = {least, 0, 1, 1000, 1001, 44100, 48000, 96000, 192000, greatest};
  const auto texts = split(
      "Match Source|Match Source|1 Hz|1000 Hz|1.001 kHz|44.1 kHz|48 kHz|96 kHz|192.0 kHz|9223372036854776.0 "
      "kHz",
      '|');
  for (std::size_t at = 0; at < texts.size(); ++at) {
    const auto hertz = numbers[at];
    const auto& text = texts[at];
    const auto rate = SampleRate::fromHertz(hertz);
    const bool isCustom = hertz > 0 && hertz != 44100 && hertz != 48000 && hertz != 96000;
    EXPECT_EQ(rate == SampleRate::custom(hertz), isCustom) << hertz;
    EXPECT_EQ(textsOf(rate), isCustom ? text + "|Custom|custom" : thrice(text));
  }
  EXPECT_EQ(SampleRate::custom(least).description(), "-9223372036854775808 Hz");
}

// The only test that asks for the list, so that the default set here is the one at its first use.
TEST(SampleRate, TheSharedListKeepsTheDefaultOfItsFirstUse) {
  EXPECT_EQ(SampleRate::defaultCustomHz(), 48000);
  SampleRate::setDefaultCustomHz(32000);
  const auto common = SampleRate::allCommonCases();
  SampleRate::setDefaultCustomHz(48000);
  EXPECT_THAT(SampleRate::allowed(Cloud_ConversionOptions::CodecType::dnxhd),
              ElementsAre(SampleRate::matchSource, SampleRate::hz44100, SampleRate::hz48000,
                          SampleRate::hz96000, SampleRate::custom(32000)));
  EXPECT_EQ(SampleRate::allCommonCases().data(), common.data());
  EXPECT_EQ(SampleRate::fromHertz(32000), SampleRate::custom(32000));
}

TEST(ChannelLayout, NamesTheCommonCounts) {
  const char* const names[] = {"Match Source", "Mono",      "Stereo", nullptr,     "Quadrophonic",
                               "Pentagonal",   "Hexagonal", nullptr,  "Octagonal", nullptr};
  for (std::int64_t count = 0; count < 10; ++count) {
    const auto layout = ChannelLayout::fromChannelCount(count);
    const char* const name = names[count];
    EXPECT_EQ(layout.channelCount(), count);
    EXPECT_EQ(layout == ChannelLayout::custom(count), name == nullptr) << count;
    EXPECT_EQ(textsOf(layout), name ? thrice(name) : std::to_string(count) + " Channels|Custom|custom");
  }
  EXPECT_EQ(ChannelLayout::custom(1).description(), "1 Channels");
  EXPECT_EQ(ChannelLayout::fromChannelCount(least), ChannelLayout::custom(least));
  EXPECT_EQ(ChannelLayout::allowed({}).front(), ChannelLayout::matchSource);
  EXPECT_EQ(ChannelLayout::allowed({}).back(), ChannelLayout::custom(12));
}

TEST(ColorDepth, IsItsNumberOfBits) {
  std::string texts;
  for (std::int64_t bits = -1; bits < 20; ++bits) {
    if (const auto depth = fromRawValue<ColorDepth>(bits)) texts += description(*depth) + ";";
  }
  EXPECT_EQ(texts, "8 bpp;10 bpp;12 bpp;16 bpp;");
}

static_assert(standardDimensions(VideoResolution::fourK) == VideoSize{4096, 2160});
static_assert(fromRawValue<VideoResolution>("2k") == VideoResolution::twoK);

TEST(VideoResolution, IsFoundByEachOfItsSizesAndByItsWidth) {
  std::size_t sizes = 0;
  for (const auto resolution : allCases<VideoResolution>()) {
    for (const auto& size : validDimensions(resolution)) {
      ++sizes;
      EXPECT_EQ(fromDimensions<VideoResolution>(size), resolution) << size.width << " x " << size.height;
      const auto byWidth = fromWidth<VideoResolution>(size.width);
      ASSERT_TRUE(byWidth);
      EXPECT_LE(*byWidth, resolution);
    }
  }
  EXPECT_EQ(sizes, 41U);
  for (const VideoSize size : {VideoSize{320, 220}, {1080, 1920}, {1920.5, 1080}, {}}) {
    EXPECT_EQ(fromDimensions<VideoResolution>(size), std::nullopt) << size.width << " x " << size.height;
  }
  EXPECT_EQ(fromWidth<VideoResolution>(1920), VideoResolution::fullHd);
  EXPECT_EQ(fromWidth<VideoResolution>(3840), VideoResolution::fourK);
  for (const double width : {1919.9, 0.0, -1920.0, nan}) {
    EXPECT_EQ(fromWidth<VideoResolution>(width), std::nullopt) << width;
  }
}

}  // namespace
}  // namespace quillonic
