/// The typed options of a transcode: a property for every flag that can be valid.
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
///     settings.update(audio);                                               // "-ac_omit_0" "1" "-ac_omit_1" "3"
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

/// Reads and writes the values of a model's flags by their meaning. How each kind of value is read and written stands
/// with `TranscodeOptionValues`.
class QUILLONIC_EXPORT TranscodeOptions : public TranscodeOptionValues {
 public:
  /// Whether "-h" is set, which prints how the tool is used.
  bool cliHelp() const;
  /// Sets or removes "-h".
  void setCliHelp(bool value);
  /// Whether "-codecs" is set, which prints the video codecs.
  bool cliCodecs() const;
  /// Sets or removes "-codecs".
  void setCliCodecs(bool value);
  /// Whether "-formats" is set, which prints the file formats.
  bool cliFormats() const;
  /// Sets or removes "-formats".
  void setCliFormats(bool value);
  /// Whether "-version" is set, which prints the tool's version.
  bool cliVersion() const;
  /// Sets or removes "-version".
  void setCliVersion(bool value);
  /// Whether "-acknowledge" is set, which prints acknowledgements.
  bool cliAcknowledgement() const;
  /// Sets or removes "-acknowledge".
  void setCliAcknowledgement(bool value);
  /// Whether "-presets" is set, which prints the presets.
  bool cliPresets() const;
  /// Sets or removes "-presets".
  void setCliPresets(bool value);
  /// Whether "-aspect_scalings" is set, which prints the ways of fitting a picture into a frame.
  bool cliAspectRatioScalings() const;
  /// Sets or removes "-aspect_scalings".
  void setCliAspectRatioScalings(bool value);
  /// Whether "-crop_anchors" is set, which prints the anchors for cropping.
  bool cliCropAnchors() const;
  /// Sets or removes "-crop_anchors".
  void setCliCropAnchors(bool value);
  /// Whether "-color_spaces" is set, which prints the colour spaces.
  bool cliColorSpaces() const;
  /// Sets or removes "-color_spaces".
  void setCliColorSpaces(bool value);
  /// Whether "-audio_channel_layouts" is set, which prints the channel layouts.
  bool cliAudioChannelLayouts() const;
  /// Sets or removes "-audio_channel_layouts".
  void setCliAudioChannelLayouts(bool value);
  /// Whether "-tc_burn_anchors" is set, which prints the anchors for a burnt-in timecode.
  bool cliTimecodeBurnAnchors() const;
  /// Sets or removes "-tc_burn_anchors".
  void setCliTimecodeBurnAnchors(bool value);
  /// Whether "-gpu_platforms" is set, which prints the GPU platforms.
  bool cliGpuPlatforms() const;
  /// Sets or removes "-gpu_platforms".
  void setCliGpuPlatforms(bool value);

  /// An input file; also the prefix of the numbered input files, as in "-in_0_0".
  std::optional<std::filesystem::path> inputPrefix() const;
  /// Stores the value of "-in"; no value removes the flag.
  void setInputPrefix(const std::optional<std::filesystem::path>& value);
  /// The output file.
  std::optional<std::filesystem::path> outputFile() const;
  /// Stores the value of "-out"; no value removes the flag.
  void setOutputFile(const std::optional<std::filesystem::path>& value);
  /// The file that receives the progress.
  std::optional<std::filesystem::path> progressFile() const;
  /// Stores the value of "-progress_file"; no value removes the flag.
  void setProgressFile(const std::optional<std::filesystem::path>& value);
  /// A text put before each progress line.
  std::optional<std::string> progressOutputPrefix() const;
  /// Stores the value of "-progress_prefix"; no value removes the flag.
  void setProgressOutputPrefix(std::optional<std::string_view> value);
  /// Whether "-overwrite" is set, which replaces an existing output file.
  bool overwriteExisting() const;
  /// Sets or removes "-overwrite".
  void setOverwriteExisting(bool value);
  /// The container format.
  std::optional<VAVTranscodeArgumentFileFormatValue> fileFormat() const;
  /// Stores the value of "-file_format"; no value removes the flag.
  void setFileFormat(const std::optional<VAVTranscodeArgumentFileFormatValue>& value);
  /// The file of a colour look-up table.
  std::optional<std::filesystem::path> colorLutFile() const;
  /// Stores the value of "-clut"; no value removes the flag.
  void setColorLutFile(const std::optional<std::filesystem::path>& value);
  /// Whether "-web" is set, which lays the output out for playing over a network.
  bool prepareForWeb() const;
  /// Sets or removes "-web".
  void setPrepareForWeb(bool value);
  /// A preset built into the tool.
  std::optional<VAVTranscodePresetValue> preset() const;
  /// Stores the value of "-preset"; no value removes the flag.
  void setPreset(const std::optional<VAVTranscodePresetValue>& value);
  /// The folder for temporary files.
  std::optional<std::filesystem::path> workDirectory() const;
  /// Stores the value of "-work_dir"; no value removes the flag.
  void setWorkDirectory(const std::optional<std::filesystem::path>& value);

