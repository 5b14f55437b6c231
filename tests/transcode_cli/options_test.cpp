#include <quillonic/transcode_cli.hpp>

#include <charconv>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "recorded_log.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;
using Tracks = std::vector<std::int64_t>;

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto nan = std::numeric_limits<double>::quiet_NaN();

std::string wordsOf(const Model& model) {
  return joined(model.commandLineArguments());
}

// A model of the words in the text, read in the child.
Model read(std::string_view words) {
  return Model(split(words));
}

// A model with a text that parsing has not changed.
Model with(std::string_view flag, std::string_view value) {
  Model model;
  model.setArgumentFlagValue(flag, value);
  return model;
}

// Sets one option in an empty model, reads it there and in a child started with the words, and removes it
// again.
class EveryOption : public testing::Test {
 protected:
  template <class Result, class Parameter, class Value>
  void expect(Result (TranscodeOptions::*get)() const, void (TranscodeOptions::*set)(Parameter),
              const Value& value, std::string_view expected) {
    Model parent;
    (parent.*set)(value);
    const auto words = parent.commandLineArguments();
    EXPECT_EQ(joined(words), expected);
    EXPECT_EQ((parent.*get)(), value) << expected;
    EXPECT_EQ((Model(words).*get)(), value) << expected;
    for (std::size_t i = 0; i < words.size(); i += 2) all_.setArgumentFlagValue(words[i], words[i + 1]);
    (parent.*set)(std::remove_cvref_t<Parameter>{});
    EXPECT_EQ(wordsOf(parent), "") << expected;
  }

