/// The transcoder's flags and fixed values, each under its name, and the ordered list of each enumeration.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/transcode_cli/enumerations.hpp>

#include <array>
#include <string_view>

namespace quillonic {

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
/// Prints the ways of fitting a picture into a frame.
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
  static constexpr std::array<std::string_view, 13> switches{
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
      std::string_view("-wmf_burn_anchors"),
      std::string_view("-gpu_platforms"),
  };
};

/// An input file; also the prefix of the numbered input files, as in "-in_0_0". Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVInputPrefixFlag{"-in"};
/// The output file. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVOutputFileFlag{"-out"};
/// The file that receives the progress. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVProgressFileFlag{"-progress_file"};
/// A text put before each progress line. Takes a text.
inline constexpr VAVTranscodeArgumentFlag VAVProgressOutputPrefixFlag{"-progress_prefix"};
/// Replaces an existing output file.
inline constexpr VAVTranscodeArgumentFlag VAVOverwriteExistingFlag{"-overwrite"};
/// The container format. Takes a `VAVTranscodeArgumentFileFormatValue`.
inline constexpr VAVTranscodeArgumentFlag VAVFileFormatFlag{"-file_format"};
/// The file of a colour look-up table. Takes a path.
inline constexpr VAVTranscodeArgumentFlag VAVColorLutFileFlag{"-clut"};
/// Lays the output out for playing over a network.
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
  static constexpr std::array<std::string_view, 2> switches{
      std::string_view("-overwrite"),
      std::string_view("-web"),
  };
};

/// Leaves the video out.
inline constexpr VAVTranscodeVideoArgumentFlag VAVNoVideoFlag{"-vn"};
/// The video codec. Takes a `VAVTranscodeArgumentVideoCodecValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoFormatFlag{"-vcodec"};
/// Frames per second. Takes a decimal number.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoFrameRateFlag{"-vr"};
/// The frame size in pixels, as in "960x540". Takes a frame size.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoDimensionsFlag{"-dims"};
/// How a picture of another aspect ratio is fitted. Takes a `VAVTranscodeArgumentAspectRatioValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoAspectScalingFlag{"-aspect_scaling"};
/// The part of the picture that a crop keeps. Takes a `VideoCropAnchor`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoAspectCropAnchorFlag{"-crop_anchor"};
/// The video's bit rate in megabits per second, as the cloud preset's 3 is. Takes a decimal number.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoBitRateFlag{"-vbr"};
/// Bits per colour component. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoBitDepthFlag{"-vbd"};
/// The colour space. Takes a `VAVTranscodeArgumentColorSpaceValue`.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoColorSpaceFlag{"-c_space"};
/// Frames from one key frame to the next. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoKeyFramesFlag{"-key_frames"};
/// Decodes on the GPU.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoGPUDecodingFlag{"-gpu_decoding"};
/// Encodes on the GPU.
inline constexpr VAVTranscodeVideoArgumentFlag VAVVideoGPUEncodingFlag{"-gpu_encoding"};
/// The number of the decoder card. Takes an integer.
inline constexpr VAVTranscodeVideoArgumentFlag VAVRedRocketDeviceFlag{"-red_rocket_device"};
/// The codec's profile. Takes a text.
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
  static constexpr std::array<std::string_view, 3> switches{
      std::string_view("-vn"),
      std::string_view("-gpu_decoding"),
      std::string_view("-gpu_encoding"),
  };
};

/// Leaves the audio out.
inline constexpr VAVTranscodeAudioArgumentFlag VAVNoAudioFlag{"-an"};
/// Copies the source's audio.
inline constexpr VAVTranscodeAudioArgumentFlag VAVCopyAudioFlag{"-acopy"};
/// The audio tracks to leave out, each under a flag that begins so, as in "-ac_omit_0". Takes an integer.
inline constexpr VAVTranscodeAudioArgumentFlag VAVAudioIgnoreTracksPrefixFlag{"-ac_omit"};
/// Writes discrete channels.
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
  static constexpr std::array<std::string_view, 3> switches{
      std::string_view("-an"),
      std::string_view("-acopy"),
      std::string_view("-adiscrete"),
  };
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
/// The colour of the box behind the burnt-in timecode. Takes a colour as red, green and blue, 0 to 255 each: "255,0,0".
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
  static constexpr std::array<std::string_view, 5> switches{
      std::string_view("-tc_track"),
      std::string_view("-tc_burn"),
      std::string_view("-tc_match"),
      std::string_view("-tc_creation"),
      std::string_view("-tc_drop"),
  };
};

