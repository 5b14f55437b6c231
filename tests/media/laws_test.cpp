// What holds for all settings.
#include <quillonic/media.hpp>
#include <quillonic/platform.hpp>

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using CodecType = Cloud_ConversionOptions::CodecType;
using Video = Cloud_ConversionOptions::VideoTranscodeOptions;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Settings, StoredNumbersWithoutAMeaningAreAbsent) {
  const Video stored{.width = 12, .colorDepth = 9, .container = Video::Container{7}};
  EXPECT_FALSE(fromProto<VideoExtension>(stored) || fromProto<ColorDepth>(stored) ||
               fromProto<VideoResolution>(stored));
}

// Numbers of any size are written with digits alone.
TEST(Settings, TextsHoldAnyNumberWithoutAnExponent) {
  EXPECT_EQ(FrameRate::custom(1e22).description(), "Custom: 10000000000000000000000.0 fps");
  EXPECT_EQ(VideoDimension::custom(1e-7, 0.1).description(), "Custom: 0.0000001 x 0.1");
  EXPECT_EQ(VideoDimension::custom(infinity, 1).description(), "Custom: inf x 1.0");
  EXPECT_EQ(VideoDimension::custom(nan, 1).description(), "Custom Dimensions");
  const auto scaled = [](double factor) { return VideoDimension::scaled(factor).description().substr(8); };
  EXPECT_EQ(joined(std::vector{nan, -nan, -infinity, 1e308, -0.0, 5e-324}, ' ', scaled),
            "nan% nan% -inf% inf% -0.0% 0.0%");
}

// Everything that a codec allows, and the extensions that the transcoder writes.
TEST(Codecs, AllowWhatTheirStandardsDo) {
  const auto tag = [](const auto& setting) { return std::string(setting.tag()); };
  const auto allowedBy = [&](CodecType type) {
    const auto* codec = codecWithType(type);
    const auto depth = [](ColorDepth one) { return std::to_string(rawValue(one)); };
    const std::string parts[] = {codec ? std::string(codec->text) : "?",
                                 codec ? joined(codec->permittedExtensions, ',') : "?",
                                 joined(allowed<ColorDepth>(type), ',', depth),
                                 joined(allowed<VideoExtension>(type), ','),
                                 std::to_string(FrameRate::allowed(type).size()),
                                 std::to_string(VideoDimension::allAllowedOptions(type).size()),
                                 joined(VideoDataRate::allowed(type), ',', tag)};
    return joined(parts);
  };
  EXPECT_EQ(joined(std::array{-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, '\n',
                   [&](int number) { return allowedBy(CodecType{number}); }),
            "? ? 8,10,12,16 mov,mp4 11 14 auto,restrict\n"
            "? ? 8,10,12,16 mov,mp4 11 14 auto,restrict\n"
            "dnxhd mxf 8,10 mov 7 3 auto\n"
            "h264 mp4,mov 8 mov,mp4 11 14 auto,restrict\n"
            "h265 mov 8,10 mov,mp4 11 14 auto,restrict\n"
            "mjpeg mov,mjpeg 8 mov 11 14 auto,restrict\n"
            "mp4 mov 8 mov,mp4 11 14 auto,restrict\n"
            "prores4444 mov 10,12 mov 11 14 auto\n"
            "prores4444xq mov 10,12 mov 11 14 auto\n"
            "prores422 mov 10 mov 11 14 auto\n"
            "prores422hq mov 10 mov 11 14 auto\n"
            "prores422lt mov 10 mov 11 14 auto\n"
            "prores422proxy mov 10 mov 11 14 auto\n"
            "? ? 8,10,12,16 mov,mp4 11 14 auto,restrict");
  const auto dnxhd = CodecType::dnxhd;
  EXPECT_EQ(joined(FrameRate::allowed(dnxhd), '|', tag),
            "Match|23.97 fps|24 fps|25 fps|29.97 fps|50 fps|59.94 fps");
  EXPECT_EQ(joined(VideoDimension::allowedScaledOptions(dnxhd), '|', tag) + ": " +
                joined(VideoDimension::allowedExactOptions(dnxhd), '|', tag),
            "Match: HD (1280 x 720)|Full HD (1920 x 1080)");
  EXPECT_EQ(codecWithText("H264"), nullptr);
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
  EXPECT_EQ(joined(allCases<ColorDepth>(), ';', [](auto depth) { return pickerDescription(depth); }),
            "~8 bpp;~10 bpp;~12 bpp;~16 bpp");
  EXPECT_EQ(displayName(FileExtension::mov) + FrameRate::custom(12).description(),
            "~QuickTime movie~Custom: 12.0 fps");
  Localization::setLocalizer(nullptr);
  EXPECT_EQ(FrameRate::match.description(), "Match");
}

TEST(Settings, TheHostSetsItsPartWhileOthersRead) {
  std::jthread reader([](const std::stop_token& done) {
    while (!done.stop_requested()) {
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
}

}  // namespace
}  // namespace quillonic
