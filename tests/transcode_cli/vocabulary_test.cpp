#include <quillonic/transcode_cli.hpp>

#include <array>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using Codec = VAVTranscodeArgumentVideoCodecValue;
using FileFormat = VAVTranscodeArgumentFileFormatValue;

// The listed flags of all families with their kinds of value.
template <std::uint8_t... i>
std::string flagsWithKinds(std::integer_sequence<std::uint8_t, i...> /*families*/) {
  const auto text = [](const auto& flag) {
    return std::string(flag) + (flag.acceptsArguments() ? "=" : "") + std::string(rawValue(flag.valueKind()));
  };
  return joined(std::array{joined(TranscodeFlag<TranscodeFlagFamily{i}>::allCases(), ' ', text)...});
}

// Written out again, because changing these texts or their order breaks shipped programs.
TEST(TranscodeVocabulary, ListsFlagsAndValuesInTheirFixedOrder) {
  const std::pair<std::string, std::string> lists[] = {
      {flagsWithKinds(std::make_integer_sequence<std::uint8_t, 8>()),
       "-h -codecs -formats -version -acknowledge -presets -aspect_scalings -crop_anchors -color_spaces "
       "-audio_channel_layouts -tc_burn_anchors -gpu_platforms -in=path -out=path -progress_file=path "
       "-progress_prefix=text -overwrite -file_format=name -clut=path -web -preset=name -work_dir=path -vn "
       "-vcodec=name -vr=number -dims=size -aspect_scaling=name -crop_anchor=name -vbr=number -vbd=integer "
       "-c_space=name -key_frames=integer -gpu_decoding -gpu_encoding -red_rocket_device=integer "
       "-vprofile=text -an -acopy -ac_omit=integer -adiscrete -acodec=name -abpc=integer -asr=integer "
       "-acl=name -abr=integer -tc_track -tc_burn -tc_burn_size=integer -tc_burn_font_rgb=color "
       "-tc_burn_box_rgb=color -tc_match -tc_creation -tc_custom=timecode -tc_rate=number -tc_drop "
       "-wmf_anchor=name -wmf_path=path -wmf_scale=number -wmt_burn -wmt_text=text -wmt_size=integer "
       "-wmt_anchor=name -wmt_font_rgb=color -wmt_box_rgb=color -arri_cs=name -arri_wp=name "
       "-arri_curve=name -arri_inv_res=name"},
      {joined(FileFormat::allCases()), "qt mp4 wav"},
      {joined(Codec::allCases()),
       "dnxhd h264 h265 mjpeg mp4 prores4444 prores4444xq prores422 prores422hq prores422lt prores422proxy"},
      {joined(VAVTranscodeArgumentAspectRatioValue::allCases()), "match stretch letterbox crop"},
      {joined(VAVTranscodeArgumentOverlayAnchorValue::allCases()), "tl tc tr cl c cr bl bc br"},
      {joined(VAVTranscodeArgumentColorSpaceValue::allCases()), "rec_2020 rec_709 sRGB smpte_c ebu_3213"},
      {joined(VAVTranscodeArgumentAudioFormatValue::allCases()), "lpcm aac apple_lossless"},
      {joined(VAVTranscodeArgumentAudioChannelLayoutValue::allCases()), "mono stereo quad pent hex oct"},
      {joined(VAVTranscodePresetValue::allCases()), "vantiro_cloud vantiro_4444xq"},
      {joined(VAVArriLookColorSpaces), "rec709 rec2020 p3 ap0 awg3 awg4"},
      {joined(VAVArriWhitePoints), "d60 dci d65"},
      {joined(VAVArriCurves), "bt1886 dci pq hlg logc3 logc4 linear"},
      {joined(VAVArriLookResolutions), "ignore first"},
      {joined(VAVGpuPlatforms), "opencl metal default"},
      // Names that are in no list.
      {joined(std::vector<std::string_view>{VAVTimecodeBurnAnchorFlag, VAVCliWatermarkFileBurnAnchorsFlag,
                                            VAVCopySourceValue}),
       "-tc_burn_anchor -wmf_burn_anchors copy"}};
  for (const auto& [list, shipped] : lists) {
    EXPECT_EQ(list, shipped)
        << "Shipped programs depend on this list. If they know the change, write it here.";
  }
  EXPECT_EQ(joined(TranscodeCliArguments::allKnownCommandFlags()),
            std::regex_replace(lists[0].first, std::regex("=[a-z]+"), ""));
}

