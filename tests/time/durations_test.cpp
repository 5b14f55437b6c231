#include <quillonic/time.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

static_assert(TimeInterval::minute == 60 && TimeInterval::hour == 3600 && TimeInterval::day == 86400 &&
              TimeInterval::month == 2678400 && TimeInterval::year == 31536000);

TEST(NumberUtility, TakesSecondsApartTowardZero) {
  const std::tuple<std::int64_t, NumberUtility::HoursMinutesSeconds, std::string_view> rows[] = {
      {0, {0, 0, 0}, "00:00:00"},
      {-5, {0, 0, -5}, "00:00:-05"},
      {360000, {100, 0, 0}, "100:00:00"},
      {-3661, {-1, -1, -1}, "-01:-01:-01"},
      {largest, {2562047788015215, 30, 7}, "2562047788015215:30:07"},
      {smallest, {-2562047788015215, -30, -8}, "-2562047788015215:-30:-08"}};
  for (const auto& [seconds, parts, text] : rows) {
    EXPECT_EQ(NumberUtility::secondsToHoursMinutesSeconds(seconds), parts) << seconds;
    EXPECT_EQ(NumberUtility::secondsToStandardDurationText(seconds), text);
  }
}

// The minutes of a negative length are dropped, with a log message.
TEST(TimeInterval, FormatsSecondsWithTwoCharacters) {
  const auto infinity = std::numeric_limits<double>::infinity();
  const std::tuple<double, std::string_view, std::size_t> rows[] = {
      {-0.9, "00:00:00", 0},
      {3725.9, "01:02:05", 0},
      {360000, "100:00:00", 0},
      {-5, "00:00:-5", 0},
      {-59.99, "00:00:-59", 0},
      {-infinity, "00:00:00", 0},
      {std::numeric_limits<double>::quiet_NaN(), "00:00:00", 0},
      {0x1.fffffffffffffp62, "2562047788015215:13:04", 0},
      {-60, "00:00:00", 1},
      {-90, "00:00:-30", 1},
      {-0x1p63, "00:00:-8", 1}};
  for (const auto& [seconds, text, messages] : rows) {
    const RecordedLog log;
    EXPECT_EQ(TimeInterval::formattedString(seconds), text);
    EXPECT_EQ(log.lines(),
              std::vector<std::string>(
                  messages, "debug: Extra seconds were ignored during TimeInterval string formatting"));
  }
}

TEST(TimeIntervalDeathTest, StopsTheProgramWhereNoTextCanStandForTheNumber) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const double seconds : {0x1p63, -0x1.0000000000001p63, 1e300}) {
    EXPECT_DEATH(TimeInterval::formattedString(seconds),
                 "QLC_TI_FS-.*the number of seconds does not fit 64 bits");
  }
}

}  // namespace
}  // namespace quillonic