  void SetUp() override {
    using M = Model;
    // clang-format off
    expect(&M::cliHelp, &M::setCliHelp, true, "-h ");
    expect(&M::cliCodecs, &M::setCliCodecs, true, "-codecs ");
    expect(&M::cliFormats, &M::setCliFormats, true, "-formats ");
    expect(&M::cliVersion, &M::setCliVersion, true, "-version ");
    expect(&M::cliAcknowledgement, &M::setCliAcknowledgement, true, "-acknowledge ");
    expect(&M::cliPresets, &M::setCliPresets, true, "-presets ");
    expect(&M::cliAspectRatioScalings, &M::setCliAspectRatioScalings, true, "-aspect_scalings ");
    expect(&M::cliCropAnchors, &M::setCliCropAnchors, true, "-crop_anchors ");
    expect(&M::cliColorSpaces, &M::setCliColorSpaces, true, "-color_spaces ");
    expect(&M::cliAudioChannelLayouts, &M::setCliAudioChannelLayouts, true, "-audio_channel_layouts ");
    expect(&M::cliTimecodeBurnAnchors, &M::setCliTimecodeBurnAnchors, true, "-tc_burn_anchors ");
    expect(&M::cliGpuPlatforms, &M::setCliGpuPlatforms, true, "-gpu_platforms ");
    expect(&M::inputPrefix, &M::setInputPrefix, "/A b/\xff.mov", "-in /A b/\xff.mov");
    expect(&M::outputFile, &M::setOutputFile, "/Out.MOV", "-out /Out.MOV");
    expect(&M::progressFile, &M::setProgressFile, "/P", "-progress_file /P");
    expect(&M::progressOutputPrefix, &M::setProgressOutputPrefix, "p: q", "-progress_prefix p: q");
    expect(&M::overwriteExisting, &M::setOverwriteExisting, true, "-overwrite ");
    expect(&M::fileFormat, &M::setFileFormat, VAVWaveFileFormat, "-file_format wav");
    expect(&M::colorLutFile, &M::setColorLutFile, "/L", "-clut /L");
    expect(&M::prepareForWeb, &M::setPrepareForWeb, true, "-web ");
    expect(&M::preset, &M::setPreset, VAVVantiroCloudPresetValue, "-preset vantiro_cloud");
    expect(&M::workDirectory, &M::setWorkDirectory, "/W", "-work_dir /W");
    expect(&M::noVideo, &M::setNoVideo, true, "-vn ");
    expect(&M::videoFormat, &M::setVideoFormat, VAVMpeg4Codec, "-vcodec mp4");
    expect(&M::videoFrameRate, &M::setVideoFrameRate, 23.976, "-vr 23.976");
    expect(&M::videoDimensions, &M::setVideoDimensions, FrameSize{960, 540}, "-dims 960x540");
    expect(&M::videoAspectScaling, &M::setVideoAspectScaling, VAVCropAspect, "-aspect_scaling crop");
    expect(&M::videoAspectCropAnchor, &M::setVideoAspectCropAnchor, VideoCropAnchor(VAVAnchorTopLeft), "-crop_anchor tl");
    expect(&M::videoBitRate, &M::setVideoBitRate, 1e21, "-vbr 1000000000000000000000.0");
    expect(&M::videoBitDepth, &M::setVideoBitDepth, 10, "-vbd 10");
    expect(&M::videoColorSpace, &M::setVideoColorSpace, VAVSrgbColorSpace, "-c_space sRGB");
    expect(&M::videoKeyFrames, &M::setVideoKeyFrames, INT64_MAX, "-key_frames 9223372036854775807");
    expect(&M::videoGPUDecoding, &M::setVideoGPUDecoding, true, "-gpu_decoding ");
    expect(&M::videoGPUEncoding, &M::setVideoGPUEncoding, true, "-gpu_encoding ");
    expect(&M::redRocketDevice, &M::setRedRocketDevice, 0, "-red_rocket_device 0");
    expect(&M::videoProfile, &M::setVideoProfile, "main 10", "-vprofile main 10");
    expect(&M::noAudio, &M::setNoAudio, true, "-an ");
    expect(&M::copyAudio, &M::setCopyAudio, true, "-acopy ");
    expect(&M::ignoredAudioTracks, &M::setIgnoredAudioTracks, Tracks{2, 11}, "-ac_omit_0 2 -ac_omit_1 11");
    expect(&M::discreteAudio, &M::setDiscreteAudio, true, "-adiscrete ");
    expect(&M::audioFormat, &M::setAudioFormat, VAVAacAudioFormatValue, "-acodec aac");
    expect(&M::audioBitsPerChannel, &M::setAudioBitsPerChannel, 24, "-abpc 24");
    expect(&M::audioSampleRate, &M::setAudioSampleRate, 48000, "-asr 48000");
    expect(&M::audioChannelLayout, &M::setAudioChannelLayout, VAVMonoAudioLayout, "-acl mono");
    expect(&M::audioBitRate, &M::setAudioBitRate, 256, "-abr 256");
    expect(&M::timecodeAddTrack, &M::setTimecodeAddTrack, true, "-tc_track ");
    expect(&M::timecodeAddBurn, &M::setTimecodeAddBurn, true, "-tc_burn ");
    expect(&M::timecodeBurnAnchor, &M::setTimecodeBurnAnchor, TimecodeBurnAnchor(VAVAnchorBottomCenter), "-tc_burn_anchor bc");
    expect(&M::timecodeBurnFontSize, &M::setTimecodeBurnFontSize, 36, "-tc_burn_size 36");
    expect(&M::timecodeBurnFontColor, &M::setTimecodeBurnFontColor, Color::rgb(0.8, 0, 0.4), "-tc_burn_font_rgb 204,0,102");
    expect(&M::timecodeBurnBoxColor, &M::setTimecodeBurnBoxColor, Color::rgb(0, 0, 0), "-tc_burn_box_rgb 0,0,0");
    expect(&M::timecodeMatchSource, &M::setTimecodeMatchSource, true, "-tc_match ");
    expect(&M::timecodeFromCreationDate, &M::setTimecodeFromCreationDate, true, "-tc_creation ");
    expect(&M::timecode, &TranscodeOptions::setTimecode, "01:00:00;00", "-tc_custom 01:00:00;00");
    expect(&M::timecodeFrameRate, &M::setTimecodeFrameRate, 29.97, "-tc_rate 29.97");
    expect(&M::timecodeIsDropFrame, &M::setTimecodeIsDropFrame, true, "-tc_drop ");
    expect(&M::watermarkFileBurnAnchor, &M::setWatermarkFileBurnAnchor, WatermarkBurnAnchor(VAVAnchorCenter), "-wmf_anchor c");
    expect(&M::watermarkFileBurnFilePath, &M::setWatermarkFileBurnFilePath, "/logo.png", "-wmf_path /logo.png");
    expect(&M::watermarkFileBurnScale, &M::setWatermarkFileBurnScale, 0.5, "-wmf_scale 0.5");
    expect(&M::watermarkTextAddBurn, &M::setWatermarkTextAddBurn, true, "-wmt_burn ");
    expect(&M::watermarkTextBurnText, &M::setWatermarkTextBurnText, "for review", "-wmt_text for review");
    expect(&M::watermarkTextBurnFontSize, &M::setWatermarkTextBurnFontSize, 12, "-wmt_size 12");
    expect(&M::watermarkTextBurnAnchor, &M::setWatermarkTextBurnAnchor, VAVAnchorTopRight, "-wmt_anchor tr");
    expect(&M::watermarkTextBurnFontColor, &M::setWatermarkTextBurnFontColor, Color::rgb(0.2, 0.4, 0.6), "-wmt_font_rgb 51,102,153");
    expect(&M::watermarkTextBurnBoxColor, &M::setWatermarkTextBurnBoxColor, Color::rgb(0, 0, 0.8), "-wmt_box_rgb 0,0,204");
    expect(&M::arriLookColorSpacePrimary, &M::setArriLookColorSpacePrimary, VAVArriLookColorSpaceP3, "-arri_cs p3");
    expect(&M::arriLookColorSpaceWhitePoint, &M::setArriLookColorSpaceWhitePoint, VAVArriWhitePointDCI, "-arri_wp dci");
    expect(&M::arriLookColorSpaceCurve, &M::setArriLookColorSpaceCurve, VAVArriCurveLogC4, "-arri_curve logc4");
    expect(&M::arriLookInvalidLookResolution, &M::setArriLookInvalidLookResolution, VAVArriLookResolutionFirst, "-arri_inv_res first");
    // clang-format on
  }

