#include <quillonic/media/video_extension.hpp>
#include <quillonic/platform/localization.hpp>
#include <quillonic/transcode_cli/codec_conflict.hpp>
#include <quillonic/transcode_cli/media_settings.hpp>

#include <algorithm>

#include "transcode_cli/displayed_option.hpp"

namespace quillonic {
namespace {

using Codec = VAVTranscodeArgumentVideoCodecValue;

// A number that a person types stands in lists for all others.
template <class Setting> bool isMember(const Setting& setting, std::span<const Setting> list) {
  return std::ranges::any_of(list, [&](const Setting& other) {
    if constexpr (std::same_as<Setting, ColorDepth>) {
      return other == setting;
    } else if constexpr (std::same_as<Setting, VideoDataRate>) {
      return other.kind() == setting.kind();
    } else {
      return other == setting || (other.kind() == setting.kind() && setting.kind() == Setting::Kind::custom);
    }
  });
}

std::string pickerText(ColorDepth depth) {
  return description(depth);
}
std::string pickerText(const auto& setting) {
  return setting.pickerDescription();
}

template <class Setting>
void add(std::vector<CodecConflict>& conflicts, const TranscodeCliArguments& settings, const Codec& codec,
         std::string_view flag) {
  const auto text = settings.argumentFlagValue(flag);
  const auto list = allowed<Setting>(codec);
  const auto setting = fromArguments<Setting>(settings);
  if (!text || (setting && isMember(*setting, list))) return;
  CodecConflict conflict{displayed(*transcodeFlagRow(flag), text), {}};
  for (const auto& other : list) conflict.allowed.push_back(pickerText(other));
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
