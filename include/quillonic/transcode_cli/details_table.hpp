/// The detail records: the options of one subject, each field with the name of its option.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/platform/color.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/path_coding.hpp>
#include <quillonic/platform/color_coding.hpp>
#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace quillonic {

/// The files, the container and the preset. Numbered input files are in `TranscodeInputFileGroup`.
struct TranscodeGeneralDetail {
  /// An input file; also the prefix of numbered ones, as in "-in_0_2": group 0, position 2. Files are taken
  /// group by group, in each by position, both ascending.
  std::optional<std::filesystem::path> inputPrefix{};
  /// The output file.
  std::optional<std::filesystem::path> outputFile{};
  /// The file that receives the progress.
  std::optional<std::filesystem::path> progressFile{};
  /// A prefix for each progress line.
  std::optional<std::string> progressOutputPrefix{};
  /// Replaces an existing output file.
  bool overwriteExisting = false;
  /// The container format.
  std::optional<VAVTranscodeArgumentFileFormatValue> fileFormat{};
  /// The file of a colour look-up table.
  std::optional<std::filesystem::path> colorLutFile{};
  /// Arranges the output for playback over a network.
  bool prepareForWeb = false;
  /// A preset built into the tool.
  std::optional<VAVTranscodePresetValue> preset{};
  /// The folder for temporary files.
  std::optional<std::filesystem::path> workDirectory{};

  friend bool operator==(const TranscodeGeneralDetail&, const TranscodeGeneralDetail&) = default;
};

/// The fields of `TranscodeGeneralDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeGeneralDetail> {
  static constexpr std::tuple fields{
      Field{"inputPrefix", &TranscodeGeneralDetail::inputPrefix},
      Field{"outputFile", &TranscodeGeneralDetail::outputFile},
      Field{"progressFile", &TranscodeGeneralDetail::progressFile},
      Field{"progressOutputPrefix", &TranscodeGeneralDetail::progressOutputPrefix},
      Field{"overwriteExisting", &TranscodeGeneralDetail::overwriteExisting},
      Field{"fileFormat", &TranscodeGeneralDetail::fileFormat},
      Field{"colorLutFile", &TranscodeGeneralDetail::colorLutFile},
      Field{"prepareForWeb", &TranscodeGeneralDetail::prepareForWeb},
      Field{"preset", &TranscodeGeneralDetail::preset},
      Field{"workDirectory", &TranscodeGeneralDetail::workDirectory},
  };
};

/// The settings of the video.
struct TranscodeVideoDetail {
  /// Leaves the video out.
  bool noVideo = false;
  /// The video codec.
  std::optional<VAVTranscodeArgumentVideoCodecValue> videoFormat{};
  /// Frames per second.
  std::optional<double> videoFrameRate{};
  /// The frame size in pixels, as in "960x540".
  std::optional<FrameSize> videoDimensions{};
  /// How to fit a picture of another aspect ratio.
  std::optional<VAVTranscodeArgumentAspectRatioValue> videoAspectScaling{};
  /// The part of the picture that a crop keeps.
  std::optional<VideoCropAnchor> videoAspectCropAnchor{};
  /// The video's bit rate in megabits per second; the cloud preset has 3.
  std::optional<double> videoBitRate{};
  /// Bits per colour component.
  std::optional<std::int64_t> videoBitDepth{};
  /// The colour space; whether the picture is converted to it or only tagged with it is the tool's choice.
  std::optional<VAVTranscodeArgumentColorSpaceValue> videoColorSpace{};
  /// Frames from one key frame to the next.
  std::optional<std::int64_t> videoKeyFrames{};
  /// Decodes on the GPU.
  bool videoGPUDecoding = false;
  /// Encodes on the GPU.
  bool videoGPUEncoding = false;
  /// The number of the decoder card, in the tool's own numbering.
  std::optional<std::int64_t> redRocketDevice{};
  /// The codec's profile, by the tool's own name for it.
  std::optional<std::string> videoProfile{};

  friend bool operator==(const TranscodeVideoDetail&, const TranscodeVideoDetail&) = default;
};

