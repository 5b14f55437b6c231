#include <quillonic/time/durations.hpp>
#include <quillonic/tool_cli/progress_line.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

#include "text/number_text.hpp"
#include "text/pieces.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

constexpr std::string_view frameName = "frame=";
constexpr std::string_view speedName = "speed=";
constexpr std::string_view leftName = "left=";
constexpr std::string_view messageName = "message=";

// Percent with two places are ten-thousandths.
constexpr double whole = 10'000;
constexpr double hundred = 100;

bool isWritable(double number) noexcept {
  return number >= 0 && std::isfinite(number);
}

// Without a fraction that is 0: "42", "42.5".
std::string shortest(double number) {
  auto text = number_text::shortest(number + 0.0);  // removes the sign of a negative zero
  if (text.ends_with(".0")) text.erase(text.size() - 2);
  return text;
}

std::string percentage(double fraction) {
  auto parts = std::round(std::min(fraction, 1.0) * whole);
  if (parts == whole && fraction < 1) --parts;
  return shortest(parts / hundred) + "%";
}

template <class Number> std::optional<Number> numberIn(std::string_view text) noexcept {
  const auto read = number_text::read<Number>(text);
  return read && isWritable(static_cast<double>(*read)) ? read : std::nullopt;
}

// Whole seconds, or hours, minutes and seconds.
std::optional<std::int64_t> seconds(std::string_view text) noexcept {
  constexpr std::int64_t perUnit = 60;
  std::int64_t total = 0;
  for (auto pieces = text::split(text, ':'); const auto piece = pieces.next();) {
    const auto field = numberIn<std::int64_t>(*piece);
    if (!field || total > (std::numeric_limits<std::int64_t>::max() - *field) / perUnit) return std::nullopt;
    total = total * perUnit + *field;
  }
  return total;
}

// Removes the first word of a text, with the spaces before it, and returns it.
std::string_view takeWord(std::string_view& text) noexcept {
  text = text::trimmed(text);
  const auto word = text.substr(0, text.find_first_of(" \t"));
  text.remove_prefix(word.size());
  return word;
}

// The rest of a text after a name.
std::optional<std::string_view> after(std::string_view name, std::string_view text) noexcept {
  return text.starts_with(name) ? std::optional(text.substr(name.size())) : std::nullopt;
}

std::string oneLine(std::string_view message) {
  std::string line(message);
  std::ranges::replace_if(
      line, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }, ' ');
  return std::string(text::trimmed(line));
}

}  // namespace

std::string ProgressLine::text(std::string_view prefix) const {
  std::string parts;
  const auto add = [&](std::string_view name, const std::string& value) {
    parts.append(parts.empty() ? "" : " ").append(name).append(value);
  };
  if (fraction && isWritable(*fraction)) add("", percentage(*fraction));
  if (frame && *frame >= 0) add(frameName, std::to_string(*frame));
  if (speed && isWritable(*speed)) add(speedName, shortest(*speed) + "x");
  if (secondsLeft && *secondsLeft >= 0) {
    add(leftName, NumberUtility::secondsToStandardDurationText(*secondsLeft));
  }
  if (const auto line = oneLine(message); !line.empty()) add(messageName, line);
  return std::string(prefix).append(parts);
}

std::optional<ProgressLine> ProgressLine::fromText(std::string_view line, std::string_view prefix) {
  line = text::trimmed(line);
  prefix = text::trimmed(prefix);
  // A command line lower-cases the prefix that the parent asks for.
  auto start = after(prefix, line);
  if (!start) start = after(text::lowerCased(prefix), line);
  if (!start) return std::nullopt;

  ProgressLine progress;
  for (auto rest = text::trimmed(*start); !rest.empty(); rest = text::trimmed(rest)) {
    if (const auto message = after(messageName, rest)) {
      progress.message = oneLine(*message);
      break;
    }
    auto word = takeWord(rest);
    const auto value = [&](std::string_view name) -> std::optional<std::string_view> {
      const auto found = after(name, word);
      return found && found->empty() ? takeWord(rest) : found;
    };
    if (word.ends_with('%')) {
      const auto percent = number_text::read<double>(word.substr(0, word.size() - 1));
      if (percent && !std::isnan(*percent))
        progress.fraction = std::round(std::clamp(*percent, 0.0, hundred) * hundred) / whole;
    } else if (const auto frame = value(frameName)) {
      progress.frame = numberIn<std::int64_t>(*frame);
    } else if (auto speed = value(speedName)) {
      if (speed->ends_with('x')) speed->remove_suffix(1);
      progress.speed = numberIn<double>(*speed);
    } else if (const auto left = value(leftName)) {
      progress.secondsLeft = seconds(*left);
    }
  }
  return progress != ProgressLine() ? std::optional(std::move(progress)) : std::nullopt;
}

}  // namespace quillonic
