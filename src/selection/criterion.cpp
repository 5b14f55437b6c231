#include <quillonic/selection/criterion.hpp>

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>

#include "selection/moments.hpp"
#include "text/ascii.hpp"
#include "text/unicode.hpp"

namespace quillonic::selection {
namespace {

template <class Values> Values sortedOnce(Values values) {
  std::ranges::sort(values);
  values.erase(std::unique(values.begin(), values.end()), values.end());
  return values;
}

// What a text can hold. A bound beyond all dates is none, and one that no date reaches stays the last moment.
template <class Time> std::optional<Moment> bounded(Time time, bool isStart) {
  const Time first(moments::first.time_since_epoch());
  const Time last(moments::last.time_since_epoch());
  if (isStart ? time < first : time > last) return std::nullopt;
  return std::clamp(time, first, last);
}

TimeSpan bounded(const TimeSpan& span) {
  const auto both = [](const std::optional<Moment>& moment, bool isStart) -> std::optional<Moment> {
    if (!moment) return std::nullopt;
    return std::visit([&](auto time) { return bounded(time, isStart); }, *moment);
  };
  TimeSpan result{both(span.since, true), both(span.before, false)};
  // Without any bound it still asks for a date.
  if (!result.since && !result.before) result.since = moments::first;
  return result;
}

std::chrono::sys_seconds instantOf(const Moment& moment, const TimeZone& zone) noexcept {
  const auto* local = std::get_if<std::chrono::local_seconds>(&moment);
  return local ? zone.firstInstant(*local) : *std::get_if<std::chrono::sys_seconds>(&moment);
}

}  // namespace

bool operator==(const Combination& a, const Combination& b) {
  return a.of == b.of && a.members == b.members;
}

DateRange DateCondition::interval(const Calendar& calendar, std::chrono::sys_seconds instant) const noexcept {
  if (const auto* frame = std::get_if<TimeFrame>(&when)) return frame->resolved(calendar, instant);
  const auto& [since, before] = *std::get_if<TimeSpan>(&when);
  const auto at = [&](const auto& moment, std::chrono::sys_seconds otherwise) {
    return moment ? instantOf(*moment, calendar.timeZone()) : otherwise;
  };
  return {at(since, std::chrono::sys_seconds::min()), at(before, std::chrono::sys_seconds::max())};
}

Criterion::Criterion(KindCondition condition) {
  if (condition.kinds.empty()) {
    *this = anyOf({});
  } else {
    value_ = KindCondition{sortedOnce(std::move(condition.kinds))};
  }
}

Criterion::Criterion(ExtensionCondition condition) {
  if (condition.extensions.empty()) {
    *this = anyOf({});
    return;
  }
  for (auto& extension : condition.extensions) {
    extension =
        ascii::loweredText(extension.substr(std::min(extension.find_first_not_of('.'), extension.size())));
  }
  value_ = ExtensionCondition{sortedOnce(std::move(condition.extensions))};
}

Criterion::Criterion(NameCondition condition) {
  if (condition.ignoresCase) condition.pattern = text::lowerCasedEach(condition.pattern);
  value_ = std::move(condition);
}

Criterion::Criterion(DateCondition condition) {
  if (auto* span = std::get_if<TimeSpan>(&condition.when)) *span = bounded(*span);
  value_ = condition;
}

Criterion::Criterion(SizeCondition condition)
    : value_(condition.least <= condition.most ? condition : SizeCondition{1, 0}) {}
Criterion::Criterion(HiddenCondition condition) noexcept : value_(condition) {}
Criterion::Criterion(VolumeCondition condition) : value_(std::move(condition)) {}

Criterion Criterion::combined(Combination::Of of, std::vector<Criterion> members) {
  // None of any of some is none of these, and what is in one list needs no list of its own.
  const auto inner = of == Combination::Of::none ? Combination::Of::any : of;
  Criterion result;
  Combination combination{of, {}};
  for (auto& member : members) {
    auto* same = std::get_if<Combination>(&member.value_);
    if (same && same->of == inner) {
      std::ranges::move(same->members, std::back_inserter(combination.members));
    } else {
      combination.members.push_back(std::move(member));
    }
  }
  if (combination.members.empty() && of == Combination::Of::none) return result;
  if (combination.members.size() == 1 && of != Combination::Of::none)
    return std::move(combination.members.front());
  for (const auto& member : combination.members) result.depth_ = std::max(result.depth_, member.depth_ + 1);
  if (result.depth_ > greatestDepth) throw std::length_error("a criterion is nested too deep");
  result.value_ = std::move(combination);
  return result;
}

Criterion Criterion::allOf(std::vector<Criterion> members) {
  return combined(Combination::Of::all, std::move(members));
}

Criterion Criterion::anyOf(std::vector<Criterion> members) {
  return combined(Combination::Of::any, std::move(members));
}

Criterion Criterion::noneOf(std::vector<Criterion> members) {
  return combined(Combination::Of::none, std::move(members));
}

Criterion Criterion::resolved(const Calendar& calendar, std::chrono::sys_seconds instant) const {
  auto copy = *this;
  if (auto* combination = std::get_if<Combination>(&copy.value_)) {
    for (auto& member : combination->members) member = member.resolved(calendar, instant);
  } else if (auto* date = std::get_if<DateCondition>(&copy.value_)) {
    const auto range = date->interval(calendar, instant);
    const auto* span = std::get_if<TimeSpan>(&date->when);
    TimeSpan instants;
    const auto within = [](std::chrono::sys_seconds time) {
      return std::clamp(time, std::chrono::sys_seconds(moments::first.time_since_epoch()),
                        std::chrono::sys_seconds(moments::last.time_since_epoch()));
    };
    if (!span || span->since) instants.since = within(range.start);
    if (!span || span->before) instants.before = within(range.end);
    date->when = instants;
  }
  return copy;
}

CodedValue Criterion::encode() const {
  return text();
}

Criterion Criterion::from(const CodedValue& coded) {
  auto read = fromText(coded.require<std::string>());
  if (!read) throw DecodingError({}, read.error().description());
  return *std::move(read);
}

}  // namespace quillonic::selection