  // A model with every option set.
  Model all_;
};

TEST_F(EveryOption, BelongsToAFlagAndEveryFlagToAnOptionAndArrives) {
  for (const auto flag : Model::allKnownCommandFlags()) {
    // Each ignored track has its own flag.
    EXPECT_NE(all_.hasArgumentFlag(flag), flag == VAVAudioIgnoreTracksPrefixFlag)
        << flag << " needs a row in the list of this test";
  }
  EXPECT_EQ(joined(all_.problems(), ' ', &TranscodeProblem::description), "");
}

TEST_F(EveryOption, TravelsInTheDetailRecordOfItsSubject) {
  const TranscodeDetailModifier modifier{{all_.generalDetail(), all_.videoDetail(), all_.audioDetail(),
                                          all_.timecodeDetail(), all_.watermarkDetail(),
                                          all_.arriLookDetail()}};
  Model target;
  modifier.apply(target);
  for (const auto& command : VAVTranscodeCliCommand::allCases()) {
    all_.setArgumentFlagValue(command, std::nullopt);
  }
  EXPECT_EQ(target.flagValueLookup(), all_.flagValueLookup());

  const TranscodeDetailModifier nothing{{TranscodeGeneralDetail(), TranscodeVideoDetail(),
                                         TranscodeAudioDetail(), TranscodeTimecodeDetail(),
                                         TranscodeWatermarkDetail(), TranscodeArriLookDetail()}};
  nothing.apply(target);
  EXPECT_EQ(wordsOf(target), "");
}