/// Where the image is placed. Takes a `WatermarkBurnAnchor`.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnAnchorFlag{"-wmf_anchor"};
/// The image file. Unlike other paths it is lower-cased when words are parsed; a fixed contract. Takes a path.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnFilePathFlag{"-wmf_path"};
/// What both sides of the image are multiplied by. Takes a decimal number.
inline constexpr VAVTranscodeWatermarkFileArgumentFlag VAVWatermarkFileBurnScaleFlag{"-wmf_scale"};

/// The listed cases of `VAVTranscodeWatermarkFileArgumentFlag`.
template <>
struct CaseTable<VAVTranscodeWatermarkFileArgumentFlag> {
  static constexpr CaseList cases{
      VAVWatermarkFileBurnAnchorFlag,
      VAVWatermarkFileBurnFilePathFlag,
      VAVWatermarkFileBurnScaleFlag,
  };
  static constexpr std::array<std::string_view, 0> switches{
  };
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
/// The colour of the box behind the text. Takes a colour as red, green and blue, 0 to 255 each: "255,0,0".
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
  static constexpr std::array<std::string_view, 1> switches{
      std::string_view("-wmt_burn"),
  };
};

/// The colour primaries, one of `VAVArriLookColorSpaces`. Takes a text.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpacePrimaryFlag{"-arri_cs"};
/// The white point, one of `VAVArriWhitePoints`. Takes a text.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpaceWhitePointFlag{"-arri_wp"};
/// The transfer curve, one of `VAVArriCurves`. Takes a text.
inline constexpr VAVTranscodeArriLookArgumentFlag VAVArriLookColorSpaceCurveFlag{"-arri_curve"};
/// What happens to an invalid look, one of `VAVArriLookResolutions`. Takes a text.
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
  static constexpr std::array<std::string_view, 0> switches{
  };
};

/// QuickTime.
inline constexpr VAVTranscodeArgumentFileFormatValue VAVQuickTimeFileFormat{"qt"};
/// MPEG-4.
inline constexpr VAVTranscodeArgumentFileFormatValue VAVMp4Format{"mp4"};
/// Wave audio.
inline constexpr VAVTranscodeArgumentFileFormatValue VAVWaveFileFormat{"wav"};

/// The listed cases of `VAVTranscodeArgumentFileFormatValue`.
template <>
struct CaseTable<VAVTranscodeArgumentFileFormatValue> {
  static constexpr CaseList cases{
      VAVQuickTimeFileFormat,
      VAVMp4Format,
      VAVWaveFileFormat,
  };
  static constexpr const auto& flag = VAVFileFormatFlag;
};

/// Avid DNxHD.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVDnxhdCodec{"dnxhd"};
/// AVC, H.264.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVAvcH264Codec{"h264"};
/// HEVC, H.265.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVHevcCodec{"h265"};
/// Motion JPEG.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVMotionJpegCodec{"mjpeg"};
/// MPEG-4 Visual.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVMpeg4Codec{"mp4"};
/// ProRes 4444.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes4444{"prores4444"};
/// ProRes 4444 XQ.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes4444XQ{"prores4444xq"};
/// ProRes 422.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes422{"prores422"};
/// ProRes 422 HQ.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes422HQ{"prores422hq"};
/// ProRes 422 LT.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes422LT{"prores422lt"};
/// ProRes 422 Proxy.
inline constexpr VAVTranscodeArgumentVideoCodecValue VAVProRes422Proxy{"prores422proxy"};

/// The listed cases of `VAVTranscodeArgumentVideoCodecValue`.
template <>
struct CaseTable<VAVTranscodeArgumentVideoCodecValue> {
  static constexpr CaseList cases{
      VAVDnxhdCodec,
      VAVAvcH264Codec,
      VAVHevcCodec,
      VAVMotionJpegCodec,
      VAVMpeg4Codec,
      VAVProRes4444,
      VAVProRes4444XQ,
      VAVProRes422,
      VAVProRes422HQ,
      VAVProRes422LT,
      VAVProRes422Proxy,
  };
  static constexpr const auto& flag = VAVVideoFormatFlag;
};

/// Keeps the source's aspect ratio.
inline constexpr VAVTranscodeArgumentAspectRatioValue VAVMatchSourceRatio{"match"};
/// Stretches to the frame.
inline constexpr VAVTranscodeArgumentAspectRatioValue VAVStretchAspect{"stretch"};
/// Fits inside the frame, with bars.
inline constexpr VAVTranscodeArgumentAspectRatioValue VAVLetterboxAspect{"letterbox"};
/// Fills the frame and crops.
inline constexpr VAVTranscodeArgumentAspectRatioValue VAVCropAspect{"crop"};

/// The listed cases of `VAVTranscodeArgumentAspectRatioValue`.
template <>
struct CaseTable<VAVTranscodeArgumentAspectRatioValue> {
  static constexpr CaseList cases{
      VAVMatchSourceRatio,
      VAVStretchAspect,
      VAVLetterboxAspect,
      VAVCropAspect,
  };
  static constexpr const auto& flag = VAVVideoAspectScalingFlag;
};

