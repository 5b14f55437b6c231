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

/// A timecode. It knows no frame rate and counts nothing: drop frame is only the separator before the frames.
/// Any number may stand in any field.
struct QUILLONIC_EXPORT TimecodeComponents {
  /// Not limited to a day.
  std::int64_t hours = 0;
  /// 0 to 60 in a timecode that was read strictly.
  std::int64_t minutes = 0;
  /// 0 to 60 in a timecode that was read strictly.
  std::int64_t seconds = 0;
  /// Not limited: the frame rate is not known here.
  std::int64_t frames = 0;
  /// Whether ";" stands before the frames.
  bool isDropFrame = false;

  /// What stands before the frames of a drop-frame timecode.
  QUILLONIC_HIDDEN static constexpr std::string_view dropFrameSeparator = ";";
  /// What stands between all other fields.
  QUILLONIC_HIDDEN static constexpr std::string_view nonDropSeparator = ":";

  /// Zero.
  QUILLONIC_HIDDEN static const TimecodeComponents defaultNonDropTimecodeComponents;
  /// Zero in drop frame.
  QUILLONIC_HIDDEN static const TimecodeComponents defaultDropFrameTimecodeComponents;
  /// The text of zero.
  QUILLONIC_HIDDEN static constexpr std::string_view defaultNonDropTimecode = "00:00:00:00";
  /// The text of zero in drop frame.
  QUILLONIC_HIDDEN static constexpr std::string_view defaultDropFrameTimecode = "00:00:00;00";

  /// Reads a timecode strictly: `timecodeHasProperForm` with both demands. Nothing for any other text.
  static std::optional<TimecodeComponents> fromTimecode(std::string_view timecode) noexcept;

  /// Whether a text is a timecode: four numbers of ASCII digits, divided by ":", where ";" may stand before
  /// the last. Each must fit 64 bits with its sign.
  ///
  /// `forceProperComponentLength` demands two digits or more of each number, `forceComponentBounds` at most
  /// 60 minutes and 60 seconds; 60 itself passes, and hours and frames have no bound. Separators behind the
  /// third are passed over and the digits behind them belong to the frames, so that "01:02:03:04:05" has 405
  /// frames. All of this is a fixed contract with the tools.
  ///
  /// `componentsClosure` is called once with what was read, and only when the answer is true.
  static bool timecodeHasProperForm(
      std::string_view timecode, bool forceProperComponentLength, bool forceComponentBounds,
      std::optional<FunctionRef<void(const TimecodeComponents&)>> componentsClosure = std::nullopt);

  /// What a lenient split finds: a field that is empty or not a number of 64 bits is absent.
  struct Decomposed {
    /// What stands before the first separator.
    std::optional<std::int64_t> hours;
    /// What stands behind the first separator.
    std::optional<std::int64_t> minutes;
    /// What stands behind the second separator.
    std::optional<std::int64_t> seconds;
    /// What stands behind the third separator, later separators left out.
    std::optional<std::int64_t> frames;
    /// Whether the third separator is ";".
    bool isDropFrame = false;

    friend bool operator==(const Decomposed&, const Decomposed&) = default;
  };

  /// Splits any text at the first three of its separators, of which each may be ":" or ";"; later ones are
  /// passed over. A field is decimal digits behind an optional "+" or "-", without blanks.
  static Decomposed decomposeTimecodeString(std::string_view timecode) noexcept;

  /// Makes a timecode of any text: the strict reading, or else the lenient split with zero for what is
  /// absent.
  static TimecodeComponents sanitizedTimecode(std::string_view fromString) noexcept;

  /// "HH:MM:SS:FF", or "HH:MM:SS;FF" in drop frame. Each number of 9 or less has a "0" before it, a negative
  /// one too, so that -1 reads "0-1"; a fixed form. Larger numbers are written in full.
  std::string timecodeString() const;

  /// A record with "hours", "minutes", "seconds", "frames" and "isDropFrame".
  CodedValue encode() const;
  /// Reads back what `encode` gave. Throws a `DecodingError` that names the key that is missing or mistyped.
  static TimecodeComponents from(const CodedValue& coded);

  friend bool operator==(const TimecodeComponents&, const TimecodeComponents&) = default;
};

inline constexpr TimecodeComponents TimecodeComponents::defaultNonDropTimecodeComponents{};
inline constexpr TimecodeComponents TimecodeComponents::defaultDropFrameTimecodeComponents{0, 0, 0, 0, true};

}  // namespace quillonic