// None of these texts is a value of any kind.
TEST(TranscodeOptions, ValuesReadAsAWholeOrNotAtAll) {
  for (const auto& text : split("|x|24x|2 4|+24|-24|1,5|0x1F|inf|nan|1e999|.|24/1|960x|x540|9x5x1|960 x "
                                "540|960x-540|960.0x540|red|"
                                "255,0|255,0,0,255|255, 0,0|,,|1,2,|1,2,x|nan,0,0|1,inf,0|rgb|middle",
                                '|')) {
    EXPECT_EQ(with("-vr", text).videoFrameRate(), std::nullopt) << text;
    EXPECT_EQ(with("-vbd", text).videoBitDepth(), std::nullopt) << text;
    EXPECT_EQ(with("-dims", text).videoDimensions(), std::nullopt) << text;
    EXPECT_EQ(with("-wmt_font_rgb", text).watermarkTextBurnFontColor(), std::nullopt) << text;
    EXPECT_EQ(with("-c_space", text).videoColorSpace(), std::nullopt) << text;
    EXPECT_EQ(with("-crop_anchor", text).videoAspectCropAnchor(), std::nullopt) << text;
  }
  for (const auto* text : {"9223372036854775808", "24.0"}) EXPECT_FALSE(with("-vbd", text).videoBitDepth());
  EXPECT_EQ(with("-vr", "2.4e1").videoFrameRate(), 24);
  EXPECT_EQ(with("-vbd", "\u3000 024\n").videoBitDepth(), 24);
  EXPECT_EQ(with("-vbd", "\u3000 024\n").argumentFlagValue("-vbd"), "\u3000 024\n")
      << "reading keeps the text";
  EXPECT_EQ(with("-dims", "1920X1080").videoDimensions(), (FrameSize{1920, 1080}));
  EXPECT_EQ(with("-wmt_font_rgb", " 255,0,0\n").watermarkTextBurnFontColor(), Color::rgb(1, 0, 0));
  EXPECT_EQ(with("-wmt_font_rgb", "127.5,51,510").watermarkTextBurnFontColor(), Color::rgb(0.5, 0.2, 2));
  EXPECT_EQ(with("-vcodec", " ProRes422 ").videoFormat(), VAVProRes422);
  EXPECT_EQ(wordsOf(read("-c_space sRGB")), "-c_space srgb");
  EXPECT_EQ(read("-c_space sRGB").videoColorSpace(), VAVSrgbColorSpace);
}

TEST(TranscodeOptions, TextsAndSwitchesTakeAnyValue) {
  Model model({"-vn", "x"});
  EXPECT_TRUE(model.noVideo());
  model.setVideoFormat(VAVTranscodeArgumentVideoCodecValue(std::string_view("CineForm")));
  EXPECT_EQ(model.videoFormat(), std::nullopt);
  model.setVideoProfile("");
  model.setWatermarkTextBurnText(" Keep ME ");
  EXPECT_EQ(wordsOf(model), "-vcodec CineForm -vn x -vprofile  -wmt_text  Keep ME ");
  EXPECT_EQ(model.videoProfile(), "");
}

TEST(TranscodeOptions, ANumberThatCannotTravelRemovesTheFlagAndWarns) {
  const RecordedLog log;
  auto model = read("-vr 24 -vbd 8 -dims 1x1 -wmf_scale 1");
  model.setVideoFrameRate(nan);
  model.setWatermarkFileBurnScale(infinity);
  model.setVideoBitDepth(INT64_MIN);
  model.setVideoDimensions(FrameSize{-1, 1});
  model.setIgnoredAudioTracks({-1, 4});
  EXPECT_EQ(wordsOf(model), "-ac_omit_0 4");
  EXPECT_EQ(log.lines().size(), 5U);
  EXPECT_EQ(log.lines()[0],
            "warning: QLC_TCLIA_WV-A number that is negative or not finite cannot stand behind -vr");
  EXPECT_TRUE(log.lines()[4].ends_with(" -ac_omit"));
  model.setVideoFrameRate(-0.0);
  EXPECT_EQ(model.argumentFlagValue("-vr"), "0.0");
}

TEST(TranscodeOptions, AFloatIsWrittenByItsOwnShortestText) {
  TranscodeCliArguments model;
  for (float number = 0.1F; number < 1e9F; number *= 1.37F) {
    model.setVideoBitRate(number);
    const auto text = model.argumentFlagValue("-vbr").value_or("");
    float read = 0;
    std::from_chars(text.data(), text.data() + text.size(), read);
    EXPECT_EQ(read, number);
    EXPECT_LE(text.size(), 12U) << text;  // nine digits are enough
  }
  model.setVideoFrameRate(std::optional(0.1F));
  EXPECT_EQ(model.argumentFlagValue("-vr"), "0.1");
}

