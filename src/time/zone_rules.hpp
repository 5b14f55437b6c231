// The offsets of local time from UTC, over all time.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic {

// A time without a change. The first one has no beginning, and the last one has no end.
struct OffsetSpan {
  std::chrono::sys_seconds begin;
  std::chrono::sys_seconds end;
  std::chrono::seconds offset;
};

// No place is further from UTC: 24 h, and the 2 h of an odd summer.
inline constexpr std::chrono::seconds greatestOffset = std::chrono::hours(26);

// What is asked about. One year more at each end, for weeks that begin there.
inline constexpr std::chrono::sys_seconds firstOfAll = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
inline constexpr std::chrono::sys_seconds lastOfAll = std::chrono::sys_days(std::chrono::year(10001) / 1 / 1);

// A rule for all years, such as "CET-1CEST,M3.5.0,M10.5.0/3".
class YearlyRule {
 public:
  static std::optional<YearlyRule> fromText(std::string_view text) noexcept;

  // The span around an instant between the first and the last of all.
  OffsetSpan spanAt(std::chrono::sys_seconds instant) const noexcept;

 private:
  // A day of a year, and a time after its midnight.
  struct Moment {
    enum class Kind { dayWithoutLeapDays, day, weekdayOfMonth };

    std::chrono::sys_seconds inYear(std::chrono::year year) const noexcept;

    Kind kind;
    unsigned day;  // of the year from 1 or 0, or of the week
    unsigned month = 1;
    unsigned week = 1;
    std::chrono::seconds time = std::chrono::hours(2);
  };
  struct Summer {
    std::chrono::seconds offset;
    Moment begin;  // in the time before
    Moment end;    // in summer time
  };
  class Reader;

  std::chrono::seconds offset_{};
  std::optional<Summer> summer_;
};

// The changes of a zone's file, and the rule for the time after them.
class ZoneRules {
 public:
  struct Change {
    std::chrono::sys_seconds instant;
    std::chrono::seconds offset;
  };

  // `changes` ascend. The rule, if there is one, holds from the last change on.
  explicit ZoneRules(std::chrono::seconds firstOffset = {}, std::vector<Change> changes = {},
                     std::optional<YearlyRule> rule = std::nullopt) noexcept
      : firstOffset_(firstOffset), changes_(std::move(changes)), rule_(rule) {}

  // Reads a file of the kind TZif, of versions 1 to 4. Nothing for damaged ones and for those that count leap
  // seconds, because the system's clock does not.
  static std::optional<ZoneRules> fromFile(std::string_view bytes);

  OffsetSpan spanAt(std::chrono::sys_seconds instant) const noexcept;

 private:
  std::chrono::seconds firstOffset_;
  std::vector<Change> changes_;
  std::optional<YearlyRule> rule_;
};

}  // namespace quillonic
