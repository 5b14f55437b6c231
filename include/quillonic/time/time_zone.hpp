/// Time zones: how far local time is from UTC, at any instant.
///
///     const auto zone = TimeZone::fromName("Europe/Berlin");    // nothing if there is no such zone
///     zone->offset(instant);                                    // 1 h in winter, 2 h in summer
#pragma once

#include <quillonic/export.hpp>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

class ZoneRules;

/// The offsets of a time zone. A value that never changes and that threads share; a copy costs a reference.
/// Neither the process's environment nor its locale is changed, and no lock is taken.
class QUILLONIC_EXPORT TimeZone {
 public:
  /// UTC, which needs no file.
  static TimeZone utc();

  /// A zone by its name ("Europe/Berlin"), by the absolute path of its file, or by a rule as in the variable
  /// TZ ("CET-1CEST,M3.5.0,M10.5.0/3"). The empty text and "UTC" are UTC. Reads one file, below the folder in
  /// the variable TZDIR or /usr/share/zoneinfo. Nothing, and one line in the log, for a name that does not
  /// exist, an unreadable file, and one that counts leap seconds.
  static std::optional<TimeZone> fromName(std::string_view name);

  /// The zone of the variable TZ, or else of /etc/localtime, or UTC where neither is there. Nothing, and one
  /// line in the log, if the variable or the file is wrong. It is looked up in every call: a host that runs
  /// for days calls again. No other thread may change the environment meanwhile.
  static std::optional<TimeZone> ofSystem();

  /// The name it was found by; for /etc/localtime, the name of the zone that it links to.
  const std::string& name() const noexcept;

  /// Local time minus UTC; the offset of the year 1 or 9999 for instants beyond.
  std::chrono::seconds offset(std::chrono::sys_seconds instant) const noexcept;

  /// The first instant at which clocks show this local time or a later one: of a time that comes twice the
  /// first, and of one that is skipped the instant of the change. Times before the year 0 and after 10000
  /// give the nearest in these years.
  std::chrono::sys_seconds firstInstant(std::chrono::local_seconds time) const noexcept;

 private:
  TimeZone(std::string name, ZoneRules rules);

  struct Zone;
  std::shared_ptr<const Zone> zone_;
};

}  // namespace quillonic
