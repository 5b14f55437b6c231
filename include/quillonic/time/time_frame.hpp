/// Stretches of time as people say them: today, last week, the last 7 days.
///
///     const auto frame = TimeFrame::fromText("last-7-days").value();
///     frame.description();                                          // "Last 7 days", in the user's language
///     const DateRange range = frame.resolved(calendar);             // seen from now
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/time/calendar.hpp>
#include <quillonic/time/date_range.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

/// A stretch of time relative to an instant. Callers with many dates resolve it once, so that all are compared
/// with one range.
class QUILLONIC_EXPORT TimeFrame {
 public:
  /// The period that the instant is in: today, this week, this month ...
  static constexpr TimeFrame current(CalendarUnit unit) noexcept { return {unit, 0, 0}; }
  /// The one before: yesterday, last week ... A last month is a month of the calendar, not 30 days.
  static constexpr TimeFrame previous(CalendarUnit unit) noexcept { return {unit, -1, -1}; }
  /// The one after: tomorrow, next week ...
  static constexpr TimeFrame next(CalendarUnit unit) noexcept { return {unit, 1, 1}; }
  /// So many days of the calendar that end with today: the last 2 are yesterday and today. One and less is
  /// today alone.
  static constexpr TimeFrame lastDays(int count) noexcept {
    return {CalendarUnit::day, count > 1 ? 1 - count : 0, 0};
  }
  /// So many hours up to and with the present second, whatever the calendar. One and less is one.
  static constexpr TimeFrame lastHours(int count) noexcept {
    return {CalendarUnit::day, 0, 0, count > 1 ? count : 1};
  }

  /// The range that it is, seen from an instant.
  DateRange resolved(const Calendar& calendar,
                     std::chrono::sys_seconds instant = Calendar::now()) const noexcept;

  /// Its name for storage and for people who write it by hand: "today", "this-week", "last-month",
  /// "next-year", "last-7-days", "last-24-hours". It never changes.
  std::string text() const;

  /// Reads such a name, exactly as it is written; nothing for others.
  static std::optional<TimeFrame> fromText(std::string_view text) noexcept;

  /// For menus, in the user's language: "Today", "Last month", "Last 7 days".
  std::string description() const;

  friend constexpr bool operator==(const TimeFrame&, const TimeFrame&) = default;

 private:
  constexpr TimeFrame(CalendarUnit unit, int first, int last, int hours = 0) noexcept
      : unit_(unit), first_(first), last_(last), hours_(hours) {}

  CalendarUnit unit_;
  // The first and the last period, counted from the current one.
  int first_;
  int last_;
  // Not 0 for hours, which no calendar counts.
  int hours_;
};

}  // namespace quillonic
