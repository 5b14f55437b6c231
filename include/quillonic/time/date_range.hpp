/// A stretch of time with a beginning and an end.
///
///     const DateRange today = calendar.period(CalendarUnit::day);
///     if (today.contains(attributes.modified)) { ... }
#pragma once

#include <quillonic/requirements.hpp>

#include <chrono>

namespace quillonic {

/// The instants from `start` on and before `end`, so that adjoining ranges neither overlap nor leave a gap.
struct DateRange {
  /// The first instant.
  std::chrono::sys_seconds start{};
  /// The first instant after the range.
  std::chrono::sys_seconds end{};

  /// Whether there is no instant in the range.
  constexpr bool isEmpty() const noexcept { return end <= start; }

  /// Whether an instant of any resolution is in the range.
  template <class Duration> constexpr bool contains(std::chrono::sys_time<Duration> instant) const noexcept {
    // The range is in whole seconds, and the year 9999 has no nanoseconds.
    const auto second = std::chrono::floor<std::chrono::seconds>(instant);
    return start <= second && second < end;
  }

  friend constexpr bool operator==(const DateRange&, const DateRange&) = default;
};

}  // namespace quillonic
