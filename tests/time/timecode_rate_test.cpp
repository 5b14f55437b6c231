#include <quillonic/time.hpp>

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "error_of.hpp"

#ifdef HAS_LIBAVUTIL
extern "C" {
#include <libavutil/log.h>
#include <libavutil/timecode.h>
}
#endif

namespace quillonic {
namespace {

using Rate = TimecodeRate;

std::vector<std::pair<Rate, bool>> countings() {
  std::vector<std::pair<Rate, bool>> all;
  for (const auto& rate : Rate::wellDefinedRates()) {
    all.emplace_back(rate, false);
    if (rate.mayDropFrames()) all.emplace_back(rate, true);
  }
  return all;
}

// Counts one number up, by the clock.
TimecodeComponents nextNumber(TimecodeComponents timecode, std::int64_t count) {
  if (++timecode.frames < count) return timecode;
  timecode.frames = 0;
  if (++timecode.seconds < 60) return timecode;
  timecode.seconds = 0;
  if (++timecode.minutes < 60) return timecode;
  timecode.minutes = 0;
  ++timecode.hours;
  return timecode;
}

TEST(TimecodeRate, NumbersEveryFrameOfADayOnce) {
  for (const auto& [rate, isDropFrame] : countings()) {
    const auto day = rate.framesPerDay(isDropFrame).value();
    TimecodeComponents expected{.isDropFrame = isDropFrame};
    std::int64_t skipped = 0;
    std::int64_t frame = 0;
    for (; expected.hours < 24; ++frame) {
      if (rate.timecode(frame, isDropFrame) != expected || rate.frameNumber(expected) != frame) break;
      expected = nextNumber(expected, rate.count());
      while (isDropFrame && expected.minutes % 10 != 0 && expected.seconds == 0 &&
             expected.frames < rate.count() / 15) {
        EXPECT_EQ(rate.frameNumber(expected), std::nullopt);
        expected = nextNumber(expected, rate.count());
        ++skipped;
      }
    }
    EXPECT_EQ(frame, day) << rate.decimal() << " at " << expected.timecodeString();
    EXPECT_EQ(skipped, isDropFrame ? 24 * 54 * rate.count() / 15 : 0);
  }
}

TEST(TimecodeRate, AdvancesWithinADayAndBack) {
  std::mt19937_64 random(41);
  for (const auto& [rate, isDropFrame] : countings()) {
    const auto day = rate.framesPerDay(isDropFrame).value();
    for (int i = 0; i < 2000; ++i) {
      const auto start = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(day));
      auto step = static_cast<std::int64_t>(random());
      step >>= random() % 60;
      const auto from = rate.timecode(start, isDropFrame).value();
      const auto to = rate.advanced(from, step).value();
      EXPECT_LT(to.hours, 24);
      EXPECT_EQ((rate.framesBetween(from, to).value() - step % day) % day, 0) << start << " " << step;
      EXPECT_EQ(rate.framesBetween(from, to).value(), -rate.framesBetween(to, from).value());
      EXPECT_EQ(rate.advanced(rate.advanced(to, 1).value(), -1), to);
    }
  }
}

TEST(TimecodeRate, KnownFramesHaveKnownTimecodes) {
  const std::tuple<Rate, std::int64_t, bool, std::string> rows[] = {
      {Rate::fps29_97, 107'892, true, "01:00:00;00"},  {Rate::fps29_97, 1'800, true, "00:01:00;02"},
      {Rate::fps29_97, 17'982, true, "00:10:00;00"},   {Rate::fps29_97, 2'589'407, true, "23:59:59;29"},
      {Rate::fps29_97, 108'000, false, "01:00:00:00"}, {Rate::fps59_94, 3'600, true, "00:01:00;04"},
      {Rate::fps24, 86'400 * 24, false, "24:00:00:00"}};
  for (const auto& [rate, frame, isDropFrame, text] : rows) {
    EXPECT_EQ(rate.timecode(frame, isDropFrame)->timecodeString(), text);
  }
}

TEST(TimecodeRate, RefusesWhatIsNeverCounted) {
  constexpr auto largest = std::numeric_limits<std::int64_t>::max();
  for (const TimecodeComponents& timecode :
       {TimecodeComponents{-1}, TimecodeComponents{0, 60}, TimecodeComponents{0, 0, 60},
        TimecodeComponents{0, -1}, TimecodeComponents{0, 0, 0, 30}, TimecodeComponents{0, 1, 0, 1, true},
        TimecodeComponents{largest}}) {
    EXPECT_EQ(Rate::fps29_97.frameNumber(timecode), std::nullopt);
    EXPECT_EQ(Rate::fps29_97.advanced(timecode, 1), std::nullopt);
    EXPECT_EQ(Rate::fps29_97.framesBetween({}, timecode), std::nullopt);
  }
  EXPECT_EQ(Rate::fps29_97.timecode(-1, true), std::nullopt);
  const auto last = Rate::fps29_97.timecode(largest, true);
  EXPECT_EQ(Rate::fps29_97.frameNumber(last.value()).value_or(largest), largest);
  for (const auto& rate : Rate::wellDefinedRates()) {
    if (rate.mayDropFrames()) continue;
    EXPECT_EQ(rate.timecode(0, true), std::nullopt);
    EXPECT_EQ(rate.frameNumber({.isDropFrame = true}), std::nullopt);
    EXPECT_EQ(rate.framesPerDay(true), std::nullopt);
  }
}

TEST(TimecodeRate, IsReadFromAFractionOrADecimalExactly) {
  for (std::int64_t count = -1; count <= 1000; ++count) {
    const bool isCounted = count >= 1;
    const bool hasFractional = isCounted && (count % 24 == 0 || count % 30 == 0);
    EXPECT_EQ(Rate::fromFraction(3 * count, 3).has_value(), isCounted) << count;
    EXPECT_EQ(Rate::fromFraction(7000 * count, 7007).has_value(), hasFractional) << count;
    for (const auto& rate : {Rate::fromFraction(count, 1), Rate::fromFraction(1000 * count, 1001)}) {
      if (!rate) continue;
      EXPECT_EQ(rate->count(), count);
      EXPECT_EQ(Rate::fromDecimal(rate->decimal()), rate);
      EXPECT_EQ(Rate::fromDecimal(rate->framesPerSecond()), rate);
      EXPECT_EQ(Rate::fromFraction(rate->numerator(), rate->denominator()), rate);
      EXPECT_EQ(decode<Rate>(encode(*rate)), rate);
    }
  }
  for (const double meant : {23.976, 23.98, 23.97, 23.967})
    EXPECT_EQ(Rate::fromDecimal(meant), Rate::fps23_976);
  for (const double none : {0.0, -24.0, 0.5, 12.5, 24.5, 23.95, 29.9, 1e300, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(Rate::fromDecimal(none), std::nullopt) << none;
  }
  EXPECT_EQ(Rate::fromFraction(25, 2), std::nullopt);
  EXPECT_EQ(Rate::fromFraction(1001, 1), std::nullopt);
  EXPECT_EQ(Rate::fromFraction(1'020'000, 1001), std::nullopt);
  EXPECT_EQ(Rate::fromFraction(INT64_MAX, INT64_MAX), Rate::fromFraction(1, 1));
  EXPECT_EQ(Rate::fromFraction(INT64_MAX, 1001), std::nullopt);
  CodedRecord record;
  record.add("numerator", std::int64_t{25});
  record.add("denominator", std::int64_t{2});
  EXPECT_TRUE(undecodedKey([&] { return decode<Rate>(record); }));
}

// A second implementation, independent of this one.
TEST(TimecodeRate, AgreesWithLibavutil) {
#ifdef HAS_LIBAVUTIL
  av_log_set_level(AV_LOG_QUIET);
  int compared = 0;
  for (const auto& [rate, isDropFrame] : countings()) {
    const AVRational fraction{static_cast<int>(rate.numerator()), static_cast<int>(rate.denominator())};
    const int flags = isDropFrame ? AV_TIMECODE_FLAG_DROPFRAME : 0;
    AVTimecode other{};
    if (av_timecode_init(&other, fraction, flags, 0, nullptr) != 0) continue;  // not every rate, by version
    ++compared;
    const auto day = static_cast<int>(rate.framesPerDay(isDropFrame).value());
    // A step that meets every position in a second and in a minute.
    for (int frame = 0; frame < day; frame += frame < 100'000 ? 1 : 97) {
      char text[AV_TIMECODE_STR_SIZE];
      const auto timecode = rate.timecode(frame, isDropFrame).value();
      const auto theirs = TimecodeComponents::sanitizedTimecode(av_timecode_make_string(&other, text, frame));
      AVTimecode counted{};
      av_timecode_init_from_components(&counted, fraction, flags, static_cast<int>(timecode.hours),
                                       static_cast<int>(timecode.minutes), static_cast<int>(timecode.seconds),
                                       static_cast<int>(timecode.frames), nullptr);
      ASSERT_EQ(timecode, theirs) << rate.decimal() << " frame " << frame << " " << text;
      ASSERT_EQ(counted.start, frame) << rate.decimal();
    }
  }
  EXPECT_GE(compared, 10);
#else
  GTEST_SKIP() << "libavutil is not installed";
#endif
}

}  // namespace
}  // namespace quillonic