/// The fields of `TranscodeVideoDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeVideoDetail> {
  static constexpr std::tuple fields{
      Field{"noVideo", &TranscodeVideoDetail::noVideo},
      Field{"videoFormat", &TranscodeVideoDetail::videoFormat},
      Field{"videoFrameRate", &TranscodeVideoDetail::videoFrameRate},
      Field{"videoDimensions", &TranscodeVideoDetail::videoDimensions},
      Field{"videoAspectScaling", &TranscodeVideoDetail::videoAspectScaling},
      Field{"videoAspectCropAnchor", &TranscodeVideoDetail::videoAspectCropAnchor},
      Field{"videoBitRate", &TranscodeVideoDetail::videoBitRate},
      Field{"videoBitDepth", &TranscodeVideoDetail::videoBitDepth},
      Field{"videoColorSpace", &TranscodeVideoDetail::videoColorSpace},
      Field{"videoKeyFrames", &TranscodeVideoDetail::videoKeyFrames},
      Field{"videoGPUDecoding", &TranscodeVideoDetail::videoGPUDecoding},
      Field{"videoGPUEncoding", &TranscodeVideoDetail::videoGPUEncoding},
      Field{"redRocketDevice", &TranscodeVideoDetail::redRocketDevice},
      Field{"videoProfile", &TranscodeVideoDetail::videoProfile},
  };
};

/// The settings of the audio.
struct TranscodeAudioDetail {
  /// Leaves the audio out.
  bool noAudio = false;
  /// Copies the source's audio.
  bool copyAudio = false;
  /// The audio tracks to leave out, counted from 0, each under a flag that begins so, as in "-ac_omit_0".
  std::vector<std::int64_t> ignoredAudioTracks{};
  /// Writes discrete output channels; what that makes of a channel layout is the tool's choice.
  bool discreteAudio = false;
  /// The audio codec.
  std::optional<VAVTranscodeArgumentAudioFormatValue> audioFormat{};
  /// Bits per sample of each channel.
  std::optional<std::int64_t> audioBitsPerChannel{};
  /// Samples per second, in hertz.
  std::optional<std::int64_t> audioSampleRate{};
  /// The channel layout.
  std::optional<VAVTranscodeArgumentAudioChannelLayoutValue> audioChannelLayout{};
  /// The audio's bit rate in the tool's own unit; the library does not scale it.
  std::optional<std::int64_t> audioBitRate{};

  friend bool operator==(const TranscodeAudioDetail&, const TranscodeAudioDetail&) = default;
};

/// The fields of `TranscodeAudioDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeAudioDetail> {
  static constexpr std::tuple fields{
      Field{"noAudio", &TranscodeAudioDetail::noAudio},
      Field{"copyAudio", &TranscodeAudioDetail::copyAudio},
      Field{"ignoredAudioTracks", &TranscodeAudioDetail::ignoredAudioTracks},
      Field{"discreteAudio", &TranscodeAudioDetail::discreteAudio},
      Field{"audioFormat", &TranscodeAudioDetail::audioFormat},
      Field{"audioBitsPerChannel", &TranscodeAudioDetail::audioBitsPerChannel},
      Field{"audioSampleRate", &TranscodeAudioDetail::audioSampleRate},
      Field{"audioChannelLayout", &TranscodeAudioDetail::audioChannelLayout},
      Field{"audioBitRate", &TranscodeAudioDetail::audioBitRate},
  };
};

/// The settings of the timecode, its track and its burn-in.
struct TranscodeTimecodeDetail {
  /// Adds a timecode track.
  bool timecodeAddTrack = false;
  /// Burns the timecode into the picture.
  bool timecodeAddBurn = false;
  /// Where the timecode is burnt in; valid because it contains "-tc_burn".
  std::optional<TimecodeBurnAnchor> timecodeBurnAnchor{};
  /// The font size of the burnt-in timecode, in the tool's own unit.
  std::optional<std::int64_t> timecodeBurnFontSize{};
  /// The font colour of the burnt-in timecode.
  std::optional<Color> timecodeBurnFontColor{};
  /// The colour of the box around the burnt-in timecode.
  std::optional<Color> timecodeBurnBoxColor{};
  /// Takes the timecode from the source.
  bool timecodeMatchSource = false;
  /// Takes the timecode from the creation date.
  bool timecodeFromCreationDate = false;
  /// Starts at this timecode.
  std::optional<std::string> timecode{};
  /// The timecode's frames per second.
  std::optional<double> timecodeFrameRate{};
  /// Counts in drop frame.
  bool timecodeIsDropFrame = false;

  friend bool operator==(const TranscodeTimecodeDetail&, const TranscodeTimecodeDetail&) = default;
};

