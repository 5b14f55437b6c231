/// The lines in which a child tool tells its progress.
///
///     // The child, with the prefix that its parent asked for:
///     std::cout << ProgressLine{.fraction = 0.425, .frame = 1020, .speed = 2.5}.text(prefix) << std::endl;
///                                                         // "progress:42.5% frame=1020 speed=2.5x"
///     // The parent, for each line of the child:
///     if (const auto progress = ProgressLine::fromText(line, prefix)) {
///       if (progress->fraction) bar.show(*progress->fraction);
///     } else {
///       log(line);
///     }
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace quillonic {

/// How far a child tool is. Every part may be absent.
struct QUILLONIC_EXPORT ProgressLine {
  /// The part of the work that is done, from 0 to 1. Written in percent, rounded to two places; less than 1
  /// is never written as 100%.
  std::optional<double> fraction{};
  /// The frames that are done.
  std::optional<std::int64_t> frame{};
  /// How many times faster than playback the work is: 2 is twice.
  std::optional<double> speed{};
  /// The seconds that the rest of the work will take.
  std::optional<std::int64_t> secondsLeft{};
  /// What the tool does now, for people; empty for none. Line breaks and other control characters are written
  /// as spaces, and white space at both ends is not written.
  std::string message{};

  /// One line without a line break: the prefix, then "42.5% frame=1020 speed=2.5x left=00:01:30 message=Audio
  /// track", without the absent parts. A part that is negative or not finite is left out, and a fraction
  /// above 1 is written as 1. It begins with the percentage, so that a simple reader needs nothing else.
  std::string text(std::string_view prefix = {}) const;

  /// Reads a line of a child leniently: spaces and line breaks at both ends do not count, the prefix may be
  /// lower-cased, as a command line does it, "left" may be whole seconds, "speed" may have no "x", spaces may
  /// follow "=", and what is unknown or cannot be read is skipped. A percentage is rounded to two
  /// places and limited to 0 to 100. Nothing for a line without the prefix, or without any part.
  static std::optional<ProgressLine> fromText(std::string_view line, std::string_view prefix = {});

  friend bool operator==(const ProgressLine&, const ProgressLine&) = default;
};

/// The fields of `ProgressLine`, each encoded under its own name.
template <> struct FieldTable<ProgressLine> {
  static constexpr std::tuple fields{
      Field{"fraction", &ProgressLine::fraction}, Field{"frame", &ProgressLine::frame},
      Field{"speed", &ProgressLine::speed},       Field{"secondsLeft", &ProgressLine::secondsLeft},
      Field{"message", &ProgressLine::message},
  };
};

}  // namespace quillonic
