// Any text as a timecode and as a length of time, both ways.
#include <quillonic/time/durations.hpp>
#include <quillonic/time/timecode.hpp>

#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

bool isProper(std::string_view text, bool length, bool bounds) {
  return TimecodeComponents::timecodeHasProperForm(text, length, bounds);
}

void checkReading(std::string_view text) {
  const auto strict = TimecodeComponents::fromTimecode(text);
  const auto split = TimecodeComponents::decomposeTimecodeString(text);
  const auto lenient = TimecodeComponents::sanitizedTimecode(text);

  int calls = 0;
  bool isSame = true;
  const auto take = [&](const TimecodeComponents& components) {
    ++calls;
    isSame = components == strict;
  };
  require(TimecodeComponents::timecodeHasProperForm(text, true, true, take) == strict.has_value(),
          "what reads strictly has the proper form");
  require(calls == (strict ? 1 : 0) && isSame, "the closure gets what was read, once");
  for (const bool other : {false, true}) {
    require(!isProper(text, true, other) || isProper(text, false, other), "lengths are a further demand");
    require(!isProper(text, other, true) || isProper(text, other, false), "bounds are a further demand");
  }

  const TimecodeComponents filled{split.hours.value_or(0), split.minutes.value_or(0),
                                  split.seconds.value_or(0), split.frames.value_or(0), split.isDropFrame};
  require(lenient == filled, "the lenient reading is the split one with zeros");
  require(!strict || lenient == *strict, "both readings agree on a proper text");
}

void checkWriting(const TimecodeComponents& components) {
  const auto& [hours, minutes, seconds, frames, isDropFrame] = components;
  const auto text = components.timecodeString();
  require(text.size() >= 11 && text.size() <= 4 * 21 + 3, "a timecode has 11 to 87 characters");
  require(decode<TimecodeComponents>(encode(components)) == components, "coding keeps a timecode");

  if (hours < 0 || minutes < 0 || seconds < 0 || frames < 0) return;
  std::array<char, 100> label{};
  std::snprintf(label.data(), label.size(), "%02" PRId64 ":%02" PRId64 ":%02" PRId64 "%c%02" PRId64, hours,
                minutes, seconds, isDropFrame ? ';' : ':', frames);
  require(text == label.data(), "a timecode is written as the C library does");
  require(TimecodeComponents::sanitizedTimecode(text) == components, "a timecode reads back");
  const bool isInBounds = minutes <= 60 && seconds <= 60;
  require(TimecodeComponents::fromTimecode(text).has_value() == isInBounds,
          "a timecode within its bounds reads back strictly");
}

void checkDuration(std::int64_t seconds) {
  const auto [h, m, s] = NumberUtility::secondsToHoursMinutesSeconds(seconds);
  require(h * 3600 + m * 60 + s == seconds, "the parts of a duration add up");
  require(m > -60 && m < 60 && s > -60 && s < 60, "minutes and seconds are below 60");
  const auto text = NumberUtility::secondsToStandardDurationText(seconds);
  if (seconds < 0) return;
  require(TimecodeComponents::fromTimecode(text + ":00") == TimecodeComponents{h, m, s, 0, false},
          "a duration reads as a timecode");
  // Up to here every integer is a floating-point number.
  if (seconds < (std::int64_t{1} << 52)) {
    require(TimeInterval::formattedString(static_cast<double>(seconds) + 0.5) == text,
            "both texts of a duration agree");
  }
}

}  // namespace

void run(std::string_view bytes) {
  checkReading(bytes);
  const auto components = TimecodeComponents::sanitizedTimecode(bytes);
  checkWriting(components);
  checkReading(components.timecodeString());
  checkDuration(components.hours);
  checkDuration(components.frames);
}

}  // namespace quillonic::fuzz
