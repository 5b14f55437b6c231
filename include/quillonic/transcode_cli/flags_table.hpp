/// The transcoder's flags as constants, the ordered list of each family, and what each takes and means.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/transcode_cli/flags.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillonic {

namespace detail {

// The texts of the fixed values that follow flags, and what people see instead.
inline constexpr std::array<std::string_view, 3> textsOfVAVTranscodeArgumentFileFormatValue{
    std::string_view("qt"),
    std::string_view("mp4"),
    std::string_view("wav"),
};
inline constexpr std::array<std::string_view, 3> namesOfVAVTranscodeArgumentFileFormatValue{
    std::string_view("QuickTime"),
    std::string_view("MPEG-4"),
    std::string_view("Wave audio"),
};
inline constexpr std::array<std::string_view, 11> textsOfVAVTranscodeArgumentVideoCodecValue{
    std::string_view("dnxhd"),
    std::string_view("h264"),
    std::string_view("h265"),
    std::string_view("mjpeg"),
    std::string_view("mp4"),
    std::string_view("prores4444"),
    std::string_view("prores4444xq"),
    std::string_view("prores422"),
    std::string_view("prores422hq"),
    std::string_view("prores422lt"),
    std::string_view("prores422proxy"),
};
inline constexpr std::array<std::string_view, 11> namesOfVAVTranscodeArgumentVideoCodecValue{
    std::string_view("Avid DNxHD"),
    std::string_view("AVC, H.264"),
    std::string_view("HEVC, H.265"),
    std::string_view("Motion JPEG"),
    std::string_view("MPEG-4 Visual"),
    std::string_view("ProRes 4444"),
    std::string_view("ProRes 4444 XQ"),
    std::string_view("ProRes 422"),
    std::string_view("ProRes 422 HQ"),
    std::string_view("ProRes 422 LT"),
    std::string_view("ProRes 422 Proxy"),
};
inline constexpr std::array<std::string_view, 4> textsOfVAVTranscodeArgumentAspectRatioValue{
    std::string_view("match"),
    std::string_view("stretch"),
    std::string_view("letterbox"),
    std::string_view("crop"),
};
inline constexpr std::array<std::string_view, 4> namesOfVAVTranscodeArgumentAspectRatioValue{
    std::string_view("Keeps the source's aspect ratio"),
    std::string_view("Stretches to the frame"),
    std::string_view("Fits inside the frame, with bars"),
    std::string_view("Fills the frame and crops"),
};
inline constexpr std::array<std::string_view, 9> textsOfVAVTranscodeArgumentOverlayAnchorValue{
    std::string_view("tl"),
    std::string_view("tc"),
    std::string_view("tr"),
    std::string_view("cl"),
    std::string_view("c"),
    std::string_view("cr"),
    std::string_view("bl"),
    std::string_view("bc"),
    std::string_view("br"),
};
inline constexpr std::array<std::string_view, 9> namesOfVAVTranscodeArgumentOverlayAnchorValue{
    std::string_view("Top left"),
    std::string_view("Top centre"),
    std::string_view("Top right"),
    std::string_view("Centre left"),
    std::string_view("Centre"),
    std::string_view("Centre right"),
    std::string_view("Bottom left"),
    std::string_view("Bottom centre"),
    std::string_view("Bottom right"),
};
inline constexpr std::array<std::string_view, 5> textsOfVAVTranscodeArgumentColorSpaceValue{
    std::string_view("rec_2020"),
    std::string_view("rec_709"),
    std::string_view("sRGB"),
    std::string_view("smpte_c"),
    std::string_view("ebu_3213"),
};
inline constexpr std::array<std::string_view, 5> namesOfVAVTranscodeArgumentColorSpaceValue{
    std::string_view("ITU-R BT.2020"),
    std::string_view("ITU-R BT.709"),
    std::string_view("sRGB"),
    std::string_view("SMPTE C"),
    std::string_view("EBU Tech. 3213"),
};
inline constexpr std::array<std::string_view, 3> textsOfVAVTranscodeArgumentAudioFormatValue{
    std::string_view("lpcm"),
    std::string_view("aac"),
    std::string_view("apple_lossless"),
};
inline constexpr std::array<std::string_view, 3> namesOfVAVTranscodeArgumentAudioFormatValue{
    std::string_view("Linear PCM"),
    std::string_view("AAC"),
    std::string_view("Apple Lossless"),
};
inline constexpr std::array<std::string_view, 6> textsOfVAVTranscodeArgumentAudioChannelLayoutValue{
    std::string_view("mono"),
    std::string_view("stereo"),
    std::string_view("quad"),
    std::string_view("pent"),
    std::string_view("hex"),
    std::string_view("oct"),
};
inline constexpr std::array<std::string_view, 6> namesOfVAVTranscodeArgumentAudioChannelLayoutValue{
    std::string_view("One channel"),
    std::string_view("Two channels"),
    std::string_view("Four channels"),
    std::string_view("Five channels"),
    std::string_view("Six channels"),
    std::string_view("Eight channels"),
};
inline constexpr std::array<std::string_view, 2> textsOfVAVTranscodePresetValue{
    std::string_view("vantiro_cloud"),
    std::string_view("vantiro_4444xq"),
};
inline constexpr std::array<std::string_view, 2> namesOfVAVTranscodePresetValue{
    std::string_view("Small files for review in a browser"),
    std::string_view("Mastering quality"),
};
inline constexpr std::array<std::string_view, 6> textsOfVAVArriLookColorSpaces{
    std::string_view("rec709"),
    std::string_view("rec2020"),
    std::string_view("p3"),
    std::string_view("ap0"),
    std::string_view("awg3"),
    std::string_view("awg4"),
};
inline constexpr std::array<std::string_view, 6> namesOfVAVArriLookColorSpaces{
    std::string_view("ITU-R BT.709"),
    std::string_view("ITU-R BT.2020"),
    std::string_view("DCI P3"),
    std::string_view("ACES primaries 0"),
    std::string_view("ARRI Wide Gamut 3"),
    std::string_view("ARRI Wide Gamut 4"),
};
inline constexpr std::array<std::string_view, 3> textsOfVAVArriWhitePoints{
    std::string_view("d60"),
    std::string_view("dci"),
    std::string_view("d65"),
};
inline constexpr std::array<std::string_view, 3> namesOfVAVArriWhitePoints{
    std::string_view("D60"),
    std::string_view("DCI"),
    std::string_view("D65"),
};
inline constexpr std::array<std::string_view, 7> textsOfVAVArriCurves{
    std::string_view("bt1886"),
    std::string_view("dci"),
    std::string_view("pq"),
    std::string_view("hlg"),
    std::string_view("logc3"),
    std::string_view("logc4"),
    std::string_view("linear"),
};
inline constexpr std::array<std::string_view, 7> namesOfVAVArriCurves{
    std::string_view("ITU-R BT.1886"),
    std::string_view("DCI"),
    std::string_view("Perceptual quantiser"),
    std::string_view("Hybrid log-gamma"),
    std::string_view("ARRI LogC3"),
    std::string_view("ARRI LogC4"),
    std::string_view("Linear light"),
};
inline constexpr std::array<std::string_view, 2> textsOfVAVArriLookResolutions{
    std::string_view("ignore"),
    std::string_view("first"),
};
inline constexpr std::array<std::string_view, 2> namesOfVAVArriLookResolutions{
    std::string_view("Ignores it"),
    std::string_view("Takes the first one"),
};

}  // namespace detail

