#include <quillonic/time/timecode_rate.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace quillonic {
namespace {

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t minutesPerHour = 60;
constexpr std::int64_t hoursPerDay = 24;
// Drop frame skips numbers in every minute but each tenth.
constexpr std::int64_t minutesPerCycle = 10;
constexpr std::int64_t cyclesPerHour = minutesPerHour / minutesPerCycle;

// Whether equipment also runs at 1000/1001 of the rate.
constexpr bool hasFractionalRate(std::int64_t count) noexcept {
  return count % 24 == 0 || count % 30 == 0;
}

// How the frames of ten minutes are numbered.
struct Cycle {
  constexpr Cycle(std::int64_t count, bool isDropFrame) noexcept
      : skipped(isDropFrame ? count / 15 : 0),
        framesPerMinute(secondsPerMinute * count - skipped),
        frames(minutesPerCycle * framesPerMinute + skipped) {}

  // Numbers without a frame at the beginning of each minute but the first.
  std::int64_t skipped;
  // Frames of each minute but the first.
  std::int64_t framesPerMinute;
  std::int64_t frames;
};

constexpr std::string_view numeratorKey = "numerator";
constexpr std::string_view denominatorKey = "denominator";

}  // namespace

std::optional<TimecodeRate> TimecodeRate::fromFraction(std::int64_t numerator,
                                                       std::int64_t denominator) noexcept {
  if (numerator <= 0 || denominator <= 0) return std::nullopt;
  const auto divisor = std::gcd(numerator, denominator);
  numerator /= divisor;
  denominator /= divisor;
  if (denominator == 1 && numerator <= greatestCount) return TimecodeRate(numerator, true);
  if (1001 % denominator != 0 || numerator > 1000 * greatestCount) return std::nullopt;
  const auto thousandCounts = numerator * (1001 / denominator);
  const auto count = thousandCounts / 1000;
  if (thousandCounts % 1000 != 0 || count > greatestCount || !hasFractionalRate(count)) return std::nullopt;
  return TimecodeRate(count, false);
}

std::optional<TimecodeRate> TimecodeRate::fromDecimal(double framesPerSecond) noexcept {
  // Also rejects NaN.
  if (!(framesPerSecond > 0 && framesPerSecond <= static_cast<double>(greatestCount))) return std::nullopt;
  const auto count = static_cast<std::int64_t>(std::ceil(framesPerSecond));
  if (framesPerSecond == static_cast<double>(count)) return TimecodeRate(count, true);
  constexpr double tolerance = 0.01;  // takes 23.98, and the 23.967 of stored presets
  const TimecodeRate fractional(count, false);
  const bool isMeant = std::abs(framesPerSecond - fractional.framesPerSecond()) < tolerance;
  return isMeant && hasFractionalRate(count) ? std::optional(fractional) : std::nullopt;
}

double TimecodeRate::decimal() const noexcept {
  constexpr double thousand = 1000;
  return std::round(framesPerSecond() * thousand) / thousand;
}

std::optional<std::int64_t> TimecodeRate::framesPerDay(bool isDropFrame) const noexcept {
  if (!canCount(isDropFrame)) return std::nullopt;
  return hoursPerDay * cyclesPerHour * Cycle(count_, isDropFrame).frames;
}

std::optional<std::int64_t> TimecodeRate::frameNumber(const TimecodeComponents& timecode) const noexcept {
  const auto& [hours, minutes, seconds, frames, isDropFrame] = timecode;
  const auto isIn = [](std::int64_t field, std::int64_t end) { return 0 <= field && field < end; };
  if (!canCount(isDropFrame) || hours < 0 || !isIn(minutes, minutesPerHour) ||
      !isIn(seconds, secondsPerMinute) || !isIn(frames, count_)) {
    return std::nullopt;
  }
  const Cycle cycle(count_, isDropFrame);
  const auto minute = minutes % minutesPerCycle;
  const auto number = seconds * count_ + frames;
  if (minute != 0 && number < cycle.skipped) return std::nullopt;
  const auto framesPerHour = cyclesPerHour * cycle.frames;
  const auto inHour = minutes / minutesPerCycle * cycle.frames + minute * cycle.framesPerMinute + number;
  if (hours > (std::numeric_limits<std::int64_t>::max() - inHour) / framesPerHour) return std::nullopt;
  return hours * framesPerHour + inHour;
}

std::optional<TimecodeComponents> TimecodeRate::timecode(std::int64_t frameNumber,
                                                         bool isDropFrame) const noexcept {
  if (!canCount(isDropFrame) || frameNumber < 0) return std::nullopt;
  const Cycle cycle(count_, isDropFrame);
  const auto cycles = frameNumber / cycle.frames;
  const auto frame = frameNumber % cycle.frames;
  // The first minute of a cycle has all its numbers.
  const auto minute = std::max<std::int64_t>(0, frame - cycle.skipped) / cycle.framesPerMinute;
  const auto number = frame - minute * cycle.framesPerMinute;
  return TimecodeComponents{cycles / cyclesPerHour, cycles % cyclesPerHour * minutesPerCycle + minute,
                            number / count_, number % count_, isDropFrame};
}

std::optional<TimecodeComponents> TimecodeRate::advanced(const TimecodeComponents& timecode,
                                                         std::int64_t frames) const noexcept {
  const auto start = frameNumber(timecode);
  const auto day = framesPerDay(timecode.isDropFrame);
  if (!start || !day) return std::nullopt;
  return this->timecode((*start % *day + frames % *day + *day) % *day, timecode.isDropFrame);
}

std::optional<std::int64_t> TimecodeRate::framesBetween(const TimecodeComponents& from,
                                                        const TimecodeComponents& to) const noexcept {
  const auto first = frameNumber(from);
  const auto last = frameNumber(to);
  return first && last ? std::optional(*last - *first) : std::nullopt;
}

CodedValue Coding<TimecodeRate>::encode(const TimecodeRate& rate) {
  CodedRecord record;
  record.add(numeratorKey, rate.numerator());
  record.add(denominatorKey, rate.denominator());
  return record;
}

TimecodeRate Coding<TimecodeRate>::decode(const CodedValue& coded, std::string_view key) {
  const auto& record = coded.require<CodedRecord>(key);
  const auto rate = TimecodeRate::fromFraction(record.require<std::int64_t>(numeratorKey),
                                               record.require<std::int64_t>(denominatorKey));
  if (!rate) throw DecodingError(key, "timecodes are not counted at this rate");
  return *rate;
}

}  // namespace quillonic
