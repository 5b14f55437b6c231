#include <quillonic/tool_cli.hpp>

#include <bit>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

#include "child_process.hpp"

namespace quillonic {
namespace {

using testing::ElementsAre;
using Factory = MediaAnalysisCLIArgumentFactory;
using Words = std::vector<std::string>;

TEST(MediaAnalysisFlags, TakeAValueExceptTheLast) {
  const auto expectFlags = [](auto first, const Words& names) {
    using Flag = decltype(first);
    for (const Flag flag : allCases<Flag>()) {
      const auto at = static_cast<std::size_t>(flag);
      EXPECT_EQ(rawValue(flag), names.at(at));
      EXPECT_EQ(cliFlag(flag), "-" + names.at(at));
      EXPECT_EQ(acceptsArguments(flag), at != 4) << names.at(at);
    }
  };
  expectFlags(MediaAnalysisCLIFlag{},
              {"pathToAnalyze", "analysisId", "workDirectory", "resultsFilePath", "deepAnalysis"});
  expectFlags(MediaAnalysisImageCLIFlags{},
              {"compressionFactor", "snapshotLocation", "maxImageWidth", "imageHeight", "allowFinderImages"});
  EXPECT_EQ(fromRawValue<MediaAnalysisCLIFlag>("DeepAnalysis"), std::nullopt);
  EXPECT_EQ(sanitizedFlag(MediaAnalysisImageCLIFlags::maxImageWidth), "-maximagewidth");
  EXPECT_THAT(sanitizeAll<MediaAnalysisImageCLIFlags>(CLISanitizationOptions::lowercase), testing::SizeIs(5));
}

TEST(MediaAnalysisFlags, SnapshotLocationsRunTogether) {
  EXPECT_EQ(snapShotLocationsCLIValue({}), "");
  EXPECT_EQ(snapShotLocationsCLIValue(std::vector{0.25F, 0.5F}),
            "-snapshotLocation 0.25-snapshotLocation 0.5");
  EXPECT_EQ(snapShotLocationsCLIValue(std::vector{0.1F}), "-snapshotLocation 0.1");
}

TEST(MediaAnalysisErrors, AreErrorCodesNamedByTheirCase) {
  const std::error_code code = MediaAnalysisCLIError::resultsFileAlreadyExists;
  EXPECT_EQ(code.message(), "resultsFileAlreadyExists");
  EXPECT_EQ(code, MediaAnalysisCLIError::resultsFileAlreadyExists);
  EXPECT_EQ(make_error_code(MediaAnalysisCLIImageError::missingMaxImageWidth).message(),
            "missingMaxImageWidth");
  EXPECT_NE(make_error_code(MediaAnalysisCLIError::pathToAnalyzeNotSupplied),
            make_error_code(MediaAnalysisCLIImageError::missingSnapshotLocations));
  EXPECT_EQ(allCases<MediaAnalysisCLIError>().size(), 7U);
}

TEST(MediaAnalysisOptions, WriteTheirWordsInTheFixedOrder) {
  auto basic = Factory::buildBasicOptions({"/b", "/a c"}, "/work", "/results", std::nullopt, false);
  EXPECT_THAT(basic.orderedCLITexts(),
              ElementsAre("-pathToAnalyze", "/b", "-pathToAnalyze", "/a c", "-workDirectory", "/work",
                          "-resultsFilePath", "/results"));
  EXPECT_EQ(basic.argumentLookup(), (TextDictionary{{"-pathToAnalyze", "[/b /a c"},
                                                    {"-workDirectory", "/work"},
                                                    {"-resultsFilePath", "/results"}}));
  basic = Factory::buildBasicOptions({}, "", "r", "", true);
  EXPECT_THAT(basic.orderedCLITexts(),
              ElementsAre("-workDirectory", "", "-resultsFilePath", "r", "-analysisId", "", "-deepAnalysis"));
  EXPECT_EQ(basic.cliString(), "-workDirectory-resultsFilePathr-analysisId-deepAnalysis");
  EXPECT_THAT(basic.commandLineArguments(), ElementsAre("-analysisId", "", "-deepAnalysis", "",
                                                        "-resultsFilePath", "r", "-workDirectory", ""));

  const auto wide = Factory::buildImageOptions({0.25F}, 1920, std::nullopt, false);
  EXPECT_THAT(wide.orderedCLITexts(), ElementsAre("-snapshotLocation", "0.25", "-maxImageWidth", "1920.0"));
  EXPECT_EQ(wide.argumentLookup().find("-snapshotLocation")->value, "[0.25");
  const auto sized = Factory::buildImageOptions({}, 640, 360.5, 0.1F, true);
  EXPECT_THAT(sized.orderedCLITexts(), ElementsAre("-maxImageWidth", "640.0", "-imageHeight", "360.5",
                                                   "-compressionFactor", "0.1", "-allowFinderImages"));
  EXPECT_FALSE(sized.argumentLookup().contains("-snapshotLocation"));

  auto custodial = Factory::custodialOptions(4711);
  EXPECT_THAT(custodial.orderedCLITexts(), ElementsAre("-parentPid", "4711"));
  custodial.parentAppNumber = std::numeric_limits<std::int64_t>::max();
  EXPECT_THAT(custodial.orderedCLITexts(),
              ElementsAre("-parentPid", "4711", "-parentAppNumber", "9223372036854775807"));
}

Words joined(std::initializer_list<const MediaAnalysisCLIRecord*> records) {
  Words words;
  for (const auto* record : records) {
    const auto texts = record->orderedCLITexts();
    words.insert(words.end(), texts.begin(), texts.end());
  }
  return words;
}

// Whatever a parent asks for arrives as the same records, in any order of their words.
TEST(MediaAnalysisArguments, ComeBackEqual) {
  std::mt19937 random(5);
  const auto text = [&] {
    const std::string_view pieces[] = {
        "/media/", " ",    "-deepAnalysis", "[",  "\xff", "\u00c9",
        "\n",      "take", "-parentPid",    "\"", "A",    std::string_view("\0", 1)};
    std::string made;
    for (auto n = random() % 5; n > 0; --n) made += pieces[random() % std::size(pieces)];
    return made.starts_with('-') ? "/" + made : made;
  };
  const auto number = [&] {
    const auto made = std::abs(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    return std::isnan(made) ? 0.0F : made;
  };
  const auto maybe = [&](auto make) { return random() % 2 ? std::optional(make()) : std::nullopt; };
  const auto several = [&](auto make) {
    std::vector<decltype(make())> made{make()};
    for (auto n = random() % 3; n > 0; --n) made.push_back(make());
    return made;
  };
  for (int round = 0; round < 3000; ++round) {
    const auto basic =
        Factory::buildBasicOptions(several(text), text(), text(), maybe(text), random() % 2 == 0);
    auto image = Factory::buildImageOptions(several(number), number(), maybe(number), random() % 2 == 0);
    image.imageHeight = maybe(number);
    auto custodial = Factory::custodialOptions(static_cast<std::int32_t>(random() >> 1));
    custodial.parentAppNumber = maybe([&] { return static_cast<std::int64_t>(random()); });

    for (const auto& words : {joined({&basic, &image, &custodial}), joined({&custodial, &image, &basic})}) {
      const auto read = MediaAnalysisCLIArguments::read(words);
      ASSERT_EQ(read.basic, basic) << testing::PrintToString(words);
      ASSERT_EQ(read.image, image) << testing::PrintToString(words);
      ASSERT_EQ(read.custodial, custodial) << testing::PrintToString(words);
      ASSERT_TRUE(read.setAside.empty() && read.errors.empty() && read.imageErrors.empty());
    }
  }
}

TEST(MediaAnalysisArguments, ReportWhatIsMissing) {
  using enum MediaAnalysisCLIError;
  using enum MediaAnalysisCLIImageError;
  struct Row {
    Words words;
    std::vector<MediaAnalysisCLIError> errors;
    std::vector<MediaAnalysisCLIImageError> imageErrors;
  };
  const Row rows[] = {
      {{}, {pathToAnalyzeNotSupplied, workDirectoryNotSupplied, resultsFilePathNotSupplied}, {}},
      {{"/before", "-workDirectory", "w", "-pathToAnalyze", "-resultsFilePath"},
       {pathToAnalyzeNotSupplied, resultsFilePathNotSupplied},
       {}},
      {{"-pathToAnalyze", "a", "-workDirectory", "w", "-resultsFilePath", "-r"},
       {resultsFilePathNotSupplied},
       {}},
      {{"-PATHTOANALYZE", "a", "b", "-workDirectoryPath", "w", "-resultsFilePath", "r", "-deepAnalysis", "x"},
       {},
       {}},
      {{"-pathToAnalyze", "", "-workDirectory", "", "-resultsFilePath", "", "-allowFinderImages"},
       {},
       {missingSnapshotLocations, missingMaxImageWidth}},
      {{"-pathToAnalyze", "a", "-workDirectory", "w", "-resultsFilePath", "r", "-maxImageWidth", "wide",
        "-snapshotLocation", "1e-3"},
       {},
       {missingMaxImageWidth}},
  };
  for (const auto& [words, errors, imageErrors] : rows) {
    const auto read = MediaAnalysisCLIArguments::read(words);
    EXPECT_EQ(read.errors, errors) << testing::PrintToString(words);
    EXPECT_EQ(read.imageErrors, imageErrors) << testing::PrintToString(words);
    EXPECT_EQ(read.basic.has_value(), errors.empty()) << testing::PrintToString(words);
    EXPECT_FALSE(read.image) << testing::PrintToString(words);
  }
  const auto read = MediaAnalysisCLIArguments::read(rows[3].words);
  EXPECT_EQ(read.basic, Factory::buildBasicOptions({"a", "b"}, "w", "r", std::nullopt, true));
}

TEST(MediaAnalysisArguments, SetAsideWhatIsOfNoUse) {
  using Aside = MediaAnalysisCLIArguments::SetAside;
  const std::pair<Words, std::vector<Aside>> rows[] = {
      {{"-Unknown", "a", "b", "-x"}, {{"-unknown", "a"}, {"-unknown", "b"}, {"-x", std::nullopt}}},
      {{"-analysisId", "-"}, {{"-analysisid", std::nullopt}, {"-", std::nullopt}}},
      {{"-snapshotLocation", "0.5", "half", "", " 1"},
       {{"-snapshotlocation", "half"}, {"-snapshotlocation", ""}, {"-snapshotlocation", " 1"}}},
      {{"-maxImageWidth", "1e39", "-imageHeight", "-0.5"},
       {{"-maximagewidth", "1e39"}, {"-imageheight", std::nullopt}, {"-0.5", std::nullopt}}},
      {{"-parentPid", "2147483648", "-parentPid", "1.5"},
       {{"-parentpid", "2147483648"}, {"-parentpid", "1.5"}}},
      {{"-parentAppNumber", "7", "-x"}, {{"-x", std::nullopt}, {"-parentappnumber", "7"}}},
  };
  for (const auto& [words, setAside] : rows) {
    const auto read = MediaAnalysisCLIArguments::read(words);
    EXPECT_EQ(read.setAside, setAside) << testing::PrintToString(words);
    EXPECT_FALSE(read.custodial);
  }
  const auto read = MediaAnalysisCLIArguments::read(
      {"-snapshotLocation", "nan", "-maxImageWidth", "1", "2", "-maxImageWidth", "wide"});
  EXPECT_EQ(read.image->maxImageWidth, 2);
  EXPECT_TRUE(std::isnan(read.image->snapshotLocations.front()));
}

// The parent's side is this test, and the tool's side another process.
TEST(MediaAnalysisTool, DoesWhatItsParentAsksFor) {
  const TemporaryFolder folder;
  const auto media = (folder / "it's \"take 3\" \u00e9\xff .mov").native();
  const auto results = (folder / "results").native();
  std::ofstream(media) << "12345";
  const auto basic = Factory::buildBasicOptions({media, folder.path()}, folder.path(), results, "A 7", true);
  const auto image = Factory::buildImageOptions({0.25F, 0.5F}, 1920.5, std::nullopt, false);
  const auto custodial = Factory::custodialOptions(getpid());
  const auto words = joined({&basic, &image, &custodial});
  const auto tool = std::filesystem::path(EXAMPLES_DIRECTORY) / "media_analysis_tool";

  const auto first = runChild(tool, words);
  EXPECT_EQ(first.exitStatus, 0) << first.errors;
  EXPECT_EQ(contentOf(results), "deep analysis A 7 for process " + std::to_string(getpid()) + "\n" + media +
                                    ": 5 bytes\n" + folder.path().native() +
                                    ": folder\nstill frame at 0.25, at most 1920.5 wide\n"
                                    "still frame at 0.5, at most 1920.5 wide\n");

  const auto second = runChild(tool, words);
  EXPECT_EQ(second.exitStatus, 73);
  EXPECT_EQ(second.errors, "resultsFileAlreadyExists " + results + "\n");
  const auto third = runChild(tool, {"-deepAnalysis", "-newer", "flag"});
  EXPECT_EQ(third.exitStatus, 64);
  EXPECT_EQ(third.errors, "ignored: -newer flag\npathToAnalyzeNotSupplied \n");
}

}  // namespace
}  // namespace quillonic
