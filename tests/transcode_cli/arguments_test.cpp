#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "error_of.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Words = std::vector<std::string>;
using Model = TranscodeCliArguments;

std::string wordsOf(const Model& model) {
  return joined(model.commandLineArguments(), '|');
}

TEST(TranscodeCliArguments, ReadsWordsAndDictionariesAlike) {
  const Model model(
      {"-WMT_TEXT", "\u00a0\u00c9COLE ", "-CLUT", " /A\u00c9\n", "-VN", "-", "-bogus", "1", "-xin"});
  EXPECT_EQ(wordsOf(model), "-clut|/A\u00c9|-vn||-wmt_text|\u00e9cole");
  EXPECT_EQ(model.unknownFlags(), (Words{"-", "-bogus", "-xin"}));
  EXPECT_TRUE(model.hasArgumentFlag(" -vn\n"));
  EXPECT_FALSE(model.hasArgumentFlag("-VN") || model.allFlagsAreValid() ||
               model.argumentFlagValue("-vcodec"));
  const TextDictionary lookup{{"-OUT ", "/A "}, {"-VBR", "1"},  {"-vbr", "2"},
                              {"no-vn", "X"},   {"plain", "Y"}, {"", ""}};
  for (const auto& read : {Model::fromArgumentLookup(lookup), Model::from(lookup)}) {
    EXPECT_EQ(wordsOf(read), "-out|/A|-vbr|2|no-vn|x");
    EXPECT_EQ(read.unknownFlags(), (Words{"", "plain"}));
  }
}

TEST(TranscodeCliArguments, NumbersTheInputFiles) {
  Model model({"-in", "/old", "-in_7_7", "/old", "-inx", "/old", "-vn"});
  model.setInputFileGroups(InputFileGroups{{1, {"c"}}, {0, {"a", "b"}}, {-2, {" d\n"}}, {5, {}}});
  EXPECT_EQ(wordsOf(model), "-in_-2_0| d\n|-in_0_0|a|-in_0_1|b|-in_1_0|c|-vn|");
  EXPECT_EQ(model.inputFileGroups(), (InputFileGroups{{-2, {" d\n"}}, {0, {"a", "b"}}, {1, {"c"}}}));
  EXPECT_EQ(model.inputFiles(), (Words{" d\n", "a", "b", "c"}));
  model.setInputFileGroups(std::nullopt);
  EXPECT_EQ(wordsOf(model), "-vn|");
  EXPECT_FALSE(model.inputFileGroups() || model.inputFiles() || model.firstInputFile());
}

TEST(TranscodeCliArguments, TakesFilesAsPathsAndEmptyBraces) {
  Model model({});
  EXPECT_EQ(model, Model());
  model.setInputFiles({"/b", "/a"});
  model.setInputFileGroup(-1, {"/c"});
  EXPECT_EQ(wordsOf(model), "-in_-1_0|/c|-in_0_0|/b|-in_0_1|/a");
  EXPECT_EQ(model.inputFilePaths(0), (std::vector<std::filesystem::path>{"/b", "/a"}));
  model.setInputFileGroup(0, {});
  EXPECT_TRUE(model.inputFilePaths(0).empty());
  model.setInputFileGroups(model.inputFileGroups());
  EXPECT_EQ(model.inputFilePaths(), (std::vector<std::filesystem::path>{"/c"}));
  model.setInputFileGroups({});
  EXPECT_EQ(model, Model());
}

TEST(TranscodeCliArguments, KeepsOrReplacesWhatIsSetUnderAPreset) {
  for (const auto layer : {ApplyLayer::belowWhatIsSet, ApplyLayer::aboveWhatIsSet}) {
    Model model({"-vcodec", "h265", "-bogus", "1", "-preset", "vantiro_4444xq"}, true);
    model.apply(presetWithCliValue(*model.preset()).value(), layer);
    const auto* codec = layer == ApplyLayer::belowWhatIsSet ? "h265" : "prores4444xq";
    EXPECT_EQ(wordsOf(model),
              std::string("-vcodec|") + codec + "|-preset|vantiro_4444xq|-acodec|lpcm|-file_format|qt");
    model.apply({{" -BOGUS", "2"}, {"-VR", " 24"}}, layer);
    EXPECT_EQ(model.unknownFlagLookup().at("-bogus"), layer == ApplyLayer::belowWhatIsSet ? "1" : "2");
    EXPECT_EQ(model.argumentFlagValue("-vr"), "24");
  }
  EXPECT_EQ(presetWithCliValue("cloud"), std::nullopt);
}

TEST(TranscodeCliArguments, ReadsNumberedFilesInNumericalOrder) {
  const Model model(
      split("-in_1_0 B -in_01_0 A -in_10_0 D -in_2_-1 C -in_2_10 C10 -in_2_9 C9 "
            "-in_+3_0 no -in_3 no -in_3_0_ no -in_3__0 no -in_x_0 no -inx_3_0 no -in__0 no -in_3_ no -in "
            "-in_0x_0 no -in_9223372036854775808_0 no -in_9223372036854775807_0 max "
            "-in_-9223372036854775808_0 min"));
  const InputFileGroups groups{
      {INT64_MIN, {"min"}}, {1, {"A", "B"}}, {2, {"C", "C9", "C10"}}, {10, {"D"}}, {INT64_MAX, {"max"}}};
  EXPECT_EQ(model.inputFileGroups(), groups);
  EXPECT_EQ(model.firstInputFile(), "min");
  EXPECT_EQ(Model({"-in_0_0", "b", "-in", "a"}).inputFiles(), (Words{"a", "b"}));
  EXPECT_EQ(Model({"-in", "a"}).inputFileGroups(), std::nullopt);
}

TEST(TranscodeCliArguments, RefusesACodedFormThatDoesNotFit) {
  const auto undecoded = [](std::string_view key, const CodedValue& value) {
    CodedRecord record;
    record.add(key, value);
    record.add("flagValueLookup", CodedRecord());
    return undecodedKey([&] { return decode<Model>(record); });
  };
  EXPECT_EQ(undecoded("other", true), std::nullopt);
  EXPECT_EQ(undecoded("flagValueLookup", true), "flagValueLookup");
  EXPECT_EQ(undecoded("orderedFlags", CodedList{true}), "orderedFlags");
  EXPECT_EQ(undecoded("invalidKeyValueLookup", std::string()), "invalidKeyValueLookup");
  EXPECT_THROW(decode<Model>(CodedRecord()), DecodingError);
}

TEST(TranscodeCliArguments, WithstandsHugeInput) {
  constexpr std::size_t mebibyte = 1 << 20;
  Words many(1'000'000, "-vn");
  for (std::size_t i = 1; i < many.size(); i += 2) many[i] = i % 3 == 0 ? "-in_0_" + std::to_string(i) : "x";
  EXPECT_EQ(Model(many, true).flagValueLookup().size(), 1 + 1'000'000 / 6U + 1);

  const std::string capitals(mebibyte, 'A');
  const auto odd = "-" + std::string(mebibyte, 'i') + "-in";
  const std::string hyphens(mebibyte, '-');
  const Model model({"-out", capitals, "-vprofile", capitals, hyphens, std::string(mebibyte, ' '), odd});
  EXPECT_EQ(model.argumentFlagValue("-out"), capitals);
  EXPECT_EQ(model.argumentFlagValue("-vprofile"), std::string(mebibyte, 'a'));
  EXPECT_EQ(model.argumentFlagValue(odd), "");
  EXPECT_EQ(model.unknownFlags(), Words{hyphens});
}

}  // namespace
}  // namespace quillonic
