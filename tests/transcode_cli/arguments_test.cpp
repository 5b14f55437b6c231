#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using Words = std::vector<std::string>;
using Model = TranscodeCliArguments;

std::string wordsOf(const Model& model) {
  return joined(model.commandLineArguments(), '|');
}

TEST(TranscodeCliArguments, ReadsWordsIntoFlagsAndValues) {
  using namespace std::string_literals;
  // The words, what is stored and what is unknown.
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"", "", ""},
      {"-VCodec| H264 ", "-vcodec|h264", ""},
      {"-WMT_TEXT|\u00a0\u00c9COLE\u3000", "-wmt_text|\u00e9cole", ""},
      {"clip.mov|-overwrite|-vn", "-overwrite||-vn|", ""},
      {"-vbr|10|-vbr|20|-bogus|1", "-vbr|20", "-bogus"},
      {"-vn|Foo", "-vn|foo", ""},
      {"-|--|-x| \u3000-y", "", "-|--|-x|-y"},
      {"-CLUT| /A\u00c9\xff b\n", "-clut|/A\u00c9\xff b", ""},
      {"-in_1_0|A|-INX|B|-xin|C", "-in_1_0|A|-inx|B", "-xin"},
      {"-tc_burn_anchor|TL|-wmf_burn_anchors", "-tc_burn_anchor|tl", "-wmf_burn_anchors"},
      {"-vprofile|a\0B|-work_dir|a\0B"s, "-vprofile|a\0b|-work_dir|a\0B"s, ""},
      {"-in_99999999999999999999_0|a", "-in_99999999999999999999_0|a", ""}};
  for (const auto& [words, stored, unknown] : rows) {
    const Model model(split(words, '|'));
    EXPECT_EQ(wordsOf(model), stored);
    EXPECT_EQ(joined(model.unknownFlags().value_or(Words{}), '|'), unknown) << words;
    EXPECT_EQ(model.allFlagsAreValid(), unknown.empty()) << words;
  }
  const TextDictionary lookup{{"-OUT ", "/A "}, {"-VBR", "1"},  {"-vbr", "2"},
                              {"no-vn", "X"},   {"plain", "Y"}, {"", ""}};
  for (const auto& model : {Model::fromArgumentLookup(lookup), Model::from(lookup)}) {
    EXPECT_EQ(wordsOf(model), "-out|/A|-vbr|2|no-vn|x");
    EXPECT_EQ(model.unknownFlags(), (Words{"", "plain"}));
  }
}

TEST(TranscodeCliArguments, AnswersForTrimmedButNotForUpperCaseQueries) {
  const Model model({"-vn", "-vbr", "3"});
  EXPECT_TRUE(model.hasArgumentFlag(" -vn\n"));
  EXPECT_FALSE(model.hasArgumentFlag("-VN"));
  EXPECT_EQ(model.argumentFlagValue(VAVNoVideoFlag), "");
  EXPECT_EQ(model.argumentFlagValue("-vcodec"), std::nullopt);
}

TEST(TranscodeCliArguments, StoresASettingAsGivenOrNotAtAll) {
  Model model;
  EXPECT_TRUE(model.setArgumentFlagValue(" -WMT_TEXT", " Hello "));
  EXPECT_TRUE(model.setArgumentFlagValue(VAVTimecodeBurnAnchorFlag, "tl"));
  EXPECT_FALSE(model.setArgumentFlagValue("-bogus", "1"));
  EXPECT_EQ(wordsOf(model), "-tc_burn_anchor|tl|-wmt_text| Hello ");
  EXPECT_TRUE(model.setArgumentFlagValue("-wmt_text", std::nullopt));
  EXPECT_TRUE(model.setArgumentFlagValue("-wmt_text", std::nullopt));
  EXPECT_EQ(model.cliString(), "-tc_burn_anchortl");
}

TEST(TranscodeCliArguments, WritesFlagsInTheOrderInWhichTheyFirstStood) {
  Model model({"-vn", "-vcodec", "h264", "-bogus", "1", "-an", "-VN", "x"}, true);
  EXPECT_EQ(wordsOf(model), "-vn|x|-vcodec|h264|-an|");
  model.setArgumentFlagValue("-vcodec", std::nullopt);
  model.setArgumentFlagValue("-abr", "1");
  EXPECT_EQ(wordsOf(model), "-vn|x|-an||-abr|1");
  // A flag that comes back takes its old place.
  model.setArgumentFlagValue("-vcodec", "h265");
  EXPECT_EQ(model.cliString(), "-vnx-vcodech265-an-abr1");
}

