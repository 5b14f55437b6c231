#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using Codec = VAVTranscodeArgumentVideoCodecValue;
using FileFormat = VAVTranscodeArgumentFileFormatValue;

// Written out once more, because programs that are already shipped depend on these texts and their order.
TEST(TranscodeVocabulary, ListsFlagsAndValuesInTheirFixedOrder) {
  EXPECT_EQ(
      joined(TranscodeCliArguments::allKnownCommandFlags()),
      "-h -codecs -formats -version -acknowledge -presets -aspect_scalings -crop_anchors -color_spaces "
      "-audio_channel_layouts -tc_burn_anchors -gpu_platforms "
      "-in -out -progress_file -progress_prefix -overwrite -file_format -clut -web -preset -work_dir "
      "-vn -vcodec -vr -dims -aspect_scaling -crop_anchor -vbr -vbd -c_space -key_frames -gpu_decoding "
      "-gpu_encoding -red_rocket_device -vprofile "
      "-an -acopy -ac_omit -adiscrete -acodec -abpc -asr -acl -abr "
      "-tc_track -tc_burn -tc_burn_size -tc_burn_font_rgb -tc_burn_box_rgb -tc_match -tc_creation -tc_custom "
      "-tc_rate -tc_drop "
      "-wmf_anchor -wmf_path -wmf_scale "
      "-wmt_burn -wmt_text -wmt_size -wmt_anchor -wmt_font_rgb -wmt_box_rgb "
      "-arri_cs -arri_wp -arri_curve -arri_inv_res");
  EXPECT_EQ(joined(FileFormat::allCases()), "qt mp4 wav");
  EXPECT_EQ(
      joined(Codec::allCases()),
      "dnxhd h264 h265 mjpeg mp4 prores4444 prores4444xq prores422 prores422hq prores422lt prores422proxy");
  EXPECT_EQ(joined(VAVTranscodeArgumentAspectRatioValue::allCases()), "match stretch letterbox crop");
  EXPECT_EQ(joined(VAVTranscodeArgumentOverlayAnchorValue::allCases()), "tl tc tr cl c cr bl bc br");
  EXPECT_EQ(joined(VAVTranscodeArgumentColorSpaceValue::allCases()),
            "rec_2020 rec_709 sRGB smpte_c ebu_3213");
  EXPECT_EQ(joined(VAVTranscodeArgumentAudioFormatValue::allCases()), "lpcm aac apple_lossless");
  EXPECT_EQ(joined(VAVTranscodeArgumentAudioChannelLayoutValue::allCases()), "mono stereo quad pent hex oct");
  EXPECT_EQ(joined(VAVTranscodePresetValue::allCases()), "vantiro_cloud vantiro_4444xq");
  EXPECT_EQ(joined(VAVArriLookColorSpaces), "rec709 rec2020 p3 ap0 awg3 awg4");
  EXPECT_EQ(joined(VAVArriWhitePoints), "d60 dci d65");
  EXPECT_EQ(joined(VAVArriCurves), "bt1886 dci pq hlg logc3 logc4 linear");
  EXPECT_EQ(joined(VAVArriLookResolutions), "ignore first");
  EXPECT_EQ(joined(VAVGpuPlatforms), "opencl metal default");
  // Names without a place in a list.
  EXPECT_EQ(joined(std::vector<std::string_view>{VAVTimecodeBurnAnchorFlag,
                                                 VAVCliWatermarkFileBurnAnchorsFlag, VAVCopySourceValue}),
            "-tc_burn_anchor -wmf_burn_anchors copy");
}

template <class... Flags> std::string switchesOf() {
  std::vector<std::string_view> found;
  const auto collect = [&](const auto& flag) {
    if (!flag.acceptsArguments()) found.push_back(flag.cliFlag());
  };
  (std::ranges::for_each(allCases<Flags>(), collect), ...);
  return joined(found);
}

