#include <quillonic/time.hpp>

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "child_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

const std::string town = ZONE_FILES "/Town";  // an hour before UTC, with summer time
const sys_seconds winter = sys_days(2026y / 1 / 1);
const sys_seconds summer = sys_days(2026y / 7 / 1);
const sys_seconds leapDay = sys_days(2028y / 2 / 29);

// No instant before the first one shows the time.
void expectFirstInstant(const TimeZone& zone, sys_seconds instant) {
  const auto shown = [&](sys_seconds t) { return local_seconds((t + zone.offset(t)).time_since_epoch()); };
  const auto first = zone.firstInstant(shown(instant));
  EXPECT_TRUE(first <= instant && shown(first) >= shown(instant) && shown(first - 1s) < shown(instant));
}

TEST(TimeZone, ReadsRules) {
  constexpr std::string_view europe = "CET-1CEST,M3.5.0,M10.5.0/3", odd = "ABC3DEF,M10.3.0/-24,M2.3.0/167";
  const std::tuple<std::string_view, sys_seconds, seconds> rows[] = {
      {"<-0330>3:30:15", winter, -(3h + 30min + 15s)},
      {europe, sys_days(9999y / 10 / 31) + 1h, 1h},
      {europe, sys_days(9999y / 10 / 31) + 59min, 2h},
      {odd, winter, -2h},
      {odd, summer, -3h},
      {"ABC0DEF-2,J59/0,J60/0", leapDay, 2h},
      {"ABC0DEF-2,59/0,60/2", leapDay, 2h},
      {"ABC0DEF-2,59/0,60/2", leapDay - 1s, 0s},
      {"XXX3EDT4,0/0,J365/23", winter + 4h - 1s, -4h},  // summer all year
      {"QQQ5RRR", sys_days(2026y / 11 / 1) + 6h, -5h}};
  for (const auto& [rule, instant, offset] : rows) {
    const auto zone = TimeZone::fromName(rule);
    ASSERT_TRUE(zone) << rule;
    EXPECT_EQ(zone->offset(instant), offset) << rule << ' ' << instant.time_since_epoch().count();
    expectFirstInstant(*zone, instant);
  }
}

TEST(TimeZone, TellsOfNamesThatDoNotExist) {
  for (const std::string name :
       {"Nowhere/Foo", "Europe", "/dev/zero", "AB0", "ABC", "ABC25", "ABC0:60", "<ABC0", "ABC0DEF,M3.5.0",
        "ABC0DEF,M13.5.0,1", "ABC0DEF,M3.6.0,1", "ABC0DEF,M3.5.7,1", "ABC0DEF,J0,1", "ABC0DEF,1/168,2"}) {
    const RecordedLog log;
    EXPECT_FALSE(TimeZone::fromName(name)) << name;
    EXPECT_TRUE(log.text().starts_with("warning: QLC_TZ_FN-Failed to find the time zone \"" + name + "\": "));
  }
}

TEST(TimeZone, IsThatOfTheSystem) {
  const RecordedLog log;
  setenv("TZDIR", ZONE_FILES, 1);
  const std::tuple<const char*, std::optional<seconds>> rows[] = {
      {"", 0s}, {"ABC-3", 3h}, {":Town", 2h}, {town.c_str(), 2h}, {"Nowhere/Foo", std::nullopt}};
  for (const auto& [variable, offset] : rows) {
    setenv("TZ", variable, 1);
    const auto zone = TimeZone::ofSystem();
    EXPECT_EQ(zone ? std::optional(zone->offset(summer)) : std::nullopt, offset) << variable;
  }
  unsetenv("TZ");
  EXPECT_TRUE(TimeZone::ofSystem());
  unsetenv("TZDIR");
  EXPECT_FALSE(TimeZone::fromName("Town"));
}

TEST(TimeZone, ReadsOldFiles) {
  const auto whole = contentOf(town);
  const TemporaryFolder folder;
  for (const char version : {'\0', '2', '3', '4'}) {
    auto bytes = whole;
    bytes[4] = version;
    const auto zone = TimeZone::fromName(folder.file("zone", bytes).native());
    // The oldest have no rule for later years, and slim files nothing in their first part.
    EXPECT_TRUE(zone && (!version || zone->offset(sys_days(2500y / 7 / 1)) == 2h)) << version;
  }
}

TEST(Calendar, KnowsTheFirstDayOfTheUsersWeek) {
  const auto locale = runChild("/usr/bin/env", {"locale", "first_weekday", "week-1stday"});
  if (locale.exitStatus != 0 || !locale.errors.empty()) GTEST_SKIP() << "needs the program locale";
  const auto first = std::stoi(locale.output), date = std::stoi(locale.output.substr(2));
  EXPECT_EQ(firstWeekdayOfLocale(),
            weekday(sys_days(year(date / 10000) / (date / 100 % 100) / (date % 100))) + days(first - 1));
  EXPECT_EQ(firstWeekdayOfLocale("C"), Sunday);
  const RecordedLog log;
  EXPECT_FALSE(firstWeekdayOfLocale("xx_XX.UTF-8"));
  EXPECT_TRUE(log.text().starts_with("warning: QLC_CAL_FWOL-Failed to find the locale \"xx_XX.UTF-8\""));
}

}  // namespace
}  // namespace quillonic
