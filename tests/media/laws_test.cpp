// What holds for all settings alike.
#include <quillonic/media.hpp>
#include <quillonic/platform.hpp>

#include <atomic>
#include <bit>
#include <charconv>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <unordered_set>

namespace quillonic {
namespace {

using Codec = Cloud_ConversionOptions::CodecType;
using Video = Cloud_ConversionOptions::VideoTranscodeOptions;
using Audio = Cloud_ConversionOptions::AudioTranscodeOptions;

constexpr Codec unknownCodec{99};

// Stored over whatever stood there before, a value reads back as itself.
template <class Options, class T> void expectRoundTrip(const T& value) {
  Options stored;
  if constexpr (std::same_as<Options, Video>) stored = {.width = 7, .height = 9, .scale = 3, .dataRate = 5};
  if constexpr (PayloadCases<T>) {
    value.storeIn(stored);
    EXPECT_EQ(T::fromProto(stored), value) << value.tag();
    EXPECT_TRUE(std::unordered_set<T>{value}.contains(*std::optional(T::fromProto(stored)))) << value.tag();
  } else {
    storeIn(value, stored);
    EXPECT_EQ(fromProto<T>(stored), value) << tag(value);
    if constexpr (std::same_as<T, VideoResolution>) {
      EXPECT_EQ(stored.scale, 0) << tag(value);
    }
  }
}

TEST(Settings, FixedCasesSurviveStoring) {
  for (const auto& rate : FrameRate::wellDefinedCases()) expectRoundTrip<Video>(rate);
  for (const auto& dimension : VideoDimension::wellDefinedCases()) expectRoundTrip<Video>(dimension);
  for (const auto& rate : VideoDataRate::allCommonCases()) expectRoundTrip<Video>(rate);
  for (const auto depth : allCases<ColorDepth>()) expectRoundTrip<Video>(depth);
  for (const auto extension : allCases<VideoExtension>()) expectRoundTrip<Video>(extension);
  for (const auto resolution : allCases<VideoResolution>()) expectRoundTrip<Video>(resolution);
  for (const auto& rate : SampleRate::wellDefinedCases()) expectRoundTrip<Audio>(rate);
  for (const auto& layout : ChannelLayout::allCommonCases()) expectRoundTrip<Audio>(layout);
}

TEST(Settings, PayloadsSurviveStoring) {
  std::mt19937_64 random(11);
  const auto positive = [&] {
    const auto number = std::abs(std::bit_cast<double>(random()));
    return std::isnan(number) || number == 0 ? 1.25 : number;
  };
  for (int round = 0; round < 5000; ++round) {
    expectRoundTrip<Video>(FrameRate::custom(positive()));
    expectRoundTrip<Video>(VideoDimension::custom(positive(), positive()));
    expectRoundTrip<Video>(VideoDimension::scaled(positive()));
    expectRoundTrip<Video>(VideoDataRate::restrict(positive()));
    expectRoundTrip<Audio>(SampleRate::custom(static_cast<std::int64_t>(random() >> 1) | 1));
    expectRoundTrip<Audio>(ChannelLayout::custom(std::bit_cast<std::int64_t>(random()) | 9));
  }
}

TEST(Settings, StoredNumbersWithoutAMeaningAreAbsent) {
  const Video stored{.width = 12, .colorDepth = 9, .container = Video::Container{7}};
  EXPECT_EQ(fromProto<VideoExtension>(stored), std::nullopt);
  EXPECT_EQ(fromProto<ColorDepth>(stored), std::nullopt);
  EXPECT_EQ(fromProto<VideoResolution>(stored), std::nullopt);
}

// Every number that a text holds is written in digits alone and reads back.
TEST(Settings, TextsHoldAnyNumberWithoutAnExponent) {
  const double numbers[] = {
      5e-324, 1e-7, 0.1, 1.0 + 1e-15, 9007199254740993.0, 1e22, 1e300, std::numeric_limits<double>::max()};
  for (const double number : numbers) {
    const std::pair<std::string, std::string> texts[] = {
        {FrameRate::custom(number).description(), "Custom: "},
        {VideoDimension::custom(number, 1).description(), "Custom: "},
        {number > 1 ? VideoDataRate::restrict(number).description() : "", "Retrict to "}};
    for (const auto& [text, before] : texts) {
      if (text.empty()) continue;
      ASSERT_TRUE(text.starts_with(before)) << text;
      const auto digits = text.substr(before.size(), text.find(' ', before.size()) - before.size());
      EXPECT_EQ(digits.find_first_not_of("0123456789."), std::string::npos) << digits;
      double read = 0;
      std::from_chars(digits.data(), digits.data() + digits.size(), read);
      EXPECT_EQ(read, number) << digits;
    }
  }
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(FrameRate::custom(infinity).description(), "Custom: inf fps");
  EXPECT_EQ(FrameRate::custom(nan).description(), "Custom");
  EXPECT_EQ(VideoDimension::custom(infinity, 1).description(), "Custom: inf x 1.0");
  EXPECT_EQ(VideoDimension::custom(nan, 1).description(), "Custom Dimensions");
  EXPECT_EQ(VideoDataRate::restrict(infinity).description(), "Retrict to inf mbps");
  EXPECT_EQ(VideoDataRate::restrict(nan).description(), "Restrict");
  const std::pair<double, std::string> scales[] = {{nan, "nan%"},   {-nan, "nan%"},  {-infinity, "-inf%"},
                                                   {1e308, "inf%"}, {-0.0, "-0.0%"}, {5e-324, "0.0%"}};
  for (const auto& [factor, text] : scales) {
    EXPECT_EQ(VideoDimension::scaled(factor).description(), "Custom: " + text);
  }
  EXPECT_THAT(VideoDimension::scaled(1e300).description(), testing::MatchesRegex("Custom: 1[0-9]{302}.0%"));
}

TEST(Settings, CodecsAllowAPartOfTheListsInTheirOrder) {
  for (std::int32_t number = -1; number < 14; ++number) {
    const Codec codec{number};
    const auto rates = FrameRate::allowed(codec);
    std::vector<FrameRate> inOrder;
    for (const auto& rate : FrameRate::allCases()) {
      if (std::ranges::find(rates, rate) != rates.end()) inOrder.push_back(rate);
    }
    EXPECT_THAT(rates, testing::ElementsAreArray(inOrder)) << number;

    auto dimensions = VideoDimension::allowedScaledOptions(codec);
    for (const auto& dimension : VideoDimension::allowedExactOptions(codec)) dimensions.push_back(dimension);
    EXPECT_THAT(VideoDimension::allAllowedOptions(codec), testing::ElementsAreArray(dimensions)) << number;

    EXPECT_FALSE(rates.empty() || dimensions.empty() || allowed<ColorDepth>(codec).empty()) << number;
    EXPECT_EQ(allowed<VideoExtension>(codec).front(), VideoExtension::mov);
    EXPECT_EQ(VideoDataRate::allowed(codec).front(), VideoDataRate::auto_);
  }
}

TEST(Settings, CodecsAllowWhatTheyCanHold) {
  using testing::ElementsAre;
  EXPECT_THAT(allowed<ColorDepth>(Codec::proRes422HQ), ElementsAre(ColorDepth::bpp10));
  EXPECT_THAT(allowed<ColorDepth>(Codec::proRes4444XQ), ElementsAre(ColorDepth::bpp10, ColorDepth::bpp12));
  EXPECT_THAT(allowed<VideoExtension>(Codec::proRes4444XQ), ElementsAre(VideoExtension::mov));
  EXPECT_THAT(allowed<ColorDepth>(Codec::h264), ElementsAre(ColorDepth::bpp8));
  EXPECT_THAT(allowed<VideoExtension>(Codec::h264), ElementsAre(VideoExtension::mov, VideoExtension::mp4));
  EXPECT_THAT(FrameRate::allowed(Codec::dnxhd),
              ElementsAre(FrameRate::match, FrameRate::fps23_98, FrameRate::fps24, FrameRate::fps25,
                          FrameRate::fps29_97, FrameRate::fps50, FrameRate::fps59_94));
  EXPECT_THAT(VideoDimension::allowedExactOptions(Codec::dnxhd),
              ElementsAre(VideoDimension::sevenTwentyP, VideoDimension::tenEightyP));
  for (const auto unknown : {Codec{}, unknownCodec}) {
    EXPECT_EQ(FrameRate::allowed(unknown).size(), 11U);
    EXPECT_EQ(VideoDimension::allAllowedOptions(unknown).size(), 14U);
    EXPECT_EQ(allowed<ColorDepth>(unknown).size(), 4U);
    EXPECT_EQ(allowed<VideoExtension>(unknown).size(), 2U);
    EXPECT_EQ(VideoDataRate::allowed(unknown).size(), 2U);
  }
}

class Marked final : public Localizer {
 public:
  std::string localized(std::string_view text) const override { return "~" + std::string(text); }
};

TEST(Settings, DisplayTextsAreLookedUpAndTagsAreNot) {
  Localization::setLocalizer(std::make_shared<const Marked>());
  const auto expectLookedUp = [](const auto& value) {
    EXPECT_TRUE(value.description().starts_with('~')) << value.description();
    EXPECT_TRUE(value.pickerDescription().starts_with('~')) << value.pickerDescription();
    EXPECT_FALSE(value.tag().starts_with('~')) << value.tag();
  };
  for (const auto& rate : FrameRate::allCases()) expectLookedUp(rate);
  for (const auto& dimension : VideoDimension::allCases()) expectLookedUp(dimension);
  for (const auto& rate : VideoDataRate::allCommonCases()) expectLookedUp(rate);
  for (const auto& rate : SampleRate::wellDefinedCases()) expectLookedUp(rate);
  for (const auto& layout : ChannelLayout::allCommonCases()) expectLookedUp(layout);
  EXPECT_EQ(description(ColorDepth::bpp8), "~8 bpp");
  EXPECT_EQ(description(VideoExtension::mov), "mov");
  EXPECT_EQ(FrameRate::custom(12).description(), "~Custom: 12.0 fps");
  EXPECT_EQ(SampleRate::custom(5).description(), "~5 Hz");
  Localization::setLocalizer(nullptr);
  EXPECT_EQ(FrameRate::match.description(), "Match");
}

TEST(Settings, TheHostSetsItsPartWhileOthersRead) {
  std::atomic<bool> done = false;
  std::thread reader([&] {
    while (!done) {
      const auto hertz = SampleRate::defaultCustomHz();
      EXPECT_TRUE(hertz == 48000 || hertz == 32000) << hertz;
      const auto text = FrameRate::match.description();
      EXPECT_TRUE(text == "Match" || text == "~Match") << text;
    }
  });
  for (int round = 0; round < 2000; ++round) {
    SampleRate::setDefaultCustomHz(round % 2 ? 48000 : 32000);
    Localization::setLocalizer(round % 2 ? nullptr : std::make_shared<const Marked>());
  }
  done = true;
  reader.join();
}

}  // namespace
}  // namespace quillonic
