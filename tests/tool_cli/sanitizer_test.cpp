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

TEST(CLIArgumentSanitizer, NormalisesFlagsAsItWasToldLast) {
  // An empty flag is in no word.
  CLIArgumentSanitizer sanitizer({"", "-a"}, std::nullopt);
  const auto words = split(" -a|-A| X |-b|y", '|');
  EXPECT_EQ(joined(sanitizer.splitByValidity(words).valid, '|'), "-A| X ");
  sanitizer.setFlagSanitizationOptions(both);
  EXPECT_EQ(joined(sanitizer.splitByValidity(words).valid, '|'), " -a|-A| X ");
  EXPECT_EQ(sanitizer.flagSanitizationOptions(), both);
  EXPECT_EQ(sanitizer.validCommandFlags(), (std::vector<std::string>{"", "-a"}));
}

// The raw values in order, with "=" after those that take a value.
template <ClosedFlagEnumeration Flag> std::string flags() {
  static_assert(CodableRawHashCase<Flag>);
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