  /// Whether "-vn" is set, which leaves the video out.
  bool noVideo() const;
  /// Sets or removes "-vn".
  void setNoVideo(bool value);
  /// The video codec.
  std::optional<VAVTranscodeArgumentVideoCodecValue> videoFormat() const;
  /// Stores the value of "-vcodec"; no value removes the flag.
  void setVideoFormat(const std::optional<VAVTranscodeArgumentVideoCodecValue>& value);
  /// Frames per second.
  std::optional<double> videoFrameRate() const;
  /// Stores the value of "-vr"; no value removes the flag.
  void setVideoFrameRate(std::optional<double> value);
  /// The frame size in pixels, as in "960x540".
  std::optional<FrameSize> videoDimensions() const;
  /// Stores the value of "-dims"; no value removes the flag.
  void setVideoDimensions(std::optional<FrameSize> value);
  /// How a picture of another aspect ratio is fitted.
  std::optional<VAVTranscodeArgumentAspectRatioValue> videoAspectScaling() const;
  /// Stores the value of "-aspect_scaling"; no value removes the flag.
  void setVideoAspectScaling(const std::optional<VAVTranscodeArgumentAspectRatioValue>& value);
  /// The part of the picture that a crop keeps.
  std::optional<VideoCropAnchor> videoAspectCropAnchor() const;
  /// Stores the value of "-crop_anchor"; no value removes the flag.
  void setVideoAspectCropAnchor(const std::optional<VideoCropAnchor>& value);
  /// The video's bit rate in megabits per second, as the cloud preset's 3 is.
  std::optional<double> videoBitRate() const;
  /// Stores the value of "-vbr"; no value removes the flag.
  void setVideoBitRate(std::optional<double> value);
  /// Bits per colour component.
  std::optional<std::int64_t> videoBitDepth() const;
  /// Stores the value of "-vbd"; no value removes the flag.
  void setVideoBitDepth(std::optional<std::int64_t> value);
  /// The colour space.
  std::optional<VAVTranscodeArgumentColorSpaceValue> videoColorSpace() const;
  /// Stores the value of "-c_space"; no value removes the flag.
  void setVideoColorSpace(const std::optional<VAVTranscodeArgumentColorSpaceValue>& value);
  /// Frames from one key frame to the next.
  std::optional<std::int64_t> videoKeyFrames() const;
  /// Stores the value of "-key_frames"; no value removes the flag.
  void setVideoKeyFrames(std::optional<std::int64_t> value);
  /// Whether "-gpu_decoding" is set, which decodes on the GPU.
  bool videoGPUDecoding() const;
  /// Sets or removes "-gpu_decoding".
  void setVideoGPUDecoding(bool value);
  /// Whether "-gpu_encoding" is set, which encodes on the GPU.
  bool videoGPUEncoding() const;
  /// Sets or removes "-gpu_encoding".
  void setVideoGPUEncoding(bool value);
  /// The number of the decoder card.
  std::optional<std::int64_t> redRocketDevice() const;
  /// Stores the value of "-red_rocket_device"; no value removes the flag.
  void setRedRocketDevice(std::optional<std::int64_t> value);
  /// The codec's profile.
  std::optional<std::string> videoProfile() const;
  /// Stores the value of "-vprofile"; no value removes the flag.
  void setVideoProfile(std::optional<std::string_view> value);

