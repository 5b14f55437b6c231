#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

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

// Models of any flags and values: made by setters, or decoded, where flags are unchecked.
class AnyModel {
 public:
  Model next() {
    Model model;
    for (auto count = pick(7); count > 0; --count) model.setArgumentFlagValue(any(flags_), any(values_));
    if (pick(2) == 0) return model;
    CodedRecord lookup;
    for (const auto& [flag, value] : model.flagValueLookup()) lookup.add(flag, value);
    lookup.add(any(flags_), any(values_));
    CodedRecord record;
    record.add("flagValueLookup", std::move(lookup));
    return decode<Model>(CodedValue(std::move(record)));
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }
  const std::string& any(const std::vector<std::string>& texts) { return texts[pick(texts.size())]; }

  std::mt19937 random_{19};
  const std::vector<std::string> flags_ =
      split("-vr|-VR|-c_space|-wmt_text|-out|-in_0_1|-in_0_2|-vn|no-vn|-tc_custom| -vn|--help", '|');
  const std::vector<std::string> values_ =
      split("|24|/A|h264|sRGB|-vn|-vr| 24|/A b|\u00c9|\u00e9\u3000|01:00:00;00", '|');
};

TEST(TranscodeCliArguments, ArrivesEqualWithoutAProblemAndDiffersByWhatItTells) {
  AnyModel any;
  int sound = 0;
  for (int i = 0; i < 20'000; ++i) {
    const auto model = any.next();
    EXPECT_EQ(encode(model.clone()), encode(model));
    Model arrival(model.launchArguments());
    auto changed = model.flagValueLookup();
    for (const auto& [flag, was, is] : arrival.differencesFrom(model)) {
      changed.erase(flag);
      if (is) changed.emplace(flag, *is);
    }
    EXPECT_EQ(changed, arrival.flagValueLookup());
    const auto problems = model.problems();
    for (const auto& [kind, flag, value, expected, arrivesAs] : problems) {
      if (kind != TranscodeProblemKind::changedOnArrival) continue;
      EXPECT_TRUE(arrivesAs ? changed.at(flag) == *arrivesAs : !changed.contains(flag)) << flag;
    }
    if (!problems.empty()) continue;
    ++sound;
    EXPECT_EQ(arrival.videoColorSpace(), model.videoColorSpace());
    arrival.setArgumentFlagValue("-c_space", model.argumentFlagValue("-c_space"));
    EXPECT_EQ(arrival, model) << joined(model.launchArguments());
  }
  EXPECT_GT(sound, 1000);
}

}  // namespace
}  // namespace quillonic
