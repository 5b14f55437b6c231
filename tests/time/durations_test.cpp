#include <quillonic/time.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

static_assert(TimeInterval::minute == 60 && TimeInterval::hour == 3600 && TimeInterval::day == 86400 &&
              TimeInterval::month == 2678400 && TimeInterval::year == 31536000);

TEST(NumberUtility, TakesSecondsApartTowardZero) {
  using Parts = NumberUtility::HoursMinutesSeconds;
  const std::pair<std::int64_t, Parts> parts[] = {
      {3661, {1, 1, 1}},
      {-3661, {-1, -1, -1}},
      {-59, {0, 0, -59}},
      {largest, {2562047788015215, 30, 7}},
      {smallest, {-2562047788015215, -30, -8}},
  };
  for (const auto& [seconds, expected] : parts) {
    EXPECT_EQ(NumberUtility::secondsToHoursMinutesSeconds(seconds), expected) << seconds;
  }
}

TEST(NumberUtility, WritesSecondsWithTwoDigitsBehindTheSign) {
  const std::pair<std::int64_t, std::string> texts[] = {
      {0, "00:00:00"},
      {-5, "00:00:-05"},
      {90000, "25:00:00"},
      {359999, "99:59:59"},
      {360000, "100:00:00"},
      {-3661, "-01:-01:-01"},
      {largest, "2562047788015215:30:07"},
      {smallest, "-2562047788015215:-30:-08"},
  };
  for (const auto& [seconds, text] : texts) {
    EXPECT_EQ(NumberUtility::secondsToStandardDurationText(seconds), text);
  }
}

TEST(TimeInterval, FormatsSecondsWithTwoCharacters) {
  const auto infinity = std::numeric_limits<double>::infinity();
  const std::pair<double, std::string> texts[] = {
      {0, "00:00:00"},
      {-0.9, "00:00:00"},
      {3725.9, "01:02:05"},
      {360000, "100:00:00"},
      {-5, "00:00:-5"},
      {-30, "00:00:-30"},
      {-59.99, "00:00:-59"},
      {infinity, "00:00:00"},
      {-infinity, "00:00:00"},
      {std::numeric_limits<double>::quiet_NaN(), "00:00:00"},
      {0x1.fffffffffffffp62, "2562047788015215:13:04"},
  };
  const RecordedLog log;
  for (const auto& [seconds, text] : texts) EXPECT_EQ(TimeInterval::formattedString(seconds), text);
  EXPECT_TRUE(log.lines().empty());
}

TEST(TimeInterval, LeavesTheMinutesOfANegativeLengthOutAndSaysSo) {
  const RecordedLog log;
  EXPECT_EQ(TimeInterval::formattedString(-60), "00:00:00");
  EXPECT_EQ(TimeInterval::formattedString(-90), "00:00:-30");
  EXPECT_EQ(TimeInterval::formattedString(-0x1p63), "00:00:-8");
  EXPECT_EQ(log.lines(), std::vector<std::string>(
                             3, "debug: Extra seconds were ignored during TimeInterval string formatting"));
}

TEST(TimeIntervalDeathTest, StopsTheProgramWhereNoTextCanStandForTheNumber) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const double seconds : {0x1p63, -0x1.0000000000001p63, 1e300}) {
    EXPECT_DEATH(TimeInterval::formattedString(seconds), "the number of seconds does not fit 64 bits");
  }
}

}  // namespace
}  // namespace quillonic
