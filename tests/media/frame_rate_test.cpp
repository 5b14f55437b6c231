#include <quillonic/media.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <syslog.h>

namespace quillonic {
namespace {

using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double leastDouble = std::numeric_limits<double>::denorm_min();

static_assert(FrameRate::fromRawValue(23.967) == FrameRate::fps23_98);
static_assert(FrameRate::wellDefinedCases().size() == 10 && FrameRate::allCases().size() == 11);
static_assert(FrameRate::filterScaleOptions(FrameRate::allCases()).size() == 2);
static_assert(FrameRate::custom(24.0) != FrameRate::fps24);

TEST(FrameRate, HasAValueAndItsTexts) {
  struct Row {
    FrameRate rate;
    double value;
    std::string description;
    std::string picker;
    std::string_view tag;
  };
  const Row rows[] = {
      {FrameRate::match, 0.0, "Match", "Match", "Match"},
      {FrameRate::halfstep, 0.5, "Half Step", "Half Step", "Half Step"},
      {FrameRate::fps23_98, 23.967, "23.97 fps", "23.97 fps", "23.97 fps"},
      {FrameRate::fps24, 24.0, "24 fps", "24 fps", "24 fps"},
      {FrameRate::fps25, 25.0, "25 fps", "25 fps", "25 fps"},
      {FrameRate::fps29_97, 29.97, "29.97 fps", "29.97 fps", "29.97 fps"},
      {FrameRate::fps30, 30.0, "30 fps", "30 fps", "30 fps"},
      {FrameRate::fps50, 50.0, "50 fps", "50 fps", "50 fps"},
      {FrameRate::fps59_94, 59.94, "59.94 fps", "59.94 fps", "59.94 fps"},
      {FrameRate::fps60, 60.0, "60 fps", "60 fps", "60 fps"},
      {FrameRate::custom(12), 12.0, "Custom: 12.0 fps", "Custom", "custom"},
      {FrameRate::custom(0), 0.0, "Custom", "Custom", "custom"},
      {FrameRate::custom(-24), -24.0, "Custom", "Custom", "custom"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.rate.value(), row.value) << row.description;
    EXPECT_EQ(row.rate.frameRateForProto(), row.value) << row.description;
    EXPECT_EQ(row.rate.description(), row.description);
    EXPECT_EQ(row.rate.pickerDescription(), row.picker);
    EXPECT_EQ(row.rate.tag(), row.tag);
  }
}

TEST(FrameRate, ReadsNumbersThatStandForARate) {
  const std::pair<double, FrameRate> accepted[] = {
      {0.0, FrameRate::match},
      {-0.0, FrameRate::match},
      {0.5, FrameRate::halfstep},
      {23.967, FrameRate::fps23_98},
      {23.976, FrameRate::custom(23.976)},
      {59.94, FrameRate::fps59_94},
      {leastDouble, FrameRate::custom(leastDouble)},
      {1e300, FrameRate::custom(1e300)},
      {infinity, FrameRate::custom(infinity)},
  };
  for (const auto& [number, rate] : accepted) EXPECT_EQ(FrameRate::fromRawValue(number), rate) << number;
}

TEST(FrameRate, SendsAllOtherNumbersToTheSystemLog) {
  // The process chooses where its system log goes; here also to standard error, where a test can see it.
  openlog("tool", LOG_PERROR, LOG_USER);
  const std::pair<double, std::string> rejected[] = {{-1, "-1.0"},
                                                     {-leastDouble, "-0.000"},
                                                     {nan, "nan"},
                                                     {-infinity, "-inf"},
                                                     {-1.5e15, "-1500000000000000.0"}};
  for (const auto& [number, text] : rejected) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(FrameRate::fromRawValue(number), std::nullopt) << text;
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::StartsWith("tool: Could not convert raw value to frame rate: " + text));
  }
  closelog();
}

TEST(FrameRate, FiltersKeepTheOrderOfTheListAndComparePayloads) {
  const FrameRate list[] = {FrameRate::fps60,      FrameRate::custom(0),  FrameRate::halfstep,
                            FrameRate::custom(12), FrameRate::match,      FrameRate::fps24,
                            FrameRate::fps60,      FrameRate::custom(nan)};
  EXPECT_THAT(FrameRate::filterExactFrameRateOptions(list),
              ElementsAre(FrameRate::fps60, FrameRate::custom(0), FrameRate::fps24, FrameRate::fps60));
  EXPECT_THAT(FrameRate::filterScaleOptions(list), ElementsAre(FrameRate::halfstep, FrameRate::match));
  EXPECT_THAT(FrameRate::exactFrameRateOptions(),
              ElementsAre(FrameRate::fps23_98, FrameRate::fps24, FrameRate::fps25, FrameRate::fps29_97,
                          FrameRate::fps30, FrameRate::fps50, FrameRate::fps59_94, FrameRate::fps60,
                          FrameRate::custom(0)));
}

}  // namespace
}  // namespace quillonic
