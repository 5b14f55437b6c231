/// Where the timecode of the output comes from.
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <array>
#include <cstdint>
#include <string_view>

namespace quillonic {

/// The sources of a timecode, of which each is asked for by a flag of its own.
enum class TimecodeSource : std::uint8_t {
  /// The timecode of the source file.
  match,
  /// The creation date of the source file.
  creationDate,
  /// A start timecode that is given.
  custom,
};

/// A source, its text and its flag.
struct TimecodeSourceRow : CaseRow<TimecodeSource> {
  /// The flag that asks for the source.
  const VAVTranscodeTimecodeArgumentFlag& tcFlag;
};

/// The sources in order.
template <> struct CaseTable<TimecodeSource> {
  static constexpr auto rows = std::to_array<TimecodeSourceRow>({
      {{TimecodeSource::match, "match"}, VAVTimecodeMatchSourceFlag},
      {{TimecodeSource::creationDate, "creationDate"}, VAVTimecodeFromCreationDateFlag},
      {{TimecodeSource::custom, "custom"}, VAVTimecodeCustomFlag},
  });
};

/// The flag that asks for the source; for a number that no case bears that of `custom`.
constexpr const VAVTranscodeTimecodeArgumentFlag& tcFlag(TimecodeSource source) noexcept {
  for (const auto& row : CaseTable<TimecodeSource>::rows) {
    if (row.value == source) return row.tcFlag;
  }
  return VAVTimecodeCustomFlag;
}

/// The text of that flag.
constexpr std::string_view cliFlag(TimecodeSource source) noexcept {
  return tcFlag(source).cliFlag();
}

static_assert(TimecodeCLIArgumentOption<TimecodeSource> && CodableRawHashCase<TimecodeSource>);

}  // namespace quillonic