// Out of 255 if the colour has an RGB form; else the flag is removed and the log shows the colour.
TEST(TranscodeOptions, ColoursAreWrittenOutOf255) {
  const std::pair<Color, std::string> rows[] = {
      {Color::rgb(0.5, 0.5, 0.5), "127,127,127"},
      {Color::rgb(1, 1, 1), "1,1,1"},
      {Color::rgb(0.999999, 1.5, 254.9, 0), "254,1,254"},
      {Color::rgb(-0.001, -0.5, 300), "0,-127,300"},
      {Color::rgb255(255, 255, 255), "255,255,255"},
      {Color::rgb255(0.9, 1, 300), "0,1,300"},
      {Color::grey(1), "255,255,255"},
      {Color::grey(0.5), "127,127,127"},
      {Color::cmyk(0, 1, 0.5, 0), "255,0,127"},
      {Color::cmyk(0, 0, 0, 1), "0,0,0"},
      {Color::pattern("stripes"), "pattern stripes"},
      {Color::grey(nan), "grey nan alpha 1.0"},
      {Color::rgb(0, 0x1p63, 0, 0.5), "RGB 0.0 9223372036854775808.0 0.0 alpha 0.5"},
      {Color::rgb(0, 0, nan), "RGB 0.0 0.0 nan alpha 1.0"},
      {Color::cmyk(0, infinity, 0, 0), "CMYK 0.0 inf 0.0 0.0 alpha 1.0"}};
  for (const auto& [color, text] : rows) {
    const RecordedLog log;
    auto model = read("-wmt_box_rgb 1,2,3 -vn");
    model.setWatermarkTextBurnBoxColor(color);
    const bool hasRgb = text.find(' ') == std::string::npos;
    EXPECT_EQ(wordsOf(model), hasRgb ? "-vn  -wmt_box_rgb " + text : "-vn ");
    EXPECT_EQ(joined(log.lines()),
              hasRgb ? "" : "warning: QLC_TCLIA_USS-Could not get rgb components for color " + text);
  }
}

// Also into another model, and stored in between.
TEST(TranscodeDetails, EveryByteOfAColourTravels) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto color = Color::rgb255(byte, byte, byte);
    EXPECT_EQ(color, Color::rgb(byte / 255.0, byte / 255.0, byte / 255.0));
    EXPECT_EQ(color.inGenericRgbSpace()->outOf255()->blue, byte);
    const auto number = std::to_string(byte);
    const auto words = "-tc_burn_box_rgb 255,255," + number + " -tc_burn_font_rgb " + number +
                       ",0,255 -wmt_box_rgb 1,1," + number + " -wmt_font_rgb 255," + number + ",1";
    const auto model = read(words);
    Model other;
    other.update(decode<TranscodeTimecodeDetail>(encode(model.timecodeDetail())));
    other.update(model.watermarkTextDetail());
    EXPECT_EQ(wordsOf(other), words);
    EXPECT_EQ(other.timecodeDetail(), model.timecodeDetail());
  }
}

TEST(TranscodeOptions, TheTimecodeFollowsTheDropFrameSwitch) {
  // A timecode, and what it is with frames dropped and without.
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"01:02:03:04", "01:02:03;04", "01:02:03:04"},
      {"01:02:03;04", "01:02:03;04", "01:02:03:04"},
      {"01:02:03:04:05", "01:02:03;405", "01:02:03:405"},
      {"1:2:3:4", "1:2:3:4", "1:2:3:4"}};
  for (const auto& [timecode, dropped, plain] : rows) {
    auto model = read("-tc_custom " + timecode);
    model.setTimecodeIsDropFrame(true);
    EXPECT_EQ(wordsOf(model), "-tc_custom " + dropped + " -tc_drop ");
    model.setTimecode(timecode);
    EXPECT_EQ(wordsOf(model), "-tc_custom " + dropped + " -tc_drop ");
    if (const auto components = model.timecodeComponents()) {
      EXPECT_EQ(components, TimecodeComponents::fromTimecode(dropped));
      model.setTimecode(TimecodeComponents::sanitizedTimecode(plain));
      EXPECT_EQ(model.timecode(), dropped);
    }
    model.setTimecodeIsDropFrame(false);
    EXPECT_EQ(wordsOf(model), "-tc_custom " + plain);
  }
}