TEST(TranscodeVocabulary, FlagsTellWhatTheyTakeAndDoAndValuesNameTheirFlag) {
  EXPECT_EQ(VAVVideoFrameRateFlag.meaning(), "Frames per second.");
  EXPECT_TRUE(VAVTimecodeBurnAnchorFlag.acceptsArguments());
  const std::string unknown = "-unknown";
  EXPECT_TRUE(VAVTranscodeVideoArgumentFlag(unknown).acceptsArguments());
  EXPECT_EQ(VAVTranscodeVideoArgumentFlag(unknown).meaning(), "");
  EXPECT_EQ(transcodeFlagRow("-arri_wp")->meaning, VAVArriLookColorSpaceWhitePointFlag.meaning());
  EXPECT_EQ(transcodeFlagRow(unknown), nullptr);
  EXPECT_EQ(joined(VAVAudioFormatFlag.fixedValues()), "lpcm aac apple_lossless");
  EXPECT_FALSE(acceptsArguments(VAVTranscodeCliCommand(unknown)));
  EXPECT_EQ(VAVMp4Format.fileFlag(), VAVFileFormatFlag);
  EXPECT_EQ(videoFlag(VAVMpeg4Codec), VAVVideoFormatFlag);
  EXPECT_EQ(cliFlag(VAVAacAudioFormatValue), "-acodec");
  EXPECT_EQ(VAVAnchorTopLeft.cliFlag(), "tl");
}

TEST(TranscodeVocabulary, WrapsAnyTextAndComparesByText) {
  std::string text = "cineform, a codec of the future";
  const Codec wrapped(text);
  text.assign(text.size(), '?');
  EXPECT_EQ(wrapped.rawValue(), "cineform, a codec of the future");
  EXPECT_EQ(wrapped, decode<Codec>(encode(wrapped)));
  EXPECT_EQ(encode(VAVAvcH264Codec), CodedValue(std::string("h264")));
  EXPECT_EQ(std::unordered_set<Codec>({wrapped, VAVHevcCodec, Codec(std::string_view("h265"))}).size(), 2U);
  EXPECT_EQ(FileFormat::fromStringValue("qt"), VAVQuickTimeFileFormat);
  EXPECT_EQ(FileFormat::fromStringValue("QT"), std::nullopt);
  EXPECT_EQ(fromRawValue<FileFormat>("QT")->rawValue(), "QT");
  static_assert(!std::is_convertible_v<decltype(VAVMp4Format), Codec>, "equal texts of two kinds stay apart");
  char buffer[] = "h265";
  std::ostringstream out;
  out << Codec(buffer) << Codec(nullptr) << VAVHevcCodec << VideoCropAnchor(VAVAnchorTopLeft);
  EXPECT_TRUE(out.str() == "h265h265tl" && VAVHevcCodec == buffer && VAVHevcCodec < std::string("h266"));
}

TEST(TranscodeVocabulary, ListedValuesAreTheCasesOfAClosedEnumeration) {
  static_assert(VAVProRes422HQ.listedCase() == CaseOf<Codec>::proRes422HQ);
  const auto place = [index = 0](const auto& anchor) mutable {
    EXPECT_EQ(static_cast<int>(*anchor.listedCase()), index++);
    return std::string(rawValue(*anchorRow(anchor))) + "/" + std::string(rawValue(*anchorColumn(anchor)));
  };
  EXPECT_EQ(joined(VAVTranscodeArgumentOverlayAnchorValue::allCases(), ' ', place),
            "top/left top/center top/right center/left center/center center/right bottom/left bottom/center "
            "bottom/right");
  const WatermarkBurnAnchor unlisted(VAVTranscodeArgumentOverlayAnchorValue("middle"));
  EXPECT_FALSE(unlisted.row() || unlisted.column());
  EXPECT_THROW(encode(unlisted), DecodingError) << "nor would it be decoded";
  EXPECT_THROW(encode(static_cast<TimecodeSource>(9)), DecodingError);
}

