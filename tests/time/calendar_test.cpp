#include <quillonic/platform/localization.hpp>
#include <quillonic/time.hpp>

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "child_process.hpp"

namespace quillonic {
namespace {

namespace chrono = std::chrono;
using namespace std::chrono_literals;
using chrono::sys_days;
using chrono::sys_seconds;
using enum CalendarUnit;

constexpr CalendarUnit units[] = {day, week, month, quarter, year};

sys_seconds at(std::int64_t count) {
  return sys_seconds(chrono::seconds(count));
}

// "2026-11-22T10:00:00", as a local time with an offset.
std::string clock(sys_seconds instant, chrono::seconds offset) {
  const auto local = instant + offset;
  const chrono::year_month_day date(chrono::floor<chrono::days>(local));
  const chrono::hh_mm_ss time(local - chrono::floor<chrono::days>(local));
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", int(date.year()), unsigned(date.month()),
                unsigned(date.day()), int(time.hours().count()), int(time.minutes().count()),
                int(time.seconds().count()));
  return text;
}

// Periods adjoin, and every instant is in one of each unit.
void expectPeriodsToAdjoin(const Calendar& calendar, sys_seconds instant) {
  for (const auto unit : units) {
    const auto period = calendar.period(unit, 0, instant);
    EXPECT_TRUE(period.contains(instant)) << clock(instant, 0s);
    EXPECT_EQ(calendar.period(unit, 1, period.start).start, period.end);
    EXPECT_EQ(calendar.period(unit, -1, instant).end, period.start);
    EXPECT_EQ(calendar.period(unit, 0, period.end - 1s), period);
  }
}

// The rows of another calendar; nothing where it cannot be asked.
std::optional<std::istringstream> oracle(std::vector<std::string> words) {
  words.insert(words.begin(), {"python3", CALENDAR_ORACLE});
  const auto answer = runChild("/usr/bin/env", words);
  if (answer.exitStatus == 127 || answer.exitStatus == 77) return std::nullopt;
  EXPECT_EQ(answer.exitStatus, 0) << answer.errors;
  return std::istringstream(answer.output);
}

TEST(Calendar, AgreesWithOtherCalendars) {
  auto rows = oracle({"instants",
                      "7",
                      "10000",
                      "Australia/Lord_Howe",
                      "Pacific/Apia",
                      "America/Havana",
                      "America/Santiago",
                      "America/Asuncion",
                      "America/Sao_Paulo",
                      "America/St_Johns",
                      "America/Juneau",
                      "America/New_York",
                      "Africa/Cairo",
                      "Africa/Casablanca",
                      "Asia/Beirut",
                      "Asia/Tehran",
                      "Asia/Kathmandu",
                      "Asia/Manila",
                      "Atlantic/Azores",
                      "Antarctica/Troll",
                      "Europe/Berlin",
                      "Europe/Dublin",
                      "Pacific/Kwajalein"});
  if (!rows) GTEST_SKIP() << "needs Python's zoneinfo and the system's files of time zones";
  int count = 0;
  std::optional<Calendar> calendar;
  for (std::string name, shown; *rows >> name && !HasFailure(); ++count) {
    if (!calendar || calendar->timeZone().name() != name)
      calendar = Calendar(TimeZone::fromName(name).value());
    std::int64_t number = 0, start = 0, end = 0;
    *rows >> number >> shown;
    const auto instant = at(number);
    SCOPED_TRACE(name + " " + clock(instant, 0s));
    // Without GNU date there is "-".
    const auto local = clock(instant, calendar->timeZone().offset(instant));
    EXPECT_EQ(shown == "-" ? shown : local, shown);
    const auto expectNext = [&](DateRange actual) {
      *rows >> start >> end;
      EXPECT_EQ(actual, (DateRange{at(start), at(end)}));
    };
    for (const auto unit : units) expectNext(calendar->period(unit, 0, instant));
    expectNext(calendar->yesterday(instant));
    expectNext(calendar->tomorrow(instant));
    int months = 0;
    std::string then;
    *rows >> months >> then >> start;
    const auto date = calendar->dateAway(month, months, instant);
    EXPECT_EQ(clock(sys_days(date), 0s), then + "T00:00:00");
    EXPECT_EQ(calendar->day(date).start, at(start));
    expectPeriodsToAdjoin(*calendar, instant);
  }
  EXPECT_EQ(count, 10000);
}

TEST(Calendar, BeginsEachDayWithoutOneMidnightAtItsFirstInstant) {
  auto rows = oracle({"midnights", "2000", "2030"});
  if (!rows) GTEST_SKIP() << "needs Python's zoneinfo and the system's files of time zones";
  int count = 0;
  std::int64_t start = 0, end = 0, date = 0;
  for (std::string name; *rows >> name >> date >> start >> end && !HasFailure(); ++count) {
    const Calendar calendar(TimeZone::fromName(name).value());
    const chrono::year_month_day ymd(chrono::floor<chrono::days>(at(date)));
    SCOPED_TRACE(name + " " + clock(at(date), 0s));
    const auto range = calendar.day(ymd);
    EXPECT_EQ(range, (DateRange{at(start), at(end)}));
    EXPECT_EQ(calendar.yesterday(range.start).end, range.start);
    EXPECT_EQ(calendar.tomorrow(range.start - 1s).start, range.start);
    EXPECT_EQ(calendar.date(range.start) == ymd, !range.isEmpty());
    expectPeriodsToAdjoin(calendar, range.start);
  }
  EXPECT_GT(count, 800);
}

TEST(Calendar, EndsWithTheYears1And9999) {
  const Calendar calendar(TimeZone::fromName("ABC-14").value(), chrono::Saturday);
  const auto first = chrono::year(1) / 1 / 1, last = chrono::year(9999) / 12 / 31;
  const auto never = sys_seconds::min(), always = sys_seconds::max();
  const int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
  EXPECT_EQ(calendar.date(never), first);
  EXPECT_EQ(calendar.date(always), last);
  EXPECT_EQ(calendar.period(year, 0, always).end, sys_days(chrono::year(10000) / 1 / 1) - 14h);
  EXPECT_EQ(calendar.period(week, 0, never).start, sys_days(chrono::year(0) / 12 / 30) - 14h);
  for (const auto unit : units) {
    EXPECT_EQ(calendar.dateAway(unit, most, always), last);
    EXPECT_EQ(calendar.dateAway(unit, least, never), first);
    EXPECT_EQ(calendar.dateAway(unit, least, at(0)).year(), first.year());
    EXPECT_EQ(calendar.dateAway(unit, most, at(0)).year(),
              unit == day || unit == week ? chrono::year(9999) : last.year());
  }
  // Weeks begin on each day that a caller names.
  for (unsigned weekday = 0; weekday < 7; ++weekday) {
    const Calendar own(TimeZone::utc(), chrono::weekday(weekday));
    const auto start = own.period(week, 0, at(1'800'000'000)).start;
    EXPECT_EQ(chrono::weekday(chrono::floor<chrono::days>(start)), chrono::weekday(weekday));
    expectPeriodsToAdjoin(own, at(1'800'000'000));
  }
}

TEST(Calendar, GoesToTheLastDayOfAShorterMonth) {
  using chrono::year_month_day;
  const std::tuple<year_month_day, CalendarUnit, int, year_month_day> rows[] = {
      {2024y / 1 / 31, month, 1, 2024y / 2 / 29},    {2023y / 1 / 31, month, 1, 2023y / 2 / 28},
      {2024y / 2 / 29, year, -1, 2023y / 2 / 28},    {2024y / 2 / 29, year, 4, 2028y / 2 / 29},
      {2023y / 11 / 30, quarter, 1, 2024y / 2 / 29}, {2024y / 3 / 31, month, -13, 2023y / 2 / 28},
      {2024y / 2 / 29, week, 1, 2024y / 3 / 7},      {2024y / 3 / 1, day, -1, 2024y / 2 / 29}};
  const Calendar calendar(TimeZone::utc());
  for (const auto& [from, unit, away, to] : rows) {
    EXPECT_EQ(calendar.dateAway(unit, away, sys_days(from) + 23h), to);
  }
  EXPECT_EQ(calendar.day(2023y / 2 / 31), calendar.day(2023y / 2 / 28));
}

TEST(DateRange, ContainsFractionsOfItsLastSecond) {
  const DateRange range{at(-10), at(0)};
  EXPECT_TRUE(range.contains(at(0) - 1ns));
  EXPECT_TRUE(range.contains(at(-10)));
  EXPECT_FALSE(range.contains(at(-10) - 1ns));
  EXPECT_FALSE(range.contains(chrono::sys_time<chrono::microseconds>()));
}

TEST(TimeFrame, ResolvesDescribesAndReadsItsText) {
  const Calendar calendar(TimeZone::utc());
  const auto now = sys_days(2026y / 11 / 22) + 10h;  // a Sunday
  struct Row {
    std::string_view text, description;
    chrono::year_month_day first, next;
  };
  const Row rows[] = {{"today", "Today", 2026y / 11 / 22, 2026y / 11 / 23},
                      {"yesterday", "Yesterday", 2026y / 11 / 21, 2026y / 11 / 22},
                      {"tomorrow", "Tomorrow", 2026y / 11 / 23, 2026y / 11 / 24},
                      {"this-week", "This week", 2026y / 11 / 16, 2026y / 11 / 23},
                      {"last-month", "Last month", 2026y / 10 / 1, 2026y / 11 / 1},
                      {"next-quarter", "Next quarter", 2027y / 1 / 1, 2027y / 4 / 1},
                      {"last-year", "Last year", 2025y / 1 / 1, 2026y / 1 / 1},
                      {"last-7-days", "Last 7 days", 2026y / 11 / 16, 2026y / 11 / 23},
                      {"last-2147483647-days", "Last 2147483647 days", 1y / 1 / 1, 2026y / 11 / 23}};
  for (const auto& row : rows) {
    const auto frame = TimeFrame::fromText(row.text);
    ASSERT_TRUE(frame) << row.text;
    EXPECT_EQ(frame->text(), row.text);
    EXPECT_EQ(frame->description(), row.description);
    EXPECT_EQ(frame->resolved(calendar, now), (DateRange{sys_days(row.first), sys_days(row.next)}))
        << row.text;
  }
  for (const auto unit : units) {
    for (const auto frame : {TimeFrame::current(unit), TimeFrame::previous(unit), TimeFrame::next(unit)}) {
      EXPECT_EQ(TimeFrame::fromText(frame.text()), frame) << frame.text();
    }
  }
  EXPECT_EQ(TimeFrame::lastDays(1), TimeFrame::current(day));
  EXPECT_EQ(TimeFrame::lastDays(std::numeric_limits<int>::min()), TimeFrame::current(day));
  for (const std::string_view text : {"", "Today", "last-days", "last--days", "last-0-days", "last--1-days",
                                      "last-2147483648-days", "last-7-days ", "last-7-weeks"}) {
    EXPECT_FALSE(TimeFrame::fromText(text)) << text;
  }
}

}  // namespace
}  // namespace quillonic
