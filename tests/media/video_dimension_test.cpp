#include <quillonic/media.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>

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
  struct Row {
    VideoDimension dimension;
    VideoSize size;
    std::string description;
    VideoSize preview;
  };
  constexpr VideoSize fullHd{1920, 1080};
  const Row rows[] = {
      {VideoDimension::match, {0, 0}, "Match", fullHd},
      {VideoDimension::half, {0.5, 0.5}, "Half", fullHd},
      {VideoDimension::quarter, {0.25, 0.25}, "Quarter", fullHd},
      {VideoDimension::eighth, {0.125, 0.125}, "Eighth", fullHd},
      {VideoDimension::sixteenth, {0.0625, 0.0625}, "Sixteenth", fullHd},
      {VideoDimension::twoTwentyP, {320, 220}, "QVGA (320x220)", {320, 220}},
      {VideoDimension::twoSeventyP, {480, 270}, "270p (480 x 270)", {480, 270}},
      {VideoDimension::fourEightyP, {640, 480}, "VGA (640 x 480)", {640, 480}},
      {VideoDimension::fiveFortyP, {960, 540}, "qHD (960 x 540)", {960, 540}},
      {VideoDimension::sevenTwentyP, {1280, 720}, "HD (1280 x 720)", {1280, 720}},
      {VideoDimension::tenEightyP, fullHd, "Full HD (1920 x 1080)", fullHd},
      {VideoDimension::fourK, {3840, 2160}, "4K UHD (3840 x 2160)", {3840, 2160}},
      {VideoDimension::scaled(0.9), {0.9, 0.9}, "Custom: 90.0%", fullHd},
      {VideoDimension::scaled(1.0 / 3), {1.0 / 3, 1.0 / 3}, "Custom: 33.3%", fullHd},
      {VideoDimension::custom(400, 400), {400, 400}, "Custom: 400.0 x 400.0", {400, 400}},
      {VideoDimension::custom(0.5, 2), {0.5, 2}, "Custom: 0.5 x 2.0", {0.5, 2}},
      {VideoDimension::custom(400, 0), {400, 0}, "Custom Dimensions", {400, 0}},
  };
  for (const auto& row : rows) {
    const auto& dimension = row.dimension;
    EXPECT_EQ(dimension.size(), row.size) << row.description;
    EXPECT_EQ(dimension.previewSize(), row.preview) << row.description;
    EXPECT_EQ(dimension.description(), row.description);
    const bool custom = dimension.isCustom();
    const bool scaled = dimension.isCustomScale();
    EXPECT_EQ(dimension.pickerDescription(), custom   ? "Custom Dimensions"
                                             : scaled ? "Custom Scale"
                                                      : row.description);
    EXPECT_EQ(dimension.tag(), custom ? "custom" : scaled ? "scaled" : row.description);
    EXPECT_EQ(dimension.isScaleOption(), row.size.width < 1 && !custom) << row.description;
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
      {{.width = 5e-324, .height = 1e300}, VideoDimension::custom(5e-324, 1e300)},
  };
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
      {{.width = 9007199254740994, .height = -0.0}, "9007199254740994.0 - pHeight: -0.0"},
  };
  for (const auto& [stored, numbers] : rejected) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(VideoDimension::fromProto(stored), VideoDimension::match) << numbers;
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Proto failed to parse VideoDimension from Proto. Will reset to match orignal! (pWidth:" +
                  numbers + "\n");
  }
}

TEST(VideoDimension, FiltersKeepTheOrderOfTheListAndComparePayloads) {
  const VideoDimension list[] = {VideoDimension::scaled(0.9), VideoDimension::fourK,
                                 VideoDimension::scaled(0.8), VideoDimension::custom(400, 400),
                                 VideoDimension::match,       VideoDimension::custom(400, 401)};
  EXPECT_THAT(VideoDimension::filterScaleOptions(list),
              testing::ElementsAre(VideoDimension::scaled(0.9), VideoDimension::match));
  EXPECT_THAT(VideoDimension::filterExactDimensionsOptions(list),
              testing::ElementsAre(VideoDimension::fourK, VideoDimension::custom(400, 400)));
}

}  // namespace
}  // namespace quillonic