  /// Whether "-an" is set, which leaves the audio out.
  bool noAudio() const;
  /// Sets or removes "-an".
  void setNoAudio(bool value);
  /// Whether "-acopy" is set, which copies the source's audio.
  bool copyAudio() const;
  /// Sets or removes "-acopy".
  void setCopyAudio(bool value);
  /// The audio tracks to leave out, each under a flag that begins so, as in "-ac_omit_0". In ascending
  /// order, each track once; values that are not integers of zero or more are passed over.
  std::vector<std::int64_t> ignoredAudioTracks() const;
  /// Replaces all flags that begin with "-ac_omit" by one for each track, numbered from 0. A track given twice
  /// counts once; a negative one is left out with a warning.
  void setIgnoredAudioTracks(const std::vector<std::int64_t>& value);
  /// Whether "-adiscrete" is set, which writes discrete channels.
  bool discreteAudio() const;
  /// Sets or removes "-adiscrete".
  void setDiscreteAudio(bool value);
  /// The audio codec.
  std::optional<VAVTranscodeArgumentAudioFormatValue> audioFormat() const;
  /// Stores the value of "-acodec"; no value removes the flag.
  void setAudioFormat(const std::optional<VAVTranscodeArgumentAudioFormatValue>& value);
  /// Bits per sample of each channel.
  std::optional<std::int64_t> audioBitsPerChannel() const;
  /// Stores the value of "-abpc"; no value removes the flag.
  void setAudioBitsPerChannel(std::optional<std::int64_t> value);
  /// Samples per second, in hertz.
  std::optional<std::int64_t> audioSampleRate() const;
  /// Stores the value of "-asr"; no value removes the flag.
  void setAudioSampleRate(std::optional<std::int64_t> value);
  /// The channel layout.
  std::optional<VAVTranscodeArgumentAudioChannelLayoutValue> audioChannelLayout() const;
  /// Stores the value of "-acl"; no value removes the flag.
  void setAudioChannelLayout(const std::optional<VAVTranscodeArgumentAudioChannelLayoutValue>& value);
  /// The audio's bit rate in the tool's own unit; the library does not scale it.
  std::optional<std::int64_t> audioBitRate() const;
  /// Stores the value of "-abr"; no value removes the flag.
  void setAudioBitRate(std::optional<std::int64_t> value);

  /// Whether "-tc_track" is set, which adds a timecode track.
  bool timecodeAddTrack() const;
  /// Sets or removes "-tc_track".
  void setTimecodeAddTrack(bool value);
  /// Whether "-tc_burn" is set, which burns the timecode into the picture.
  bool timecodeAddBurn() const;
  /// Sets or removes "-tc_burn".
  void setTimecodeAddBurn(bool value);
  /// Where the timecode is burnt in; valid because it contains "-tc_burn".
  std::optional<TimecodeBurnAnchor> timecodeBurnAnchor() const;
  /// Stores the value of "-tc_burn_anchor"; no value removes the flag.
  void setTimecodeBurnAnchor(const std::optional<TimecodeBurnAnchor>& value);
  /// The font size of the burnt-in timecode, in the tool's own unit.
  std::optional<std::int64_t> timecodeBurnFontSize() const;
  /// Stores the value of "-tc_burn_size"; no value removes the flag.
  void setTimecodeBurnFontSize(std::optional<std::int64_t> value);
  /// The font colour of the burnt-in timecode.
  std::optional<Color> timecodeBurnFontColor() const;
  /// Stores the value of "-tc_burn_font_rgb"; no value removes the flag.
  void setTimecodeBurnFontColor(const std::optional<Color>& value);
  /// The colour of the box behind the burnt-in timecode.
  std::optional<Color> timecodeBurnBoxColor() const;
  /// Stores the value of "-tc_burn_box_rgb"; no value removes the flag.
  void setTimecodeBurnBoxColor(const std::optional<Color>& value);
  /// Whether "-tc_match" is set, which takes the timecode from the source.
  bool timecodeMatchSource() const;
  /// Sets or removes "-tc_match".
  void setTimecodeMatchSource(bool value);
  /// Whether "-tc_creation" is set, which takes the timecode from the creation date.
  bool timecodeFromCreationDate() const;
  /// Sets or removes "-tc_creation".
  void setTimecodeFromCreationDate(bool value);
  /// Starts at this timecode.
  std::optional<std::string> timecode() const;
  /// Stores the value of "-tc_custom"; no value removes the flag.
  void setTimecode(std::optional<std::string_view> value);
  /// The timecode's frames per second.
  std::optional<double> timecodeFrameRate() const;
  /// Stores the value of "-tc_rate"; no value removes the flag.
  void setTimecodeFrameRate(std::optional<double> value);
  /// Whether "-tc_drop" is set, which counts in drop frame.
  bool timecodeIsDropFrame() const;
  /// Sets or removes "-tc_drop". A `timecode` that reads strictly is rewritten with the separator that follows the
  /// switch; any other text stays as it is.
  void setTimecodeIsDropFrame(bool value);

  /// Where the image is placed.
  std::optional<WatermarkBurnAnchor> watermarkFileBurnAnchor() const;
  /// Stores the value of "-wmf_anchor"; no value removes the flag.
  void setWatermarkFileBurnAnchor(const std::optional<WatermarkBurnAnchor>& value);
  /// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract.
  std::optional<std::filesystem::path> watermarkFileBurnFilePath() const;
  /// Stores the value of "-wmf_path"; no value removes the flag.
  void setWatermarkFileBurnFilePath(const std::optional<std::filesystem::path>& value);
  /// What both sides of the image are multiplied by.
  std::optional<double> watermarkFileBurnScale() const;
  /// Stores the value of "-wmf_scale"; no value removes the flag.
  void setWatermarkFileBurnScale(std::optional<double> value);

