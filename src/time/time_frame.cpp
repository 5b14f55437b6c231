#include <quillonic/platform/localization.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/time/time_frame.hpp>

#include <array>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

struct NamedFrame {
  TimeFrame frame;
  std::string_view text;
  std::string_view description;
};

constexpr auto named = [] {
  using enum CalendarUnit;
  return std::to_array<NamedFrame>({
      {TimeFrame::current(day), "today", "Today"},
      {TimeFrame::previous(day), "yesterday", "Yesterday"},
      {TimeFrame::next(day), "tomorrow", "Tomorrow"},
      {TimeFrame::current(week), "this-week", "This week"},
      {TimeFrame::previous(week), "last-week", "Last week"},
      {TimeFrame::next(week), "next-week", "Next week"},
      {TimeFrame::current(month), "this-month", "This month"},
      {TimeFrame::previous(month), "last-month", "Last month"},
      {TimeFrame::next(month), "next-month", "Next month"},
      {TimeFrame::current(quarter), "this-quarter", "This quarter"},
      {TimeFrame::previous(quarter), "last-quarter", "Last quarter"},
      {TimeFrame::next(quarter), "next-quarter", "Next quarter"},
      {TimeFrame::current(year), "this-year", "This year"},
      {TimeFrame::previous(year), "last-year", "Last year"},
      {TimeFrame::next(year), "next-year", "Next year"},
  });
}();

constexpr std::string_view beforeCount = "last-";
constexpr std::string_view afterDays = "-days";
constexpr std::string_view afterHours = "-hours";

}  // namespace

DateRange TimeFrame::resolved(const Calendar& calendar, std::chrono::sys_seconds instant) const noexcept {
  using namespace std::chrono_literals;
  if (hours_ > 0) return {instant - std::chrono::hours(hours_), instant + 1s};
  return {calendar.period(unit_, first_, instant).start, calendar.period(unit_, last_, instant).end};
}

std::string TimeFrame::text() const {
  if (const auto* row = detail::rowWhere(named, &NamedFrame::frame, *this)) return std::string(row->text);
  return std::string(beforeCount)
      .append(std::to_string(hours_ > 0 ? hours_ : 1 - first_))
      .append(hours_ > 0 ? afterHours : afterDays);
}

std::optional<TimeFrame> TimeFrame::fromText(std::string_view text) noexcept {
  if (const auto* row = detail::rowWhere(named, &NamedFrame::text, text)) return row->frame;
  const auto after = text.ends_with(afterHours) ? afterHours : afterDays;
  if (text.size() < beforeCount.size() + after.size() || !text.starts_with(beforeCount) ||
      !text.ends_with(after)) {
    return std::nullopt;
  }
  text.remove_prefix(beforeCount.size());
  text.remove_suffix(after.size());
  const auto count = number_text::read<int>(text);
  if (!count || *count <= 0 || text.starts_with('0')) return std::nullopt;
  return after == afterHours ? lastHours(*count) : lastDays(*count);
}

std::string TimeFrame::description() const {
  if (const auto* row = detail::rowWhere(named, &NamedFrame::frame, *this)) {
    return Localization::localized(row->description);
  }
  if (hours_ > 0) return Localization::localized("Last {} hours", {std::to_string(hours_)});
  return Localization::localized("Last {} days", {std::to_string(1 - first_)});
}

}  // namespace quillonic