/// Prints how the tool is used.
inline constexpr VAVTranscodeCliCommand VAVCliHelpFlag{"-h"};
/// Prints the video codecs.
inline constexpr VAVTranscodeCliCommand VAVCliCodecsFlag{"-codecs"};
/// Prints the file formats.
inline constexpr VAVTranscodeCliCommand VAVCliFormatsFlag{"-formats"};
/// Prints the tool's version.
inline constexpr VAVTranscodeCliCommand VAVCliVersionFlag{"-version"};
/// Prints acknowledgements.
inline constexpr VAVTranscodeCliCommand VAVCliAcknowledgementFlag{"-acknowledge"};
/// Prints the presets.
inline constexpr VAVTranscodeCliCommand VAVCliPresetsFlag{"-presets"};
/// Prints the ways to fit a picture into a frame.
inline constexpr VAVTranscodeCliCommand VAVCliAspectRatioScalingsFlag{"-aspect_scalings"};
/// Prints the anchors for cropping.
inline constexpr VAVTranscodeCliCommand VAVCliCropAnchorsFlag{"-crop_anchors"};
/// Prints the colour spaces.
inline constexpr VAVTranscodeCliCommand VAVCliColorSpacesFlag{"-color_spaces"};
/// Prints the channel layouts.
inline constexpr VAVTranscodeCliCommand VAVCliAudioChannelLayoutsFlag{"-audio_channel_layouts"};
/// Prints the anchors for a burnt-in timecode.
inline constexpr VAVTranscodeCliCommand VAVCliTimecodeBurnAnchorsFlag{"-tc_burn_anchors"};
/// Prints the anchors for an image watermark.
inline constexpr VAVTranscodeCliCommand VAVCliWatermarkFileBurnAnchorsFlag{"-wmf_burn_anchors"};
/// Prints the GPU platforms.
inline constexpr VAVTranscodeCliCommand VAVCliGpuPlatformsFlag{"-gpu_platforms"};