  /// Whether "-wmt_burn" is set, which burns a text into the picture.
  bool watermarkTextAddBurn() const;
  /// Sets or removes "-wmt_burn".
  void setWatermarkTextAddBurn(bool value);
  /// The text.
  std::optional<std::string> watermarkTextBurnText() const;
  /// Stores the value of "-wmt_text"; no value removes the flag.
  void setWatermarkTextBurnText(std::optional<std::string_view> value);
  /// The font size of the text, in the tool's own unit.
  std::optional<std::int64_t> watermarkTextBurnFontSize() const;
  /// Stores the value of "-wmt_size"; no value removes the flag.
  void setWatermarkTextBurnFontSize(std::optional<std::int64_t> value);
  /// Where the text is placed.
  std::optional<VAVTranscodeArgumentOverlayAnchorValue> watermarkTextBurnAnchor() const;
  /// Stores the value of "-wmt_anchor"; no value removes the flag.
  void setWatermarkTextBurnAnchor(const std::optional<VAVTranscodeArgumentOverlayAnchorValue>& value);
  /// The font colour of the text.
  std::optional<Color> watermarkTextBurnFontColor() const;
  /// Stores the value of "-wmt_font_rgb"; no value removes the flag.
  void setWatermarkTextBurnFontColor(const std::optional<Color>& value);
  /// The colour of the box behind the text.
  std::optional<Color> watermarkTextBurnBoxColor() const;
  /// Stores the value of "-wmt_box_rgb"; no value removes the flag.
  void setWatermarkTextBurnBoxColor(const std::optional<Color>& value);

  /// The colour primaries, one of `VAVArriLookColorSpaces`.
  std::optional<std::string> arriLookColorSpacePrimary() const;
  /// Stores the value of "-arri_cs"; no value removes the flag.
  void setArriLookColorSpacePrimary(std::optional<std::string_view> value);
  /// The white point, one of `VAVArriWhitePoints`.
  std::optional<std::string> arriLookColorSpaceWhitePoint() const;
  /// Stores the value of "-arri_wp"; no value removes the flag.
  void setArriLookColorSpaceWhitePoint(std::optional<std::string_view> value);
  /// The transfer curve, one of `VAVArriCurves`.
  std::optional<std::string> arriLookColorSpaceCurve() const;
  /// Stores the value of "-arri_curve"; no value removes the flag.
  void setArriLookColorSpaceCurve(std::optional<std::string_view> value);
  /// What happens to an invalid look, one of `VAVArriLookResolutions`.
  std::optional<std::string> arriLookInvalidLookResolution() const;
  /// Stores the value of "-arri_inv_res"; no value removes the flag.
  void setArriLookInvalidLookResolution(std::optional<std::string_view> value);

  /// The settings of the video.
  TranscodeVideoDetail videoDetail() const;
  /// Sets each field that differs from `videoDetail()`, in the record's order and as its own setter does.
  /// An option that nobody changed so keeps the text it has, also one that does not read.
  void update(const TranscodeVideoDetail& fromVideoDetail);
  /// The settings of the audio.
  TranscodeAudioDetail audioDetail() const;
  /// Sets each field that differs from `audioDetail()`, in the record's order and as its own setter does.
  /// An option that nobody changed so keeps the text it has, also one that does not read.
  void update(const TranscodeAudioDetail& fromAudioDetail);
  /// The settings of the timecode, its track and its burn-in.
  TranscodeTimecodeDetail timecodeDetail() const;
  /// Sets each field that differs from `timecodeDetail()`, in the record's order and as its own setter does.
  /// An option that nobody changed so keeps the text it has, also one that does not read.
  /// The separator of a timecode that is set follows the record's switch.
  void update(const TranscodeTimecodeDetail& fromTimecodeDetail);
  /// The settings of the image watermark.
  TranscodeWatermarkImageFileDetail watermarkImageFileDetail() const;
  /// Sets each field that differs from `watermarkImageFileDetail()`, in the record's order and as its own setter does.
  /// An option that nobody changed so keeps the text it has, also one that does not read.
  void update(const TranscodeWatermarkImageFileDetail& fromWatermarkImageFileDetail);
  /// The settings of the text watermark.
  TranscodeWatermarkTextDetail watermarkTextDetail() const;
  /// Sets each field that differs from `watermarkTextDetail()`, in the record's order and as its own setter does.
  /// An option that nobody changed so keeps the text it has, also one that does not read.
  void update(const TranscodeWatermarkTextDetail& fromWatermarkTextDetail);

 protected:
  TranscodeOptions() = default;
};

}  // namespace quillonic
