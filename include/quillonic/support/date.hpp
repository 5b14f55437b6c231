/// The library's date.
///
///     constexpr Date midnight = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22);
#pragma once

#include <quillonic/requirements.hpp>

#include <chrono>

namespace quillonic {

/// A point in time in nanoseconds since 1970 in UTC, without leap seconds, between the years 1677 and 2262.
using Date = std::chrono::sys_time<std::chrono::nanoseconds>;

}  // namespace quillonic
