// What holds for all settings alike.
#include <quillonic/media.hpp>
#include <quillonic/platform.hpp>

#include <algorithm>
#include <atomic>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "texts.hpp"

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

TEST(Settings, SurviveStoring) {
  for (const auto& rate : FrameRate::wellDefinedCases()) expectRoundTrip<Video>(rate);
  for (const auto& dimension : VideoDimension::wellDefinedCases()) expectRoundTrip<Video>(dimension);
  for (const auto& rate : VideoDataRate::allCommonCases()) expectRoundTrip<Video>(rate);
  for (const auto depth : allCases<ColorDepth>()) expectRoundTrip<Video>(depth);
  for (const auto extension : allCases<VideoExtension>()) expectRoundTrip<Video>(extension);
  for (const auto resolution : allCases<VideoResolution>()) expectRoundTrip<Video>(resolution);
  for (const auto& rate : SampleRate::wellDefinedCases()) expectRoundTrip<Audio>(rate);
  for (const auto& layout : ChannelLayout::allCommonCases()) expectRoundTrip<Audio>(layout);
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
  const Video unknown{.width = 12, .colorDepth = 9, .container = Video::Container{7}};
  EXPECT_EQ(fromProto<VideoExtension>(unknown), std::nullopt);
  EXPECT_EQ(fromProto<ColorDepth>(unknown), std::nullopt);
  EXPECT_EQ(fromProto<VideoResolution>(unknown), std::nullopt);
}

// Every number that a text holds is written in digits alone and reads back.
TEST(Settings, TextsHoldAnyNumberWithoutAnExponent) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  const auto fps = [](double number) { return FrameRate::custom(number).description(); };
  const auto size = [](double width) { return VideoDimension::custom(width, 1).description(); };
  const auto mbps = [](double number) { return VideoDataRate::restrict(number).description(); };
  for (const double number :
       {5e-324, 1e-7, 0.1, 1.0 + 1e-15, 9007199254740993.0, 1e22, std::numeric_limits<double>::max()}) {
    const auto text = fps(number);
    const auto digits = text.substr(8, text.find(' ', 8) - 8);
    EXPECT_EQ(text, "Custom: " + digits + " fps");
    EXPECT_EQ(digits.find_first_not_of("0123456789."), std::string::npos) << digits;
    double read = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), read);
    EXPECT_EQ(read, number) << text;
    EXPECT_EQ(size(number), "Custom: " + digits + " x 1.0");
    EXPECT_EQ(mbps(number), number > 1 ? "Retrict to " + digits + " mbps" : "Restrict");
  }
  EXPECT_EQ(
      joined(std::vector{fps(infinity), fps(nan), size(infinity), size(nan), mbps(infinity), mbps(nan)}, '|'),
      "Custom: inf fps|Custom|Custom: inf x 1.0|Custom Dimensions|Retrict to inf mbps|Restrict");
  const auto scaled = [](double factor) { return VideoDimension::scaled(factor).description().substr(8); };
  EXPECT_EQ(joined(std::vector{nan, -nan, -infinity, 1e308, -0.0, 5e-324}, ' ', scaled),
            "nan% nan% -inf% inf% -0.0% 0.0%");
  EXPECT_THAT(scaled(1e300), testing::MatchesRegex("1[0-9]{302}.0%"));
}

TEST(Settings, CodecsAllowAPartOfTheListsInTheirOrder) {
  for (std::int32_t number = -1; number < 14; ++number) {
    const Codec codec{number};
    auto rest = FrameRate::allCases().begin();
    for (const auto& rate : FrameRate::allowed(codec)) {
      rest = std::find(rest, FrameRate::allCases().end(), rate);
      ASSERT_NE(rest++, FrameRate::allCases().end()) << number;
    }
    EXPECT_EQ(allowed<VideoExtension>(codec).front(), VideoExtension::mov);
    EXPECT_EQ(VideoDataRate::allowed(codec).front(), VideoDataRate::auto_);
  }
}

// The frame rates, the sizes, the data rates, the depths and the containers.
TEST(Settings, CodecsAllowWhatTheyCanHold) {
  const auto held = [](Codec codec) {
    const auto depth = [](ColorDepth one) { return std::to_string(static_cast<int>(one)); };
    return std::to_string(FrameRate::allowed(codec).size()) + " " +
           std::to_string(VideoDimension::allAllowedOptions(codec).size()) + " " +
           std::to_string(VideoDataRate::allowed(codec).size()) + " " +
           joined(allowed<ColorDepth>(codec), ' ', depth) + " " + joined(allowed<VideoExtension>(codec));
  };
  EXPECT_EQ(held(Codec::proRes422HQ), "11 14 1 10 mov");
  EXPECT_EQ(held(Codec::proRes4444XQ), "11 14 1 10 12 mov");
  EXPECT_EQ(held(Codec::h264), "11 14 2 8 mov mp4");
  EXPECT_EQ(held(unknownCodec), "11 14 2 8 10 12 16 mov mp4");
  EXPECT_EQ(held(Codec{}), held(unknownCodec));
  EXPECT_EQ(joined(FrameRate::allowed(Codec::dnxhd), '|', [](auto& rate) { return std::string(rate.tag()); }),
            "Match|23.97 fps|24 fps|25 fps|29.97 fps|50 fps|59.94 fps");
  EXPECT_THAT(
      VideoDimension::allAllowedOptions(Codec::dnxhd),
      testing::ElementsAre(VideoDimension::match, VideoDimension::sevenTwentyP, VideoDimension::tenEightyP));
}

class Marked final : public Localizer {
 public:
  std::string localized(std::string_view text) const override { return "~" + std::string(text); }
};

TEST(Settings, DisplayTextsAreLookedUpAndTagsAreNot) {
  Localization::setLocalizer(std::make_shared<const Marked>());
  const auto expectLookedUp = [](const auto& values) {
    for (const auto& value : values) {
      EXPECT_EQ(value.description()[0], '~') << value.description();
      EXPECT_EQ(value.pickerDescription()[0], '~') << value.pickerDescription();
      EXPECT_NE(value.tag()[0], '~') << value.tag();
    }
  };
  expectLookedUp(FrameRate::allCases());
  expectLookedUp(VideoDimension::allCases());
  expectLookedUp(VideoDataRate::allCommonCases());
  expectLookedUp(SampleRate::wellDefinedCases());
  expectLookedUp(ChannelLayout::allCommonCases());
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
