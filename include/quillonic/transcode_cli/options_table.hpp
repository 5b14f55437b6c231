/// The typed options of a transcode: a property for every valid flag.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
///
///     settings.setVideoFrameRate(23.976);                                   // "-vr" "23.976"
///     settings.setVideoDimensions(FrameSize{960, 540});                     // "-dims" "960x540"
///     settings.setVideoColorSpace(VAVSrgbColorSpace);                       // "-c_space" "sRGB"
///     settings.setWatermarkTextBurnFontColor(Color::rgb(0.5, 0.5, 0.5));    // "-wmt_font_rgb" "127,127,127"
///     settings.setOverwriteExisting(false);                                 // removes "-overwrite"
///
///     TranscodeAudioDetail audio = settings.audioDetail();                  // all options of one subject
///     audio.ignoredAudioTracks = {1, 3};
///     settings.update(audio);                                           // "-ac_omit_0" "1" "-ac_omit_1" "3"
#pragma once

// clang-format off
#include <quillonic/export.hpp>
#include <quillonic/transcode_cli/details_table.hpp>
#include <quillonic/transcode_cli/option_values.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Typed access to the values of a model's flags; see `TranscodeOptionValues` for their forms. A setter
/// stores the flag with its value; no value, or false for a switch, removes the flag.
class QUILLONIC_EXPORT TranscodeOptions : public TranscodeOptionValues {
 public:
  /// Whether "-h" is set, which prints how the tool is used.
  bool cliHelp() const;
  void setCliHelp(bool value);
  /// Whether "-codecs" is set, which prints the video codecs.
  bool cliCodecs() const;
  void setCliCodecs(bool value);
  /// Whether "-formats" is set, which prints the file formats.
  bool cliFormats() const;
  void setCliFormats(bool value);
  /// Whether "-version" is set, which prints the tool's version.
  bool cliVersion() const;
  void setCliVersion(bool value);
  /// Whether "-acknowledge" is set, which prints acknowledgements.
  bool cliAcknowledgement() const;
  void setCliAcknowledgement(bool value);
  /// Whether "-presets" is set, which prints the presets.
  bool cliPresets() const;
  void setCliPresets(bool value);
  /// Whether "-aspect_scalings" is set, which prints the ways to fit a picture into a frame.
  bool cliAspectRatioScalings() const;
  void setCliAspectRatioScalings(bool value);
  /// Whether "-crop_anchors" is set, which prints the anchors for cropping.
  bool cliCropAnchors() const;
  void setCliCropAnchors(bool value);
  /// Whether "-color_spaces" is set, which prints the colour spaces.
  bool cliColorSpaces() const;
  void setCliColorSpaces(bool value);
  /// Whether "-audio_channel_layouts" is set, which prints the channel layouts.
  bool cliAudioChannelLayouts() const;
  void setCliAudioChannelLayouts(bool value);
  /// Whether "-tc_burn_anchors" is set, which prints the anchors for a burnt-in timecode.
  bool cliTimecodeBurnAnchors() const;
  void setCliTimecodeBurnAnchors(bool value);
  /// Whether "-gpu_platforms" is set, which prints the GPU platforms.
  bool cliGpuPlatforms() const;
  void setCliGpuPlatforms(bool value);

  /// An input file; also the prefix of numbered ones, as in "-in_0_2": group 0, position 2. Files are taken
  /// group by group, in each by position, both ascending.
  std::optional<std::filesystem::path> inputPrefix() const;
  void setInputPrefix(const std::optional<std::filesystem::path>& value);
  /// The output file.
  std::optional<std::filesystem::path> outputFile() const;
  void setOutputFile(const std::optional<std::filesystem::path>& value);
  /// The file that receives the progress.
  std::optional<std::filesystem::path> progressFile() const;
  void setProgressFile(const std::optional<std::filesystem::path>& value);
  /// A prefix for each progress line.
  std::optional<std::string> progressOutputPrefix() const;
  void setProgressOutputPrefix(std::optional<std::string_view> value);
  /// Whether "-overwrite" is set, which replaces an existing output file.
  bool overwriteExisting() const;
  void setOverwriteExisting(bool value);
  /// The container format.
  std::optional<VAVTranscodeArgumentFileFormatValue> fileFormat() const;
  void setFileFormat(const std::optional<VAVTranscodeArgumentFileFormatValue>& value);
  /// The file of a colour look-up table.
  std::optional<std::filesystem::path> colorLutFile() const;
  void setColorLutFile(const std::optional<std::filesystem::path>& value);
  /// Whether "-web" is set, which arranges the output for playback over a network.
  bool prepareForWeb() const;
  void setPrepareForWeb(bool value);
  /// A preset built into the tool.
  std::optional<VAVTranscodePresetValue> preset() const;
  void setPreset(const std::optional<VAVTranscodePresetValue>& value);
  /// The folder for temporary files.
  std::optional<std::filesystem::path> workDirectory() const;
  void setWorkDirectory(const std::optional<std::filesystem::path>& value);

