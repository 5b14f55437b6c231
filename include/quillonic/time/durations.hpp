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
  /// Exactly 365 days: a fixed length, too.
  static constexpr double year = 365 * day;

  /// Formats seconds as "HH:MM:SS", without their fraction: 3725.9 gives "01:02:05". Hours exceed 24 and 99.
  /// Infinity and NaN give "00:00:00".
  ///
  /// Negative lengths have a short fixed form: above -60, the sign before unpadded seconds ("00:00:-5"); from
  /// -60 on, the whole minutes are dropped too ("00:00:-30" for -90), with a debug message.
  ///
  /// Callers must not pass a number beyond 64 bits: no text can show it, so the reason is logged as an error
  /// and the program aborts.
  static std::string formattedString(double seconds);
};

/// Splits seconds into fields, and formats them.
class QUILLONIC_EXPORT NumberUtility {
 public:
  NumberUtility() = delete;

  /// Hours, and minutes and seconds below 60. For negative seconds, none is above zero.
  struct HoursMinutesSeconds {
    /// Whole hours; not limited to a day.
    std::int64_t h = 0;
    /// Remaining whole minutes, -59 to 59.
    std::int64_t m = 0;
    /// Remaining seconds, -59 to 59.
    std::int64_t s = 0;

    friend bool operator==(const HoursMinutesSeconds&, const HoursMinutesSeconds&) = default;
  };

  /// Splits any number of seconds, truncating each field toward zero: -3661 gives -1, -1, -1.
  static HoursMinutesSeconds secondsToHoursMinutesSeconds(std::int64_t seconds) noexcept;

  /// Formats seconds as "HH:MM:SS", each field with at least two digits and, if negative, a leading sign: -5
  /// gives "00:00:-05". Hours are not limited.
  static std::string secondsToStandardDurationText(std::int64_t seconds);
};

}  // namespace quillonic
