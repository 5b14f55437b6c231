// What the system and its user say about time.
#pragma once

#include <quillonic/support/result.hpp>

#include <chrono>
#include <optional>
#include <string>

namespace quillonic::time_settings {

// The variable TZ, also when it is empty.
std::optional<std::string> zoneVariable();

// The folder of the files of time zones, without a trailing slash.
std::string zoneFolder();

// The bytes of a zone's file, all links followed. Nothing but a regular file of at most 1 MiB is read.
Result<std::string> zoneFile(const std::string& path);

// The file of the system's zone, which may be missing.
inline constexpr const char* systemZone = "/etc/localtime";

// The locale of the user's times, by the variables that decide it.
std::string userLocale();

// That of the user without a name. Nothing for a locale that is not installed.
std::optional<std::chrono::weekday> firstWeekday(const std::string& locale);

}  // namespace quillonic::time_settings