  /// Whether "-vn" is set, which leaves the video out.
  bool noVideo() const;
  void setNoVideo(bool value);
  /// The video codec.
  std::optional<VAVTranscodeArgumentVideoCodecValue> videoFormat() const;
  void setVideoFormat(const std::optional<VAVTranscodeArgumentVideoCodecValue>& value);
  /// Frames per second.
  std::optional<double> videoFrameRate() const;
  void setVideoFrameRate(std::optional<DecimalNumber> value);
  /// The frame size in pixels, as in "960x540".
  std::optional<FrameSize> videoDimensions() const;
  void setVideoDimensions(std::optional<FrameSize> value);
  /// How to fit a picture of another aspect ratio.
  std::optional<VAVTranscodeArgumentAspectRatioValue> videoAspectScaling() const;
  void setVideoAspectScaling(const std::optional<VAVTranscodeArgumentAspectRatioValue>& value);
  /// The part of the picture that a crop keeps.
  std::optional<VideoCropAnchor> videoAspectCropAnchor() const;
  void setVideoAspectCropAnchor(const std::optional<VideoCropAnchor>& value);
  /// The video's bit rate in megabits per second; the cloud preset has 3.
  std::optional<double> videoBitRate() const;
  void setVideoBitRate(std::optional<DecimalNumber> value);
  /// Bits per colour component.
  std::optional<std::int64_t> videoBitDepth() const;
  void setVideoBitDepth(std::optional<std::int64_t> value);
  /// The colour space; whether the picture is converted to it or only tagged with it is the tool's choice.
  std::optional<VAVTranscodeArgumentColorSpaceValue> videoColorSpace() const;
  void setVideoColorSpace(const std::optional<VAVTranscodeArgumentColorSpaceValue>& value);
  /// Frames from one key frame to the next.
  std::optional<std::int64_t> videoKeyFrames() const;
  void setVideoKeyFrames(std::optional<std::int64_t> value);
  /// Whether "-gpu_decoding" is set, which decodes on the GPU.
  bool videoGPUDecoding() const;
  void setVideoGPUDecoding(bool value);
  /// Whether "-gpu_encoding" is set, which encodes on the GPU.
  bool videoGPUEncoding() const;
  void setVideoGPUEncoding(bool value);
  /// The number of the decoder card, in the tool's own numbering.
  std::optional<std::int64_t> redRocketDevice() const;
  void setRedRocketDevice(std::optional<std::int64_t> value);
  /// The codec's profile, by the tool's own name for it.
  std::optional<std::string> videoProfile() const;
  void setVideoProfile(std::optional<std::string_view> value);

  /// Whether "-an" is set, which leaves the audio out.
  bool noAudio() const;
  void setNoAudio(bool value);
  /// Whether "-acopy" is set, which copies the source's audio.
  bool copyAudio() const;
  void setCopyAudio(bool value);
  /// The audio tracks to leave out, counted from 0, each under a flag that begins so, as in "-ac_omit_0".
  /// Ascending, each track once; values that are not integers of at least 0 are skipped.
  std::vector<std::int64_t> ignoredAudioTracks() const;
  /// Replaces all flags that begin with "-ac_omit" by one per track, numbered from 0. A repeated track counts
  /// once; a negative one is skipped with a warning.
  void setIgnoredAudioTracks(const std::vector<std::int64_t>& value);
  /// Whether "-adiscrete" is set, which writes discrete output channels; what that makes of a channel layout
  /// is the tool's choice.
  bool discreteAudio() const;
  void setDiscreteAudio(bool value);
  /// The audio codec.
  std::optional<VAVTranscodeArgumentAudioFormatValue> audioFormat() const;
  void setAudioFormat(const std::optional<VAVTranscodeArgumentAudioFormatValue>& value);
  /// Bits per sample of each channel.
  std::optional<std::int64_t> audioBitsPerChannel() const;
  void setAudioBitsPerChannel(std::optional<std::int64_t> value);
  /// Samples per second, in hertz.
  std::optional<std::int64_t> audioSampleRate() const;
  void setAudioSampleRate(std::optional<std::int64_t> value);
  /// The channel layout.
  std::optional<VAVTranscodeArgumentAudioChannelLayoutValue> audioChannelLayout() const;
  void setAudioChannelLayout(const std::optional<VAVTranscodeArgumentAudioChannelLayoutValue>& value);
  /// The audio's bit rate in the tool's own unit; the library does not scale it.
  std::optional<std::int64_t> audioBitRate() const;
  void setAudioBitRate(std::optional<std::int64_t> value);