TEST(TranscodeVocabulary, FormatsAndCodecsNameTheirExtensions) {
  EXPECT_EQ(
      joined(FileFormat::allCases(), ';', [](auto& format) { return joined(format.validExtensions()); }),
      "mov mp4;mp4 mov;wav");
  EXPECT_EQ(VAVMp4Format.preferredFileExtension(), FileExtension::mp4);
  EXPECT_EQ(FileFormat(std::string("avi")).preferredFileExtension(), std::nullopt);
  EXPECT_EQ(joined(VAVAvcH264Codec.permittedExtensions()), "mp4 mov");
  EXPECT_EQ(joined(Codec(std::string("other")).permittedExtensions()), "");
}

TEST(TranscodeVocabulary, TheHostChangesTheCodecGroupsWhileOthersRead) {
  const auto proRes = Codec::allProResFormats();
  EXPECT_EQ(joined(proRes), "prores4444 prores4444xq prores422 prores422hq prores422lt prores422proxy");
  EXPECT_EQ(joined(Codec::allWebFormats()), "h264 h265 mjpeg");
  EXPECT_EQ(joined(Codec::allAvidDNxFormats()), "dnxhd");

  {
    const std::jthread writer([&](const std::stop_token& done) {
      while (!done.stop_requested()) {
        Codec::setAllProResFormats({Codec(std::string("a codec with a text of its own"))});
        Codec::setAllProResFormats(proRes);
      }
    });
    for (int i = 0; i < 2000; ++i) {
      ASSERT_NE(Codec::allProResFormats().size(), 0U);
      ASSERT_LE(VAVProRes422.permittedExtensions().size(), 1U);
    }
  }
  Codec::setAllProResFormats({});
  EXPECT_EQ(joined(VAVProRes422.permittedExtensions()), "");
  Codec::setAllProResFormats(proRes);
  EXPECT_EQ(joined(VAVProRes422.permittedExtensions()), "mov");
}

TEST(TranscodeVocabulary, ReadsTheStoredColourSpaces) {
  using Stored = Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace;
  const auto read = [](int number) {
    const auto value = VAVTranscodeArgumentColorSpaceValue::fromColorSpace(static_cast<Stored>(number));
    return std::string(value ? value->rawValue() : "-");
  };
  EXPECT_EQ(joined(std::array{-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, ' ', read),
            "- - - rec_2020 rec_709 sRGB - - smpte_c ebu_3213 -");
}

TEST(TranscodeCliPreset, HoldsTheBuiltInPresets) {
  using enum TranscodeCliPreset;
  EXPECT_EQ(joined(allCases<TranscodeCliPreset>()), "vantiroCloud proRes4444XQ");
  EXPECT_EQ(description(vantiroCloud), "cloud");
  EXPECT_EQ(description(proRes4444XQ), "ProRes 4444 XQ");
  EXPECT_EQ(joined(orderedArgumentsAsList(vantiroCloud)),
            "-file_format qt -vcodec h264 -dims 960x540 -aspect_scaling stretch -vbr 3 -web  -acodec aac "
            "-asr 48000 -acl stereo");
  EXPECT_EQ(joined(orderedArgumentsAsList(proRes4444XQ)),
            "-file_format qt -vcodec prores4444xq -acodec lpcm");
  const auto holds = [](auto preset, const auto& arguments, const auto& value) {
    EXPECT_EQ(TranscodeCliArguments(orderedArgumentsAsList(preset)).flagValueLookup(), arguments);
    EXPECT_EQ(presetCliValue(preset), value);
  };
  holds(vantiroCloud, TranscodeCliArguments::vantiroCloudPresetArguments(), VAVVantiroCloudPresetValue);
  holds(proRes4444XQ, TranscodeCliArguments::vantiroProRes4444XQPresetArguments(),
        VAVVantiroProRes4444XQPresetValue);
}

}  // namespace
}  // namespace quillonic
