#include <quillonic/platform/logging.hpp>
#include <quillonic/time/durations.hpp>

#include <cmath>
#include <cstdlib>
#include <string_view>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

using number_text::padded;

// Pads negative numbers to two digits here, but to two characters in the other form, on purpose: "-05" and
// "-5".
std::string withTwoDigits(std::int64_t number) {
  return number < 0 ? padded(-number, 2).insert(0, 1, '-') : padded(number, 2);
}

std::string clock(std::string_view h, std::string_view m, std::string_view s) {
  return std::string(h).append(":").append(m).append(":").append(s);
}

[[noreturn]] void abortBecause(std::string_view reason) {
  VantiroLogging::defaultLogger()->logError(reason);
  std::abort();
}

}  // namespace

std::string TimeInterval::formattedString(double seconds) {
  if (!std::isfinite(seconds)) return "00:00:00";
  constexpr double bound = 0x1p63;
  if (seconds < -bound || seconds >= bound) {
    abortBecause("QLC_TI_FS-Failed to format a time interval: the number of seconds does not fit 64 bits");
  }
  const auto whole = static_cast<std::int64_t>(seconds);
  const auto s = whole % 60;
  const auto rest = whole - s;
  std::int64_t h = 0;
  std::int64_t m = 0;
  if (rest > 0) {
    m = rest % 3600 / 60;
    h = (rest - 60 * m) / 3600;
  } else if (rest < 0) {
    VantiroLogging::defaultLogger()->logDebug(
        "Extra seconds were ignored during TimeInterval string formatting");
  }
  return clock(padded(h, 2), padded(m, 2), padded(s, 2));
}

NumberUtility::HoursMinutesSeconds NumberUtility::secondsToHoursMinutesSeconds(
    std::int64_t seconds) noexcept {
  return {seconds / 3600, seconds % 3600 / 60, seconds % 60};
}

std::string NumberUtility::secondsToStandardDurationText(std::int64_t seconds) {
  const auto [h, m, s] = secondsToHoursMinutesSeconds(seconds);
  return clock(withTwoDigits(h), withTwoDigits(m), withTwoDigits(s));
}

}  // namespace quillonic
