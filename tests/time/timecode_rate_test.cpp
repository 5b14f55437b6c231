#include <quillonic/time.hpp>

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

#ifdef HAS_LIBAVUTIL
extern "C" {
#include <libavutil/log.h>
#include <libavutil/timecode.h>
}
#endif

namespace quillonic {
namespace {

using Rate = TimecodeRate;

// Every rate, with and without drop frame where it has that.
std::vector<std::pair<Rate, bool>> countings() {
  std::vector<std::pair<Rate, bool>> all;
  for (const auto& rate : Rate::wellDefinedRates()) {
    all.emplace_back(rate, false);
    if (rate.mayDropFrames()) all.emplace_back(rate, true);
  }
  return all;
}

// Counts by the clock, and skips what drop frame skips.
void expectWholeDay(const Rate& rate, bool drop) {
  std::int64_t frame = 0;
  for (std::int64_t second = 0; second < 86'400; ++second) {
    for (std::int64_t number = 0; number < rate.count(); ++number) {
      const TimecodeComponents timecode{second / 3600, second / 60 % 60, second % 60, number, drop};
      const bool isSkipped = drop && second % 60 == 0 && second % 600 != 0 && number < rate.count() / 15;
      const bool agrees = isSkipped
                              ? !rate.frameNumber(timecode)
                              : rate.timecode(frame, drop) == timecode && rate.frameNumber(timecode) == frame;
      ASSERT_TRUE(agrees) << rate.decimal() << " frame " << frame << " " << timecode.timecodeString();
      frame += isSkipped ? 0 : 1;
    }
  }
  EXPECT_EQ(frame, rate.framesPerDay(drop));
}

TEST(TimecodeRate, NumbersEveryFrameOfADayOnce) {
  for (const auto& [rate, drop] : countings()) {
    expectWholeDay(rate, drop);
    EXPECT_EQ(rate.frameNumber(rate.timecode(INT64_MAX, drop).value()), INT64_MAX);
  }
  EXPECT_EQ(Rate::fps29_97.timecode(107'892, true)->timecodeString(), "01:00:00;00");
  EXPECT_EQ(Rate::fps24.timecode(86'400 * 24, false)->timecodeString(), "24:00:00:00");
}

TEST(TimecodeRate, AdvancesWithinADayAndBack) {
  std::mt19937_64 random(41);
  for (int i = 0; i < 20'000; ++i) {
    const auto all = countings();
    const auto [rate, drop] = all[random() % all.size()];
    const auto day = rate.framesPerDay(drop).value();
    const auto step = static_cast<std::int64_t>(random()) >> random() % 60;
    const auto from = rate.timecode(static_cast<std::int64_t>(random() >> 1) % day, drop).value();
    const auto to = rate.advanced(from, step).value();
    EXPECT_EQ((rate.framesBetween(from, to).value() - step % day) % day, 0) << step;
    EXPECT_TRUE(to.hours < 24 && rate.advanced(rate.advanced(to, 1).value(), -1) == to);
  }
}

TEST(TimecodeRate, RefusesWhatIsNeverCounted) {
  const auto rate = Rate::fps29_97;
  const TimecodeComponents never[] = {
      {-1}, {0, 60}, {0, 0, 60}, {0, -1}, {0, 0, 0, 30}, {0, 1, 0, 1, true}, {INT64_MAX}};
  for (const auto& timecode : never) {
    EXPECT_FALSE(rate.frameNumber(timecode) || rate.advanced(timecode, 1) ||
                 rate.framesBetween({}, timecode));
  }
  EXPECT_FALSE(rate.timecode(-1, true));
  EXPECT_FALSE(Rate::fps25.timecode(0, true) || Rate::fps30.framesPerDay(true));
}

TEST(TimecodeRate, IsReadExactlyOrNotAtAll) {
  for (std::int64_t count = 1; count <= Rate::greatestCount; ++count) {
    const auto fractional = Rate::fromFraction(7000 * count, 7007);
    EXPECT_EQ(fractional.has_value(), count % 24 == 0 || count % 30 == 0) << count;
    for (const auto& rate : {Rate::fromFraction(3 * count, 3), fractional}) {
      if (!rate) continue;
      EXPECT_TRUE(rate->count() == count && decode<Rate>(encode(*rate)) == rate);
      EXPECT_TRUE(Rate::fromDecimal(rate->decimal()) == rate &&
                  Rate::fromDecimal(rate->framesPerSecond()) == rate);
    }
  }
  EXPECT_EQ(Rate::fromDecimal(23.98), Rate::fps23_976);
  for (const double none : {0.0, -24.0, 0.5, 12.5, 23.95, 29.9, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(Rate::fromDecimal(none), std::nullopt) << none;
  }
  for (const auto& [numerator, denominator] :
       {std::pair{25L, 2L}, {1001L, 1L}, {1'020'000L, 1001L}, {24L, 0L}}) {
    EXPECT_EQ(Rate::fromFraction(numerator, denominator), std::nullopt) << numerator;
  }
}

// A second implementation, independent of this one.
TEST(TimecodeRate, AgreesWithLibavutil) {
#ifdef HAS_LIBAVUTIL
  av_log_set_level(AV_LOG_QUIET);
  std::size_t compared = 0;
  for (const auto& [rate, drop] : countings()) {
    const AVRational fraction{static_cast<int>(rate.numerator()), static_cast<int>(rate.denominator())};
    AVTimecode other{};
    const int flags = drop ? AV_TIMECODE_FLAG_DROPFRAME : 0;
    if (av_timecode_init(&other, fraction, flags, 0, nullptr) != 0) continue;  // not every rate, by version
    ++compared;
    // The longer step meets every position in a second and in a minute.
    for (int frame = 0; frame < rate.framesPerDay(drop); frame += frame < 100'000 ? 1 : 97) {
      char text[AV_TIMECODE_STR_SIZE];
      ASSERT_EQ(rate.timecode(frame, drop),
                TimecodeComponents::sanitizedTimecode(av_timecode_make_string(&other, text, frame)))
          << rate.decimal() << " frame " << frame << " " << text;
    }
  }
  EXPECT_GT(compared, Rate::wellDefinedRates().size());
#else
  GTEST_SKIP() << "libavutil is not installed";
#endif
}

}  // namespace
}  // namespace quillonic