TEST(TranscodeCliArguments, KeepsTheOrderWhateverIsSetAndRemoved) {
  const auto known = Model::allKnownCommandFlags();
  Words flags(known.begin(), known.end());
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    std::ranges::shuffle(flags, random);
    const Words line(flags.begin(), flags.begin() + static_cast<std::ptrdiff_t>(random() % flags.size()));
    Model model(line, true);
    std::set<std::string> set(line.begin(), line.end());
    for (int change = 0; change < 10; ++change) {
      const auto& flag = flags[random() % flags.size()];
      const bool isSet = random() % 2 == 0;
      model.setArgumentFlagValue(flag, isSet ? std::optional<std::string_view>("") : std::nullopt);
      set.erase(flag);
      if (isSet) set.insert(flag);
      auto rest = set;
      Words expected;
      for (const auto& first : line) {
        if (rest.erase(first) > 0) expected.push_back(first + "|");
      }
      for (const auto& other : rest) expected.push_back(other + "|");
      ASSERT_EQ(wordsOf(model), joined(expected, '|'));
    }
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
  TextDictionary valid;
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

// Words that meet every rule: known and unknown flags, decorated and repeated, values and stray bytes.
class WordMaker {
 public:
  Words list(std::size_t limit) {
    numbers_ = limit;
    Words words(below(limit));
    for (auto& word : words) word = this->word();
    return words;
  }

 private:
  std::size_t below(std::size_t n) { return random_() % n; }
  std::string pick(const auto& texts) { return std::string(std::data(texts)[below(std::size(texts))]); }
  std::string pick(std::initializer_list<std::string_view> texts) {
    return pick<std::initializer_list<std::string_view>>(texts);
  }

  std::string word() {
    const auto known = pick(Model::allKnownCommandFlags());
    const auto kind = below(9);
    if (kind < 2) return known;
    if (kind == 2) return framed(shouted(known));
    if (kind == 3) return "-in_" + std::to_string(below(3)) + "_" + std::to_string(below(numbers_));
    if (kind == 7) return "-BOGUS_" + std::to_string(below(numbers_));
    if (kind == 4) return known + pick({"_anchor", "s", "-x", "\u0130", "\xff"});
    if (kind == 5)
      return pick({"-", "--", "-bogus", "-q", "-x-VN", "- an", "-\u00c9", "-BOGUS ", "-in", "-in_1_01"});
    if (kind == 6)
      return framed(pick({"", "h264", "H264", "/A b/\u00c9.MOV", "\xff\xc3", "a\nb", "[a b", "\u0130"}));
    std::string bytes(below(6), '\0');
    for (auto& c : bytes) c = static_cast<char>(below(256));
    return bytes;
  }

  std::string framed(const std::string& text) {
    const auto frame = [this] { return pick({"", " ", "\n", "\u00a0", "\u3000\t", "\u200b"}); };
    return frame() + text + frame();
  }

  std::string shouted(std::string text) {
    for (auto& c : text) {
      if (c >= 'a' && c <= 'z' && below(2) == 0) c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
  }

  std::size_t numbers_ = 0;
  std::mt19937 random_{20260101};
};

// The round-trip law: words -> model -> words -> model gives the same model and the same words.
TEST(TranscodeCliArguments, ReadsWhatItWrote) {
  WordMaker maker;
  for (int round = 0; round < 100'000; ++round) {
    const auto words = maker.list(round % 2000 == 0 ? 2000 : 12);
    const Expected expected(words);
    for (const bool ordered : {false, true}) {
      const TranscodeCliArguments model(words, ordered);
      ASSERT_EQ(model.flagValueLookup(), expected.valid) << testing::PrintToString(words);
      ASSERT_EQ(model.unknownFlags().value_or(Words{}),
                Words(expected.unknown.begin(), expected.unknown.end()));

      auto order = expected.order;
      if (!ordered) std::ranges::sort(order);
      Words written;
      for (const auto& flag : order) written.insert(written.end(), {flag, expected.valid.at(flag)});
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
