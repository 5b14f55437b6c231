/// The transcoder's built-in presets.
///
///     for (const auto preset : allCases<TranscodeCliPreset>()) menu.add(description(preset));
///
///     if (const auto named = settings.preset()) {                               // "-preset vantiro_cloud"
///       if (const auto preset = presetWithCliValue(*named)) {
///         settings.apply(*preset, ApplyLayer::belowWhatIsSet);                  // see arguments.hpp
///       }
///     }
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quillonic {

/// The built-in presets.
enum class TranscodeCliPreset : std::uint8_t { vantiroCloud, proRes4444XQ };

/// The presets in order, with the names of their cases.
template <> struct CaseTable<TranscodeCliPreset> {
  static constexpr auto rows = std::to_array<CaseRow<TranscodeCliPreset>>({
      {TranscodeCliPreset::vantiroCloud, "vantiroCloud"},
      {TranscodeCliPreset::proRes4444XQ, "proRes4444XQ"},
  });
};

/// The preset's name for people: "cloud" or "ProRes 4444 XQ".
QUILLONIC_EXPORT std::string_view description(TranscodeCliPreset preset) noexcept;

/// The preset's name on a command line: the value of "-preset".
QUILLONIC_EXPORT const VAVTranscodePresetValue& presetCliValue(TranscodeCliPreset preset) noexcept;

/// The preset with this name on a command line, case included; nothing for any other text. Takes a
/// `VAVTranscodePresetValue` too.
QUILLONIC_EXPORT std::optional<TranscodeCliPreset> presetWithCliValue(std::string_view name) noexcept;

/// The preset's flags and values in order: flag, value, flag, value. A switch has an empty text. The span
/// stays valid for the life of the program.
QUILLONIC_EXPORT std::span<const std::string_view> orderedArgumentsAsList(TranscodeCliPreset preset) noexcept;

/// The preset's values by flag.
QUILLONIC_EXPORT TextDictionary presetArguments(TranscodeCliPreset preset);

}  // namespace quillonic
