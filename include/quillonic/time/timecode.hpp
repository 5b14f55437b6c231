/// Timecodes as hours, minutes, seconds and frames, and their texts.
///
///     if (auto start = TimecodeComponents::fromTimecode("01:00:00;00")) {   // strict
///       start->hours += 1;
///       use(start->timecodeString());                                       // "02:00:00;00"
///     }
///     auto typed = TimecodeComponents::sanitizedTimecode("1:2:3;4");        // lenient: 01:02:03;04
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/function_ref.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

/// A timecode. It has no frame rate and counts nothing: drop frame only means the separator before the
/// frames. Any field can have any number. `TimecodeRate` counts.
struct QUILLONIC_EXPORT TimecodeComponents {
  /// Not limited to a day.
  std::int64_t hours = 0;
  /// 0 to 60 in a strictly read timecode.
  std::int64_t minutes = 0;
  /// 0 to 60 in a strictly read timecode.
  std::int64_t seconds = 0;
  /// Not limited, since the frame rate is unknown.
  std::int64_t frames = 0;
  /// Whether ";" comes before the frames.
  bool isDropFrame = false;

  /// The separator before the frames of a drop-frame timecode.
  QUILLONIC_HIDDEN static constexpr std::string_view dropFrameSeparator = ";";
  /// The separator between all other fields.
  QUILLONIC_HIDDEN static constexpr std::string_view nonDropSeparator = ":";

  /// Zero.
  QUILLONIC_HIDDEN static const TimecodeComponents defaultNonDropTimecodeComponents;
  /// Zero in drop frame.
  QUILLONIC_HIDDEN static const TimecodeComponents defaultDropFrameTimecodeComponents;
  /// The text of zero.
  QUILLONIC_HIDDEN static constexpr std::string_view defaultNonDropTimecode = "00:00:00:00";
  /// The text of zero in drop frame.
  QUILLONIC_HIDDEN static constexpr std::string_view defaultDropFrameTimecode = "00:00:00;00";

  /// Reads a timecode strictly: `timecodeHasProperForm` with both conditions. Nothing for any other text.
  static std::optional<TimecodeComponents> fromTimecode(std::string_view timecode) noexcept;

  /// Whether a text is a timecode: four numbers of ASCII digits, separated by ":"; the last separator may be
  /// ";". Each number must fit 64 bits with a sign.
  ///
  /// `forceProperComponentLength` requires at least two digits per number. `forceComponentBounds` requires at
  /// most 60 minutes and 60 seconds; 60 itself passes, and hours and frames have no bound. Separators after
  /// the third are skipped, and the digits after them belong to the frames: "01:02:03:04:05" has 405 frames.
  /// All of this is a fixed contract with the tools.
  ///
  /// Calls `componentsClosure` once with the result, only when the answer is true.
  static bool timecodeHasProperForm(
      std::string_view timecode, bool forceProperComponentLength, bool forceComponentBounds,
      std::optional<FunctionRef<void(const TimecodeComponents&)>> componentsClosure = std::nullopt);

  /// The result of a lenient split. A field that is empty or not a 64-bit number is absent.
  struct Decomposed {
    /// The field before the first separator.
    std::optional<std::int64_t> hours;
    /// The field after the first separator.
    std::optional<std::int64_t> minutes;
    /// The field after the second separator.
    std::optional<std::int64_t> seconds;
    /// The field after the third separator, without later separators.
    std::optional<std::int64_t> frames;
    /// Whether the third separator is ";".
    bool isDropFrame = false;

    friend bool operator==(const Decomposed&, const Decomposed&) = default;
  };

  /// Splits any text at its first three separators, each ":" or ";", and skips later ones. A field is decimal
  /// digits after an optional "+" or "-", without spaces.
  static Decomposed decomposeTimecodeString(std::string_view timecode) noexcept;

  /// Makes a timecode from any text: read strictly, or else split leniently with zero for absent fields.
  static TimecodeComponents sanitizedTimecode(std::string_view fromString) noexcept;

  /// Formats "HH:MM:SS:FF", or "HH:MM:SS;FF" in drop frame. Each number up to 9 has a leading "0", even a
  /// negative one, so that -1 gives "0-1": a fixed form. Larger numbers are written in full.
  std::string timecodeString() const;

  /// A record with "hours", "minutes", "seconds", "frames" and "isDropFrame".
  CodedValue encode() const;
  /// Reads what `encode` wrote. Throws a `DecodingError` that names the missing or mistyped key.
  static TimecodeComponents from(const CodedValue& coded);

  friend bool operator==(const TimecodeComponents&, const TimecodeComponents&) = default;
};

inline constexpr TimecodeComponents TimecodeComponents::defaultNonDropTimecodeComponents{};
inline constexpr TimecodeComponents TimecodeComponents::defaultDropFrameTimecodeComponents{0, 0, 0, 0, true};

}  // namespace quillonic