/// The listed cases of `VAVTranscodeCliCommand`.
template <>
struct CaseTable<VAVTranscodeCliCommand> {
  static constexpr CaseList cases{
      VAVCliHelpFlag,
      VAVCliCodecsFlag,
      VAVCliFormatsFlag,
      VAVCliVersionFlag,
      VAVCliAcknowledgementFlag,
      VAVCliPresetsFlag,
      VAVCliAspectRatioScalingsFlag,
      VAVCliCropAnchorsFlag,
      VAVCliColorSpacesFlag,
      VAVCliAudioChannelLayoutsFlag,
      VAVCliTimecodeBurnAnchorsFlag,
      VAVCliGpuPlatformsFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    cliHelpFlag,
    cliCodecsFlag,
    cliFormatsFlag,
    cliVersionFlag,
    cliAcknowledgementFlag,
    cliPresetsFlag,
    cliAspectRatioScalingsFlag,
    cliCropAnchorsFlag,
    cliColorSpacesFlag,
    cliAudioChannelLayoutsFlag,
    cliTimecodeBurnAnchorsFlag,
    cliGpuPlatformsFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 13> flags{{
      {"-h", "Help", FlagValueKind::none, "Prints how the tool is used."},
      {"-codecs", "List of codecs", FlagValueKind::none, "Prints the video codecs."},
      {"-formats", "List of formats", FlagValueKind::none, "Prints the file formats."},
      {"-version", "Version", FlagValueKind::none, "Prints the tool's version."},
      {"-acknowledge", "Acknowledgements", FlagValueKind::none, "Prints acknowledgements."},
      {"-presets", "List of presets", FlagValueKind::none, "Prints the presets."},
      {"-aspect_scalings", "List of aspect scalings", FlagValueKind::none,
       "Prints the ways to fit a picture into a frame."},
      {"-crop_anchors", "List of crop anchors", FlagValueKind::none, "Prints the anchors for cropping."},
      {"-color_spaces", "List of colour spaces", FlagValueKind::none, "Prints the colour spaces."},
      {"-audio_channel_layouts", "List of channel layouts", FlagValueKind::none,
       "Prints the channel layouts."},
      {"-tc_burn_anchors", "List of timecode anchors", FlagValueKind::none,
       "Prints the anchors for a burnt-in timecode."},
      {"-wmf_burn_anchors", "List of watermark anchors", FlagValueKind::none,
       "Prints the anchors for an image watermark."},
      {"-gpu_platforms", "List of GPU platforms", FlagValueKind::none, "Prints the GPU platforms."},
  }};
};

/// An input file; also the prefix of numbered ones, as in "-in_0_2": group 0, position 2. Files are taken
/// group by group, in each by position, both ascending. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVInputPrefixFlag{"-in"};
/// The output file. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVOutputFileFlag{"-out"};
/// The file that receives the progress. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVProgressFileFlag{"-progress_file"};
/// A prefix for each progress line. Takes a text.
inline constexpr VAVTranscodeArgumentFlag VAVProgressOutputPrefixFlag{"-progress_prefix"};
/// Replaces an existing output file.
inline constexpr VAVTranscodeArgumentFlag VAVOverwriteExistingFlag{"-overwrite"};
/// The container format. Takes a `VAVTranscodeArgumentFileFormatValue`.
inline constexpr VAVTranscodeArgumentFlag VAVFileFormatFlag{"-file_format"};
/// The file of a colour look-up table. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVColorLutFileFlag{"-clut"};
/// Arranges the output for playback over a network.
inline constexpr VAVTranscodeArgumentFlag VAVPrepareForWebFlag{"-web"};
/// A preset built into the tool. Takes a `VAVTranscodePresetValue`.
inline constexpr VAVTranscodeArgumentFlag VAVPresetFlag{"-preset"};
/// The folder for temporary files. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVWorkDirectoryFlag{"-work_dir"};

/// The listed cases of `VAVTranscodeArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeArgumentFlag> {
  static constexpr CaseList cases{
      VAVInputPrefixFlag,
      VAVOutputFileFlag,
      VAVProgressFileFlag,
      VAVProgressOutputPrefixFlag,
      VAVOverwriteExistingFlag,
      VAVFileFormatFlag,
      VAVColorLutFileFlag,
      VAVPrepareForWebFlag,
      VAVPresetFlag,
      VAVWorkDirectoryFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    inputPrefixFlag,
    outputFileFlag,
    progressFileFlag,
    progressOutputPrefixFlag,
    overwriteExistingFlag,
    fileFormatFlag,
    colorLutFileFlag,
    prepareForWebFlag,
    presetFlag,
    workDirectoryFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 10> flags{{
      {"-in", "Input", FlagValueKind::path,
       "An input file; also the prefix of numbered ones, as in \"-in_0_2\": group 0, position 2. Files are taken group by group, in each by position, both ascending."},
      {"-out", "Output", FlagValueKind::path, "The output file."},
      {"-progress_file", "Progress file", FlagValueKind::path, "The file that receives the progress."},
      {"-progress_prefix", "Progress prefix", FlagValueKind::text, "A prefix for each progress line."},
      {"-overwrite", "Overwrite", FlagValueKind::none, "Replaces an existing output file."},
      {"-file_format", "Container", FlagValueKind::listed,
       "The container format.", detail::textsOfVAVTranscodeArgumentFileFormatValue, detail::namesOfVAVTranscodeArgumentFileFormatValue},
      {"-clut", "LUT", FlagValueKind::path, "The file of a colour look-up table."},
      {"-web", "Prepare for web", FlagValueKind::none, "Arranges the output for playback over a network."},
      {"-preset", "Built-in preset", FlagValueKind::listed,
       "A preset built into the tool.", detail::textsOfVAVTranscodePresetValue, detail::namesOfVAVTranscodePresetValue},
      {"-work_dir", "Work folder", FlagValueKind::path, "The folder for temporary files."},
  }};
};

/// Leaves the video out.
inline constexpr VAVTranscodeVideoArgumentFlag VAVNoVideoFlag{"-vn"};
/// The video codec. Takes a `VAVTranscodeArgumentVideoCodecValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoFormatFlag{"-vcodec"};
/// Frames per second. Takes a decimal number.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoFrameRateFlag{"-vr"};
/// The frame size in pixels, as in "960x540". Takes a frame size.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoDimensionsFlag{"-dims"};
/// How to fit a picture of another aspect ratio. Takes a `VAVTranscodeArgumentAspectRatioValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoAspectScalingFlag{"-aspect_scaling"};
/// The part of the picture that a crop keeps. Takes a `VideoCropAnchor`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoAspectCropAnchorFlag{"-crop_anchor"};
/// The video's bit rate in megabits per second; the cloud preset has 3. Takes a decimal number.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoBitRateFlag{"-vbr"};
/// Bits per colour component. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoBitDepthFlag{"-vbd"};
/// The colour space; whether the picture is converted to it or only tagged with it is the tool's choice.
/// Takes a `VAVTranscodeArgumentColorSpaceValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoColorSpaceFlag{"-c_space"};
/// Frames from one key frame to the next. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoKeyFramesFlag{"-key_frames"};
/// Decodes on the GPU.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoGPUDecodingFlag{"-gpu_decoding"};
/// Encodes on the GPU.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoGPUEncodingFlag{"-gpu_encoding"};
/// The number of the decoder card, in the tool's own numbering. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVRedRocketDeviceFlag{"-red_rocket_device"};
/// The codec's profile, by the tool's own name for it. Takes a text.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoProfileFlag{"-vprofile"};

/// The listed cases of `VAVTranscodeVideoArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeVideoArgumentFlag> {
  static constexpr CaseList cases{
      VAVNoVideoFlag,
      VAVVideoFormatFlag,
      VAVVideoFrameRateFlag,
      VAVVideoDimensionsFlag,
      VAVVideoAspectScalingFlag,
      VAVVideoAspectCropAnchorFlag,
      VAVVideoBitRateFlag,
      VAVVideoBitDepthFlag,
      VAVVideoColorSpaceFlag,
      VAVVideoKeyFramesFlag,
      VAVVideoGPUDecodingFlag,
      VAVVideoGPUEncodingFlag,
      VAVRedRocketDeviceFlag,
      VAVVideoProfileFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    noVideoFlag,
    videoFormatFlag,
    videoFrameRateFlag,
    videoDimensionsFlag,
    videoAspectScalingFlag,
    videoAspectCropAnchorFlag,
    videoBitRateFlag,
    videoBitDepthFlag,
    videoColorSpaceFlag,
    videoKeyFramesFlag,
    videoGPUDecodingFlag,
    videoGPUEncodingFlag,
    redRocketDeviceFlag,
    videoProfileFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 14> flags{{
      {"-vn", "No video", FlagValueKind::none, "Leaves the video out."},
      {"-vcodec", "Video codec", FlagValueKind::listed,
       "The video codec.", detail::textsOfVAVTranscodeArgumentVideoCodecValue, detail::namesOfVAVTranscodeArgumentVideoCodecValue},
      {"-vr", "Frame rate (fps)", FlagValueKind::decimal, "Frames per second."},
      {"-dims", "Frame size", FlagValueKind::size, "The frame size in pixels, as in \"960x540\"."},
      {"-aspect_scaling", "Aspect scaling", FlagValueKind::listed,
       "How to fit a picture of another aspect ratio.", detail::textsOfVAVTranscodeArgumentAspectRatioValue, detail::namesOfVAVTranscodeArgumentAspectRatioValue},
      {"-crop_anchor", "Crop anchor", FlagValueKind::listed,
       "The part of the picture that a crop keeps.", detail::textsOfVAVTranscodeArgumentOverlayAnchorValue, detail::namesOfVAVTranscodeArgumentOverlayAnchorValue},
      {"-vbr", "Video bit rate (Mb/s)", FlagValueKind::decimal,
       "The video's bit rate in megabits per second; the cloud preset has 3."},
      {"-vbd", "Bits per colour", FlagValueKind::integer, "Bits per colour component."},
      {"-c_space", "Colour space", FlagValueKind::listed,
       "The colour space; whether the picture is converted to it or only tagged with it is the tool's choice.", detail::textsOfVAVTranscodeArgumentColorSpaceValue, detail::namesOfVAVTranscodeArgumentColorSpaceValue},
      {"-key_frames", "Key frame distance", FlagValueKind::integer, "Frames from one key frame to the next."},
      {"-gpu_decoding", "Decode on GPU", FlagValueKind::none, "Decodes on the GPU."},
      {"-gpu_encoding", "Encode on GPU", FlagValueKind::none, "Encodes on the GPU."},
      {"-red_rocket_device", "Decoder card", FlagValueKind::integer,
       "The number of the decoder card, in the tool's own numbering."},
      {"-vprofile", "Video profile", FlagValueKind::text,
       "The codec's profile, by the tool's own name for it."},
  }};
};

/// Leaves the audio out.
inline constexpr VAVTranscodeAudioArgumentFlag VAVNoAudioFlag{"-an"};
/// Copies the source's audio.
inline constexpr VAVTranscodeAudioArgumentFlag VAVCopyAudioFlag{"-acopy"};
/// The audio tracks to leave out, counted from 0, each under a flag that begins so, as in "-ac_omit_0". Takes
/// an integer.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioIgnoreTracksPrefixFlag{"-ac_omit"};
/// Writes discrete output channels; what that makes of a channel layout is the tool's choice.
inline constexpr VAVTranscodeAudioArgumentFlag VAVDiscreteAudioFlag{"-adiscrete"};
/// The audio codec. Takes a `VAVTranscodeArgumentAudioFormatValue`.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioFormatFlag{"-acodec"};
/// Bits per sample of each channel. Takes an integer.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioBitsPerChannelFlag{"-abpc"};
/// Samples per second, in hertz. Takes an integer.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioSampleRateFlag{"-asr"};
/// The channel layout. Takes a `VAVTranscodeArgumentAudioChannelLayoutValue`.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioChannelLayoutFlag{"-acl"};
/// The audio's bit rate in the tool's own unit; the library does not scale it. Takes an integer.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioBitRateFlag{"-abr"};

/// The listed cases of `VAVTranscodeAudioArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeAudioArgumentFlag> {
  static constexpr CaseList cases{
      VAVNoAudioFlag,
      VAVCopyAudioFlag,
      VAVAudioIgnoreTracksPrefixFlag,
      VAVDiscreteAudioFlag,
      VAVAudioFormatFlag,
      VAVAudioBitsPerChannelFlag,
      VAVAudioSampleRateFlag,
      VAVAudioChannelLayoutFlag,
      VAVAudioBitRateFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    noAudioFlag,
    copyAudioFlag,
    audioIgnoreTracksPrefixFlag,
    discreteAudioFlag,
    audioFormatFlag,
    audioBitsPerChannelFlag,
    audioSampleRateFlag,
    audioChannelLayoutFlag,
    audioBitRateFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 9> flags{{
      {"-an", "No audio", FlagValueKind::none, "Leaves the audio out."},
      {"-acopy", "Copy audio", FlagValueKind::none, "Copies the source's audio."},
      {"-ac_omit", "Omitted audio tracks", FlagValueKind::integer,
       "The audio tracks to leave out, counted from 0, each under a flag that begins so, as in \"-ac_omit_0\"."},
      {"-adiscrete", "Discrete channels", FlagValueKind::none,
       "Writes discrete output channels; what that makes of a channel layout is the tool's choice."},
      {"-acodec", "Audio codec", FlagValueKind::listed,
       "The audio codec.", detail::textsOfVAVTranscodeArgumentAudioFormatValue, detail::namesOfVAVTranscodeArgumentAudioFormatValue},
      {"-abpc", "Bits per sample", FlagValueKind::integer, "Bits per sample of each channel."},
      {"-asr", "Sample rate (Hz)", FlagValueKind::integer, "Samples per second, in hertz."},
      {"-acl", "Channel layout", FlagValueKind::listed,
       "The channel layout.", detail::textsOfVAVTranscodeArgumentAudioChannelLayoutValue, detail::namesOfVAVTranscodeArgumentAudioChannelLayoutValue},
      {"-abr", "Audio bit rate", FlagValueKind::integer,
       "The audio's bit rate in the tool's own unit; the library does not scale it."},
  }};
};

/// Adds a timecode track.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeAddTrackFlag{"-tc_track"};
/// Burns the timecode into the picture.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeAddBurnFlag{"-tc_burn"};
/// Where the timecode is burnt in; valid because it contains "-tc_burn". Takes a `TimecodeBurnAnchor`.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeBurnAnchorFlag{"-tc_burn_anchor"};
/// The font size of the burnt-in timecode, in the tool's own unit. Takes an integer.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeBurnFontSize{"-tc_burn_size"};
/// The font colour of the burnt-in timecode. Takes a colour as red, green and blue, 0 to 255 each: "255,0,0".
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeBurnFontRGB{"-tc_burn_font_rgb"};
/// The colour of the box around the burnt-in timecode. Takes a colour as red, green and blue, 0 to 255 each:
/// "255,0,0".
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeBurnBoxRGB{"-tc_burn_box_rgb"};
/// Takes the timecode from the source.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeMatchSourceFlag{"-tc_match"};
/// Takes the timecode from the creation date.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeFromCreationDateFlag{"-tc_creation"};
/// Starts at this timecode. Takes a timecode.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeCustomFlag{"-tc_custom"};
/// The timecode's frames per second. Takes a decimal number.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeFrameRateFlag{"-tc_rate"};
/// Counts in drop frame.
inline constexpr VAVTranscodeTimecodeArgumentFlag VAVTimecodeIsDropFlag{"-tc_drop"};

/// The listed cases of `VAVTranscodeTimecodeArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeTimecodeArgumentFlag> {
  static constexpr CaseList cases{
      VAVTimecodeAddTrackFlag,
      VAVTimecodeAddBurnFlag,
      VAVTimecodeBurnFontSize,
      VAVTimecodeBurnFontRGB,
      VAVTimecodeBurnBoxRGB,
      VAVTimecodeMatchSourceFlag,
      VAVTimecodeFromCreationDateFlag,
      VAVTimecodeCustomFlag,
      VAVTimecodeFrameRateFlag,
      VAVTimecodeIsDropFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    timecodeAddTrackFlag,
    timecodeAddBurnFlag,
    timecodeBurnFontSize,
    timecodeBurnFontRGB,
    timecodeBurnBoxRGB,
    timecodeMatchSourceFlag,
    timecodeFromCreationDateFlag,
    timecodeCustomFlag,
    timecodeFrameRateFlag,
    timecodeIsDropFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 11> flags{{
      {"-tc_track", "Timecode track", FlagValueKind::none, "Adds a timecode track."},
      {"-tc_burn", "Burn in timecode", FlagValueKind::none, "Burns the timecode into the picture."},
      {"-tc_burn_anchor", "Timecode position", FlagValueKind::listed,
       "Where the timecode is burnt in; valid because it contains \"-tc_burn\".", detail::textsOfVAVTranscodeArgumentOverlayAnchorValue, detail::namesOfVAVTranscodeArgumentOverlayAnchorValue},
      {"-tc_burn_size", "Timecode font size", FlagValueKind::integer,
       "The font size of the burnt-in timecode, in the tool's own unit."},
      {"-tc_burn_font_rgb", "Timecode font colour", FlagValueKind::color,
       "The font colour of the burnt-in timecode."},
      {"-tc_burn_box_rgb", "Timecode box colour", FlagValueKind::color,
       "The colour of the box around the burnt-in timecode."},
      {"-tc_match", "Timecode of the source", FlagValueKind::none, "Takes the timecode from the source."},
      {"-tc_creation", "Timecode of the creation date", FlagValueKind::none,
       "Takes the timecode from the creation date."},
      {"-tc_custom", "Start timecode", FlagValueKind::timecode, "Starts at this timecode."},
      {"-tc_rate", "Timecode rate (fps)", FlagValueKind::decimal, "The timecode's frames per second."},
      {"-tc_drop", "Drop frame", FlagValueKind::none, "Counts in drop frame."},
  }};
};

/// Where the image is placed. Takes a `WatermarkBurnAnchor`.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnAnchorFlag{"-wmf_anchor"};
/// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract. Takes a
/// path.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnFilePathFlag{"-wmf_path"};
/// What both sides of the image are multiplied by; 1 keeps its size. Takes a decimal number.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnScaleFlag{"-wmf_scale"};

/// The listed cases of `VAVTranscodeWatermarkFileArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeWatermarkFileArgumentFlag> {
  static constexpr CaseList cases{
      VAVWatermarkFileBurnAnchorFlag,
      VAVWatermarkFileBurnFilePathFlag,
      VAVWatermarkFileBurnScaleFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    watermarkFileBurnAnchorFlag,
    watermarkFileBurnFilePathFlag,
    watermarkFileBurnScaleFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 3> flags{{
      {"-wmf_anchor", "Watermark image position", FlagValueKind::listed,
       "Where the image is placed.", detail::textsOfVAVTranscodeArgumentOverlayAnchorValue, detail::namesOfVAVTranscodeArgumentOverlayAnchorValue},
      {"-wmf_path", "Watermark image", FlagValueKind::path,
       "The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract."},
      {"-wmf_scale", "Watermark image scale", FlagValueKind::decimal,
       "What both sides of the image are multiplied by; 1 keeps its size."},
  }};
};

/// Burns a text into the picture.
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextAddBurnFlag{"-wmt_burn"};
/// The text. Takes a text.
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextBurnTextFlag{"-wmt_text"};
/// The font size of the text, in the tool's own unit. Takes an integer.
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextBurnFontSizeFlag{"-wmt_size"};
/// Where the text is placed. Takes a `VAVTranscodeArgumentOverlayAnchorValue`.
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextBurnAnchorFlag{"-wmt_anchor"};
/// The font colour of the text. Takes a colour as red, green and blue, 0 to 255 each: "255,0,0".
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextBurnFontRGBFlag{"-wmt_font_rgb"};
/// The colour of the box around the text. Takes a colour as red, green and blue, 0 to 255 each: "255,0,0".
inline constexpr VAVTranscodeWatermarkTextArgumentFlag VAVWatermarkTextBurnBoxRGBFlag{"-wmt_box_rgb"};

/// The listed cases of `VAVTranscodeWatermarkTextArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeWatermarkTextArgumentFlag> {
  static constexpr CaseList cases{
      VAVWatermarkTextAddBurnFlag,
      VAVWatermarkTextBurnTextFlag,
      VAVWatermarkTextBurnFontSizeFlag,
      VAVWatermarkTextBurnAnchorFlag,
      VAVWatermarkTextBurnFontRGBFlag,
      VAVWatermarkTextBurnBoxRGBFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    watermarkTextAddBurnFlag,
    watermarkTextBurnTextFlag,
    watermarkTextBurnFontSizeFlag,
    watermarkTextBurnAnchorFlag,
    watermarkTextBurnFontRGBFlag,
    watermarkTextBurnBoxRGBFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 6> flags{{
      {"-wmt_burn", "Burn in text", FlagValueKind::none, "Burns a text into the picture."},
      {"-wmt_text", "Watermark text", FlagValueKind::text, "The text."},
      {"-wmt_size", "Watermark font size", FlagValueKind::integer,
       "The font size of the text, in the tool's own unit."},
      {"-wmt_anchor", "Watermark text position", FlagValueKind::listed,
       "Where the text is placed.", detail::textsOfVAVTranscodeArgumentOverlayAnchorValue, detail::namesOfVAVTranscodeArgumentOverlayAnchorValue},
      {"-wmt_font_rgb", "Watermark font colour", FlagValueKind::color, "The font colour of the text."},
      {"-wmt_box_rgb", "Watermark box colour", FlagValueKind::color,
       "The colour of the box around the text."},
  }};
};

/// The colour primaries. Takes one of `VAVArriLookColorSpaces`.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpacePrimaryFlag{"-arri_cs"};
/// The white point. Takes one of `VAVArriWhitePoints`.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpaceWhitePointFlag{"-arri_wp"};
/// The transfer curve. Takes one of `VAVArriCurves`.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpaceCurveFlag{"-arri_curve"};
/// What to do with an invalid look. Takes one of `VAVArriLookResolutions`.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookInvalidLookResolutionFlag{"-arri_inv_res"};

/// The listed cases of `VAVTranscodeArriLookArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeArriLookArgumentFlag> {
  static constexpr CaseList cases{
      VAVArriLookColorSpacePrimaryFlag,
      VAVArriLookColorSpaceWhitePointFlag,
      VAVArriLookColorSpaceCurveFlag,
      VAVArriLookInvalidLookResolutionFlag,
  };
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    arriLookColorSpacePrimaryFlag,
    arriLookColorSpaceWhitePointFlag,
    arriLookColorSpaceCurveFlag,
    arriLookInvalidLookResolutionFlag,
  };
  static constexpr std::array<TranscodeFlagRow, 4> flags{{
      {"-arri_cs", "ARRI colour primaries", FlagValueKind::listed,
       "The colour primaries.", detail::textsOfVAVArriLookColorSpaces, detail::namesOfVAVArriLookColorSpaces},
      {"-arri_wp", "ARRI white point", FlagValueKind::listed,
       "The white point.", detail::textsOfVAVArriWhitePoints, detail::namesOfVAVArriWhitePoints},
      {"-arri_curve", "ARRI curve", FlagValueKind::listed,
       "The transfer curve.", detail::textsOfVAVArriCurves, detail::namesOfVAVArriCurves},
      {"-arri_inv_res", "ARRI invalid look", FlagValueKind::listed,
       "What to do with an invalid look.", detail::textsOfVAVArriLookResolutions, detail::namesOfVAVArriLookResolutions},
  }};
};