/// The fields of `TranscodeTimecodeDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeTimecodeDetail> {
  static constexpr std::tuple fields{
      Field{"timecodeAddTrack", &TranscodeTimecodeDetail::timecodeAddTrack},
      Field{"timecodeAddBurn", &TranscodeTimecodeDetail::timecodeAddBurn},
      Field{"timecodeBurnAnchor", &TranscodeTimecodeDetail::timecodeBurnAnchor},
      Field{"timecodeBurnFontSize", &TranscodeTimecodeDetail::timecodeBurnFontSize},
      Field{"timecodeBurnFontColor", &TranscodeTimecodeDetail::timecodeBurnFontColor},
      Field{"timecodeBurnBoxColor", &TranscodeTimecodeDetail::timecodeBurnBoxColor},
      Field{"timecodeMatchSource", &TranscodeTimecodeDetail::timecodeMatchSource},
      Field{"timecodeFromCreationDate", &TranscodeTimecodeDetail::timecodeFromCreationDate},
      Field{"timecode", &TranscodeTimecodeDetail::timecode},
      Field{"timecodeFrameRate", &TranscodeTimecodeDetail::timecodeFrameRate},
      Field{"timecodeIsDropFrame", &TranscodeTimecodeDetail::timecodeIsDropFrame},
  };
};

/// The settings of the image watermark.
struct TranscodeWatermarkImageFileDetail {
  /// Where the image is placed.
  std::optional<WatermarkBurnAnchor> watermarkFileBurnAnchor{};
  /// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract.
  std::optional<std::filesystem::path> watermarkFileBurnFilePath{};
  /// What both sides of the image are multiplied by; 1 keeps its size.
  std::optional<double> watermarkFileBurnScale{};

  friend bool operator==(const TranscodeWatermarkImageFileDetail&, const TranscodeWatermarkImageFileDetail&) = default;
};

/// The fields of `TranscodeWatermarkImageFileDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeWatermarkImageFileDetail> {
  static constexpr std::tuple fields{
      Field{"watermarkFileBurnAnchor", &TranscodeWatermarkImageFileDetail::watermarkFileBurnAnchor},
      Field{"watermarkFileBurnFilePath", &TranscodeWatermarkImageFileDetail::watermarkFileBurnFilePath},
      Field{"watermarkFileBurnScale", &TranscodeWatermarkImageFileDetail::watermarkFileBurnScale},
  };
};

/// The settings of the text watermark.
struct TranscodeWatermarkTextDetail {
  /// Burns a text into the picture.
  bool watermarkTextAddBurn = false;
  /// The text.
  std::optional<std::string> watermarkTextBurnText{};
  /// The font size of the text, in the tool's own unit.
  std::optional<std::int64_t> watermarkTextBurnFontSize{};
  /// Where the text is placed.
  std::optional<VAVTranscodeArgumentOverlayAnchorValue> watermarkTextBurnAnchor{};
  /// The font colour of the text.
  std::optional<Color> watermarkTextBurnFontColor{};
  /// The colour of the box around the text.
  std::optional<Color> watermarkTextBurnBoxColor{};

  friend bool operator==(const TranscodeWatermarkTextDetail&, const TranscodeWatermarkTextDetail&) = default;
};

/// The fields of `TranscodeWatermarkTextDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeWatermarkTextDetail> {
  static constexpr std::tuple fields{
      Field{"watermarkTextAddBurn", &TranscodeWatermarkTextDetail::watermarkTextAddBurn},
      Field{"watermarkTextBurnText", &TranscodeWatermarkTextDetail::watermarkTextBurnText},
      Field{"watermarkTextBurnFontSize", &TranscodeWatermarkTextDetail::watermarkTextBurnFontSize},
      Field{"watermarkTextBurnAnchor", &TranscodeWatermarkTextDetail::watermarkTextBurnAnchor},
      Field{"watermarkTextBurnFontColor", &TranscodeWatermarkTextDetail::watermarkTextBurnFontColor},
      Field{"watermarkTextBurnBoxColor", &TranscodeWatermarkTextDetail::watermarkTextBurnBoxColor},
  };
};

/// The look settings for ARRI camera sources.
struct TranscodeArriLookDetail {
  /// The colour primaries.
  std::optional<std::string> arriLookColorSpacePrimary{};
  /// The white point.
  std::optional<std::string> arriLookColorSpaceWhitePoint{};
  /// The transfer curve.
  std::optional<std::string> arriLookColorSpaceCurve{};
  /// What to do with an invalid look.
  std::optional<std::string> arriLookInvalidLookResolution{};

  friend bool operator==(const TranscodeArriLookDetail&, const TranscodeArriLookDetail&) = default;
};

/// The fields of `TranscodeArriLookDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeArriLookDetail> {
  static constexpr std::tuple fields{
      Field{"arriLookColorSpacePrimary", &TranscodeArriLookDetail::arriLookColorSpacePrimary},
      Field{"arriLookColorSpaceWhitePoint", &TranscodeArriLookDetail::arriLookColorSpaceWhitePoint},
      Field{"arriLookColorSpaceCurve", &TranscodeArriLookDetail::arriLookColorSpaceCurve},
      Field{"arriLookInvalidLookResolution", &TranscodeArriLookDetail::arriLookInvalidLookResolution},
  };
};

}  // namespace quillonic