  /// Whether "-tc_track" is set, which adds a timecode track.
  bool timecodeAddTrack() const;
  void setTimecodeAddTrack(bool value);
  /// Whether "-tc_burn" is set, which burns the timecode into the picture.
  bool timecodeAddBurn() const;
  void setTimecodeAddBurn(bool value);
  /// Where the timecode is burnt in; valid because it contains "-tc_burn".
  std::optional<TimecodeBurnAnchor> timecodeBurnAnchor() const;
  void setTimecodeBurnAnchor(const std::optional<TimecodeBurnAnchor>& value);
  /// The font size of the burnt-in timecode, in the tool's own unit.
  std::optional<std::int64_t> timecodeBurnFontSize() const;
  void setTimecodeBurnFontSize(std::optional<std::int64_t> value);
  /// The font colour of the burnt-in timecode.
  std::optional<Color> timecodeBurnFontColor() const;
  /// White is `Color::rgb255(255, 255, 255)`. The fractions `Color::rgb(1, 1, 1)` are written "1,1,1", a
  /// fixed rule: a component of 1 or more counts as out of 255.
  void setTimecodeBurnFontColor(const std::optional<Color>& value);
  /// The colour of the box around the burnt-in timecode.
  std::optional<Color> timecodeBurnBoxColor() const;
  /// White is `Color::rgb255(255, 255, 255)`. The fractions `Color::rgb(1, 1, 1)` are written "1,1,1", a
  /// fixed rule: a component of 1 or more counts as out of 255.
  void setTimecodeBurnBoxColor(const std::optional<Color>& value);
  /// Whether "-tc_match" is set, which takes the timecode from the source.
  bool timecodeMatchSource() const;
  void setTimecodeMatchSource(bool value);
  /// Whether "-tc_creation" is set, which takes the timecode from the creation date.
  bool timecodeFromCreationDate() const;
  void setTimecodeFromCreationDate(bool value);
  /// Starts at this timecode.
  std::optional<std::string> timecode() const;
  /// Sets or removes "-tc_custom". If the drop-frame switch is set, a timecode that reads strictly gets its
  /// separator.
  void setTimecode(std::optional<std::string_view> value);
  /// The timecode's frames per second.
  std::optional<double> timecodeFrameRate() const;
  void setTimecodeFrameRate(std::optional<DecimalNumber> value);
  /// Whether "-tc_drop" is set, which counts in drop frame.
  bool timecodeIsDropFrame() const;
  /// Sets or removes "-tc_drop". A `timecode` that reads strictly gets the switch's separator; any other text
  /// stays unchanged.
  void setTimecodeIsDropFrame(bool value);

  /// Where the image is placed.
  std::optional<WatermarkBurnAnchor> watermarkFileBurnAnchor() const;
  void setWatermarkFileBurnAnchor(const std::optional<WatermarkBurnAnchor>& value);
  /// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract.
  std::optional<std::filesystem::path> watermarkFileBurnFilePath() const;
  void setWatermarkFileBurnFilePath(const std::optional<std::filesystem::path>& value);
  /// What both sides of the image are multiplied by; 1 keeps its size.
  std::optional<double> watermarkFileBurnScale() const;
  void setWatermarkFileBurnScale(std::optional<DecimalNumber> value);

