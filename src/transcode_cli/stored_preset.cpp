#include <quillonic/media/color_depth.hpp>
#include <quillonic/media/video_extension.hpp>
#include <quillonic/platform/localization.hpp>
#include <quillonic/transcode_cli/media_settings.hpp>
#include <quillonic/transcode_cli/stored_preset.hpp>

#include <algorithm>

#include "text/number_text.hpp"
#include "text/pieces.hpp"
#include "transcode_cli/displayed_option.hpp"

namespace quillonic {
namespace {

constexpr std::string_view identifierKey = "identifier";
constexpr std::string_view nameKey = "name";
constexpr std::string_view versionKey = "version";
constexpr std::string_view optionsKey = "options";
constexpr std::string_view keys[] = {identifierKey, nameKey, versionKey, optionsKey};

// Whether the flag says what one job reads, writes or reports, or is no setting at all.
bool belongsToJob(std::string_view flag) {
  constexpr std::string_view flags[] = {VAVOutputFileFlag, VAVProgressFileFlag, VAVProgressOutputPrefixFlag};
  return flag.starts_with(VAVInputPrefixFlag.rawValue()) ||
         std::ranges::find(flags, flag) != std::end(flags) ||
         detail::rowWhere(CaseTable<VAVTranscodeCliCommand>::flags, &TranscodeFlagRow::text, flag);
}

// What a menu tells, most important first, with a mark in place of the option's text.
struct MenuRow {
  std::string_view flag;
  std::string_view text;
};

constexpr MenuRow menuRows[] = {
    {VAVPresetFlag, "{}"},
    {VAVVideoFormatFlag, "{}"},
    {VAVVideoDimensionsFlag, "{}"},
    {VAVVideoFrameRateFlag, "{} fps"},
    {VAVVideoBitRateFlag, "{} Mb/s"},
    {VAVNoVideoFlag, "no video"},
    {VAVAudioFormatFlag, "{}"},
    {VAVAudioChannelLayoutFlag, "{}"},
    {VAVCopyAudioFlag, "source audio"},
    {VAVNoAudioFlag, "no audio"},
    {VAVFileFormatFlag, "{}"},
    {VAVColorLutFileFlag, "LUT"},
    {VAVTimecodeAddBurnFlag, "burnt-in timecode"},
    {VAVWatermarkTextAddBurnFlag, "burnt-in text"},
    {VAVWatermarkFileBurnFilePathFlag, "burnt-in image"},
};

// The track numbers that are left out, as one text.
std::optional<std::string> omittedTracks(const TranscodeOptionChanges::ByFlag& changes) {
  std::optional<std::string> tracks;
  for (const auto& [flag, text] : changes) {
    if (!text || !flag.starts_with(VAVAudioIgnoreTracksPrefixFlag.rawValue())) continue;
    tracks = tracks ? *tracks + ", " + *text : *text;
  }
  return tracks;
}

}  // namespace

StoredPreset StoredPreset::builtIn(TranscodeCliPreset preset) {
  StoredPreset stored(std::string(presetCliValue(preset).rawValue()),
                      std::string(quillonic::description(preset)));
  TranscodeCliArguments settings;
  settings.apply(preset, ApplyLayer::aboveWhatIsSet);
  stored.setSettings(settings);
  return stored;
}

void StoredPreset::setChanges(const TranscodeOptionChanges& changes) {
  TranscodeOptionChanges kept;
  for (const auto& [flag, text] : changes.byFlag()) {
    if (belongsToJob(flag)) continue;
    if (text) {
      kept.set(flag, *text);
    } else {
      kept.remove(flag);
    }
  }
  // A model gives the timecode its separator and a set of tracks its common flag.
  TranscodeCliArguments model;
  kept.apply(model);
  kept.add(TranscodeOptionChanges::between(TranscodeCliArguments(), model));
  changes_ = std::move(kept);
}

TranscodeCliArguments StoredPreset::settings() const {
  TranscodeCliArguments model;
  applyTo(model);
  return model;
}

void StoredPreset::setSettings(const TranscodeCliArguments& settings) {
  setChanges(TranscodeOptionChanges::between(TranscodeCliArguments(), settings));
}

std::vector<DisplayedOption> StoredPreset::setSettings(const Cloud_ConversionOptions& options) {
  const auto& [codec, video, audio] = options;
  TranscodeCliArguments model;
  std::vector<DisplayedOption> unsaid;
  const auto add = [&](bool isSaid, std::string_view flag, const std::string& text) {
    if (!isSaid) unsaid.push_back(displayed(*transcodeFlagRow(flag), text));
  };
  const auto stored = [](auto number) { return std::to_string(static_cast<std::int64_t>(number)); };

  add(storeIn(codec, model), VAVVideoFormatFlag, stored(codec));

  const auto container = fromProto<VideoExtension>(video);
  if (container)
    model.setFileFormat(*container == VideoExtension::mov ? VAVQuickTimeFileFormat : VAVMp4Format);
  add(container || video.container == decltype(video.container){}, VAVFileFormatFlag,
      stored(video.container));

  const auto rate = FrameRate::fromProto(video);
  add(rate && storeIn(*rate, model), VAVVideoFrameRateFlag,
      rate ? rate->description() : number_text::shortest(video.frameRate));

  const auto size = VideoDimension::fromProto(video);
  const bool isPixels = video.width != 0 || video.height != 0;
  const bool isFit = size != VideoDimension::match || (!isPixels && video.scale == 0);
  add(storeIn(size, model) && isFit, VAVVideoDimensionsFlag,
      isFit      ? size.description()
      : isPixels ? number_text::shortest(video.width) + " x " + number_text::shortest(video.height)
                 : number_text::shortest(video.scale));

  const auto dataRate = VideoDataRate::fromProto(video);
  add(storeIn(dataRate, model) && (dataRate.isRestrict() || video.dataRate == 0), VAVVideoBitRateFlag,
      number_text::shortest(video.dataRate));

  const auto depth = fromProto<ColorDepth>(video);
  add(video.colorDepth == 0 || (depth && storeIn(*depth, model)), VAVVideoBitDepthFlag,
      stored(video.colorDepth));

  const auto space = VAVTranscodeArgumentColorSpaceValue::fromColorSpace(video.colorSpace);
  model.setVideoColorSpace(space);
  add(space || video.colorSpace == decltype(video.colorSpace){}, VAVVideoColorSpaceFlag,
      stored(video.colorSpace));

  add(audio.sampleRate >= 0 && storeIn(SampleRate::fromProto(audio), model), VAVAudioSampleRateFlag,
      stored(audio.sampleRate));
  const auto layout = ChannelLayout::fromProto(audio);
  add(audio.channelCount >= 0 && storeIn(layout, model), VAVAudioChannelLayoutFlag,
      audio.channelCount >= 0 ? layout.description() : stored(audio.channelCount));

  setSettings(model);
  return unsaid;
}

void StoredPreset::replaceIn(TranscodeCliArguments& settings) const {
  std::vector<std::string> replaced;
  for (const auto& [flag, text] : settings.flagValueLookup()) {
    if (!belongsToJob(flag)) replaced.push_back(flag);
  }
  for (const auto& flag : replaced) settings.setArgumentFlagValue(flag, std::nullopt);
  applyTo(settings);
}

std::string StoredPreset::description() const {
  std::string list;
  for (const auto& [flag, text] : menuRows) {
    const auto change = changes_.byFlag().find(flag);
    if (change == changes_.byFlag().end() || !change->second) continue;
    list.append(list.empty() ? "" : ", ");
    list += Localization::localized(text, {displayed(*transcodeFlagRow(flag), change->second).text});
  }
  const auto printableName = text::printable(name);
  return list.empty() ? printableName : Localization::localized("{}: {}", {printableName, list});
}

std::vector<DisplayedOption> StoredPreset::details() const {
  std::vector<DisplayedOption> options;
  const auto& changes = changes_.byFlag();
  for (const auto family : detail::flagRows) {
    for (const auto& row : family) {
      const auto change = changes.find(row.text);
      if (change == changes.end()) continue;
      const bool isTracks = row.text == VAVAudioIgnoreTracksPrefixFlag;
      options.push_back(displayed(row, isTracks ? omittedTracks(changes) : change->second));
    }
  }
  for (const auto& [flag, text] : changes) {
    if (transcodeFlagRow(flag) || (text && flag.starts_with(VAVAudioIgnoreTracksPrefixFlag.rawValue())))
      continue;
    options.push_back(
        {flag, text::printable(flag), text ? text::printable(*text) : Localization::localized("Not set")});
  }
  return options;
}

CodedValue StoredPreset::encode() const {
  CodedRecord record;
  record.add(identifierKey, identifier);
  record.add(nameKey, name);
  if (!version.empty()) record.add(versionKey, version);
  record.add(optionsKey, changes_.encode());
  for (const auto& [key, value] : otherMembers.members()) {
    if (std::ranges::find(keys, key) == std::end(keys)) record.add(key, value);
  }
  return record;
}

StoredPreset StoredPreset::from(const CodedValue& coded) {
  const auto& record = coded.require<CodedRecord>();
  StoredPreset preset(record.require<std::string>(identifierKey), record.require<std::string>(nameKey));
  if (const auto* version = record.optional<std::string>(versionKey)) preset.version = *version;
  const auto changes = TranscodeOptionChanges::from(record.require<CodedRecord>(optionsKey));
  for (const auto& [flag, text] : changes.byFlag()) {
    if (belongsToJob(flag)) throw DecodingError(flag, "the option belongs to a job, not to a preset");
  }
  preset.setChanges(changes);
  for (const auto& [key, value] : record.members()) {
    if (std::ranges::find(keys, key) == std::end(keys)) preset.otherMembers.add(key, value);
  }
  return preset;
}

}  // namespace quillonic