TEST(TranscodeOptions, TheTimecodeHasOneSource) {
  using enum TimecodeSource;
  // The words, their source, the source that is set, and the words then.
  const std::tuple<std::string, std::optional<TimecodeSource>, std::optional<TimecodeSource>, std::string>
      rows[] = {{"-tc_match -tc_custom x", match, creationDate, "-tc_creation "},
                {"-tc_creation -tc_custom x", creationDate, custom, "-tc_custom x"},
                {"-tc_match -tc_creation", match, match, "-tc_match "},
                {"-tc_match -tc_creation -tc_custom x -vn", match, std::nullopt, "-vn "},
                {"-tc_match", match, custom, "-tc_custom 00:00:00:00"},
                {"-tc_drop", std::nullopt, custom, "-tc_custom 00:00:00;00 -tc_drop "}};
  for (const auto& [words, before, set, expected] : rows) {
    auto model = read(words);
    EXPECT_EQ(model.timecodeSource(), before) << words;
    model.setTimecodeSource(set);
    EXPECT_EQ(wordsOf(model), expected);
    EXPECT_EQ(model.timecodeSource(), set) << words;
  }
  EXPECT_EQ(joined(allCases<TimecodeSource>(), ' ', [](auto source) { return cliFlag(source); }),
            "-tc_match -tc_creation -tc_custom");
  EXPECT_EQ(decode<TimecodeSource>(std::string("creationDate")), creationDate);
}

TEST(TranscodeDetails, TheLaterRecordOfAModifierWins) {
  auto model =
      read("-vr 25 -an -in_2_0 old -ac_omit 7 -ac_omit_0 10 -ac_omit_1 7 -ac_omit_x 2 -ac_omit_2 all");
  EXPECT_EQ(model.ignoredAudioTracks(), (Tracks{2, 7, 10}));
  model.setIgnoredAudioTracks({3, 1, 3});
  TranscodeDetailModifier{{TranscodeVideoDetail{.videoFrameRate = 24}, TranscodeVideoDetail{.noVideo = true},
                           TranscodeInputFileGroup{2, {"a", "b"}}}}
      .apply(model);
  EXPECT_EQ(wordsOf(model), "-ac_omit_0 1 -ac_omit_1 3 -an  -in_2_0 a -in_2_1 b -vn ");
}

TEST(TranscodeDetails, ATimecodeIsSetWithTheSeparatorOfItsRecord) {
  for (const auto words : {"", "-tc_drop", "-tc_custom 01:00:00:00", "-tc_custom 02:00:00;00 -tc_drop"}) {
    auto model = read(words);
    for (const bool drop : {false, false, true, true, false}) {
      model.update(TranscodeTimecodeDetail{.timecode = drop ? "01:00:00:00" : "01:00:00;00",
                                           .timecodeIsDropFrame = drop});
      EXPECT_EQ(model.timecode(), drop ? "01:00:00;00" : "01:00:00:00") << words;
    }
  }
}

TEST(TranscodeDetails, AnInputFileGroupIsReplacedAlone) {
  auto model = read("-in p -in_0_0 a -in_1_05 b -in_1_x c -in_1_7 d");
  EXPECT_EQ(model.inputFileGroup(1), (TranscodeInputFileGroup{1, {"b", "d"}}));
  EXPECT_EQ(model.inputFileGroup(2), std::nullopt);
  model.update(TranscodeInputFileGroup{1, {"d"}});
  EXPECT_EQ(wordsOf(model), "-in p -in_0_0 a -in_1_0 d -in_1_x c");
  model.update(TranscodeInputFileGroup{1, {}});
  EXPECT_EQ(model.inputFileGroups(), (InputFileGroups{{0, {"a"}}}));
}

template <class Anchor> void expectAnchor(std::string_view flag) {
  EXPECT_EQ(Anchor::cliFlag(), flag);
  for (const auto& place : allCases<VAVTranscodeArgumentOverlayAnchorValue>()) {
    EXPECT_EQ(Anchor::fromRawValue(place.rawValue()), Anchor(place));
    EXPECT_EQ(Anchor(place).anchorArgument, place);
  }
  for (const auto* text : {"", "middle", "C", "tl "}) EXPECT_EQ(Anchor::fromRawValue(text), std::nullopt);
}

TEST(TranscodeAnchors, AreTheNinePlacesUnderAFlagOfTheirOwn) {
  expectAnchor<VideoCropAnchor>("-crop_anchor");
  expectAnchor<TimecodeBurnAnchor>("-tc_burn_anchor");
  expectAnchor<WatermarkBurnAnchor>("-wmf_anchor");
}

}  // namespace
}  // namespace quillonic
