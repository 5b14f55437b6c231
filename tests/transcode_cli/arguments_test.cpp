#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace quillonic {
namespace {

using testing::ElementsAre;
using Words = std::vector<std::string>;

Words split(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

struct ParseCase {
  Words words;
  TextDictionary lookup;
  Words unknown;
};

TEST(TranscodeCliArguments, ReadsWordsIntoFlagsAndValues) {
  const std::string nul("a\0B", 3);
  const ParseCase cases[] = {
      {{}, {}, {}},
      {{"-VCodec", " H264 "}, {{"-vcodec", "h264"}}, {}},
      {{"-WMT_TEXT", "\u00a0\u00c9COLE\u3000"}, {{"-wmt_text", "\u00e9cole"}}, {}},
      {{"-overwrite", "-vn"}, {{"-overwrite", ""}, {"-vn", ""}}, {}},
      {{"clip.mov", "-web"}, {{"-web", ""}}, {}},
      {{"-vbr", "10", "-vbr", "20"}, {{"-vbr", "20"}}, {}},
      {{"-bogus", "1"}, {}, {"-bogus"}},
      {{"-vn", "Foo"}, {{"-vn", "foo"}}, {}},
      {{"-", "--", "-x", " \u3000-y"}, {}, {"-", "--", "-x", "-y"}},
      {{"-CLUT", " /A\u00c9\xff b\n"}, {{"-clut", "/A\u00c9\xff b"}}, {}},
      {{"-in_1_0", "A", "-INX", "B", "-xin", "C"}, {{"-in_1_0", "A"}, {"-inx", "B"}}, {"-xin"}},
      {{"-tc_burn_anchor", "TL", "-wmf_burn_anchors"}, {{"-tc_burn_anchor", "tl"}}, {"-wmf_burn_anchors"}},
      {{"-vprofile", nul, "-work_dir", nul}, {{"-vprofile", std::string("a\0b", 3)}, {"-work_dir", nul}}, {}},
      {{"-in_99999999999999999999_0", "a"}, {{"-in_99999999999999999999_0", "a"}}, {}},
  };
  for (const auto& c : cases) {
    const TranscodeCliArguments model(c.words);
    EXPECT_EQ(model.flagValueLookup(), c.lookup) << testing::PrintToString(c.words);
    EXPECT_EQ(model.unknownFlags().value_or(Words{}), c.unknown) << testing::PrintToString(c.words);
    EXPECT_EQ(model.allFlagsAreValid(), c.unknown.empty());
  }
}

TEST(TranscodeCliArguments, ReadsDictionariesByTheSameRules) {
  const TextDictionary lookup{{"-OUT ", "/A "}, {"-VBR", "1"},  {"-vbr", "2"},
                              {"no-vn", "X"},   {"plain", "Y"}, {"", ""}};
  for (const auto& model :
       {TranscodeCliArguments::fromArgumentLookup(lookup), TranscodeCliArguments::from(lookup)}) {
    EXPECT_EQ(model.flagValueLookup(), (TextDictionary{{"-out", "/A"}, {"-vbr", "2"}, {"no-vn", "x"}}));
    EXPECT_THAT(*model.unknownFlags(), ElementsAre("", "plain"));
  }
}

TEST(TranscodeCliArguments, AnswersForTrimmedButNotForUpperCaseQueries) {
  const TranscodeCliArguments model({"-vn", "-vbr", "3"});
  EXPECT_TRUE(model.hasArgumentFlag(" -vn\n"));
  EXPECT_FALSE(model.hasArgumentFlag("-VN"));
  EXPECT_EQ(model.argumentFlagValue(VAVNoVideoFlag), "");
  EXPECT_EQ(model.argumentFlagValue(VAVVideoBitRateFlag), "3");
  EXPECT_EQ(model.argumentFlagValue("-vcodec"), std::nullopt);
}

TEST(TranscodeCliArguments, StoresASettingAsGivenOrNotAtAll) {
  TranscodeCliArguments model;
  EXPECT_TRUE(model.setArgumentFlagValue(" -WMT_TEXT", " Hello "));
  EXPECT_TRUE(model.setArgumentFlagValue(VAVTimecodeBurnAnchorFlag, "tl"));
  EXPECT_FALSE(model.setArgumentFlagValue("-bogus", "1"));
  EXPECT_EQ(model.flagValueLookup(), (TextDictionary{{"-wmt_text", " Hello "}, {"-tc_burn_anchor", "tl"}}));
  EXPECT_TRUE(model.setArgumentFlagValue("-wmt_text", std::nullopt));
  EXPECT_TRUE(model.setArgumentFlagValue("-wmt_text", std::nullopt));
  EXPECT_EQ(model.cliString(), "-tc_burn_anchortl");
}

TEST(TranscodeCliArguments, WritesFlagsInTheOrderInWhichTheyFirstStood) {
  TranscodeCliArguments model({"-vn", "-vcodec", "h264", "-bogus", "1", "-an", "-VN", "x"}, true);
  EXPECT_THAT(model.commandLineArguments(), ElementsAre("-vn", "x", "-vcodec", "h264", "-an", ""));
  EXPECT_EQ(model.cliString(), "-vnx-vcodech264-an");
  model.setArgumentFlagValue("-vcodec", std::nullopt);
  model.setArgumentFlagValue("-abr", "1");
  EXPECT_THAT(model.commandLineArguments(), ElementsAre("-vn", "x", "-an", "", "-abr", "1"));
  // A flag that comes back takes its old place.
  model.setArgumentFlagValue("-vcodec", "h265");
  EXPECT_EQ(model.cliString(), "-vnx-vcodech265-an-abr1");
  EXPECT_THAT(TranscodeCliArguments({"-vn", "-an"}).commandLineArguments(),
              ElementsAre("-an", "", "-vn", ""));
  EXPECT_THAT(TranscodeCliArguments().commandLineArguments(), ElementsAre());
  EXPECT_EQ(TranscodeCliArguments().cliString(), "");
}

TEST(TranscodeCliArguments, NumbersTheInputFiles) {
  TranscodeCliArguments model({"-in", "/old", "-in_7_7", "/old", "-inx", "/old", "-vn"});
  model.setInputFileGroups(InputFileGroups{{1, {"c"}}, {0, {"a", "b"}}, {-2, {" d\n"}}, {5, {}}});
  EXPECT_EQ(model.flagValueLookup(),
            (TextDictionary{
                {"-in_0_0", "a"}, {"-in_0_1", "b"}, {"-in_1_0", "c"}, {"-in_-2_0", " d\n"}, {"-vn", ""}}));
  EXPECT_EQ(model.inputFileGroups(), (InputFileGroups{{-2, {" d\n"}}, {0, {"a", "b"}}, {1, {"c"}}}));
  EXPECT_THAT(*model.inputFiles(), ElementsAre(" d\n", "a", "b", "c"));
  model.setInputFileGroups(std::nullopt);
  EXPECT_THAT(model.commandLineArguments(), ElementsAre("-vn", ""));
  EXPECT_EQ(model.inputFileGroups(), std::nullopt);
  EXPECT_EQ(model.inputFiles(), std::nullopt);
  EXPECT_EQ(model.firstInputFile(), std::nullopt);
}

TEST(TranscodeCliArguments, ReadsNumberedFilesInNumericalOrder) {
  const auto model = TranscodeCliArguments(
      split("-in_1_0 B -in_01_0 A -in_10_0 D -in_2_-1 C -in_2_10 C10 -in_2_9 C9 "
            "-in_+3_0 no -in_3 no -in_3_0_ no -in_3__0 no -in_x_0 no -inx_3_0 no -in__0 no -in_3_ no -in "
            "-in_0x_0 no "
            "-in_9223372036854775808_0 no -in_9223372036854775807_0 max -in_-9223372036854775808_0 min"));
  EXPECT_EQ(model.inputFileGroups(), (InputFileGroups{{INT64_MIN, {"min"}},
                                                      {1, {"A", "B"}},
                                                      {2, {"C", "C9", "C10"}},
                                                      {10, {"D"}},
                                                      {INT64_MAX, {"max"}}}));
  EXPECT_EQ(model.firstInputFile(), "min");
  EXPECT_EQ(TranscodeCliArguments({"-in_0_0", "b", "-in", "a"}).inputFiles(), (Words{"a", "b"}));
  EXPECT_EQ(TranscodeCliArguments({"-in", "a"}).inputFileGroups(), std::nullopt);
}

TEST(TranscodeCliArguments, RefusesACodedFormThatDoesNotFit) {
  const auto keyOfFailure = [](std::string_view key, CodedValue value) -> std::string {
    CodedRecord record;
    record.add(key, std::move(value));
    record.add("flagValueLookup", CodedRecord());
    try {
      static_cast<void>(decode<TranscodeCliArguments>(record));
    } catch (const DecodingError& error) {
      return error.key();
    }
    return "decoded";
  };
  EXPECT_EQ(keyOfFailure("other", true), "decoded");
  EXPECT_EQ(keyOfFailure("flagValueLookup", true), "flagValueLookup");
  EXPECT_EQ(keyOfFailure("orderedFlags", CodedList{true}), "orderedFlags");
  EXPECT_EQ(keyOfFailure("invalidKeyValueLookup", std::string()), "invalidKeyValueLookup");
  EXPECT_THROW(decode<TranscodeCliArguments>(CodedRecord()), DecodingError);
}

// What the model must hold, found the slow and plain way.
struct Expected {
  std::map<std::string, std::string> valid;
  std::set<std::string> unknown;
  Words order;

  explicit Expected(const Words& words) {
    constexpr auto trim = CLISanitizationOptions::trimWhiteSpace;
    constexpr auto both = trim | CLISanitizationOptions::lowercase;
    const std::set<std::string> paths{"-clut", "-out", "-progress_file", "-work_dir"};
    for (std::size_t i = 0; i < words.size(); ++i) {
      const auto flag = both.sanitize(words[i]);
      if (!flag.starts_with("-")) continue;
      std::string value;
      if (i + 1 < words.size() && !trim.sanitize(words[i + 1]).starts_with("-")) {
        value = (paths.contains(flag) || flag.starts_with("-in") ? trim : both).sanitize(words[i + 1]);
      }
      const auto occurs = [&](std::string_view known) { return flag.find(known) != std::string::npos; };
      if (std::ranges::any_of(TranscodeCliArguments::allKnownCommandFlags(), occurs)) {
        if (std::ranges::find(order, flag) == order.end()) order.push_back(flag);
        valid[flag] = value;
      } else {
        unknown.insert(flag);
      }
    }
  }
};

class WordMaker {
 public:
  Words list() {
    Words words(below(12));
    for (auto& word : words) word = this->word();
    return words;
  }

 private:
  std::size_t below(std::size_t n) { return random_() % n; }

  std::string pick(const Words& words) { return words[below(words.size())]; }

  std::string word() {
    const auto known = [&] {
      const auto flags = TranscodeCliArguments::allKnownCommandFlags();
      return std::string(flags[below(flags.size())]);
    };
    switch (below(8)) {
      case 0:
      case 1:
        return known();
      case 2:
        return framed(shouted(known()));
      case 3:
        return "-in_" + std::to_string(below(3)) + "_" + std::to_string(below(12));
      case 4:
        return known() + pick({"_anchor", "s", "-x", "\u0130", "\xff"});
      case 5:
        return pick({"-", "--", "-bogus", "-q", "-x-VN", "- an", "-\u00c9", "-BOGUS ", "-in", "-in_1_01"});
      case 6:
        return framed(pick({"", "h264", "H264", "/A b/\u00c9.MOV", "\xff\xc3", "a\nb", "[a b", "\u0130"}));
      default:
        return bytes();
    }
  }

  std::string framed(const std::string& text) {
    const Words frames{"", " ", "\n", "\u00a0", "\u3000\t", "\u200b"};
    return pick(frames) + text + pick(frames);
  }

  std::string shouted(std::string text) {
    for (auto& c : text) {
      if (c >= 'a' && c <= 'z' && below(2) == 0) c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
  }

  std::string bytes() {
    std::string text(below(6), '\0');
    for (auto& c : text) c = static_cast<char>(below(256));
    return text;
  }

  std::mt19937 random_{20260101};
};

// The round-trip law: words -> model -> words -> model gives the same model and the same words.
TEST(TranscodeCliArguments, ReadsWhatItWrote) {
  WordMaker maker;
  for (int round = 0; round < 100'000; ++round) {
    const auto words = maker.list();
    const Expected expected(words);
    for (const bool ordered : {false, true}) {
      const TranscodeCliArguments model(words, ordered);
      ASSERT_EQ(model.flagValueLookup(), TextDictionary(expected.valid)) << testing::PrintToString(words);
      ASSERT_EQ(model.unknownFlags().value_or(Words{}),
                Words(expected.unknown.begin(), expected.unknown.end()));

      Words written;
      if (ordered) {
        for (const auto& flag : expected.order)
          written.insert(written.end(), {flag, expected.valid.at(flag)});
      } else {
        for (const auto& [flag, value] : expected.valid) written.insert(written.end(), {flag, value});
      }
      ASSERT_EQ(model.commandLineArguments(), written) << testing::PrintToString(words);

      const TranscodeCliArguments again(written, ordered);
      ASSERT_EQ(again.flagValueLookup(), model.flagValueLookup());
      ASSERT_EQ(again.commandLineArguments(), written);
      ASSERT_TRUE(again.allFlagsAreValid());

      const auto coded = encode(model);
      const auto decoded = decode<TranscodeCliArguments>(coded);
      ASSERT_EQ(encode(decoded), coded);
      ASSERT_EQ(decoded.commandLineArguments(), written);
    }
  }
}

TEST(TranscodeCliArguments, AChangedValueOfAnyKnownFlagChangesTheWords) {
  for (const auto flag : TranscodeCliArguments::allKnownCommandFlags()) {
    TranscodeCliArguments model({flag, "one", "-vn", "-an"}, true);
    const auto before = model.commandLineArguments();
    ASSERT_TRUE(model.setArgumentFlagValue(flag, "two"));
    EXPECT_NE(model.commandLineArguments(), before) << flag;
  }
}

TEST(TranscodeCliArguments, WithstandsHugeInput) {
  constexpr std::size_t mebibyte = 1 << 20;
  Words many(1'000'000, "-vn");
  for (std::size_t i = 1; i < many.size(); i += 2) many[i] = i % 3 == 0 ? "-in_0_" + std::to_string(i) : "x";
  EXPECT_EQ(TranscodeCliArguments(many, true).flagValueLookup().size(), 1 + 1'000'000 / 6U + 1);

  const Words words{"-out",
                    std::string(mebibyte, 'A'),
                    "-vprofile",
                    std::string(mebibyte, 'A'),
                    std::string(mebibyte, '-'),
                    std::string(mebibyte, ' '),
                    "-" + std::string(mebibyte, 'i') + "-in"};
  const TranscodeCliArguments model(words);
  EXPECT_EQ(model.argumentFlagValue("-out"), words[1]);
  EXPECT_EQ(model.argumentFlagValue("-vprofile"), std::string(mebibyte, 'a'));
  EXPECT_EQ(model.argumentFlagValue(words[6]), "");
  EXPECT_THAT(*model.unknownFlags(), ElementsAre(words[4]));
}

}  // namespace
}  // namespace quillonic
