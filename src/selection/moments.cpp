#include "selection/moments.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "text/ascii.hpp"
#include "text/number_text.hpp"

namespace quillonic::selection::moments {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text

// Takes exactly this many digits after a separator, if there is one.
std::optional<int> taken(std::string_view& text, std::string_view separator, std::size_t digits) noexcept {
  if (!text.starts_with(separator) || text.size() < separator.size() + digits) return std::nullopt;
  const auto number = text.substr(separator.size(), digits);
  if (!ascii::isDigits(number)) return std::nullopt;
  text.remove_prefix(separator.size() + digits);
  return number_text::read<int>(number);
}

std::optional<local_days> takenDay(std::string_view& text) noexcept {
  const auto year = taken(text, "", 4);
  const auto month = year ? taken(text, "-", 2) : std::nullopt;
  const auto day = month ? taken(text, "-", 2) : std::nullopt;
  if (!day) return std::nullopt;
  const auto date = std::chrono::year(*year) / *month / *day;
  return date.ok() && *year > 0 ? std::optional(local_days(date)) : std::nullopt;
}

// Hours and minutes.
std::optional<seconds> takenTime(std::string_view& text, std::string_view separator) noexcept {
  const auto hour = taken(text, separator, 2);
  const auto minute = hour ? taken(text, ":", 2) : std::nullopt;
  if (!minute || *hour > 23 || *minute > 59) return std::nullopt;
  return hours(*hour) + minutes(*minute);
}

}  // namespace

std::string text(const Moment& moment) {
  const auto since1970 = std::visit([](auto time) { return time.time_since_epoch(); }, moment);
  const auto day = floor<days>(since1970);
  const year_month_day date{local_days(day)};
  const hh_mm_ss time(since1970 - day);
  const auto padded = [](auto number, std::size_t width) {
    return number_text::padded(static_cast<std::int64_t>(number), width);
  };
  auto text = padded(int(date.year()), 4)
                  .append("-")
                  .append(padded(unsigned(date.month()), 2))
                  .append("-")
                  .append(padded(unsigned(date.day()), 2));
  const bool isInstant = std::holds_alternative<sys_seconds>(moment);
  if (!isInstant && since1970 == day) return text;
  text.append("T")
      .append(padded(time.hours().count(), 2))
      .append(":")
      .append(padded(time.minutes().count(), 2));
  if (time.seconds().count() != 0) text.append(":").append(padded(time.seconds().count(), 2));
  return isInstant ? text.append("Z") : text;
}

std::optional<Moment> read(std::string_view text) noexcept {
  const auto day = takenDay(text);
  if (!day) return std::nullopt;
  if (text.empty()) return *day;
  const auto time = takenTime(text, "T");
  if (!time) return std::nullopt;
  auto local = local_seconds(*day) + *time;
  if (text.starts_with(':')) {
    const auto second = taken(text, ":", 2);
    if (!second || *second > 59) return std::nullopt;
    local += seconds(*second);
  }
  if (text.empty()) return local;
  const int sign = text.starts_with('+') ? 1 : -1;
  auto offset = seconds(0);
  if (text != "Z") {
    if (!text.starts_with('+') && !text.starts_with('-')) return std::nullopt;
    text.remove_prefix(1);
    const auto distance = takenTime(text, "");
    if (!distance || !text.empty()) return std::nullopt;
    offset = *distance * sign;
  }
  local -= offset;
  if (local < first || local > last) return std::nullopt;
  return sys_seconds(local.time_since_epoch());
}

std::optional<local_days> readDay(std::string_view text) noexcept {
  const auto day = takenDay(text);
  return text.empty() ? day : std::nullopt;
}

}  // namespace quillonic::selection::moments
