#include <quillonic/support/coding.hpp>
#include <quillonic/tool_cli.hpp>

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

constexpr auto both = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;

// The entries as one text: "+flag=value" for a valid one, "!flag" for an invalid one without a value.
std::string entries(const CLIArgumentSanitizer& sanitizer, ArgumentWords words,
                    CLISanitizationOptions valueOptions = {}) {
  std::string text;
  const auto report = [&](char mark) {
    return [&text, mark](std::string_view flag, std::optional<std::string_view> value) {
      text.append(text.empty() ? "" : " ").append(1, mark).append(flag);
      if (value) text.append("=").append(*value);
    };
  };
  sanitizer.enumerateSanitizedCLIEntries(
      words, [&](std::string_view) { return valueOptions; }, report('+'), report('!'));
  return text;
}

TEST(CLIArgumentSanitizer, ReportsEveryFlagWithItsValues) {
  constexpr std::string_view media = "-workDirectory|-deepAnalysis";
  // The valid flags, the options, the words and the entries.
  const std::tuple<std::string_view, std::optional<CLISanitizationOptions>, std::string_view,
                   std::string_view>
      rows[] = {{media, both, "a|b", ""},
                {media, both, "a|-WorkDirectory|x|Y |-deepAnalysis",
                 "+-workdirectory=x +-workdirectory=Y  +-deepanalysis"},
                {media, both, "-deepanalysisx| -bogus|1", "+-deepanalysisx !-bogus=1"},
                {media, both, "-deepAnalysis||-deepAnalysis", "+-deepanalysis= +-deepanalysis"},
                {media, std::nullopt, " -x|1|-x| -deepAnalysis", "!-x= -deepAnalysis"},
                {media, std::nullopt, "-DEEPANALYSIS|-", "+-DEEPANALYSIS !-"},
                {"", both, "-a|--", "!-a !--"},
                {"|-b|-bc", both, "-a|-xbc|-xx-bcx", "!-a !-xbc +-xx-bcx"},
                {"-\u00c9", std::nullopt, "x-\u00e9|-x-\u00e9", "+-x-\u00e9"}};
  for (const auto& [valid, options, words, expected] : rows) {
    EXPECT_EQ(entries({split(valid, '|'), options}, split(words, '|')), expected);
  }
}

TEST(CLIArgumentSanitizer, NormalisesValuesAsItIsToldPerFlag) {
  CLIArgumentSanitizer sanitizer({"-a"}, both);
  EXPECT_EQ(entries(sanitizer, {"-A", " X "}, both), "+-a=x");
  sanitizer.setFlagSanitizationOptions(CLISanitizationOptions::trimWhiteSpace);
  EXPECT_EQ(entries(sanitizer, {"-A", " X "}), "+-A= X ");
  EXPECT_EQ(sanitizer.flagSanitizationOptions(), CLISanitizationOptions::trimWhiteSpace);
  EXPECT_EQ(sanitizer.validCommandFlags(), std::vector<std::string>{"-a"});
}

TEST(CLIArgumentSanitizer, SplitsTheWordsAndLosesNone) {
  const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(both), both);
  const auto words = split("stray|-vn|| -ParentPid |12|-out|/A b|/c|-parentAppNumber|7|8", '|');
  const auto [custodial, rest] = sanitizer.splitByValidity(words);
  EXPECT_EQ(joined(custodial, '|'), " -ParentPid |12|-parentAppNumber|7|8");
  EXPECT_EQ(joined(rest, '|'), "stray|-vn||-out|/A b|/c");
}

// The raw values in order, with "=" after those that take a value.
template <ClosedFlagEnumeration Flag> std::string flags() {
  return joined(allCases<Flag>(), ' ', [](Flag flag) {
    EXPECT_EQ(cliFlag(flag), "-" + std::string(rawValue(flag)));
    EXPECT_EQ(decode<Flag>(encode(flag)), flag);
    return std::string(rawValue(flag)) + (acceptsArguments(flag) ? "=" : "");
  });
}

TEST(ToolFlags, AreTheRawValueAfterAHyphen) {
  EXPECT_EQ(flags<CLICustodialFlag>(), "parentPid= parentAppNumber=");
  EXPECT_EQ(flags<MediaAnalysisCLIFlag>(),
            "pathToAnalyze= analysisId= workDirectory= resultsFilePath= deepAnalysis");
  EXPECT_EQ(flags<MediaAnalysisImageCLIFlags>(),
            "compressionFactor= snapshotLocation= maxImageWidth= imageHeight= allowFinderImages");
  EXPECT_EQ(fromRawValue<CLICustodialFlag>("ParentPid"), std::nullopt);
  EXPECT_THROW(decode<CLICustodialFlag>(CodedValue(std::string("parent"))), DecodingError);
  EXPECT_EQ(sanitizedFlag(MediaAnalysisImageCLIFlags::maxImageWidth), "-maximagewidth");
  EXPECT_EQ(joined(sanitizeAll<MediaAnalysisImageCLIFlags>(CLISanitizationOptions::lowercase)),
            "-compressionfactor -snapshotlocation -maximagewidth -imageheight -allowfinderimages");
}

TEST(ArgumentWords, ReadTheSameFromEveryForm) {
  const std::vector<std::string> texts{"-a", ""};
  const std::vector<std::string_view> views{"-a", ""};
  const std::array<const char*, 2> pointers{"-a", ""};
  const char* const argv[] = {"tool", "-a", "", nullptr};
  for (const ArgumentWords words : {ArgumentWords(texts), ArgumentWords(views), ArgumentWords(pointers),
                                    ArgumentWords::fromMain(3, argv)}) {
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(std::string(words[0]) + "|" + std::string(words[1]), "-a|");
  }
  EXPECT_TRUE(ArgumentWords::fromMain(1, argv).empty());
  EXPECT_TRUE(ArgumentWords::fromMain(0, nullptr).empty());
}

TEST(CLIExitCodeError, CarriesTheStatus) {
  const CLIExitCodeError error(64, "bad words");
  EXPECT_STREQ(error.what(), "bad words");
  EXPECT_EQ(error.exitStatus(), 64);
}

}  // namespace
}  // namespace quillonic
