/// The detail records: the options of one subject side by side, each field named after the option it belongs to.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/platform/color.hpp>
#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillonic {

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
  /// How a picture of another aspect ratio is fitted.
  std::optional<VAVTranscodeArgumentAspectRatioValue> videoAspectScaling{};
  /// The part of the picture that a crop keeps.
  std::optional<VideoCropAnchor> videoAspectCropAnchor{};
  /// The video's bit rate.
  std::optional<double> videoBitRate{};
  /// Bits per colour component.
  std::optional<std::int64_t> videoBitDepth{};
  /// The colour space.
  std::optional<VAVTranscodeArgumentColorSpaceValue> videoColorSpace{};
  /// Frames from one key frame to the next.
  std::optional<std::int64_t> videoKeyFrames{};
  /// Decodes on the GPU.
  bool videoGPUDecoding = false;
  /// Encodes on the GPU.
  bool videoGPUEncoding = false;
  /// The number of the decoder card.
  std::optional<std::int64_t> redRocketDevice{};
  /// The codec's profile.
  std::optional<std::string> videoProfile{};

  friend bool operator==(const TranscodeVideoDetail&, const TranscodeVideoDetail&) = default;
};

/// The settings of the audio.
struct TranscodeAudioDetail {
  /// Leaves the audio out.
  bool noAudio = false;
  /// Copies the source's audio.
  bool copyAudio = false;
  /// The audio tracks to leave out, each under a flag that begins so, as in "-ac_omit_0".
  std::vector<std::int64_t> ignoredAudioTracks{};
  /// Writes discrete channels.
  bool discreteAudio = false;
  /// The audio codec.
  std::optional<VAVTranscodeArgumentAudioFormatValue> audioFormat{};
  /// Bits per channel.
  std::optional<std::int64_t> audioBitsPerChannel{};
  /// Samples per second.
  std::optional<std::int64_t> audioSampleRate{};
  /// The channel layout.
  std::optional<VAVTranscodeArgumentAudioChannelLayoutValue> audioChannelLayout{};
  /// The audio's bit rate.
  std::optional<std::int64_t> audioBitRate{};

  friend bool operator==(const TranscodeAudioDetail&, const TranscodeAudioDetail&) = default;
};

/// The settings of the timecode, its track and its burn-in.
struct TranscodeTimecodeDetail {
  /// Adds a timecode track.
  bool timecodeAddTrack = false;
  /// Burns the timecode into the picture.
  bool timecodeAddBurn = false;
  /// Where the timecode is burnt in; valid because it contains "-tc_burn".
  std::optional<TimecodeBurnAnchor> timecodeBurnAnchor{};
  /// The font size of the burnt-in timecode.
  std::optional<std::int64_t> timecodeBurnFontSize{};
  /// The font colour of the burnt-in timecode.
  std::optional<Color> timecodeBurnFontColor{};
  /// The colour of the box behind the burnt-in timecode.
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

/// The settings of the image watermark.
struct TranscodeWatermarkImageFileDetail {
  /// Where the image is placed.
  std::optional<WatermarkBurnAnchor> watermarkFileBurnAnchor{};
  /// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract.
  std::optional<std::filesystem::path> watermarkFileBurnFilePath{};
  /// The scale factor of the image.
  std::optional<double> watermarkFileBurnScale{};

  friend bool operator==(const TranscodeWatermarkImageFileDetail&, const TranscodeWatermarkImageFileDetail&) = default;
};

/// The settings of the text watermark.
struct TranscodeWatermarkTextDetail {
  /// Burns a text into the picture.
  bool watermarkTextAddBurn = false;
  /// The text.
  std::optional<std::string> watermarkTextBurnText{};
  /// The font size.
  std::optional<std::int64_t> watermarkTextBurnFontSize{};
  /// Where the text is placed.
  std::optional<VAVTranscodeArgumentOverlayAnchorValue> watermarkTextBurnAnchor{};
  /// The font colour.
  std::optional<Color> watermarkTextBurnFontColor{};
  /// The colour of the box behind the text.
  std::optional<Color> watermarkTextBurnBoxColor{};

  friend bool operator==(const TranscodeWatermarkTextDetail&, const TranscodeWatermarkTextDetail&) = default;
};

}  // namespace quillonic
