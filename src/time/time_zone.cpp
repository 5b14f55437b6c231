#include <quillonic/platform/logging.hpp>
#include <quillonic/time/time_zone.hpp>

#include <algorithm>
#include <utility>

#include "platform/items.hpp"
#include "platform/time_settings.hpp"
#include "time/zone_rules.hpp"

namespace quillonic {
namespace {

using std::chrono::sys_seconds;

void warn(std::string_view operation, std::string_view name, std::string_view reason) {
  VantiroLogging::defaultLogger()->logWarning(std::string("QLC_TZ_")
                                                  .append(operation)
                                                  .append("-Failed to find the time zone \"")
                                                  .append(name)
                                                  .append("\": ")
                                                  .append(reason));
}

// Otherwise the reason, for people.
Result<ZoneRules, std::string> rulesOfFile(const std::string& path) {
  const auto bytes = time_settings::zoneFile(path);
  if (!bytes) return bytes.error().message();
  auto rules = ZoneRules::fromFile(*bytes);
  if (!rules) return std::string("it is damaged, or counts leap seconds");
  return *std::move(rules);
}

// The part of a link's target that names a zone.
std::string zoneOfLink(const std::string& path) {
  constexpr std::string_view folder = "zoneinfo/";
  const auto target = items::linkText(path).value_or(path);
  const auto at = target.rfind(folder);
  return at == std::string::npos ? target : target.substr(at + folder.size());
}

}  // namespace

struct TimeZone::Zone {
  std::string name;
  ZoneRules rules;
};

TimeZone::TimeZone(std::string name, ZoneRules rules)
    : zone_(std::make_shared<const Zone>(Zone{std::move(name), std::move(rules)})) {}

TimeZone TimeZone::utc() {
  return {"UTC", ZoneRules()};
}

std::optional<TimeZone> TimeZone::fromName(std::string_view name) {
  // The variable may have a colon before a name.
  auto file = std::string(name.substr(name.starts_with(':') ? 1 : 0));
  if (file.empty() || file == "UTC") return utc();
  auto rules =
      rulesOfFile(file.starts_with('/') ? file : time_settings::zoneFolder().append("/").append(file));
  if (rules) return TimeZone(std::move(file), *std::move(rules));
  if (const auto rule = YearlyRule::fromText(name)) {
    return TimeZone(std::move(file), ZoneRules(std::chrono::seconds(), {}, rule));
  }
  warn("FN", name, rules.error());
  return std::nullopt;
}

std::optional<TimeZone> TimeZone::ofSystem() {
  if (const auto variable = time_settings::zoneVariable()) return fromName(*variable);
  const std::string file = time_settings::systemZone;
  if (!items::status(file)) return utc();
  auto rules = rulesOfFile(file);
  if (rules) return TimeZone(zoneOfLink(file), *std::move(rules));
  warn("OS", file, rules.error());
  return std::nullopt;
}

const std::string& TimeZone::name() const noexcept {
  return zone_->name;
}

std::chrono::seconds TimeZone::offset(sys_seconds instant) const noexcept {
  return zone_->rules.spanAt(std::clamp(instant, firstOfAll, lastOfAll)).offset;
}

sys_seconds TimeZone::firstInstant(std::chrono::local_seconds time) const noexcept {
  const auto local = std::clamp(sys_seconds(time.time_since_epoch()), firstOfAll, lastOfAll);
  // Before this no zone has reached the time.
  auto span = zone_->rules.spanAt(local - greatestOffset);
  while (span.end <= local - span.offset) span = zone_->rules.spanAt(span.end);
  return std::max(span.begin, local - span.offset);
}

}  // namespace quillonic
