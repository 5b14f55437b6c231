#include <quillonic/media.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <syslog.h>

#include "texts.hpp"

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
  const double values[] = {0, 0.5, 23.967, 24, 25, 29.97, 30, 50, 59.94, 60};
  const auto texts =
      split("Match|Half Step|23.97 fps|24 fps|25 fps|29.97 fps|30 fps|50 fps|59.94 fps|60 fps", '|');
  std::size_t at = 0;
  for (const auto& rate : FrameRate::wellDefinedCases()) {
    EXPECT_EQ(rate, FrameRate::fromRawValue(values[at]));
    EXPECT_EQ(rate.value(), values[at]);
    EXPECT_EQ(rate.frameRateForProto(), values[at]);
    for (const auto& text : {rate.description(), rate.pickerDescription(), std::string(rate.tag())}) {
      EXPECT_EQ(text, texts[at]);
    }
    ++at;
  }
  for (const double number : {12.0, 0.0, -24.0}) {
    const auto rate = FrameRate::custom(number);
    EXPECT_EQ(rate.frameRateForProto(), number);
    EXPECT_EQ(rate.description(), number > 0 ? "Custom: 12.0 fps" : "Custom");
    EXPECT_EQ(rate.pickerDescription(), "Custom");
    EXPECT_EQ(rate.tag(), "custom");
  }
  EXPECT_EQ(FrameRate::fromRawValue(-0.0), FrameRate::match);
  for (const double number : {23.976, leastDouble, 1e300, infinity}) {
    EXPECT_EQ(FrameRate::fromRawValue(number), FrameRate::custom(number)) << number;
  }
}

TEST(FrameRate, SendsAllOtherNumbersToTheSystemLog) {
  // The process chooses where its system log goes; here also to standard error, where a test can see it.
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

TEST(FrameRate, FiltersKeepTheOrderOfTheListAndComparePayloads) {
  using R = FrameRate;
  const R list[] = {R::fps60, R::custom(0), R::halfstep, R::custom(12),
                    R::match, R::fps24,     R::fps60,    R::custom(nan)};
  EXPECT_THAT(R::filterExactFrameRateOptions(list), ElementsAre(R::fps60, R::custom(0), R::fps24, R::fps60));
  EXPECT_THAT(R::filterScaleOptions(list), ElementsAre(R::halfstep, R::match));
  EXPECT_THAT(R::exactFrameRateOptions(), ElementsAre(R::fps23_98, R::fps24, R::fps25, R::fps29_97, R::fps30,
                                                      R::fps50, R::fps59_94, R::fps60, R::custom(0)));
}

}  // namespace
}  // namespace quillonic