  /// Whether "-wmt_burn" is set, which burns a text into the picture.
  bool watermarkTextAddBurn() const;
  void setWatermarkTextAddBurn(bool value);
  /// The text.
  std::optional<std::string> watermarkTextBurnText() const;
  void setWatermarkTextBurnText(std::optional<std::string_view> value);
  /// The font size of the text, in the tool's own unit.
  std::optional<std::int64_t> watermarkTextBurnFontSize() const;
  void setWatermarkTextBurnFontSize(std::optional<std::int64_t> value);
  /// Where the text is placed.
  std::optional<VAVTranscodeArgumentOverlayAnchorValue> watermarkTextBurnAnchor() const;
  void setWatermarkTextBurnAnchor(const std::optional<VAVTranscodeArgumentOverlayAnchorValue>& value);
  /// The font colour of the text.
  std::optional<Color> watermarkTextBurnFontColor() const;
  /// White is `Color::rgb255(255, 255, 255)`. The fractions `Color::rgb(1, 1, 1)` are written "1,1,1", a
  /// fixed rule: a component of 1 or more counts as out of 255.
  void setWatermarkTextBurnFontColor(const std::optional<Color>& value);
  /// The colour of the box around the text.
  std::optional<Color> watermarkTextBurnBoxColor() const;
  /// White is `Color::rgb255(255, 255, 255)`. The fractions `Color::rgb(1, 1, 1)` are written "1,1,1", a
  /// fixed rule: a component of 1 or more counts as out of 255.
  void setWatermarkTextBurnBoxColor(const std::optional<Color>& value);

  /// The colour primaries.
  std::optional<std::string> arriLookColorSpacePrimary() const;
  void setArriLookColorSpacePrimary(std::optional<std::string_view> value);
  /// The white point.
  std::optional<std::string> arriLookColorSpaceWhitePoint() const;
  void setArriLookColorSpaceWhitePoint(std::optional<std::string_view> value);
  /// The transfer curve.
  std::optional<std::string> arriLookColorSpaceCurve() const;
  void setArriLookColorSpaceCurve(std::optional<std::string_view> value);
  /// What to do with an invalid look.
  std::optional<std::string> arriLookInvalidLookResolution() const;
  void setArriLookInvalidLookResolution(std::optional<std::string_view> value);

  /// The files, the container and the preset. Numbered input files are in `TranscodeInputFileGroup`.
  TranscodeGeneralDetail generalDetail() const;
  /// Sets each field that differs from `generalDetail()` with its own setter, in record order. So an
  /// unchanged option keeps its text, even one that cannot be read.
  void update(const TranscodeGeneralDetail& fromGeneralDetail);
  /// The settings of the video.
  TranscodeVideoDetail videoDetail() const;
  /// Sets each field that differs from `videoDetail()` with its own setter, in record order. So an unchanged
  /// option keeps its text, even one that cannot be read.
  void update(const TranscodeVideoDetail& fromVideoDetail);
  /// The settings of the audio.
  TranscodeAudioDetail audioDetail() const;
  /// Sets each field that differs from `audioDetail()` with its own setter, in record order. So an unchanged
  /// option keeps its text, even one that cannot be read.
  void update(const TranscodeAudioDetail& fromAudioDetail);
  /// The settings of the timecode, its track and its burn-in.
  TranscodeTimecodeDetail timecodeDetail() const;
  /// Sets each field that differs from `timecodeDetail()` with its own setter, in record order. So an
  /// unchanged option keeps its text, even one that cannot be read. A changed timecode gets the separator of
  /// the record's switch.
  void update(const TranscodeTimecodeDetail& fromTimecodeDetail);
  /// The settings of the image watermark.
  TranscodeWatermarkImageFileDetail watermarkImageFileDetail() const;
  /// Sets each field that differs from `watermarkImageFileDetail()` with its own setter, in record order. So
  /// an unchanged option keeps its text, even one that cannot be read.
  void update(const TranscodeWatermarkImageFileDetail& fromWatermarkImageFileDetail);
  /// The settings of the text watermark.
  TranscodeWatermarkTextDetail watermarkTextDetail() const;
  /// Sets each field that differs from `watermarkTextDetail()` with its own setter, in record order. So an
  /// unchanged option keeps its text, even one that cannot be read.
  void update(const TranscodeWatermarkTextDetail& fromWatermarkTextDetail);
  /// The look settings for ARRI camera sources.
  TranscodeArriLookDetail arriLookDetail() const;
  /// Sets each field that differs from `arriLookDetail()` with its own setter, in record order. So an
  /// unchanged option keeps its text, even one that cannot be read.
  void update(const TranscodeArriLookDetail& fromArriLookDetail);

 protected:
  TranscodeOptions() = default;
};

}  // namespace quillonic
