#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "error_of.hpp"
#include "recorded_log.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;
using Changes = TranscodeOptionChanges;

Model copy(const Model& model) {
  return decode<Model>(encode(model));
}

TextDictionary applied(const std::vector<Changes>& changes, const Model& model) {
  auto changed = copy(model);
  for (const auto& change : changes) change.apply(changed);
  return changed.flagValueLookup();
}

Model randomModel(std::mt19937& random) {
  const auto pool = split(
      "-vn |-vcodec h264|-vcodec mp4|-vr 24|-web |-clut /L|-in /a|-in_0_0 /b|-in_0_1 /c|-in_1_0 /d|"
      "-ac_omit_0 1|-ac_omit_0 2|-ac_omit_1 5|-tc_custom 01:00:00:00|-tc_custom 02:00:00:00|-tc_custom x|"
      "-tc_drop |-tc_drop x|-wmt_font_rgb 255,255,255|-wmt_text a\nb|-wmf_path /w|-arri_cs p3",
      '|');
  Model model;
  for (const auto& words : pool) {
    const auto divide = words.find(' ');
    if (random() % 3 == 0) model.setArgumentFlagValue(words.substr(0, divide), words.substr(divide + 1));
  }
  if (model.timecodeIsDropFrame()) {
    const std::string text(*model.argumentFlagValue("-tc_drop"));
    model.setTimecodeIsDropFrame(true);
    model.setArgumentFlagValue("-tc_drop", text);
  }
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

    const auto other = Changes::between(randomModel(random), randomModel(random));
    auto sum = toB;
    sum.add(other);
    const auto third = randomModel(random);
    EXPECT_EQ(applied({sum}, third), applied({toB, other}, third)) << toB.description() << "\n"
                                                                   << other.description();
    EXPECT_EQ(decode<Changes>(encode(sum)), sum);
  }
}

TEST(TranscodeOptionChanges, TakeEveryKindOfValueAndRefuseWhatCannotBeWritten) {
  Changes changes;
  EXPECT_TRUE(changes.set(" -VCodec ", VAVProRes422));
  EXPECT_TRUE(changes.set(VAVVideoProfileFlag, "Main\n10"));
  EXPECT_TRUE(changes.set(VAVVideoFrameRateFlag, 23.976));
  EXPECT_TRUE(changes.set(VAVVideoBitDepthFlag, 10));
  EXPECT_TRUE(changes.set(VAVVideoDimensionsFlag, FrameSize{960, 540}));
  EXPECT_TRUE(changes.set(VAVTimecodeBurnFontRGB, Color::rgb255(255, 255, 255)));
  EXPECT_TRUE(changes.set(VAVColorLutFileFlag, std::filesystem::path("/L")));
  EXPECT_TRUE(changes.set(VAVPrepareForWebFlag, true));
  EXPECT_TRUE(changes.set(VAVOverwriteExistingFlag, false));
  EXPECT_TRUE(changes.set("-ac_omit_7", "7"));
  EXPECT_TRUE(changes.setIgnoredAudioTracks({3, 1, 3}));
  EXPECT_TRUE(changes.set(VAVNoAudioFlag));
  changes.forget("-AN");
  const auto before = changes;
  const RecordedLog log;
  EXPECT_FALSE(changes.set("-bogus", "1"));
  EXPECT_FALSE(changes.remove("-bogus"));
  EXPECT_FALSE(changes.set(VAVVideoFrameRateFlag, std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(changes.set(VAVVideoBitDepthFlag, -1));
  EXPECT_FALSE(changes.set(VAVVideoBitDepthFlag, UINT64_MAX));
  EXPECT_FALSE(changes.set(VAVVideoDimensionsFlag, FrameSize{-1, 1}));
  EXPECT_FALSE(changes.set(VAVTimecodeBurnFontRGB, Color::pattern("stripes")));
  EXPECT_FALSE(changes.setIgnoredAudioTracks({1, -1}));
  EXPECT_EQ(changes, before);
  EXPECT_EQ(log.lines().size(), 0U);
  EXPECT_EQ(changes.description(),
            "remove -ac_omit, set -ac_omit_0 1, set -ac_omit_1 3, set -clut /L, set -dims 960x540, "
            "remove -overwrite, set -tc_burn_font_rgb 255,255,255, set -vbd 10, set -vcodec prores422, "
            "set -vprofile Main\\n10, set -vr 23.976, set -web");

  Model model(split("-overwrite -vbr 10 -ac_omit_4 2 -vcodec h264"));
  changes.apply(model);
  EXPECT_EQ(model.ignoredAudioTracks(), (std::vector<std::int64_t>{1, 3}));
  EXPECT_EQ(model.videoFormat(), VAVProRes422);
  EXPECT_EQ(model.videoBitRate(), 10);
  EXPECT_FALSE(model.overwriteExisting());
}

TEST(TranscodeOptionChanges, AreDecodedInAnyOrderAndOnlyWithValidFlags) {
  CodedRecord record;
  record.add("-in_0_0", std::string("/a"));
  record.add("-in", CodedValue());
  EXPECT_EQ(decode<Changes>(record).description(), "remove -in, set -in_0_0 /a");
  for (const auto& [flag, value] :
       {std::pair<std::string, CodedValue>{"-bogus", std::string("x")}, {"-vr", 24.0}, {"-web", true}}) {
    CodedRecord wrong;
    wrong.add(flag, value);
    EXPECT_EQ(undecodedKey([&] { return decode<Changes>(wrong); }), flag);
  }
}

}  // namespace
}  // namespace quillonic
