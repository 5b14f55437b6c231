#include <quillonic/platform/localization.hpp>
#include <quillonic/time.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

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

// Periods adjoin, and every instant is in one of each unit.
void expectPeriodsToAdjoin(const Calendar& calendar, sys_seconds instant) {
  for (const auto unit : units) {
    const auto period = calendar.period(unit, 0, instant);
    EXPECT_TRUE(period.contains(instant)) << instant.time_since_epoch().count();
    EXPECT_EQ(calendar.period(unit, 1, period.start).start, period.end);
    EXPECT_EQ(calendar.period(unit, -1, instant).end, period.start);
    EXPECT_EQ(calendar.period(unit, 0, period.end - 1s), period);
  }
}

// Random instants in zones of all kinds, and every midnight that a zone skips or repeats.
TEST(Calendar, AgreesWithOtherCalendars) {
  const auto oracle = runChild("/usr/bin/env", {"python3", CALENDAR_ORACLE, "7", "10000"});
  if (oracle.exitStatus == 127 || oracle.exitStatus == 77)
    GTEST_SKIP() << "needs Python and files of time zones";
  ASSERT_EQ(oracle.exitStatus, 0) << oracle.errors;
  std::istringstream rows(oracle.output);
  const auto next = [&] {
    std::int64_t number = 0;
    rows >> number;
    return number;
  };
  int count = 0;
  std::optional<Calendar> calendar;
  for (std::string name; rows >> name && !HasFailure(); ++count) {
    if (!calendar || calendar->timeZone().name() != name)
      calendar = Calendar(TimeZone::fromName(name).value());
    const auto instant = at(next());
    SCOPED_TRACE(name + " " + std::to_string(instant.time_since_epoch().count()));
    const auto expectNext = [&](DateRange actual) {
      EXPECT_EQ(actual.start, at(next()));
      EXPECT_EQ(actual.end, at(next()));
    };
    EXPECT_EQ(calendar->timeZone().offset(instant), chrono::seconds(next()));
    for (const auto unit : units) expectNext(calendar->period(unit, 0, instant));
    expectNext(calendar->yesterday(instant));
    expectNext(calendar->tomorrow(instant));
    const auto months = static_cast<int>(next());
    const auto date = calendar->dateAway(month, months, instant);
    EXPECT_EQ(sys_days(date), at(next()));
    EXPECT_EQ(calendar->day(date).start, at(next()));
    EXPECT_TRUE(months % 12 != 0 || calendar->dateAway(year, months / 12, instant) == date);
    EXPECT_TRUE(months % 3 != 0 || calendar->dateAway(quarter, months / 3, instant) == date);
    expectPeriodsToAdjoin(*calendar, instant);
  }
  EXPECT_GT(count, 12400);
}

TEST(Calendar, EndsWithTheYears1And9999) {
  const Calendar calendar(TimeZone::fromName("ABC-14").value(), chrono::Saturday);
  const auto first = 1y / 1 / 1, last = 9999y / 12 / 31;
  const auto never = sys_seconds::min(), always = sys_seconds::max();
  EXPECT_EQ(calendar.date(never), first);
  EXPECT_EQ(calendar.date(always), last);
  EXPECT_EQ(calendar.period(year, 0, always).end, sys_days(10000y / 1 / 1) - 14h);
  EXPECT_EQ(calendar.period(week, 0, never).start, sys_days(0y / 12 / 30) - 14h);
  for (const auto unit : units) {
    EXPECT_EQ(calendar.dateAway(unit, std::numeric_limits<int>::max(), at(0)), last);
    EXPECT_EQ(calendar.dateAway(unit, std::numeric_limits<int>::min(), at(0)), first);
  }
  EXPECT_EQ(calendar.day(-5y / 3 / 17), calendar.day(first));
  EXPECT_EQ(calendar.day(2023y / 2 / 31), calendar.day(2023y / 2 / 28));
}

TEST(TimeFrame, ResolvesDescribesAndReadsItsText) {
  const Calendar calendar(TimeZone::utc());
  const auto now = sys_days(2026y / 11 / 22) + 10h;  // a Sunday
  struct Row {
    std::string_view text, description;
    chrono::year_month_day first, next;
  };
  const Row rows[] = {{"yesterday", "Yesterday", 2026y / 11 / 21, 2026y / 11 / 22},
                      {"this-week", "This week", 2026y / 11 / 16, 2026y / 11 / 23},
                      {"last-month", "Last month", 2026y / 10 / 1, 2026y / 11 / 1},
                      {"next-quarter", "Next quarter", 2027y / 1 / 1, 2027y / 4 / 1},
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
  for (const auto* text : {"", "Today", "last-days", "last-0-days", "last-07-days", "last-2147483648-days",
                           "last-7-days ", "last-0-hours", "last-hours"}) {
    EXPECT_FALSE(TimeFrame::fromText(text)) << text;
  }
}

}  // namespace
}  // namespace quillonic
