#include <quillonic/time.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "child_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

namespace chrono = std::chrono;
using namespace std::chrono_literals;
using chrono::sys_days;
using chrono::sys_seconds;

const std::string berlin = "/usr/share/zoneinfo/Europe/Berlin";

// Sets a variable of the environment until the end of the scope, or removes it.
class Variable {
 public:
  Variable(const char* name, std::optional<std::string> value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { set(before_); }

 private:
  void set(const std::optional<std::string>& value) {
    value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> before_;
};

// Local time goes on between changes, and the first instant of a time is the first.
void expectFirstInstants(const TimeZone& zone, sys_seconds instant) {
  const chrono::local_seconds local((instant + zone.offset(instant)).time_since_epoch());
  const auto first = zone.firstInstant(local);
  EXPECT_LE(first, instant);
  const auto shown = [&](sys_seconds t) {
    return chrono::local_seconds((t + zone.offset(t)).time_since_epoch());
  };
  EXPECT_GE(shown(first), local);
  EXPECT_LT(shown(first - 1s), local);
}

TEST(TimeZone, ReadsRules) {
  const auto summer = sys_days(2026y / 7 / 1), winter = sys_days(2026y / 1 / 1),
             leap = sys_days(2028y / 2 / 29);
  const std::tuple<std::string_view, sys_seconds, chrono::seconds> rows[] = {
      {"ABC0", winter, 0s},
      {"<-0330>3:30:15", winter, -(3h + 30min + 15s)},
      {"ABC-14", winter, 14h},
      {"ABC+24:59:59", winter, -(24h + 59min + 59s)},
      {"CET-1CEST,M3.5.0,M10.5.0/3", summer, 2h},
      {"CET-1CEST,M3.5.0,M10.5.0/3", sys_days(2026y / 3 / 29) + 1h, 2h},
      {"CET-1CEST,M3.5.0,M10.5.0/3", sys_days(2026y / 3 / 29) + 59min, 1h},
      {"CET-1CEST,M3.5.0,M10.5.0/3", sys_days(9999y / 10 / 31) + 1h, 1h},
      {"CET-1CEST,M3.5.0,M10.5.0/3", sys_days(9999y / 10 / 31) + 59min, 2h},
      {"ABC3DEF,M10.3.0/-24,M2.3.0/167", winter, -2h},
      {"ABC3DEF,M10.3.0/-24,M2.3.0/167", summer, -3h},
      {"ABC0DEF-2,J59/0,J60/0", sys_days(2028y / 2 / 28), 2h},
      {"ABC0DEF-2,J59/0,J60/0", leap, 2h},
      {"ABC0DEF-2,J59/0,J60/2", sys_days(2028y / 3 / 1), 0s},
      {"ABC0DEF-2,59/0,60/2", leap, 2h},
      {"ABC0DEF-2,59/0,60/2", leap - 1s, 0s},
      // Summer all year, as some files say it.
      {"XXX3EDT4,0/0,J365/23", winter, -4h},
      {"XXX3EDT4,0/0,J365/23", winter + 4h, -4h},
      {"XXX3EDT4,0/0,J365/23", winter + 4h - 1s, -4h},
      {"QQQ5RRR", sys_days(2026y / 3 / 8) + 7h, -4h},
      {"QQQ5RRR", sys_days(2026y / 11 / 1) + 6h, -5h}};
  for (const auto& [rule, instant, offset] : rows) {
    const auto zone = TimeZone::fromName(rule);
    ASSERT_TRUE(zone) << rule;
    EXPECT_EQ(zone->offset(instant), offset) << rule << ' ' << instant.time_since_epoch().count();
    expectFirstInstants(*zone, instant);
  }
}

TEST(TimeZone, TellsOfNamesThatDoNotExist) {
  for (const std::string_view name :
       {"Nowhere/Foo", "Europe", "AB0", "ABC", "ABC25", "ABC0:60", "ABC0DEF,M3.5.0",
        "ABC0DEF,M13.5.0,M10.5.0", "ABC0DEF,M3.6.0,M10.5.0", "ABC0DEF,M3.5.7,M10.5.0", "ABC0DEF,J0,J1",
        "ABC0DEF,366,1", "ABC0DEF,1/168,2", "<ABC0", "ABC0DEF,1,2,3", "ABC0DEF,1,2 ", "utc\0"}) {
    const RecordedLog log;
    EXPECT_FALSE(TimeZone::fromName(name)) << name;
    ASSERT_EQ(log.lines().size(), 1U) << name;
    EXPECT_EQ(
        log.lines()[0].rfind("warning: QLC_TZ_FN-Failed to find the time zone \"" + std::string(name), 0),
        0U);
  }
}

TEST(TimeZone, ReadsTheSystemsZone) {
  const auto summer = sys_days(2026y / 7 / 1);
  const std::tuple<const char*, std::optional<chrono::seconds>, std::string_view> rows[] = {
      {"", 0s, "UTC"},
      {"UTC", 0s, "UTC"},
      {"ABC-3", 3h, "ABC-3"},
      {":Europe/Berlin", 2h, "Europe/Berlin"},
      {"/usr/share/zoneinfo/Europe/Berlin", 2h, "/usr/share/zoneinfo/Europe/Berlin"},
      {"Nowhere/Foo", std::nullopt, ""},
      {"/dev/zero", std::nullopt, ""}};
  if (!std::filesystem::exists(berlin)) GTEST_SKIP() << "needs the system's files of time zones";
  for (const auto& [value, offset, name] : rows) {
    const Variable variable("TZ", value);
    const RecordedLog log;
    const auto zone = TimeZone::ofSystem();
    EXPECT_EQ(zone.has_value(), offset.has_value()) << value;
    EXPECT_EQ(log.lines().size(), offset ? 0U : 1U);
    if (!zone || !offset) continue;
    EXPECT_EQ(zone->offset(summer), *offset);
    EXPECT_EQ(zone->name(), name);
  }
  const Variable none("TZ", std::nullopt);
  const auto date = runChild("/usr/bin/env", {"date", "-d", "@1780000000", "+%s %z"});
  const auto zone = TimeZone::ofSystem();
  ASSERT_TRUE(zone);
  const auto minutes = zone->offset(sys_seconds(1780000000s)) / 1min;
  char text[16];
  std::snprintf(text, sizeof text, "%+03d%02d\n", int(minutes / 60), int(std::abs(minutes % 60)));
  EXPECT_TRUE(date.exitStatus != 0 || date.output == std::string("1780000000 ") + text) << date.output;
  const TemporaryFolder folder;
  std::filesystem::copy_file(berlin, folder.folder("Own") / "Town");
  const Variable elsewhere("TZDIR", folder.path().native());
  const RecordedLog log;
  EXPECT_TRUE(TimeZone::fromName("Own/Town"));
  EXPECT_FALSE(TimeZone::fromName("Europe/Berlin"));
}

// Old files have one part, and damaged ones are refused or have some answer.
TEST(TimeZone, ReadsOldAndDamagedFiles) {
  if (!std::filesystem::exists(berlin)) GTEST_SKIP() << "needs the system's files of time zones";
  const auto good = contentOf(berlin);
  const TemporaryFolder folder;
  const RecordedLog log;
  const auto read = [&](const std::string& bytes) {
    return TimeZone::fromName(folder.file("zone", bytes).native());
  };
  const auto expectSummers = [&](std::string bytes, char version) {
    bytes[4] = version;
    if (const auto second = bytes.find("TZif", 4); second != std::string::npos) bytes[second + 4] = version;
    const auto zone = read(bytes);
    ASSERT_TRUE(zone) << version;
    EXPECT_EQ(zone->offset(sys_days(2020y / 7 / 1)), 2h);
    EXPECT_EQ(zone->offset(sys_days(2020y / 1 / 1)), 1h);
    EXPECT_EQ(zone->offset(sys_days(2500y / 7 / 1)), version ? 2h : 1h) << "a rule for later years";
  };
  for (const char version : {'2', '3', '4'}) expectSummers(good, version);
  if (good.find("TZif", 4) > 500) expectSummers(good.substr(0, good.find("TZif", 4)), '\0');

  std::mt19937 random(11);
  for (int round = 0; round < 1000; ++round) {
    auto bytes = good;
    for (auto edits = random() % 4; edits-- > 0;)
      bytes[random() % (round % 2 ? 100 : bytes.size())] = char(random());
    if (random() % 3 == 0) bytes.resize(random() % bytes.size());
    if (const auto zone = read(bytes)) {
      for (int i = 0; i < 20; ++i)
        expectFirstInstants(*zone, sys_seconds(chrono::seconds(random()) - 30'000'000h / 24));
    }
  }
}

TEST(Calendar, ReadsTheFirstDayOfTheUsersWeek) {
  const auto locale = runChild("/usr/bin/env", {"locale", "first_weekday", "week-1stday"});
  if (locale.exitStatus != 0 || !locale.errors.empty()) GTEST_SKIP() << "needs the program locale";
  const auto first = std::stoul(locale.output),
             date = std::stoul(locale.output.substr(locale.output.find('\n')));
  EXPECT_EQ(firstWeekdayOfLocale(), chrono::Sunday + chrono::days(first - 1 + (date == 19971201 ? 1 : 0)));
  EXPECT_EQ(firstWeekdayOfLocale("C"), chrono::Sunday);
  const RecordedLog log;
  EXPECT_FALSE(firstWeekdayOfLocale("xx_XX.UTF-8"));
  EXPECT_EQ(
      log.text(),
      "warning: QLC_CAL_FWOL-Failed to find the locale \"xx_XX.UTF-8\", or the user's if it has no name\n");
  const Variable missing("LC_ALL", "xx_XX.UTF-8");
  EXPECT_FALSE(Calendar::ofSystem());
}

}  // namespace
}  // namespace quillonic
