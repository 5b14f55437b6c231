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

// What a tool reads that the system starts with the words.
Model arrivalOf(const Model& model) {
  const auto words = model.launchArguments();
  std::vector<const char*> argv{"tool"};
  for (const auto& word : words) argv.push_back(word.c_str());
  return Model(ArgumentWords::fromMain(static_cast<int>(argv.size()), argv.data()));
}

TEST(TranscodeProblem, SaysWhatWasFoundAndExpected) {
  const std::pair<std::string, std::string> rows[] = {
      {"-vr 24fps", "-vr: found \"24fps\", expected a decimal number"},
      {"-vbd 8.5", "-vbd: found \"8.5\", expected a whole number"},
      {"-ac_omit_1 all", "-ac_omit_1: found \"all\", expected a whole number"},
      {"-dims 1920*1080", "-dims: found \"1920*1080\", expected a frame size, as in 960x540"},
      {"-acl 5.1", "-acl: found \"5.1\", expected one of mono, stereo, quad, pent, hex, oct"},
      {"-arri_wp d50", "-arri_wp: found \"d50\", expected one of d60, dci, d65"},
      {"-wmt_anchor middle -tc_burn_anchor c",
       "-wmt_anchor: found \"middle\", expected one of tl, tc, tr, cl, c, cr, bl, bc, br"},
      {"-tc_custom 1:2:3", "-tc_custom: found \"1:2:3\", expected a timecode, as in 01:00:00:00"},
      {"-wmt_box_rgb red", "-wmt_box_rgb: found \"red\", expected a colour, as in 255,0,0"},
      {"-in_0_0", "-in_0_0: found \"\", expected a path"},
      {"-web clip.mov", "-web: found \"clip.mov\", expected nothing after a switch"},
      {"-bogus x --help -vcodecc x -in_0 /a -in_0_0_0 /a -ac_omit_x 1",
       "--help: no flag of the transcoder, although it contains -h|-ac_omit_x: no flag of the transcoder, "
       "although it contains -ac_omit|-in_0: no flag of the transcoder, although it contains -in|-in_0_0_0: "
       "no flag of the transcoder, although it contains -in|-vcodecc: no flag of the transcoder, although it "
       "contains -vcodec|-bogus: no flag of the transcoder"},
      {"-C_SPACE sRGB -in_-1_07 /A -out /B -wmt_text Hello -ac_omit 3 -vprofile", ""}};
  for (const auto& [words, problems] : rows) EXPECT_EQ(problemsOf(Model(split(words))), problems);
}

TEST(TranscodeProblem, TellsWhatTheToolReadsInstead) {
  Model model;
  model.setVideoColorSpace(VAVSrgbColorSpace);
  model.setOutputFile("/A ");
  model.setWatermarkTextBurnText("For\nReview");
  model.setVideoProfile(" -main");
  model.setArgumentFlagValue("no-vn", "");
  model.setArgumentFlagValue("-progress_prefix", std::string("p\0q", 3));
  EXPECT_EQ(problemsOf(model),
            "-out: \"/A \" arrives as \"/A\"|-progress_prefix: \"p\\x00q\" arrives as \"p\"|"
            "-vprofile: \" -main\" arrives as \"\"|-wmt_text: \"For\\nReview\" arrives as \"for\\nreview\"|"
            "no-vn: no flag of the transcoder, although it contains -vn|no-vn: does not arrive");
}

// Models of any flags and values: made by setters, from a dictionary, and decoded, where flags are unchecked.
class AnyModel : public testing::Test {
 protected:
  Model next() {
    CodedRecord lookup;
    CodedRecord setAside;
    Model model;
    for (auto count = pick(7); count > 0; --count) {
      const std::string& flag = flags_[pick(flags_.size())];
      const std::string& value = values_[pick(values_.size())];
      if (pick(5) == 0) lookup.add(flag, value);
      if (pick(40) == 0) setAside.add(flag, value);
      model.setArgumentFlagValue(flag, value);
    }
    if (pick(2) == 0) return model;
    CodedRecord record;
    record.add("flagValueLookup", std::move(lookup));
    record.add("invalidKeyValueLookup", std::move(setAside));
    auto decoded = decode<Model>(CodedValue(std::move(record)));
    decoded.apply(model.flagValueLookup(), ApplyLayer::belowWhatIsSet);
    return decoded;
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }

  std::mt19937 random_{19};
  const std::vector<std::string> flags_ = split(
      "-vr|-vr|-VR|-c_space|-wmt_text|-out|-in_0_1|-in_0_1|-vn|no-vn|-vcodec|-tc_custom| -vn|-bogus|--help",
      '|');
  const std::vector<std::string> values_ =
      split("|24|/A|h264|sRGB|SRGB|-vn|-vr|-out| 24|/A b|\u00c9|\u00e9\u3000|01:00:00;00|-", '|');
};

TEST_F(AnyModel, ArrivesEqualWhenItHasNoProblem) {
  int sound = 0;
  for (int i = 0; i < 20'000; ++i) {
    auto model = next();
    const auto problems = model.problems();
    auto arrival = arrivalOf(model);
    for (const auto& [kind, flag, value, expected, arrivesAs] : problems) {
      if (kind != TranscodeProblemKind::changedOnArrival) continue;
      const auto there = arrival.flagValueLookup().find(flag);
      EXPECT_EQ(there != arrival.flagValueLookup().end(), arrivesAs.has_value());
      if (arrivesAs) {
        EXPECT_EQ(there->second, *arrivesAs);
      }
    }
    if (!problems.empty()) continue;
    ++sound;
    EXPECT_EQ(arrival.videoColorSpace(), model.videoColorSpace());
    if (const auto space = model.argumentFlagValue("-c_space"))
      arrival.setArgumentFlagValue("-c_space", *space);
    EXPECT_EQ(arrival, model) << joined(model.launchArguments());
  }
  EXPECT_GT(sound, 1000);
}

TEST_F(AnyModel, DiffersByWhatMakesItTheOther) {
  for (int i = 0; i < 5'000; ++i) {
    const auto before = next();
    const auto after = next();
    EXPECT_EQ(before.clone(), before);
    EXPECT_EQ(encode(before.clone()), encode(before)) << "the order too";
    EXPECT_EQ(before == after, after.differencesFrom(before).empty());
    if (!before.allFlagsAreValid() || !after.allFlagsAreValid()) continue;
    auto flags = before.flagValueLookup();
    for (const auto& [flag, was, is] : after.differencesFrom(before)) {
      EXPECT_EQ(was.has_value(), flags.contains(flag));
      flags.erase(flag);
      if (is) flags.emplace(flag, *is);
    }
    EXPECT_EQ(flags, after.flagValueLookup());
  }
}

}  // namespace
}  // namespace quillonic
