#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace quillonic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Codec = VAVTranscodeArgumentVideoCodecValue;
using FileFormat = VAVTranscodeArgumentFileFormatValue;

// Written out once more, because programs that are already shipped depend on these texts and their order.
constexpr std::string_view everyKnownFlag =
    "-h -codecs -formats -version -acknowledge -presets -aspect_scalings -crop_anchors -color_spaces "
    "-audio_channel_layouts -tc_burn_anchors -gpu_platforms "
    "-in -out -progress_file -progress_prefix -overwrite -file_format -clut -web -preset -work_dir "
    "-vn -vcodec -vr -dims -aspect_scaling -crop_anchor -vbr -vbd -c_space -key_frames -gpu_decoding "
    "-gpu_encoding "
    "-red_rocket_device -vprofile "
    "-an -acopy -ac_omit -adiscrete -acodec -abpc -asr -acl -abr "
    "-tc_track -tc_burn -tc_burn_size -tc_burn_font_rgb -tc_burn_box_rgb -tc_match -tc_creation -tc_custom "
    "-tc_rate "
    "-tc_drop "
    "-wmf_anchor -wmf_path -wmf_scale "
    "-wmt_burn -wmt_text -wmt_size -wmt_anchor -wmt_font_rgb -wmt_box_rgb "
    "-arri_cs -arri_wp -arri_curve -arri_inv_res";

std::string joined(std::span<const std::string_view> texts) {
  std::string all;
  for (const auto text : texts) all.append(all.empty() ? "" : " ").append(text);
  return all;
}

template <class Enumeration> std::string listed() {
  std::vector<std::string_view> texts;
  for (const auto& value : allCases<Enumeration>()) texts.push_back(value.rawValue());
  return joined(texts);
}

TEST(TranscodeVocabulary, ListsTheKnownFlagsInOrder) {
  EXPECT_EQ(joined(TranscodeCliArguments::allKnownCommandFlags()), everyKnownFlag);
}

TEST(TranscodeVocabulary, ListsTheValuesInOrder) {
  EXPECT_EQ(listed<FileFormat>(), "qt mp4 wav");
  EXPECT_EQ(
      listed<Codec>(),
      "dnxhd h264 h265 mjpeg mp4 prores4444 prores4444xq prores422 prores422hq prores422lt prores422proxy");
  EXPECT_EQ(listed<VAVTranscodeArgumentAspectRatioValue>(), "match stretch letterbox crop");
  EXPECT_EQ(listed<VAVTranscodeArgumentOverlayAnchorValue>(), "tl tc tr cl c cr bl bc br");
  EXPECT_EQ(listed<VAVTranscodeArgumentColorSpaceValue>(), "rec_2020 rec_709 sRGB smpte_c ebu_3213");
  EXPECT_EQ(listed<VAVTranscodeArgumentAudioFormatValue>(), "lpcm aac apple_lossless");
  EXPECT_EQ(listed<VAVTranscodeArgumentAudioChannelLayoutValue>(), "mono stereo quad pent hex oct");
  EXPECT_EQ(listed<VAVTranscodePresetValue>(), "vantiro_cloud vantiro_4444xq");
  EXPECT_EQ(joined(VAVArriLookColorSpaces), "rec709 rec2020 p3 ap0 awg3 awg4");
  EXPECT_EQ(joined(VAVArriWhitePoints), "d60 dci d65");
  EXPECT_EQ(joined(VAVArriCurves), "bt1886 dci pq hlg logc3 logc4 linear");
  EXPECT_EQ(joined(VAVArriLookResolutions), "ignore first");
  EXPECT_EQ(joined(VAVGpuPlatforms), "opencl metal default");
  EXPECT_EQ(VAVCopySourceValue, "copy");
}

TEST(TranscodeVocabulary, KnowsSomeNamesThatItDoesNotList) {
  EXPECT_EQ(VAVTimecodeBurnAnchorFlag.cliFlag(), "-tc_burn_anchor");
  EXPECT_EQ(VAVCliWatermarkFileBurnAnchorsFlag.cliFlag(), "-wmf_burn_anchors");
}

template <class Flag> void expectSwitches(std::string_view switches) {
  std::vector<std::string_view> found;
  for (const auto& flag : allCases<Flag>()) {
    if (!flag.acceptsArguments()) found.push_back(flag.cliFlag());
  }
  EXPECT_EQ(joined(found), switches);
}

