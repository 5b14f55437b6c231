#include <quillonic/media/video_extension.hpp>
#include <quillonic/platform/localization.hpp>
#include <quillonic/transcode_cli/codec_conflict.hpp>
#include <quillonic/transcode_cli/media_settings.hpp>

#include <algorithm>

#include "transcode_cli/displayed_option.hpp"

namespace quillonic {
namespace {

using Codec = VAVTranscodeArgumentVideoCodecValue;

std::string pickerText(ColorDepth depth) {
  return description(depth);
}
std::string pickerText(const auto& setting) {
  return setting.pickerDescription();
}

// Whether the case means any number that a person can type.
template <class Setting> bool isTyped(const Setting& setting) {
  if constexpr (std::same_as<Setting, ColorDepth>) {
    return false;
  } else if constexpr (std::same_as<Setting, VideoDataRate>) {
    return setting.isRestrict();
  } else {
    return setting.kind() == Setting::Kind::custom;
  }
}

template <class Setting>
void add(std::vector<CodecConflict>& conflicts, const TranscodeCliArguments& settings, const Codec& codec,
         std::string_view flag) {
  const auto text = settings.argumentFlagValue(flag);
  if (!text) return;
  const auto chosen = fromArguments<Setting>(settings);
  const auto& row = *transcodeFlagRow(flag);
  CodecConflict conflict{displayed(row, text), {}};
  for (const Setting& other : allowed<Setting>(codec)) {
    if (chosen && (*chosen == other || (isTyped(*chosen) && isTyped(other)))) return;
    TranscodeCliArguments said;
    if (!isTyped(other) && !storeIn(other, said)) continue;
    const auto value = said.argumentFlagValue(flag);
    conflict.allowed.push_back(value ? displayed(row, value).text : pickerText(other));
  }
  conflicts.push_back(std::move(conflict));
}

void addContainer(std::vector<CodecConflict>& conflicts, const TranscodeCliArguments& settings,
                  const Codec& codec) {
  const auto text = settings.argumentFlagValue(VAVFileFormatFlag);
  const auto format = settings.fileFormat();
  const auto list = allowed<VideoExtension>(codec);
  const auto isAllowed = [&](const VAVTranscodeArgumentFileFormatValue& value) {
    const auto preferred = value.preferredFileExtension();
    return std::ranges::any_of(
        list, [&](auto extension) { return detail::rowOf(extension)->fileExtension == preferred; });
  };
  if (!text || (format && isAllowed(*format))) return;
  const auto& row = *transcodeFlagRow(VAVFileFormatFlag);
  CodecConflict conflict{displayed(row, text), {}};
  for (const auto& value : allCases<VAVTranscodeArgumentFileFormatValue>()) {
    if (isAllowed(value)) conflict.allowed.push_back(displayed(row, value.rawValue()).text);
  }
  conflicts.push_back(std::move(conflict));
}

}  // namespace

std::vector<CodecConflict> codecConflicts(const TranscodeCliArguments& settings) {
  std::vector<CodecConflict> conflicts;
  const auto codec = settings.videoFormat();
  if (!codec || settings.noVideo()) return conflicts;
  addContainer(conflicts, settings, *codec);
  add<FrameRate>(conflicts, settings, *codec, VAVVideoFrameRateFlag);
  add<VideoDimension>(conflicts, settings, *codec, VAVVideoDimensionsFlag);
  add<VideoDataRate>(conflicts, settings, *codec, VAVVideoBitRateFlag);
  add<ColorDepth>(conflicts, settings, *codec, VAVVideoBitDepthFlag);
  return conflicts;
}

}  // namespace quillonic
