#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <string>

#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;

std::string problemsOf(const Model& model) {
  return joined(model.problems(), '|', &TranscodeProblem::description);
}

TEST(TranscodeProblem, SaysWhatWasFoundAndExpected) {
  const std::pair<std::string, std::string> rows[] = {
      {"-vr 24fps", "-vr: found \"24fps\", expected a decimal number"},
      {"-ac_omit_1 all", "-ac_omit_1: found \"all\", expected a whole number"},
      {"-dims 1920*1080", "-dims: found \"1920*1080\", expected a frame size, as in 960x540"},
      {"-acl 5.1", "-acl: found \"5.1\", expected one of mono, stereo, quad, pent, hex, oct"},
      {"-arri_wp d50 -tc_burn_anchor c", "-arri_wp: found \"d50\", expected one of d60, dci, d65"},
      {"-tc_custom 1:2:3", "-tc_custom: found \"1:2:3\", expected a timecode, as in 01:00:00:00"},
      {"-wmt_box_rgb red", "-wmt_box_rgb: found \"red\", expected a colour, as in 255,0,0"},
      {"-in_0_0", "-in_0_0: found \"\", expected a path"},
      {"-web clip.mov", "-web: found \"clip.mov\", expected nothing after a switch"},
      {"-bogus x --help",
       "--help: no flag of the transcoder, although it contains -h|-bogus: no flag of the transcoder"},
      {"-in_0_0_0 /a", "-in_0_0_0: no flag of the transcoder, although it contains -in"},
      {"-C_SPACE sRGB -in_-1_07 /A -out /B -wmt_text Hello -ac_omit 3 -vprofile", ""}};
  for (const auto& [words, problems] : rows) EXPECT_EQ(problemsOf(Model(split(words))), problems);
  Model model;
  model.setVideoColorSpace(VAVSrgbColorSpace);
  model.setWatermarkTextBurnText("For\nReview ");
  model.setArgumentFlagValue("no-vn", "");
  model.setArgumentFlagValue("-vprofile", std::string("p\0q", 3));  // as the system passes it on
  EXPECT_EQ(problemsOf(model),
            "-vprofile: \"p\\x00q\" arrives as \"p\"|-wmt_text: \"For\\nReview \" arrives as "
            "\"for\\nreview\"|no-vn: no flag of the "
            "transcoder, although it contains -vn|no-vn: does not arrive");
}

}  // namespace
}  // namespace quillonic
