/// Sources of the output's timecode.
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <array>
#include <cstdint>
#include <string_view>

namespace quillonic {

/// A source of the timecode; each has its own flag.
enum class TimecodeSource : std::uint8_t {
  /// The timecode of the source file.
  match,
  /// The creation date of the source file.
  creationDate,
  /// A given start timecode.
  custom,
};

/// A source, its text and its flag.
struct TimecodeSourceRow : CaseRow<TimecodeSource> {
  /// The flag that selects the source.
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

/// The flag that selects the source; that of `custom` for an unlisted value.
constexpr const VAVTranscodeTimecodeArgumentFlag& tcFlag(TimecodeSource source) noexcept {
  const auto* row = detail::rowOf(source);
  return row ? row->tcFlag : VAVTimecodeCustomFlag;
}

/// The flag's text.
constexpr std::string_view cliFlag(TimecodeSource source) noexcept {
  return tcFlag(source).cliFlag();
}

static_assert(TimecodeCLIArgumentOption<TimecodeSource> && CodableRawHashCase<TimecodeSource>);

}  // namespace quillonic
