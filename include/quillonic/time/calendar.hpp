/// Days, weeks, months, quarters and years in a time zone.
///
///     const auto calendar = Calendar::ofSystem().value_or(Calendar(TimeZone::utc()));
///     const DateRange month = calendar.period(CalendarUnit::month);      // this month
///     const auto until = calendar.dateAway(CalendarUnit::month, 3);      // three months from today
///     calendar.day(until).start;                                         // and when that day begins
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/time/date_range.hpp>
#include <quillonic/time/time_zone.hpp>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quillonic {

/// The periods of a calendar, from the shortest to the longest. A quarter is three months, from January on.
enum class CalendarUnit : std::uint8_t { day, week, month, quarter, year };

/// The first day of the week in an installed locale, such as "de_DE.UTF-8"; without a name, in the user's
/// (LC_ALL, LC_TIME or LANG). Locales without a country, such as "C", say Sunday. Nothing, and one line in the
/// log, for a locale that is not installed. The process's locale is neither used nor changed.
QUILLONIC_EXPORT std::optional<std::chrono::weekday> firstWeekdayOfLocale(const std::string& locale = "");

/// A time zone and a first day of the week.
///
/// A day begins at the first instant that has its date: where clocks skip midnight, at the first time after
/// it; where midnight comes twice, at the first of the two. It ends where the next one begins. Thus every
/// instant is in one day, also while clocks that went back show the date before once more.
///
/// Dates are those from 0001-01-01 to 9999-12-31, Gregorian throughout; what is beyond gives the nearest of
/// them. Nothing here fails, allocates or calls the system, but for `ofSystem()`.
class QUILLONIC_EXPORT Calendar {
 public:
  /// Weeks begin on Monday unless said otherwise.
  explicit Calendar(TimeZone zone, std::chrono::weekday firstWeekday = std::chrono::Monday) noexcept;

  /// The system's time zone and the first day of the week of the user's locale. Nothing if either is not
  /// installed; the log has a line that tells which. Callers who go on without it choose what instead.
  static std::optional<Calendar> ofSystem();

  /// The present instant, which all questions take unless they are asked about another.
  static std::chrono::sys_seconds now() noexcept;

  /// The zone of all its days.
  const TimeZone& timeZone() const noexcept { return zone_; }
  /// The first day of its weeks.
  std::chrono::weekday firstWeekday() const noexcept { return firstWeekday_; }

  /// The date of the day that an instant is in.
  std::chrono::year_month_day date(std::chrono::sys_seconds instant = now()) const noexcept;

  /// The day of a date; the last day of the month for a day that the month lacks. Empty for a day that the
  /// zone skipped, as Samoa did 2011-12-30.
  DateRange day(std::chrono::year_month_day date) const noexcept;

  /// The period `away` periods after the one that an instant is in, or before it if negative: 0 is this
  /// month, -1 the last one. Of days, the same as the day of `dateAway()`.
  DateRange period(CalendarUnit unit, int away = 0, std::chrono::sys_seconds instant = now()) const noexcept;

  /// The day that ends where today begins.
  DateRange yesterday(std::chrono::sys_seconds instant = now()) const noexcept {
    return period(CalendarUnit::day, -1, instant);
  }
  /// The day that begins where today ends.
  DateRange tomorrow(std::chrono::sys_seconds instant = now()) const noexcept {
    return period(CalendarUnit::day, 1, instant);
  }

  /// The date so many units away, by the calendar: a month from 31 January is the last day of February. A day
  /// that the zone skipped gives the next one in the direction of counting.
  std::chrono::year_month_day dateAway(CalendarUnit unit, int away,
                                       std::chrono::sys_seconds instant = now()) const noexcept;

 private:
  TimeZone zone_;
  std::chrono::weekday firstWeekday_;
};

}  // namespace quillonic
