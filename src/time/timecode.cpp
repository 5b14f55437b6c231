#include <quillonic/time/timecode.hpp>

#include <array>
#include <cstddef>
#include <limits>

#include "platform/number_text.hpp"

namespace quillonic {
namespace {

// A number of 64 bits, read one character at a time since the digits of the frames need not stand together.
class Number {
 public:
  constexpr void add(char c) noexcept {
    const auto digit = static_cast<std::uint64_t>(static_cast<unsigned char>(c)) - '0';
    if (digit > 9) {
      fits_ = fits_ && length_ == 0 && (c == '+' || c == '-');
      isNegative_ = c == '-';
      ++others_;
    } else if (magnitude_ < limit / 10 || (magnitude_ == limit / 10 && digit <= limit % 10)) {
      magnitude_ = 10 * magnitude_ + digit;
    } else {
      fits_ = false;
    }
    ++length_;
  }

  constexpr std::size_t length() const noexcept { return length_; }
  constexpr bool isDigitsOnly() const noexcept { return others_ == 0; }

  // What was read, a sign before the digits included.
  constexpr std::optional<std::int64_t> value() const noexcept {
    if (!fits_ || length_ == others_ || (magnitude_ == limit && !isNegative_)) return std::nullopt;
    return static_cast<std::int64_t>(isNegative_ ? 0 - magnitude_ : magnitude_);
  }

 private:
  // The smallest number without its sign, one above the largest.
  static constexpr std::uint64_t limit = std::uint64_t{1} << 63;

  std::uint64_t magnitude_ = 0;
  std::size_t length_ = 0;
  std::size_t others_ = 0;
  bool isNegative_ = false;
  bool fits_ = true;
};

enum : std::size_t { hoursField, minutesField, secondsField, framesField, fieldCount };

struct Separators {
  bool isDropFrame = false;
  // Whether ";" stands before the minutes or the seconds, which only a lenient reading allows.
  bool hasEarlyDropSeparator = false;
};

// The one walk over a timecode's text: hands each field over to `take`, as many as there are.
template <class Take> constexpr Separators split(std::string_view timecode, Take take) noexcept {
  Separators found;
  std::size_t field = hoursField;
  Number number;
  for (const char c : timecode) {
    if (c != ':' && c != ';') {
      number.add(c);
    } else if (field != framesField) {
      take(field, number);
      number = {};
      auto& isDrop = field == secondsField ? found.isDropFrame : found.hasEarlyDropSeparator;
      isDrop = isDrop || c == ';';
      ++field;
    }
  }
  take(field, number);
  return found;
}

std::optional<TimecodeComponents> strictlyRead(std::string_view timecode, bool forceProperComponentLength,
                                               bool forceComponentBounds) noexcept {
  const std::size_t shortest = forceProperComponentLength ? 2 : 1;
  const std::int64_t bound = forceComponentBounds ? 60 : std::numeric_limits<std::int64_t>::max();
  std::array<std::int64_t, fieldCount> values;
  std::size_t proper = 0;
  const auto separators = split(timecode, [&](std::size_t field, const Number& number) {
    const auto value = number.value();
    values[field] = value.value_or(0);
    if (value && number.isDigitsOnly() && number.length() >= shortest) ++proper;
  });
  const bool isProper = proper == fieldCount && !separators.hasEarlyDropSeparator &&
                        values[minutesField] <= bound && values[secondsField] <= bound;
  if (!isProper) return std::nullopt;
  return TimecodeComponents{values[hoursField], values[minutesField], values[secondsField],
                            values[framesField], separators.isDropFrame};
}

// A negative number has its sign after the "0": "0-1", a fixed form.
std::string withTwoDigits(std::int64_t number) {
  return number < 0 ? std::to_string(number).insert(0, 1, '0') : number_text::padded(number, 2);
}

constexpr std::string_view hoursKey = "hours";
constexpr std::string_view minutesKey = "minutes";
constexpr std::string_view secondsKey = "seconds";
constexpr std::string_view framesKey = "frames";
constexpr std::string_view isDropFrameKey = "isDropFrame";

}  // namespace

std::optional<TimecodeComponents> TimecodeComponents::fromTimecode(std::string_view timecode) noexcept {
  return strictlyRead(timecode, true, true);
}

bool TimecodeComponents::timecodeHasProperForm(
    std::string_view timecode, bool forceProperComponentLength, bool forceComponentBounds,
    std::optional<FunctionRef<void(const TimecodeComponents&)>> componentsClosure) {
  const auto components = strictlyRead(timecode, forceProperComponentLength, forceComponentBounds);
  if (components && componentsClosure) (*componentsClosure)(*components);
  return components.has_value();
}

TimecodeComponents::Decomposed TimecodeComponents::decomposeTimecodeString(
    std::string_view timecode) noexcept {
  std::array<std::optional<std::int64_t>, fieldCount> values;
  const auto separators =
      split(timecode, [&](std::size_t field, const Number& number) { values[field] = number.value(); });
  return {values[hoursField], values[minutesField], values[secondsField], values[framesField],
          separators.isDropFrame};
}

TimecodeComponents TimecodeComponents::sanitizedTimecode(std::string_view fromString) noexcept {
  if (const auto strict = fromTimecode(fromString)) return *strict;
  const auto lenient = decomposeTimecodeString(fromString);
  return {lenient.hours.value_or(0), lenient.minutes.value_or(0), lenient.seconds.value_or(0),
          lenient.frames.value_or(0), lenient.isDropFrame};
}

std::string TimecodeComponents::timecodeString() const {
  std::string text = withTwoDigits(hours);
  text.append(nonDropSeparator).append(withTwoDigits(minutes));
  text.append(nonDropSeparator).append(withTwoDigits(seconds));
  return text.append(isDropFrame ? dropFrameSeparator : nonDropSeparator).append(withTwoDigits(frames));
}

CodedValue TimecodeComponents::encode() const {
  CodedRecord record;
  record.add(hoursKey, hours);
  record.add(minutesKey, minutes);
  record.add(secondsKey, seconds);
  record.add(framesKey, frames);
  record.add(isDropFrameKey, isDropFrame);
  return record;
}

TimecodeComponents TimecodeComponents::from(const CodedValue& coded) {
  const auto& record = coded.require<CodedRecord>();
  return {record.require<std::int64_t>(hoursKey), record.require<std::int64_t>(minutesKey),
          record.require<std::int64_t>(secondsKey), record.require<std::int64_t>(framesKey),
          record.require<bool>(isDropFrameKey)};
}

}  // namespace quillonic