TEST(TranscodeVocabulary, TellsWhichFlagsTakeNoValue) {
  expectSwitches<VAVTranscodeArgumentFlag>("-overwrite -web");
  expectSwitches<VAVTranscodeVideoArgumentFlag>("-vn -gpu_decoding -gpu_encoding");
  expectSwitches<VAVTranscodeAudioArgumentFlag>("-an -acopy -adiscrete");
  expectSwitches<VAVTranscodeTimecodeArgumentFlag>("-tc_track -tc_burn -tc_match -tc_creation -tc_drop");
  expectSwitches<VAVTranscodeWatermarkFileArgumentFlag>("");
  expectSwitches<VAVTranscodeWatermarkTextArgumentFlag>("-wmt_burn");
  expectSwitches<VAVTranscodeArriLookArgumentFlag>("");
  expectSwitches<VAVTranscodeCliCommand>(listed<VAVTranscodeCliCommand>());
  EXPECT_TRUE(VAVTimecodeBurnAnchorFlag.acceptsArguments());

  const std::string unknown = "-unknown";
  EXPECT_TRUE(VAVTranscodeVideoArgumentFlag(unknown).acceptsArguments());
  EXPECT_FALSE(VAVTranscodeCliCommand(unknown).acceptsArguments());
  // The generic question and the member are one answer, also for the type that overrides it.
  EXPECT_FALSE(acceptsArguments(VAVTranscodeCliCommand(unknown)));
}

TEST(TranscodeVocabulary, ValuesNameTheirFlag) {
  EXPECT_EQ(VAVMp4Format.fileFlag(), VAVFileFormatFlag);
  EXPECT_EQ(VAVMpeg4Codec.videoFlag(), VAVVideoFormatFlag);
  EXPECT_EQ(VAVCropAspect.cliFlag(), "-aspect_scaling");
  EXPECT_EQ(VAVSrgbColorSpace.cliFlag(), "-c_space");
  EXPECT_EQ(VAVAacAudioFormatValue.audioFlag(), VAVAudioFormatFlag);
  EXPECT_EQ(VAVStereoAudioLayout.cliFlag(), "-acl");
  EXPECT_EQ(VAVVantiroCloudPresetValue.fileFlag(), VAVPresetFlag);
  EXPECT_EQ(VAVAnchorTopLeft.cliFlag(), "tl");
}

TEST(TranscodeVocabulary, WrapsAnyTextAndComparesByText) {
  std::string text = "cineform, a codec of the future";
  const Codec wrapped(text);
  text.assign(text.size(), '?');
  EXPECT_EQ(wrapped.rawValue(), "cineform, a codec of the future");
  EXPECT_EQ(wrapped, decode<Codec>(encode(wrapped)));
  EXPECT_EQ(Codec(std::string("h264")), VAVAvcH264Codec);
  EXPECT_EQ(encode(VAVAvcH264Codec), CodedValue(std::string("h264")));
  EXPECT_THAT(std::unordered_set<Codec>({wrapped, VAVHevcCodec, Codec(std::string_view("h265"))}),
              testing::SizeIs(2));
  EXPECT_EQ(FileFormat::fromStringValue("qt"), VAVQuickTimeFileFormat);
  EXPECT_EQ(FileFormat::fromStringValue("QT"), std::nullopt);
  EXPECT_EQ(FileFormat::fromStringValue(""), std::nullopt);
  EXPECT_EQ(fromRawValue<FileFormat>("QT")->rawValue(), "QT");
  static_assert(!std::is_convertible_v<decltype(VAVMp4Format), Codec>, "equal texts of two kinds stay apart");
}

TEST(TranscodeVocabulary, FormatsAndCodecsNameTheirExtensions) {
  using enum FileExtension;
  EXPECT_THAT(VAVQuickTimeFileFormat.validExtensions(), ElementsAre(mov, mp4));
  EXPECT_THAT(VAVMp4Format.validExtensions(), ElementsAre(mp4, mov));
  EXPECT_THAT(VAVWaveFileFormat.validExtensions(), ElementsAre(wav));
  EXPECT_EQ(VAVMp4Format.preferredFileExtension(), mp4);
  EXPECT_EQ(FileFormat(std::string("avi")).preferredFileExtension(), std::nullopt);

  EXPECT_THAT(VAVDnxhdCodec.permittedExtensions(), ElementsAre(mxf));
  EXPECT_THAT(VAVMpeg4Codec.permittedExtensions(), ElementsAre(mov));
  EXPECT_THAT(VAVHevcCodec.permittedExtensions(), ElementsAre(mov));
  EXPECT_THAT(VAVAvcH264Codec.permittedExtensions(), ElementsAre(mp4, mov));
  EXPECT_THAT(VAVMotionJpegCodec.permittedExtensions(), ElementsAre(mov, mjpeg));
  for (const auto& codec : Codec::allProResFormats())
    EXPECT_THAT(codec.permittedExtensions(), ElementsAre(mov));
  EXPECT_THAT(Codec(std::string("other")).permittedExtensions(), IsEmpty());
}

