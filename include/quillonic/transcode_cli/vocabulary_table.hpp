/// The transcoder's fixed values as constants, and the ordered list of each enumeration.
/// Made by scripts/generate-vocabulary from src/transcode_cli/vocabulary.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/transcode_cli/enumerations.hpp>

#include <array>
#include <cstdint>
#include <string_view>

namespace quillonic {

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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    quickTimeFileFormat,
    mp4Format,
    waveFileFormat,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    dnxhdCodec,
    avcH264Codec,
    hevcCodec,
    motionJpegCodec,
    mpeg4Codec,
    proRes4444,
    proRes4444XQ,
    proRes422,
    proRes422HQ,
    proRes422LT,
    proRes422Proxy,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    matchSourceRatio,
    stretchAspect,
    letterboxAspect,
    cropAspect,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    anchorTopLeft,
    anchorTopCenter,
    anchorTopRight,
    anchorCenterLeft,
    anchorCenter,
    anchorCenterRight,
    anchorBottomLeft,
    anchorBottomCenter,
    anchorBottomRight,
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    rec2020ColorSpace,
    rec709ColorSpace,
    srgbColorSpace,
    smptecColorSpace,
    ebu3213ColorSpace,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    lpcmAudioFormatValue,
    aacAudioFormatValue,
    appleLosslessAudioFormatValue,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    monoAudioLayout,
    stereoAudioLayout,
    quadraphonicAudioLayout,
    pentagonalAudioLayout,
    hexagonalAudioLayout,
    octagonalAudioLayout,
  };
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
  /// The listed cases as a closed enumeration.
  enum class Case : std::uint8_t {
    vantiroCloudPresetValue,
    vantiroProRes4444XQPresetValue,
  };
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

/// Ignores it.
inline constexpr std::string_view VAVArriLookResolutionIgnore{"ignore"};
/// Takes the first one.
inline constexpr std::string_view VAVArriLookResolutionFirst{"first"};

/// What to do with an invalid ARRI look.
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

/// Copies the source. For the tool and its callers; this library does not read it.
inline constexpr std::string_view VAVCopySourceValue{"copy"};


}  // namespace quillonic
