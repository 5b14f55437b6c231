/// Lengths of time in seconds, and their texts.
///
///     TimeInterval::formattedString(1.5 * TimeInterval::hour);      // "01:30:00"
///     NumberUtility::secondsToStandardDurationText(90000);          // "25:00:00"
#pragma once

#include <quillonic/export.hpp>

#include <cstdint>
#include <string>

namespace quillonic {

/// Lengths of time as floating-point seconds.
class QUILLONIC_EXPORT TimeInterval {
 public:
  TimeInterval() = delete;

  /// One minute.
  static constexpr double minute = 60;
  /// One hour.
  static constexpr double hour = 60 * minute;
  /// One day of 24 hours.
  static constexpr double day = 24 * hour;
  /// Exactly 31 days: a fixed length, not calendar arithmetic.
  static constexpr double month = 31 * day;
  /// Exactly 365 days, likewise.
  static constexpr double year = 365 * day;

  /// "HH:MM:SS" of a number of seconds, its fraction dropped: 3725.9 gives "01:02:05". Hours go beyond 24 and
  /// 99. Infinity and what is not a number give "00:00:00".
  ///
  /// Negative lengths are not written in full, a fixed form: above -60 the seconds bear the sign without
  /// padding ("00:00:-5"); from -60 on the whole minutes are left out too ("00:00:-30" for -90) and a debug
  /// message says so.
  ///
  /// A number outside of 64 bits is a mistake of the caller's that no text can stand for: the reason is
  /// logged as an error and the program is aborted.
  static std::string formattedString(double seconds);
};

/// Seconds taken apart, and their text.
class QUILLONIC_EXPORT NumberUtility {
 public:
  NumberUtility() = delete;

  /// Hours, and minutes and seconds below 60. None of them is above zero for negative seconds.
  struct HoursMinutesSeconds {
    /// Whole hours; not limited to a day.
    std::int64_t h = 0;
    /// Whole minutes besides, -59 to 59.
    std::int64_t m = 0;
    /// Seconds besides, -59 to 59.
    std::int64_t s = 0;

    friend bool operator==(const HoursMinutesSeconds&, const HoursMinutesSeconds&) = default;
  };

  /// Takes any number of seconds apart, each field truncated toward zero: -3661 gives -1, -1, -1.
  static HoursMinutesSeconds secondsToHoursMinutesSeconds(std::int64_t seconds) noexcept;

  /// "HH:MM:SS", each with two digits at least and, where it is negative, its sign before them: -5 gives
  /// "00:00:-05". Hours are not limited.
  static std::string secondsToStandardDurationText(std::int64_t seconds);
};

}  // namespace quillonic
