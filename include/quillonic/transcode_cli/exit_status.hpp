/// How the transcoder ends.
///
///     throw CLIExitCodeError(rawValue(TranscodeExitStatus::noInput), "cannot read " + path);   // the tool
///
///     if (const auto status = fromRawValue<TranscodeExitStatus>(exited)) {                     // its parent
///       show(meaning(*status));
///     }
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <string_view>

namespace quillonic {

/// The transcoder's exit statuses. The numbers above 1 are those of `<sysexits.h>`, so that scripts know
/// them. A tool that a signal ends has none of them.
enum class TranscodeExitStatus : int {
  success = 0,
  failure = 1,
  badUsage = 64,
  badInput = 65,
  noInput = 66,
  unavailable = 69,
  internalError = 70,
  cannotCreate = 73,
  cannotWrite = 74,
  tryAgain = 75,
  noPermission = 77,
};

/// One exit status, its number and its sentence.
struct TranscodeExitStatusRow : CaseRow<TranscodeExitStatus, int> {
  /// An English sentence.
  std::string_view meaning;
};

/// The statuses, ascending.
template <> struct CaseTable<TranscodeExitStatus> {
  static constexpr auto rows = std::to_array<TranscodeExitStatusRow>({
      {{TranscodeExitStatus::success, 0}, "The output is complete."},
      {{TranscodeExitStatus::failure, 1}, "The transcode failed for a reason without a status of its own."},
      {{TranscodeExitStatus::badUsage, 64},
       "The command line is wrong: a flag, a value or a file is missing or unknown."},
      {{TranscodeExitStatus::badInput, 65}, "An input file is damaged, or its format is not known."},
      {{TranscodeExitStatus::noInput, 66}, "An input file is missing or cannot be read."},
      {{TranscodeExitStatus::unavailable, 69}, "A codec, a device or a licence is not available here."},
      {{TranscodeExitStatus::internalError, 70}, "The tool is at fault."},
      {{TranscodeExitStatus::cannotCreate, 73}, "The output file exists or cannot be created."},
      {{TranscodeExitStatus::cannotWrite, 74},
       "Writing the output failed, for example because the disk is full."},
      {{TranscodeExitStatus::tryAgain, 75}, "The transcode cannot run now; another attempt may succeed."},
      {{TranscodeExitStatus::noPermission, 77}, "The tool lacks a permission."},
  });
};

/// What the status means, as an English sentence; empty for an unlisted value.
constexpr std::string_view meaning(TranscodeExitStatus status) noexcept {
  const auto* row = detail::rowOf(status);
  return row ? row->meaning : std::string_view{};
}

}  // namespace quillonic