/// Top left.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorTopLeft{"tl"};
/// Top centre.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorTopCenter{"tc"};
/// Top right.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorTopRight{"tr"};
/// Centre left.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorCenterLeft{"cl"};
/// Centre.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorCenter{"c"};
/// Centre right.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorCenterRight{"cr"};
/// Bottom left.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorBottomLeft{"bl"};
/// Bottom centre.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorBottomCenter{"bc"};
/// Bottom right.
inline constexpr VAVTranscodeArgumentOverlayAnchorValue VAVAnchorBottomRight{"br"};

/// The listed cases of `VAVTranscodeArgumentOverlayAnchorValue`.
template <>
struct CaseTable<VAVTranscodeArgumentOverlayAnchorValue> {
  static constexpr CaseList cases{
      VAVAnchorTopLeft,
      VAVAnchorTopCenter,
      VAVAnchorTopRight,
      VAVAnchorCenterLeft,
      VAVAnchorCenter,
      VAVAnchorCenterRight,
      VAVAnchorBottomLeft,
      VAVAnchorBottomCenter,
      VAVAnchorBottomRight,
  };
};

/// ITU-R BT.2020.
inline constexpr VAVTranscodeArgumentColorSpaceValue VAVRec2020ColorSpace{"rec_2020"};
/// ITU-R BT.709.
inline constexpr VAVTranscodeArgumentColorSpaceValue VAVRec709ColorSpace{"rec_709"};
/// sRGB. The capitals are part of the text.
inline constexpr VAVTranscodeArgumentColorSpaceValue VAVSrgbColorSpace{"sRGB"};
/// SMPTE C.
inline constexpr VAVTranscodeArgumentColorSpaceValue VAVSmptecColorSpace{"smpte_c"};
/// EBU Tech. 3213.
inline constexpr VAVTranscodeArgumentColorSpaceValue VAVEbu3213ColorSpace{"ebu_3213"};

/// The listed cases of `VAVTranscodeArgumentColorSpaceValue`.
template <>
struct CaseTable<VAVTranscodeArgumentColorSpaceValue> {
  static constexpr CaseList cases{
      VAVRec2020ColorSpace,
      VAVRec709ColorSpace,
      VAVSrgbColorSpace,
      VAVSmptecColorSpace,
      VAVEbu3213ColorSpace,
  };
  static constexpr const auto& flag = VAVVideoColorSpaceFlag;
};

/// Linear PCM.
inline constexpr VAVTranscodeArgumentAudioFormatValue VAVLpcmAudioFormatValue{"lpcm"};
/// AAC.
inline constexpr VAVTranscodeArgumentAudioFormatValue VAVAacAudioFormatValue{"aac"};
/// Apple Lossless.
inline constexpr VAVTranscodeArgumentAudioFormatValue VAVAppleLosslessAudioFormatValue{"apple_lossless"};

/// The listed cases of `VAVTranscodeArgumentAudioFormatValue`.
template <>
struct CaseTable<VAVTranscodeArgumentAudioFormatValue> {
  static constexpr CaseList cases{
      VAVLpcmAudioFormatValue,
      VAVAacAudioFormatValue,
      VAVAppleLosslessAudioFormatValue,
  };
  static constexpr const auto& flag = VAVAudioFormatFlag;
};

/// One channel.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVMonoAudioLayout{"mono"};
/// Two channels.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVStereoAudioLayout{"stereo"};
/// Four channels.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVQuadraphonicAudioLayout{"quad"};
/// Five channels.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVPentagonalAudioLayout{"pent"};
/// Six channels.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVHexagonalAudioLayout{"hex"};
/// Eight channels.
inline constexpr VAVTranscodeArgumentAudioChannelLayoutValue VAVOctagonalAudioLayout{"oct"};

/// The listed cases of `VAVTranscodeArgumentAudioChannelLayoutValue`.
template <>
struct CaseTable<VAVTranscodeArgumentAudioChannelLayoutValue> {
  static constexpr CaseList cases{
      VAVMonoAudioLayout,
      VAVStereoAudioLayout,
      VAVQuadraphonicAudioLayout,
      VAVPentagonalAudioLayout,
      VAVHexagonalAudioLayout,
      VAVOctagonalAudioLayout,
  };
  static constexpr const auto& flag = VAVAudioChannelLayoutFlag;
};

/// Small files for review in a browser.
inline constexpr VAVTranscodePresetValue VAVVantiroCloudPresetValue{"vantiro_cloud"};
/// Mastering quality.
inline constexpr VAVTranscodePresetValue VAVVantiroProRes4444XQPresetValue{"vantiro_4444xq"};