TEST(TranscodeVocabulary, TellsWhichFlagsTakeNoValue) {
  EXPECT_EQ(
      (switchesOf<VAVTranscodeArgumentFlag, VAVTranscodeVideoArgumentFlag, VAVTranscodeAudioArgumentFlag,
                  VAVTranscodeTimecodeArgumentFlag, VAVTranscodeWatermarkFileArgumentFlag,
                  VAVTranscodeWatermarkTextArgumentFlag, VAVTranscodeArriLookArgumentFlag>()),
      "-overwrite -web -vn -gpu_decoding -gpu_encoding -an -acopy -adiscrete -tc_track -tc_burn -tc_match "
      "-tc_creation -tc_drop -wmt_burn");
  EXPECT_EQ(switchesOf<VAVTranscodeCliCommand>(), joined(VAVTranscodeCliCommand::allCases()));
  EXPECT_TRUE(VAVTimecodeBurnAnchorFlag.acceptsArguments());
  const std::string unknown = "-unknown";
  EXPECT_TRUE(VAVTranscodeVideoArgumentFlag(unknown).acceptsArguments());
  EXPECT_FALSE(acceptsArguments(VAVTranscodeCliCommand(unknown)));
}

TEST(TranscodeVocabulary, ValuesNameTheirFlag) {
  const std::string_view flags[] = {VAVMp4Format.fileFlag(),
                                    VAVMpeg4Codec.videoFlag(),
                                    VAVCropAspect.cliFlag(),
                                    VAVSrgbColorSpace.cliFlag(),
                                    VAVAacAudioFormatValue.audioFlag(),
                                    VAVStereoAudioLayout.cliFlag(),
                                    VAVVantiroCloudPresetValue.cliFlag(),
                                    VAVAnchorTopLeft.cliFlag()};
  EXPECT_EQ(joined(flags), "-file_format -vcodec -aspect_scaling -c_space -acodec -acl -preset tl");
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
}

TEST(TranscodeVocabulary, FormatsAndCodecsNameTheirExtensions) {
  const auto extensions = [](const Codec& codec) { return joined(codec.permittedExtensions()); };
  EXPECT_EQ(
      joined(FileFormat::allCases(), ';', [](auto& format) { return joined(format.validExtensions()); }),
      "mov mp4;mp4 mov;wav");
  EXPECT_EQ(VAVMp4Format.preferredFileExtension(), FileExtension::mp4);
  EXPECT_EQ(FileFormat(std::string("avi")).preferredFileExtension(), std::nullopt);
  EXPECT_EQ(joined(Codec::allCases(), ';', extensions),
            "mxf;mp4 mov;mov;mov mjpeg;mov;mov;mov;mov;mov;mov;mov");
  EXPECT_EQ(extensions(Codec(std::string("other"))), "");
}

TEST(TranscodeVocabulary, TheHostChangesTheCodecGroupsWhileOthersRead) {
  const auto proRes = Codec::allProResFormats();
  EXPECT_EQ(joined(proRes), "prores4444 prores4444xq prores422 prores422hq prores422lt prores422proxy");
  EXPECT_EQ(joined(Codec::allWebFormats()), "h264 h265 mjpeg");
  EXPECT_EQ(joined(Codec::allAvidDNxFormats()), "dnxhd");

  std::jthread writer([&](const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      Codec::setAllProResFormats({Codec(std::string("a codec with a text of its own"))});
      Codec::setAllProResFormats(proRes);
    }
  });
  for (int i = 0; i < 2000; ++i) {
    ASSERT_NE(Codec::allProResFormats().size(), 0U);
    ASSERT_LE(VAVProRes422.permittedExtensions().size(), 1U);
  }
  writer.request_stop();
  writer.join();
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
  const auto read = [](auto preset) {
    return TranscodeCliArguments(orderedArgumentsAsList(preset)).flagValueLookup();
  };
  EXPECT_EQ(read(vantiroCloud), TranscodeCliArguments::vantiroCloudPresetArguments());
  EXPECT_EQ(read(proRes4444XQ), TranscodeCliArguments::vantiroProRes4444XQPresetArguments());
  EXPECT_EQ(presetCliValue(vantiroCloud), VAVVantiroCloudPresetValue);
  EXPECT_EQ(presetCliValue(proRes4444XQ), VAVVantiroProRes4444XQPresetValue);
}

}  // namespace
}  // namespace quillonic