namespace detail {

// The texts of all listed flags, by family.
inline constexpr std::array<std::string_view, 68> knownCommandFlags{
    std::string_view("-h"),
    std::string_view("-codecs"),
    std::string_view("-formats"),
    std::string_view("-version"),
    std::string_view("-acknowledge"),
    std::string_view("-presets"),
    std::string_view("-aspect_scalings"),
    std::string_view("-crop_anchors"),
    std::string_view("-color_spaces"),
    std::string_view("-audio_channel_layouts"),
    std::string_view("-tc_burn_anchors"),
    std::string_view("-gpu_platforms"),
    std::string_view("-in"),
    std::string_view("-out"),
    std::string_view("-progress_file"),
    std::string_view("-progress_prefix"),
    std::string_view("-overwrite"),
    std::string_view("-file_format"),
    std::string_view("-clut"),
    std::string_view("-web"),
    std::string_view("-preset"),
    std::string_view("-work_dir"),
    std::string_view("-vn"),
    std::string_view("-vcodec"),
    std::string_view("-vr"),
    std::string_view("-dims"),
    std::string_view("-aspect_scaling"),
    std::string_view("-crop_anchor"),
    std::string_view("-vbr"),
    std::string_view("-vbd"),
    std::string_view("-c_space"),
    std::string_view("-key_frames"),
    std::string_view("-gpu_decoding"),
    std::string_view("-gpu_encoding"),
    std::string_view("-red_rocket_device"),
    std::string_view("-vprofile"),
    std::string_view("-an"),
    std::string_view("-acopy"),
    std::string_view("-ac_omit"),
    std::string_view("-adiscrete"),
    std::string_view("-acodec"),
    std::string_view("-abpc"),
    std::string_view("-asr"),
    std::string_view("-acl"),
    std::string_view("-abr"),
    std::string_view("-tc_track"),
    std::string_view("-tc_burn"),
    std::string_view("-tc_burn_size"),
    std::string_view("-tc_burn_font_rgb"),
    std::string_view("-tc_burn_box_rgb"),
    std::string_view("-tc_match"),
    std::string_view("-tc_creation"),
    std::string_view("-tc_custom"),
    std::string_view("-tc_rate"),
    std::string_view("-tc_drop"),
    std::string_view("-wmf_anchor"),
    std::string_view("-wmf_path"),
    std::string_view("-wmf_scale"),
    std::string_view("-wmt_burn"),
    std::string_view("-wmt_text"),
    std::string_view("-wmt_size"),
    std::string_view("-wmt_anchor"),
    std::string_view("-wmt_font_rgb"),
    std::string_view("-wmt_box_rgb"),
    std::string_view("-arri_cs"),
    std::string_view("-arri_wp"),
    std::string_view("-arri_curve"),
    std::string_view("-arri_inv_res"),
};

// The flags whose value is a path and keeps its letter case.
inline constexpr std::array<std::string_view, 5> pathFlags{
    std::string_view("-in"),
    std::string_view("-out"),
    std::string_view("-progress_file"),
    std::string_view("-clut"),
    std::string_view("-work_dir"),
};

// The rows of all flags, by family.
inline constexpr std::array<std::span<const TranscodeFlagRow>, 8> flagRows{
    CaseTable<VAVTranscodeCliCommand>::flags,
    CaseTable<VAVTranscodeArgumentFlag>::flags,
    CaseTable<VAVTranscodeVideoArgumentFlag>::flags,
    CaseTable<VAVTranscodeAudioArgumentFlag>::flags,
    CaseTable<VAVTranscodeTimecodeArgumentFlag>::flags,
    CaseTable<VAVTranscodeWatermarkFileArgumentFlag>::flags,
    CaseTable<VAVTranscodeWatermarkTextArgumentFlag>::flags,
    CaseTable<VAVTranscodeArriLookArgumentFlag>::flags,
};

}  // namespace detail

/// The row of a flag of any family, hyphen included; null for a text without a constant.
constexpr const TranscodeFlagRow* transcodeFlagRow(std::string_view flag) noexcept {
  for (const auto& rows : detail::flagRows) {
    if (const auto* row = detail::rowWhere(rows, &TranscodeFlagRow::text, flag)) return row;
  }
  return nullptr;
}

}  // namespace quillonic