TEST(TranscodeVocabulary, TheHostChangesTheCodecGroupsWhileOthersRead) {
  const auto proRes = Codec::allProResFormats();
  EXPECT_THAT(proRes, ElementsAre(VAVProRes4444, VAVProRes4444XQ, VAVProRes422, VAVProRes422HQ,
                                  VAVProRes422LT, VAVProRes422Proxy));
  EXPECT_THAT(Codec::allWebFormats(), ElementsAre(VAVAvcH264Codec, VAVHevcCodec, VAVMotionJpegCodec));
  EXPECT_THAT(Codec::allAvidDNxFormats(), ElementsAre(VAVDnxhdCodec));

  Codec::setAllProResFormats({});
  EXPECT_THAT(VAVProRes422.permittedExtensions(), IsEmpty());

  std::jthread writer([&](const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      Codec::setAllProResFormats({Codec(std::string("a codec with a text of its own"))});
      Codec::setAllProResFormats(proRes);
    }
  });
  for (int i = 0; i < 2000; ++i) {
    ASSERT_THAT(Codec::allProResFormats().size(), testing::AnyOf(0U, 1U, 6U));
    ASSERT_LE(VAVProRes422.permittedExtensions().size(), 1U);
  }
  writer.request_stop();
  writer.join();
  Codec::setAllProResFormats(proRes);
  Codec::setAllWebFormats(Codec::allWebFormats());
  Codec::setAllAvidDNxFormats(Codec::allAvidDNxFormats());
  EXPECT_THAT(VAVProRes422.permittedExtensions(), ElementsAre(FileExtension::mov));
}

TEST(TranscodeVocabulary, ReadsTheStoredColourSpaces) {
  using Stored = Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace;
  const auto text = [](int number) {
    const auto value = VAVTranscodeArgumentColorSpaceValue::fromColorSpace(static_cast<Stored>(number));
    return value ? std::string(value->rawValue()) : "";
  };
  std::vector<std::string> texts;
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, -1}) texts.push_back(text(number));
  EXPECT_THAT(texts,
              ElementsAre("", "", "rec_2020", "rec_709", "sRGB", "", "", "smpte_c", "ebu_3213", "", ""));
}

TEST(TranscodeCliPreset, HoldsTheBuiltInPresets) {
  using enum TranscodeCliPreset;
  EXPECT_THAT(allCases<TranscodeCliPreset>(), ElementsAre(vantiroCloud, proRes4444XQ));
  EXPECT_EQ(description(vantiroCloud), "cloud");
  EXPECT_EQ(description(proRes4444XQ), "ProRes 4444 XQ");
  EXPECT_EQ(presetCliValue(vantiroCloud).rawValue(), "vantiro_cloud");
  EXPECT_EQ(presetCliValue(proRes4444XQ).rawValue(), "vantiro_4444xq");
  EXPECT_THAT(
      orderedArgumentsAsList(vantiroCloud),
      ElementsAre("-file_format", "qt", "-vcodec", "h264", "-dims", "960x540", "-aspect_scaling", "stretch",
                  "-vbr", "3", "-web", "", "-acodec", "aac", "-asr", "48000", "-acl", "stereo"));
  EXPECT_THAT(orderedArgumentsAsList(proRes4444XQ),
              ElementsAre("-file_format", "qt", "-vcodec", "prores4444xq", "-acodec", "lpcm"));
  EXPECT_EQ(presetArguments(vantiroCloud).size(), 9U);
  EXPECT_EQ(presetArguments(vantiroCloud).find("-web")->value, "");
  EXPECT_EQ(TranscodeCliArguments::vantiroCloudPresetArguments(), presetArguments(vantiroCloud));
  EXPECT_EQ(TranscodeCliArguments::vantiroProRes4444XQPresetArguments(), presetArguments(proRes4444XQ));
}

}  // namespace
}  // namespace quillonic
