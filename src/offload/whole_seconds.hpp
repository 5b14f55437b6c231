// Dates in whole seconds, as lists of checksums have them.
#pragma once

#include <quillonic/support/date.hpp>

#include <algorithm>
#include <chrono>

namespace quillonic::offload {

// A moment as a date, or the nearest one in the range of dates.
inline Date nearestDate(std::chrono::sys_seconds moment) {
  using std::chrono::seconds;
  return std::clamp(moment, std::chrono::ceil<seconds>(Date::min()),
                    std::chrono::floor<seconds>(Date::max()));
}

inline Date wholeSeconds(Date date) {
  return nearestDate(std::chrono::floor<std::chrono::seconds>(date));
}

}  // namespace quillonic::offload
