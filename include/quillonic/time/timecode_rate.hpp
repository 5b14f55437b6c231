/// Counting timecodes at a frame rate: frames to timecode and back, in drop frame or not.
///
///     constexpr auto rate = TimecodeRate::fps29_97;
///     rate.timecode(107'892, true)->timecodeString();                       // "01:00:00;00"
///     rate.frameNumber({.hours = 1, .isDropFrame = true});                  // 107892
///     rate.advanced({0, 0, 59, 29, true}, 1)->timecodeString();             // "00:01:00;02"
///     rate.framesBetween(*in, *out);                                        // the length of a clip
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/time/timecode.hpp>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace quillonic {

/// A frame rate at which timecodes are counted, as an exact fraction: a whole number of frames per second, or
/// 1000/1001 of a multiple of 24 or 30, as in 30000/1001, which people call 29.97.
///
/// A second of timecode always has a whole number of frames, the count: 30 at 30000/1001. So non-drop
/// timecode falls behind the clock there. Drop frame skips the numbers of 2 frames, at a count of 30, in
/// every minute except each tenth; 4 at 60, 8 at 120 (SMPTE ST 12-1 and 12-3). No picture is dropped.
class QUILLONIC_EXPORT TimecodeRate {
 public:
  /// 24000/1001 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps23_976;
  /// 24 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps24;
  /// 25 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps25;
  /// 30000/1001 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps29_97;
  /// 30 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps30;
  /// 48000/1001 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps47_952;
  /// 48 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps48;
  /// 50 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps50;
  /// 60000/1001 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps59_94;
  /// 60 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps60;
  /// 100 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps100;
  /// 120000/1001 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps119_88;
  /// 120 frames per second.
  QUILLONIC_HIDDEN static const TimecodeRate fps120;

  /// The rates with a constant, ascending. The span stays valid for the life of the program.
  static constexpr std::span<const TimecodeRate> wellDefinedRates() noexcept;

  /// The greatest number of frames counted per second.
  QUILLONIC_HIDDEN static constexpr std::int64_t greatestCount = 1000;

  /// The rate that equals a fraction, reduced or not; nothing for a rate at which timecodes are not counted,
  /// such as 25/2, or with a count above `greatestCount`.
  static std::optional<TimecodeRate> fromFraction(std::int64_t numerator, std::int64_t denominator) noexcept;

  /// The rate that people mean by a decimal: less than 0.01 from 24000/1001 and the like means that, so
  /// 23.976, 23.98 and 23.97 are one rate; otherwise the whole number. Nothing for any other number: nothing
  /// is rounded.
  static std::optional<TimecodeRate> fromDecimal(double framesPerSecond) noexcept;

  /// The frames counted per second of timecode: 30 at 30000/1001.
  constexpr std::int64_t count() const noexcept { return count_; }
  /// Frames per second are `numerator() / denominator()`; the fraction need not be reduced.
  constexpr std::int64_t numerator() const noexcept { return isWhole_ ? count_ : 1000 * count_; }
  /// 1 or 1001.
  constexpr std::int64_t denominator() const noexcept { return isWhole_ ? 1 : 1001; }
  /// The fraction as the nearest floating-point number.
  constexpr double framesPerSecond() const noexcept {
    return static_cast<double>(numerator()) / static_cast<double>(denominator());
  }
  /// The decimal of up to three places that people write and `fromDecimal` reads: 23.976, 29.97, 25.
  double decimal() const noexcept;

  /// Whether there is drop-frame timecode at this rate: only at 1000/1001 of 30, 60, 120 and so on.
  constexpr bool mayDropFrames() const noexcept { return !isWhole_ && count_ % 30 == 0; }

  /// The frames of 24 hours of timecode; nothing for drop frame at a rate without it.
  std::optional<std::int64_t> framesPerDay(bool isDropFrame) const noexcept;

  /// The number of the frame with this timecode, counted from 0 at 00:00:00:00. Nothing for a timecode that
  /// is never counted: a negative field, 60 minutes or seconds, too many frames, a number that drop frame
  /// skips, or drop frame at a rate without it; nor for a number beyond 64 bits. Hours are not limited to a
  /// day.
  std::optional<std::int64_t> frameNumber(const TimecodeComponents& timecode) const noexcept;

  /// The timecode of a frame, counted from 0. Hours go on after a day. Nothing for a negative number, or drop
  /// frame at a rate without it.
  std::optional<TimecodeComponents> timecode(std::int64_t frameNumber, bool isDropFrame) const noexcept;

  /// The timecode so many frames later, or earlier for a negative number, counted like the given one. It
  /// wraps round at 24 hours, as in recorders, and is always within a day. Nothing when `frameNumber` gives
  /// nothing.
  std::optional<TimecodeComponents> advanced(const TimecodeComponents& timecode,
                                             std::int64_t frames) const noexcept;

  /// The frames from one timecode to another, negative if the second is the earlier one; both may be counted
  /// differently. Nothing when `frameNumber` of one gives nothing.
  std::optional<std::int64_t> framesBetween(const TimecodeComponents& from,
                                            const TimecodeComponents& to) const noexcept;

  friend constexpr bool operator==(const TimecodeRate&, const TimecodeRate&) = default;
  /// Orders by frames per second.
  friend constexpr std::strong_ordering operator<=>(const TimecodeRate& a, const TimecodeRate& b) noexcept {
    return a.numerator() * b.denominator() <=> b.numerator() * a.denominator();
  }

 private:
  constexpr TimecodeRate(std::int64_t count, bool isWhole) noexcept : count_(count), isWhole_(isWhole) {}

  constexpr bool canCount(bool isDropFrame) const noexcept { return !isDropFrame || mayDropFrames(); }

  std::int64_t count_;
  bool isWhole_;
};

inline constexpr TimecodeRate TimecodeRate::fps23_976{24, false};
inline constexpr TimecodeRate TimecodeRate::fps24{24, true};
inline constexpr TimecodeRate TimecodeRate::fps25{25, true};
inline constexpr TimecodeRate TimecodeRate::fps29_97{30, false};
inline constexpr TimecodeRate TimecodeRate::fps30{30, true};
inline constexpr TimecodeRate TimecodeRate::fps47_952{48, false};
inline constexpr TimecodeRate TimecodeRate::fps48{48, true};
inline constexpr TimecodeRate TimecodeRate::fps50{50, true};
inline constexpr TimecodeRate TimecodeRate::fps59_94{60, false};
inline constexpr TimecodeRate TimecodeRate::fps60{60, true};
inline constexpr TimecodeRate TimecodeRate::fps100{100, true};
inline constexpr TimecodeRate TimecodeRate::fps119_88{120, false};
inline constexpr TimecodeRate TimecodeRate::fps120{120, true};

namespace detail {
inline constexpr TimecodeRate timecodeRates[] = {
    TimecodeRate::fps23_976, TimecodeRate::fps24,     TimecodeRate::fps25,  TimecodeRate::fps29_97,
    TimecodeRate::fps30,     TimecodeRate::fps47_952, TimecodeRate::fps48,  TimecodeRate::fps50,
    TimecodeRate::fps59_94,  TimecodeRate::fps60,     TimecodeRate::fps100, TimecodeRate::fps119_88,
    TimecodeRate::fps120,
};
}  // namespace detail

constexpr std::span<const TimecodeRate> TimecodeRate::wellDefinedRates() noexcept {
  return detail::timecodeRates;
}

/// A record with "numerator" and "denominator".
template <> struct QUILLONIC_EXPORT Coding<TimecodeRate> {
  static CodedValue encode(const TimecodeRate& rate);
  /// Throws a `DecodingError` for a fraction at which timecodes are not counted.
  static TimecodeRate decode(const CodedValue& coded, std::string_view key);
};

}  // namespace quillonic

template <> struct std::hash<quillonic::TimecodeRate> {
  std::size_t operator()(const quillonic::TimecodeRate& rate) const noexcept {
    return std::hash<std::int64_t>{}(rate.numerator());
  }
};
