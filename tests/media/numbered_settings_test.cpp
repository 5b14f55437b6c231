// The settings that are little more than a number: data rates, sample rates, channel layouts, colour depths,
// container extensions and resolutions.
#include <quillonic/media.hpp>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace quillonic {
namespace {

constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto greatest = std::numeric_limits<std::int64_t>::max();

static_assert(allowed<ColorDepth>(Cloud_ConversionOptions::CodecType::h265).size() == 2);
static_assert(fromRawValue<VideoExtension>("mp4") == VideoExtension::mp4);
static_assert(!fromRawValue<VideoExtension>("MP4") && !fromRawValue<VideoExtension>("mxf"));
static_assert(VideoDataRate::fromRawValue(0.5) == VideoDataRate::restrict(0.5));
static_assert(SampleRate::fromHertz(22050) == SampleRate::custom(22050));
static_assert(ChannelLayout::wellDefinedCases().front() == ChannelLayout::mono);

TEST(VideoDataRate, RestrictsAboveNothingAndNamesTheRateAboveOneMegabit) {
  const std::pair<double, std::string> rows[] = {{0.0, "Auto"},
                                                 {-2.0, "Auto"},
                                                 {std::nan(""), "Auto"},
                                                 {5e-324, "Restrict"},
                                                 {1.0, "Restrict"},
                                                 {1.5, "Retrict to 1.5 mbps"},
                                                 {2.0, "Retrict to 2.0 mbps"}};
  for (const auto& [number, text] : rows) {
    const auto rate = VideoDataRate::fromRawValue(number);
    const bool isRestrict = text != "Auto";
    EXPECT_EQ(rate, isRestrict ? VideoDataRate::restrict(number) : VideoDataRate::auto_) << number;
    EXPECT_EQ(rate.doubleForProto(), isRestrict ? number : 0.0);
    EXPECT_EQ(rate.description(), text);
    EXPECT_EQ(rate.pickerDescription(), isRestrict ? "Restrict" : "Auto");
    EXPECT_EQ(rate.tag(), isRestrict ? "restrict" : "auto");
    EXPECT_EQ(rate.id(), rate.tag());
  }
}

TEST(SampleRate, ReadsHertzAndWritesKilohertz) {
  const std::pair<std::int64_t, std::string> rows[] = {{least, "Match Source"},
                                                       {0, "Match Source"},
                                                       {1, "1 Hz"},
                                                       {1000, "1000 Hz"},
                                                       {1001, "1.001 kHz"},
                                                       {22050, "22.05 kHz"},
                                                       {44100, "44.1 kHz"},
                                                       {48000, "48 kHz"},
                                                       {96000, "96 kHz"},
                                                       {192000, "192.0 kHz"},
                                                       {greatest, "9223372036854776.0 kHz"}};
  for (const auto& [hertz, description] : rows) {
    const auto rate = SampleRate::fromHertz(hertz);
    const bool isCustom = hertz > 0 && hertz != 44100 && hertz != 48000 && hertz != 96000;
    EXPECT_EQ(rate == SampleRate::custom(hertz), isCustom) << hertz;
    EXPECT_EQ(rate.description(), description);
    EXPECT_EQ(rate.pickerDescription(), isCustom ? "Custom" : description);
    EXPECT_EQ(rate.tag(), isCustom ? "custom" : description);
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
              testing::ElementsAre(SampleRate::matchSource, SampleRate::hz44100, SampleRate::hz48000,
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
    EXPECT_EQ(layout.description(), name ? name : std::to_string(count) + " Channels");
    EXPECT_EQ(layout.pickerDescription(), name ? name : "Custom");
    EXPECT_EQ(layout.tag(), name ? name : "custom");
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
  for (const double width : {1919.9, 0.0, -1920.0, std::nan("")}) {
    EXPECT_EQ(fromWidth<VideoResolution>(width), std::nullopt) << width;
  }
}

}  // namespace
}  // namespace quillonic
