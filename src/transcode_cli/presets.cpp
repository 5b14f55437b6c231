#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/presets.hpp>

#include <vector>

namespace quillonic {
namespace {

constexpr std::string_view cloudArguments[] = {
    VAVFileFormatFlag,         VAVQuickTimeFileFormat,
    VAVVideoFormatFlag,        VAVAvcH264Codec,
    VAVVideoDimensionsFlag,    "960x540",
    VAVVideoAspectScalingFlag, VAVStretchAspect,
    VAVVideoBitRateFlag,       "3",
    VAVPrepareForWebFlag,      "",
    VAVAudioFormatFlag,        VAVAacAudioFormatValue,
    VAVAudioSampleRateFlag,    "48000",
    VAVAudioChannelLayoutFlag, VAVStereoAudioLayout,
};

constexpr std::string_view proRes4444XQArguments[] = {
    VAVFileFormatFlag,  VAVQuickTimeFileFormat,  //
    VAVVideoFormatFlag, VAVProRes4444XQ,         //
    VAVAudioFormatFlag, VAVLpcmAudioFormatValue,
};

struct PresetRow {
  std::string_view description;
  const VAVTranscodePresetValue& cliValue;
  std::span<const std::string_view> arguments;
};

constexpr PresetRow cloud{"cloud", VAVVantiroCloudPresetValue, cloudArguments};
constexpr PresetRow proRes4444XQ{"ProRes 4444 XQ", VAVVantiroProRes4444XQPresetValue, proRes4444XQArguments};

// For an unlisted preset: no description, no name, no flags.
constexpr VAVTranscodePresetValue unnamed{""};
constexpr PresetRow none{"", unnamed, {}};

constexpr const PresetRow& row(TranscodeCliPreset preset) noexcept {
  switch (preset) {
    case TranscodeCliPreset::vantiroCloud:
      return cloud;
    case TranscodeCliPreset::proRes4444XQ:
      return proRes4444XQ;
  }
  return none;
}

}  // namespace

std::string_view description(TranscodeCliPreset preset) noexcept {
  return row(preset).description;
}

const VAVTranscodePresetValue& presetCliValue(TranscodeCliPreset preset) noexcept {
  return row(preset).cliValue;
}

std::optional<TranscodeCliPreset> presetWithCliValue(std::string_view name) noexcept {
  for (const auto preset : allCases<TranscodeCliPreset>()) {
    if (row(preset).cliValue == name) return preset;
  }
  return std::nullopt;
}

std::span<const std::string_view> orderedArgumentsAsList(TranscodeCliPreset preset) noexcept {
  return row(preset).arguments;
}

TextDictionary presetArguments(TranscodeCliPreset preset) {
  const auto arguments = row(preset).arguments;
  TextDictionary lookup;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    lookup.insert_or_assign(std::string(arguments[i]), std::string(arguments[i + 1]));
  }
  return lookup;
}

TextDictionary TranscodeCliArguments::vantiroCloudPresetArguments() {
  return presetArguments(TranscodeCliPreset::vantiroCloud);
}

TextDictionary TranscodeCliArguments::vantiroProRes4444XQPresetArguments() {
  return presetArguments(TranscodeCliPreset::proRes4444XQ);
}

}  // namespace quillonic
