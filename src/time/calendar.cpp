#include <quillonic/platform/logging.hpp>
#include <quillonic/time/calendar.hpp>

#include <algorithm>
#include <utility>

#include "platform/time_settings.hpp"

namespace quillonic {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

constexpr local_days firstDate = local_days(year(1) / January / 1);
constexpr local_days lastDate = local_days(year(9999) / December / 31);

// The nearest date in the calendar's years; the last day of the month for a day that it lacks.
local_days dayOf(std::int64_t monthsSinceYear0, unsigned ofMonth) noexcept {
  if (monthsSinceYear0 < 12) return firstDate;
  if (monthsSinceYear0 > 12 * 9999 + 11) return lastDate;
  const year_month yearMonth(year(static_cast<int>(monthsSinceYear0 / 12)),
                             month(static_cast<unsigned>(monthsSinceYear0 % 12) + 1));
  const auto lastOfMonth = (yearMonth / last).day();
  return local_days(yearMonth / std::clamp(day(ofMonth), day(1), lastOfMonth));
}

std::int64_t monthsSinceYear0(year_month_day date) noexcept {
  return std::int64_t{12} * static_cast<int>(date.year()) + static_cast<unsigned>(date.month()) - 1;
}

// By the calendar alone.
local_days away(CalendarUnit unit, std::int64_t count, local_days from) noexcept {
  const year_month_day date(from);
  const auto byDays = [&](std::int64_t number) {
    return std::clamp(from + days(number), firstDate, lastDate);
  };
  const auto byMonths = [&](std::int64_t number) {
    return dayOf(monthsSinceYear0(date) + number, static_cast<unsigned>(date.day()));
  };
  switch (unit) {
    case CalendarUnit::day:
      return byDays(count);
    case CalendarUnit::week:
      return byDays(7 * count);
    case CalendarUnit::month:
      return byMonths(count);
    case CalendarUnit::quarter:
      return byMonths(3 * count);
    case CalendarUnit::year:
      return byMonths(12 * count);
  }
  return from;
}

// The first days of a period and of the one after it.
std::pair<local_days, local_days> bounds(CalendarUnit unit, local_days around,
                                         weekday firstWeekday) noexcept {
  const year_month_day date(around);
  const auto ofMonths = [&](unsigned count) {
    const auto before = (static_cast<unsigned>(date.month()) - 1) / count * count;
    const auto first = date.year() / month(before + 1) / 1;
    return std::pair(local_days(first), local_days(first + months(count)));
  };
  switch (unit) {
    case CalendarUnit::day:
      break;
    case CalendarUnit::week: {
      const auto first = around - (weekday(around) - firstWeekday);
      return {first, first + weeks(1)};
    }
    case CalendarUnit::month:
      return ofMonths(1);
    case CalendarUnit::quarter:
      return ofMonths(3);
    case CalendarUnit::year:
      return ofMonths(12);
  }
  return {around, around + days(1)};
}

DateRange rangeOf(const TimeZone& zone, std::pair<local_days, local_days> days) noexcept {
  return {zone.firstInstant(days.first), zone.firstInstant(days.second)};
}

// The day that an instant is in.
local_days dayAround(const TimeZone& zone, sys_seconds instant) noexcept {
  // No zone is further from UTC than two days.
  instant = std::clamp<sys_seconds>(instant, sys_days(firstDate.time_since_epoch()) - days(2),
                                    sys_days(lastDate.time_since_epoch()) + days(3));
  auto day = floor<days>(local_seconds((instant + zone.offset(instant)).time_since_epoch()));
  // Clocks that went back across midnight show a date whose day is over.
  while (zone.firstInstant(day + days(1)) <= instant) day += days(1);
  return std::clamp(day, firstDate, lastDate);
}

// The day so many units away; the next one further away if the zone skipped it.
local_days existingDayAway(const TimeZone& zone, CalendarUnit unit, int count, sys_seconds instant) noexcept {
  auto day = away(unit, count, dayAround(zone, instant));
  while (rangeOf(zone, {day, day + days(1)}).isEmpty()) day += days(count < 0 ? -1 : 1);
  return day;
}

}  // namespace

std::optional<weekday> firstWeekdayOfLocale(const std::string& locale) {
  const auto first = time_settings::firstWeekday(locale);
  if (!first) {
    VantiroLogging::defaultLogger()->logWarning("QLC_CAL_FWOL-Failed to find the locale \"" +
                                                (locale.empty() ? time_settings::userLocale() : locale) +
                                                '"');
  }
  return first;
}

Calendar::Calendar(TimeZone zone, weekday firstWeekday) noexcept
    : zone_(std::move(zone)), firstWeekday_(firstWeekday) {}

std::optional<Calendar> Calendar::ofSystem() {
  auto zone = TimeZone::ofSystem();
  const auto first = firstWeekdayOfLocale();
  return zone && first ? std::optional(Calendar(*std::move(zone), *first)) : std::nullopt;
}

sys_seconds Calendar::now() noexcept {
  return floor<seconds>(system_clock::now());
}

year_month_day Calendar::date(sys_seconds instant) const noexcept {
  return year_month_day(dayAround(zone_, instant));
}

DateRange Calendar::day(year_month_day date) const noexcept {
  const auto first = dayOf(monthsSinceYear0(date), static_cast<unsigned>(date.day()));
  return rangeOf(zone_, {first, first + days(1)});
}

DateRange Calendar::period(CalendarUnit unit, int count, sys_seconds instant) const noexcept {
  const auto day = unit == CalendarUnit::day ? existingDayAway(zone_, unit, count, instant)
                                             : away(unit, count, dayAround(zone_, instant));
  return rangeOf(zone_, bounds(unit, day, firstWeekday_));
}

year_month_day Calendar::dateAway(CalendarUnit unit, int count, sys_seconds instant) const noexcept {
  return year_month_day(existingDayAway(zone_, unit, count, instant));
}

}  // namespace quillonic
