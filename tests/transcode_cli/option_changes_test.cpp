#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "error_of.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;
using Changes = TranscodeOptionChanges;

TextDictionary applied(const std::vector<Changes>& changes, const Model& model) {
  auto changed = decode<Model>(encode(model));
  for (const auto& change : changes) change.apply(changed);
  return changed.flagValueLookup();
}

Model randomModel(std::mt19937& random) {
  const auto pool = split(
      "-vn |-vcodec h264|-vcodec mp4|-web |-clut /L|-in /a|-in_0_0 /b|-in_0_1 /c|-in_1_0 /d|-ac_omit_0 1|"
      "-ac_omit_0 2|-ac_omit_1 5|-tc_custom 01:00:00:00|-tc_custom 02:00:00:00|-tc_custom x|-tc_drop |"
      "-wmt_font_rgb 255,255,255|-wmt_text a\nb|-arri_cs p3",
      '|');
  Model model;
  for (const auto& words : pool) {
    const auto divide = words.find(' ');
    if (random() % 3 == 0) model.setArgumentFlagValue(words.substr(0, divide), words.substr(divide + 1));
  }
  model.setTimecodeIsDropFrame(model.timecodeIsDropFrame());  // gives the timecode its separator
  return model;
}

TEST(TranscodeOptionChanges, MakeOneModelOfAnotherAndAddUp) {
  std::mt19937 random(19);
  for (int i = 0; i < 2000; ++i) {
    const auto a = randomModel(random);
    const auto b = randomModel(random);
    const auto toB = Changes::between(a, b);
    EXPECT_EQ(applied({toB}, a), b.flagValueLookup()) << toB.description();
    EXPECT_EQ(applied({Changes::between(Model(), b)}, Model()), b.flagValueLookup());
    EXPECT_EQ(Changes::between(a, a), Changes());

    const auto later = Changes::between(randomModel(random), randomModel(random));
    auto sum = toB;
    sum.add(later);
    const auto other = randomModel(random);
    EXPECT_EQ(applied({sum}, other), applied({toB, later}, other)) << sum.description();
    EXPECT_EQ(decode<Changes>(encode(sum)), sum);
  }
}

TEST(TranscodeOptionChanges, TakeEveryKindOfValueAndRefuseWhatCannotBeWritten) {
  Changes changes;
  EXPECT_TRUE(changes.set(" -VCodec ", VAVProRes422) && changes.set(VAVVideoProfileFlag, "Main\n10") &&
              changes.set(VAVVideoFrameRateFlag, 23.976) && changes.set(VAVVideoBitDepthFlag, 10) &&
              changes.set(VAVVideoDimensionsFlag, FrameSize{960, 540}) &&
              changes.set(VAVTimecodeBurnFontRGB, Color::rgb255(255, 255, 255)) &&
              changes.set(VAVColorLutFileFlag, std::filesystem::path("/L")) &&
              changes.set(VAVTimecodeCustomFlag, TimecodeComponents{.hours = 1}) &&
              changes.set(VAVTimecodeBurnAnchorFlag, TimecodeBurnAnchor(VAVAnchorBottomCenter)) &&
              changes.set(VAVPrepareForWebFlag, true) && changes.set(VAVOverwriteExistingFlag, false) &&
              changes.set("-ac_omit_7", "7") && changes.setIgnoredAudioTracks({3, 1, 3}) &&
              changes.set(VAVNoAudioFlag));
  changes.forget("-AN");
  EXPECT_FALSE(changes.set("-bogus", "1") || changes.remove("-bogus") ||
               changes.set(VAVVideoFrameRateFlag, -1.0) || changes.set(VAVVideoBitDepthFlag, -1) ||
               changes.set(VAVVideoBitDepthFlag, UINT64_MAX) ||
               changes.set(VAVVideoDimensionsFlag, FrameSize{-1, 1}) ||
               changes.set(VAVTimecodeBurnFontRGB, Color::pattern("stripes")) ||
               changes.setIgnoredAudioTracks({1, -1}));
  EXPECT_EQ(changes.description(),
            "remove -ac_omit, set -ac_omit_0 1, set -ac_omit_1 3, set -clut /L, set -dims 960x540, "
            "remove -overwrite, set -tc_burn_anchor bc, set -tc_burn_font_rgb 255,255,255, "
            "set -tc_custom 01:00:00:00, set -vbd 10, set -vcodec prores422, set -vprofile Main\\n10, set "
            "-vr 23.976, set -web");
}

TEST(TranscodeOptionChanges, AreDecodedInAnyOrderAndOnlyWithValidFlags) {
  CodedRecord record;
  record.add("-in_0_0", std::string("/a"));
  record.add("-in", CodedValue());
  EXPECT_EQ(decode<Changes>(record).description(), "remove -in, set -in_0_0 /a");
  record.add("-bogus", CodedValue());
  EXPECT_EQ(undecodedKey([&] { return decode<Changes>(record); }), "-bogus");
}

}  // namespace
}  // namespace quillonic
