#include <quillonic/media.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using Stored = Cloud_ConversionOptions::VideoTranscodeOptions;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

static_assert(VideoDimension::fromProto({.width = 960, .height = 540}) == VideoDimension::fiveFortyP);
static_assert(VideoDimension::allowedScaledOptions({}).back() == VideoDimension::scaled(0.9));
static_assert(VideoDimension::allowedExactOptions({}).back() == VideoDimension::custom(400, 400));
static_assert(VideoDimension::wellDefinedCases().size() == 12 && VideoDimension::scaleOptions().size() == 6);

TEST(VideoDimension, HasASizeAndItsTexts) {
  using D = VideoDimension;
  EXPECT_THAT(D::wellDefinedCases(),
              testing::ElementsAre(D::match, D::half, D::quarter, D::eighth, D::sixteenth, D::twoTwentyP,
                                   D::twoSeventyP, D::fourEightyP, D::fiveFortyP, D::sevenTwentyP,
                                   D::tenEightyP, D::fourK));
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
    EXPECT_EQ(dimension.description(), text);
    EXPECT_EQ(dimension.pickerDescription(), custom ? "Custom Dimensions" : scaled ? "Custom Scale" : text);
    EXPECT_EQ(dimension.tag(), custom ? "custom" : scaled ? "scaled" : text);
  }
}

TEST(VideoDimension, ReadsStoredNumbersThatFitACase) {
  const std::pair<Stored, VideoDimension> accepted[] = {
      {{}, VideoDimension::match},
      {{.width = -0.0, .height = 0.0, .scale = -0.0}, VideoDimension::match},
      {{.scale = 0.0625}, VideoDimension::sixteenth},
      {{.scale = 0.9}, VideoDimension::scaled(0.9)},
      {{.scale = 320}, VideoDimension::scaled(320)},
      {{.scale = infinity}, VideoDimension::scaled(infinity)},
      {{.width = 0.5, .height = 0.5}, VideoDimension::half},
      {{.width = 320, .height = 220}, VideoDimension::twoTwentyP},
      {{.width = 320, .height = 230}, VideoDimension::custom(320, 230)},
      {{.width = 1920, .height = 1080, .scale = 0.5}, VideoDimension::tenEightyP},
      {{.width = 1920, .height = 1080, .scale = nan}, VideoDimension::tenEightyP},
      {{.width = 5e-324, .height = 1e300}, VideoDimension::custom(5e-324, 1e300)}};
  for (const auto& [stored, dimension] : accepted) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(VideoDimension::fromProto(stored), dimension) << dimension.description();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  }
}

TEST(VideoDimension, PrintsAMessageForStoredNumbersThatFitNone) {
  const std::pair<Stored, std::string> rejected[] = {
      {{.width = 1920}, "1920.0 - pHeight: 0.0"},
      {{.height = 1080, .scale = 0.5}, "0.0 - pHeight: 1080.0"},
      {{.width = -1, .height = 5.5}, "-1.0 - pHeight: 5.5"},
      {{.width = nan, .height = infinity}, "nan - pHeight: inf"},
      {{.scale = -0.5}, "0.0 - pHeight: 0.0"},
      {{.scale = nan}, "0.0 - pHeight: 0.0"},
      {{.width = 9007199254740994, .height = -0.0}, "9007199254740994.0 - pHeight: -0.0"}};
  for (const auto& [stored, numbers] : rejected) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(VideoDimension::fromProto(stored), VideoDimension::match) << numbers;
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Proto failed to parse VideoDimension from Proto. Will reset to match orignal! (pWidth:" +
                  numbers + "\n");
  }
}

TEST(VideoDimension, FiltersKeepTheOrderOfTheListAndComparePayloads) {
  using D = VideoDimension;
  const D list[] = {D::scaled(0.9),      D::fourK, D::scaled(0.8),
                    D::custom(400, 400), D::match, D::custom(400, 401)};
  EXPECT_THAT(D::filterScaleOptions(list), testing::ElementsAre(D::scaled(0.9), D::match));
  EXPECT_THAT(D::filterExactDimensionsOptions(list), testing::ElementsAre(D::fourK, D::custom(400, 400)));
}

}  // namespace
}  // namespace quillonic
