#include <algorithm>
#include <array>

#include "text/ascii.hpp"
#include "time/zone_rules.hpp"

namespace quillonic {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

}  // namespace

// Reads from the front of a text. Every part says whether it is there.
class YearlyRule::Reader {
 public:
  explicit Reader(std::string_view text) noexcept : rest_(text) {}

  bool isAtEnd() const noexcept { return rest_.empty(); }
  bool isNext(char c) const noexcept { return rest_.starts_with(c); }

  bool skip(char c) noexcept {
    const bool isThere = isNext(c);
    if (isThere) rest_.remove_prefix(1);
    return isThere;
  }

  // At least three letters, or more kinds of characters between "<" and ">".
  bool skipName() noexcept {
    const bool isQuoted = skip('<');
    const auto isPart = [isQuoted](char c) {
      return ascii::isLetter(c) || (isQuoted && (ascii::isDigit(c) || c == '+' || c == '-'));
    };
    const auto length = std::find_if_not(rest_.begin(), rest_.end(), isPart) - rest_.begin();
    rest_.remove_prefix(static_cast<std::size_t>(length));
    return length >= 3 && (!isQuoted || skip('>'));
  }

  std::optional<unsigned> number(unsigned least, unsigned most) noexcept {
    unsigned value = 0;
    if (rest_.empty() || !ascii::isDigit(rest_.front())) return std::nullopt;
    for (; !rest_.empty() && ascii::isDigit(rest_.front()) && value <= most; rest_.remove_prefix(1)) {
      value = 10 * value + static_cast<unsigned>(rest_.front() - '0');
    }
    return value >= least && value <= most ? std::optional(value) : std::nullopt;
  }

  // Hours, with minutes and seconds if they are not zero.
  std::optional<seconds> time(unsigned mostHours) noexcept {
    const bool isNegative = skip('-');
    if (!isNegative) skip('+');
    const auto h = number(0, mostHours);
    const auto m = h && skip(':') ? number(0, 59) : h ? std::optional(0U) : std::nullopt;
    const auto s = m && skip(':') ? number(0, 59) : m ? std::optional(0U) : std::nullopt;
    if (!s) return std::nullopt;
    const seconds time = hours(*h) + minutes(*m) + seconds(*s);
    return isNegative ? -time : time;
  }

  // How far local time is ahead; rules have the sign the other way round.
  std::optional<seconds> offset() noexcept {
    const auto behind = time(24);
    return behind ? std::optional(-*behind) : std::nullopt;
  }

  std::optional<Moment> moment() noexcept {
    using Kind = Moment::Kind;
    std::optional<Moment> moment;
    if (skip('M')) {
      const auto month = number(1, 12);
      const auto week = month && skip('.') ? number(1, 5) : std::nullopt;
      const auto weekday = week && skip('.') ? number(0, 6) : std::nullopt;
      if (weekday) moment = Moment{Kind::weekdayOfMonth, *weekday, *month, *week};
    } else {
      const bool isWithoutLeapDays = skip('J');
      if (const auto day = number(isWithoutLeapDays ? 1 : 0, 365)) {
        moment = Moment{isWithoutLeapDays ? Kind::dayWithoutLeapDays : Kind::day, *day};
      }
    }
    if (moment && skip('/')) {
      const auto after = time(167);
      if (!after) return std::nullopt;
      moment->time = *after;
    }
    return moment;
  }

 private:
  std::string_view rest_;
};

std::optional<YearlyRule> YearlyRule::fromText(std::string_view text) noexcept {
  Reader reader(text);
  if (!reader.skipName()) return std::nullopt;
  const auto offset = reader.offset();
  if (!offset) return std::nullopt;
  YearlyRule rule;
  rule.offset_ = *offset;
  if (reader.isAtEnd()) return rule;

  if (!reader.skipName()) return std::nullopt;
  auto summerOffset = std::optional(*offset + hours(1));
  if (!reader.isAtEnd() && !reader.isNext(',')) summerOffset = reader.offset();
  // Systems take the rule of the United States where none is given.
  if (reader.isAtEnd()) reader = Reader(",M3.2.0,M11.1.0");
  const auto begin = reader.skip(',') ? reader.moment() : std::nullopt;
  const auto end = begin && reader.skip(',') ? reader.moment() : std::nullopt;
  if (!summerOffset || !end || !reader.isAtEnd()) return std::nullopt;
  rule.summer_ = Summer{*summerOffset, *begin, *end};
  return rule;
}

sys_seconds YearlyRule::Moment::inYear(std::chrono::year year) const noexcept {
  sys_days date = year / 1 / 1;
  switch (kind) {
    case Kind::dayWithoutLeapDays:
      // Counting goes on at 1 March as if there had been no 29 February.
      date += days(day - (year.is_leap() && day >= 60 ? 0 : 1));
      break;
    case Kind::day:
      date += days(day);
      break;
    case Kind::weekdayOfMonth: {
      const std::chrono::month ofMonth(month);
      const weekday ofWeek(day);
      date = week == 5 ? sys_days(year / ofMonth / ofWeek[last]) : sys_days(year / ofMonth / ofWeek[week]);
      break;
    }
  }
  return date + time;
}

OffsetSpan YearlyRule::spanAt(sys_seconds instant) const noexcept {
  OffsetSpan span{sys_seconds::min(), sys_seconds::max(), offset_};
  if (!summer_) return span;
  const auto year = year_month_day(floor<days>(instant)).year();
  // In this order a summer that begins where the one before ends goes on without a break.
  for (auto near = year - years(1); near <= year + years(1); ++near) {
    std::array<OffsetSpan, 2> parts{{{summer_->begin.inYear(near) - offset_, {}, summer_->offset},
                                     {summer_->end.inYear(near) - summer_->offset, {}, offset_}}};
    if (parts[1].begin < parts[0].begin) std::swap(parts[0], parts[1]);
    for (const auto& part : parts) {
      if (part.begin > instant) {
        span.end = std::min(span.end, part.begin);
      } else if (part.begin >= span.begin) {
        span.begin = part.begin;
        span.offset = part.offset;
      }
    }
  }
  return span;
}

}  // namespace quillonic
