#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <string>

#include "error_of.hpp"

namespace quillonic {
namespace {

using Changes = TranscodeOptionChanges;

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
