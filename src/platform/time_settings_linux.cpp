#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <langinfo.h>
#include <memory>
#include <type_traits>

#include "platform/items.hpp"
#include "platform/time_settings.hpp"

namespace quillonic::time_settings {

namespace chrono = std::chrono;

std::optional<std::string> zoneVariable() {
  const char* const zone = std::getenv("TZ");
  return zone ? std::optional<std::string>(zone) : std::nullopt;
}

std::string zoneFolder() {
  const char* const folder = std::getenv("TZDIR");
  return folder && *folder ? folder : "/usr/share/zoneinfo";
}

Result<std::string> zoneFile(const std::string& path) {
  constexpr std::size_t limit = 1 << 20;
  const auto file = items::canonical(path);
  return file ? items::firstBytes(*file, limit) : file;
}

std::string userLocale() {
  for (const auto* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* const locale = std::getenv(variable);
    if (locale && *locale) return locale;
  }
  return "C";
}

std::optional<chrono::weekday> firstWeekday(const std::string& name) {
  const std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&freelocale)> locale(
      newlocale(LC_TIME_MASK, name.c_str(), nullptr), &freelocale);
  if (!locale) return std::nullopt;
  // The first day is counted from 1 at the day of a date that the locale names, a Sunday in nearly all; the
  // date is a number in the place of a pointer.
  const auto date = static_cast<unsigned>(
      reinterpret_cast<std::uintptr_t>(nl_langinfo_l(_NL_TIME_WEEK_1STDAY, locale.get())));  // NOLINT
  const auto day = chrono::year(static_cast<int>(date / 10000)) / chrono::month(date / 100 % 100) /
                   chrono::day(date % 100);
  const int place = static_cast<unsigned char>(*nl_langinfo_l(_NL_TIME_FIRST_WEEKDAY, locale.get()));
  return chrono::weekday(chrono::sys_days(day)) + chrono::days(place - 1);
}

}  // namespace quillonic::time_settings