/// The listed cases of `VAVTranscodePresetValue`.
template <>
struct CaseTable<VAVTranscodePresetValue> {
  static constexpr CaseList cases{
      VAVVantiroCloudPresetValue,
      VAVVantiroProRes4444XQPresetValue,
  };
  static constexpr const auto& flag = VAVPresetFlag;
};

/// ITU-R BT.709.
inline constexpr std::string_view VAVArriLookColorSpaceRec709{"rec709"};
/// ITU-R BT.2020.
inline constexpr std::string_view VAVArriLookColorSpaceRec2020{"rec2020"};
/// DCI P3.
inline constexpr std::string_view VAVArriLookColorSpaceP3{"p3"};
/// ACES primaries 0.
inline constexpr std::string_view VAVArriLookColorSpaceAP0{"ap0"};
/// ARRI Wide Gamut 3.
inline constexpr std::string_view VAVArriLookColorSpaceAWG3{"awg3"};
/// ARRI Wide Gamut 4.
inline constexpr std::string_view VAVArriLookColorSpaceAWG4{"awg4"};

/// The colour primaries of an ARRI look.
inline constexpr std::array<std::string_view, 6> VAVArriLookColorSpaces{
    VAVArriLookColorSpaceRec709,
    VAVArriLookColorSpaceRec2020,
    VAVArriLookColorSpaceP3,
    VAVArriLookColorSpaceAP0,
    VAVArriLookColorSpaceAWG3,
    VAVArriLookColorSpaceAWG4,
};

/// D60.
inline constexpr std::string_view VAVArriWhitePointD60{"d60"};
/// DCI.
inline constexpr std::string_view VAVArriWhitePointDCI{"dci"};
/// D65.
inline constexpr std::string_view VAVArriWhitePointD65{"d65"};

/// The white points of an ARRI look.
inline constexpr std::array<std::string_view, 3> VAVArriWhitePoints{
    VAVArriWhitePointD60,
    VAVArriWhitePointDCI,
    VAVArriWhitePointD65,
};

/// ITU-R BT.1886.
inline constexpr std::string_view VAVArriCurveBT1886{"bt1886"};
/// DCI.
inline constexpr std::string_view VAVArriCurveDCI{"dci"};
/// Perceptual quantiser.
inline constexpr std::string_view VAVArriCurvePQ{"pq"};
/// Hybrid log-gamma.
inline constexpr std::string_view VAVArriCurveHLG{"hlg"};
/// ARRI LogC3.
inline constexpr std::string_view VAVArriCurveLogC3{"logc3"};
/// ARRI LogC4.
inline constexpr std::string_view VAVArriCurveLogC4{"logc4"};
/// Linear light.
inline constexpr std::string_view VAVArriCurveLinear{"linear"};

/// The transfer curves of an ARRI look.
inline constexpr std::array<std::string_view, 7> VAVArriCurves{
    VAVArriCurveBT1886,
    VAVArriCurveDCI,
    VAVArriCurvePQ,
    VAVArriCurveHLG,
    VAVArriCurveLogC3,
    VAVArriCurveLogC4,
    VAVArriCurveLinear,
};

/// It is ignored.
inline constexpr std::string_view VAVArriLookResolutionIgnore{"ignore"};
/// The first one is taken.
inline constexpr std::string_view VAVArriLookResolutionFirst{"first"};

/// What happens to an invalid ARRI look.
inline constexpr std::array<std::string_view, 2> VAVArriLookResolutions{
    VAVArriLookResolutionIgnore,
    VAVArriLookResolutionFirst,
};

/// OpenCL.
inline constexpr std::string_view VAVGpuPlatformOpenCLFlag{"opencl"};
/// Metal.
inline constexpr std::string_view VAVGpuPlatformMetalFlag{"metal"};
/// The system's own choice.
inline constexpr std::string_view VAVGpuPlatformDefaultPlatformFlag{"default"};

/// The GPU platforms that a tool lists.
inline constexpr std::array<std::string_view, 3> VAVGpuPlatforms{
    VAVGpuPlatformOpenCLFlag,
    VAVGpuPlatformMetalFlag,
    VAVGpuPlatformDefaultPlatformFlag,
};

/// Copies the source. For the tool and its callers; nothing in this library reads it.
inline constexpr std::string_view VAVCopySourceValue{"copy"};


namespace detail {

// The texts of all listed flags, enumeration after enumeration.
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

// The flags whose value is a path and keeps its letters' case.
inline constexpr std::array<std::string_view, 5> pathFlags{
    std::string_view("-in"),
    std::string_view("-out"),
    std::string_view("-progress_file"),
    std::string_view("-clut"),
    std::string_view("-work_dir"),
};

}  // namespace detail

}  // namespace quillonic
