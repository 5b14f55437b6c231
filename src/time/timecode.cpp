#include <quillonic/time/timecode.hpp>

#include <algorithm>
#include <cstddef>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

// A text split at its first three separators.
struct Fields {
  std::string_view hours;
  std::string_view minutes;
  std::string_view seconds;
  std::string frames;  // without the separators that follow
  bool isDropFrame = false;
  // Whether the first or second separator is ";", which only a lenient reading allows.
  bool hasEarlyDropSeparator = false;
};

Fields split(std::string_view rest) {
  Fields fields;
  // Takes the next field; returns whether ";" ends it.
  const auto take = [&](std::string_view& field) {
    field = rest.substr(0, rest.find_first_of(":;"));
    rest.remove_prefix(field.size());
    const bool isDrop = rest.starts_with(';');
    rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
    return isDrop;
  };
  const bool isDropBeforeMinutes = take(fields.hours);
  const bool isDropBeforeSeconds = take(fields.minutes);
  fields.hasEarlyDropSeparator = isDropBeforeMinutes || isDropBeforeSeconds;
  fields.isDropFrame = take(fields.seconds);
  fields.frames = rest;
  std::erase_if(fields.frames, [](char c) { return c == ':' || c == ';'; });
  return fields;
}

// Decimal digits after an optional sign.
std::optional<std::int64_t> number(std::string_view field) noexcept {
  if (field.starts_with('+') && !field.starts_with("+-")) field.remove_prefix(1);
  return number_text::read<std::int64_t>(field);
}

TimecodeComponents::Decomposed numbers(const Fields& fields) noexcept {
  return {number(fields.hours), number(fields.minutes), number(fields.seconds), number(fields.frames),
          fields.isDropFrame};
}

std::optional<TimecodeComponents> strictlyRead(std::string_view timecode, bool forceProperComponentLength,
                                               bool forceComponentBounds) {
  if (timecode.find_first_not_of("0123456789:;") != std::string_view::npos) return std::nullopt;
  const auto fields = split(timecode);
  const auto [hours, minutes, seconds, frames, isDropFrame] = numbers(fields);
  if (fields.hasEarlyDropSeparator || !hours || !minutes || !seconds || !frames) return std::nullopt;
  const auto shortest =
      std::min({fields.hours.size(), fields.minutes.size(), fields.seconds.size(), fields.frames.size()});
  if (forceProperComponentLength && shortest < 2) return std::nullopt;
  if (forceComponentBounds && std::max(*minutes, *seconds) > 60) return std::nullopt;
  return TimecodeComponents{*hours, *minutes, *seconds, *frames, isDropFrame};
}

// A negative number has its sign after the "0": "0-1", a fixed form.
std::string fieldText(std::int64_t number) {
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
  return numbers(split(timecode));
}

TimecodeComponents TimecodeComponents::sanitizedTimecode(std::string_view fromString) noexcept {
  if (const auto strict = fromTimecode(fromString)) return *strict;
  const auto lenient = decomposeTimecodeString(fromString);
  return {lenient.hours.value_or(0), lenient.minutes.value_or(0), lenient.seconds.value_or(0),
          lenient.frames.value_or(0), lenient.isDropFrame};
}

std::string TimecodeComponents::timecodeString() const {
  std::string text = fieldText(hours);
  text.append(nonDropSeparator).append(fieldText(minutes));
  text.append(nonDropSeparator).append(fieldText(seconds));
  return text.append(isDropFrame ? dropFrameSeparator : nonDropSeparator).append(fieldText(frames));
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
