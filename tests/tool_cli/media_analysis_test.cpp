#include <quillonic/tool_cli.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

#include "child_process.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Factory = MediaAnalysisCLIArgumentFactory;
using Words = std::vector<std::string>;

Words wordsOf(std::initializer_list<const CliArgumentStore*> records) {
  Words words;
  for (const auto* record : records) record->appendTo(words);
  return words;
}

// The words in their own order, and those of the dictionary.
void expectWords(const CliArgumentStore& record, std::string_view ordered, std::string_view byKey) {
  EXPECT_EQ(joined(record.orderedCLITexts(), '|'), ordered);
  EXPECT_EQ(record.launchArguments(), record.orderedCLITexts());
  EXPECT_EQ(joined(record.commandLineArguments(), '|'), byKey);
}

TEST(MediaAnalysisOptions, WriteTheirWordsInTheFixedOrder) {
  EXPECT_EQ(snapShotLocationsCLIValue({}), "");
  EXPECT_EQ(snapShotLocationsCLIValue(std::vector{0.25F, 0.1F}),
            "-snapshotLocation 0.25-snapshotLocation 0.1");
  expectWords(Factory::buildBasicOptions({"/b", "/a c"}, "/work", "/results", std::nullopt, false),
              "-pathToAnalyze|/b|-pathToAnalyze|/a c|-workDirectory|/work|-resultsFilePath|/results",
              "-pathToAnalyze|[/b /a c|-resultsFilePath|/results|-workDirectory|/work");
  const auto empty = Factory::buildBasicOptions({}, "", "r", "", true);
  expectWords(empty, "-workDirectory||-resultsFilePath|r|-analysisId||-deepAnalysis",
              "-analysisId||-deepAnalysis||-resultsFilePath|r|-workDirectory|");
  EXPECT_EQ(empty.cliString(), "-workDirectory-resultsFilePathr-analysisId-deepAnalysis");
  expectWords(Factory::buildImageOptions({0.25F}, 1920, std::nullopt, false),
              "-snapshotLocation|0.25|-maxImageWidth|1920.0",
              "-maxImageWidth|1920.0|-snapshotLocation|[0.25");
  expectWords(Factory::buildImageOptions({}, 640, 360.5, 0.1F, true),
              "-maxImageWidth|640.0|-imageHeight|360.5|-compressionFactor|0.1|-allowFinderImages",
              "-allowFinderImages||-compressionFactor|0.1|-imageHeight|360.5|-maxImageWidth|640.0");
  auto custodial = Factory::custodialOptions(4711);
  expectWords(custodial, "-parentPid|4711", "-parentPid|4711");
  custodial.parentAppNumber = std::numeric_limits<std::int64_t>::max();
  expectWords(custodial, "-parentPid|4711|-parentAppNumber|9223372036854775807",
              "-parentAppNumber|9223372036854775807|-parentPid|4711");
}

// The words, the errors named, and what is set aside as "flag value", or "flag" alone where no value stood.
TEST(MediaAnalysisArguments, ReportWhatIsMissingOrOfNoUse) {
  const std::error_code code = MediaAnalysisCLIError::resultsFileAlreadyExists;
  EXPECT_EQ(code.message(), "resultsFileAlreadyExists");
  EXPECT_NE(make_error_code(MediaAnalysisCLIError::pathToAnalyzeNotSupplied),
            make_error_code(MediaAnalysisCLIImageError::missingSnapshotLocations));
  const auto aside = [](const auto& one) { return one.flag + (one.value ? " " + *one.value : ""); };
  const std::string needed = "-pathToAnalyze|a|-workDirectory|w|-resultsFilePath|r";
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"", "pathToAnalyzeNotSupplied workDirectoryNotSupplied resultsFilePathNotSupplied", ""},
      {"/before|-workDirectory|w|-pathToAnalyze|-resultsFilePath",
       "pathToAnalyzeNotSupplied resultsFilePathNotSupplied", "-pathtoanalyze|-resultsfilepath"},
      {"-pathToAnalyze|a|-workDirectory|w|-resultsFilePath|-r", "resultsFilePathNotSupplied",
       "-resultsfilepath|-r"},
      {"-pathToAnalyze||-workDirectory||-resultsFilePath||-allowFinderImages",
       "missingSnapshotLocations missingMaxImageWidth", ""},
      {needed + "|-maxImageWidth|wide|-snapshotLocation|1e-3", "missingMaxImageWidth", "-maximagewidth wide"},
      {needed + "|-Unknown|a|b|-x", "", "-unknown a|-unknown b|-x"},
      {needed + "|-analysisId|-", "", "-analysisid|-"},
      {needed + "|-snapshotLocation|0.5|half|| 1", "missingMaxImageWidth",
       "-snapshotlocation half|-snapshotlocation |-snapshotlocation  1"},
      {needed + "|-maxImageWidth|1e39|-imageHeight|-0.5", "missingSnapshotLocations missingMaxImageWidth",
       "-maximagewidth 1e39|-imageheight|-0.5"},
      {needed + "|-parentPid|2147483648|-parentPid|1.5", "", "-parentpid 2147483648|-parentpid 1.5"},
      {"-pathToAnalyze|[/a /b|-workDirectory|w|-resultsFilePath|r", "pathToAnalyzeNotSupplied",
       "-pathtoanalyze [/a /b"},
      {needed + "|-parentAppNumber|7|-x", "", "-x|-parentappnumber 7"}};
  for (const auto& [words, errors, setAside] : rows) {
    const auto read = MediaAnalysisCLIArguments::read(split(words, '|'));
    EXPECT_EQ(joined(read.errors) + joined(read.imageErrors), errors) << words;
    EXPECT_EQ(joined(read.setAside, '|', aside), setAside) << words;
    EXPECT_EQ(read.basic.has_value(), read.errors.empty()) << words;
    EXPECT_FALSE(read.image || read.custodial) << words;
  }
  const auto read = MediaAnalysisCLIArguments::read(
      split("-PATHTOANALYZE|a|b|-workDirectoryPath|w|-resultsFilePath|r|-deepAnalysis|x|"
            "-snapshotLocation|nan|-maxImageWidth|1|2|-maxImageWidth|wide",
            '|'));
  EXPECT_EQ(read.basic, Factory::buildBasicOptions({"a", "b"}, "w", "r", std::nullopt, true));
  EXPECT_EQ(read.image->maxImageWidth, 2);
  EXPECT_TRUE(std::isnan(read.image->snapshotLocations.front()));
}

// This test is the parent; the tool is another process.
TEST(MediaAnalysisTool, DoesWhatItsParentAsksFor) {
  const auto tool = std::filesystem::path(EXAMPLES_DIRECTORY) / "media_analysis_tool";
  if (!std::filesystem::exists("/usr/bin/ffmpeg")) GTEST_SKIP() << "ffmpeg is not installed";
  if (!std::filesystem::exists(tool)) GTEST_SKIP() << "the tool is built where nlohmann-json is installed";
  const TemporaryFolder folder;
  const auto card = folder.folder("card");
  const auto media = (card / "it's \"take 3\" \u00e9 %d [x].mov").native();
  const auto results = (folder / "results.json").native();
  const auto work = folder.folder("work");
  folder.file("card/broken \xff.mov");
  // Red for half a second, then green; the sound goes on for another second.
  auto making = split(
      "-v error -f lavfi -i color=red:s=160x80:r=50,drawbox=c=lime:t=fill:enable='gte(t,0.5)' -f lavfi -i "
      "sine=440:r=48000:d=2 -filter:v trim=duration=1 -timecode 01:02:03:04 -c:v libx264 -pix_fmt yuv420p -f "
      "mov");
  making.push_back("file:" + media);
  ASSERT_EQ(runChild("/usr/bin/ffmpeg", making).errors, "");
  const auto basic = Factory::buildBasicOptions({media, card}, work, results, "A 7", true);
  const auto image = Factory::buildImageOptions({0, 0.4F, 1}, 120, 30, 0.9F, false);
  const auto custodial = Factory::custodialOptions(getpid());
  const auto words = wordsOf({&basic, &image, &custodial});

  const auto first = runChild(tool, words);
  EXPECT_EQ(first.exitStatus, 0) << first.errors;
  const auto found = contentOf(results);
  // The clip, then the folder's files: the broken one and the clip again.
  for (const auto text : {"\"analysisId\": \"A 7\"", "\"deep\": true", "\"timecode\": \"01:02:03:04\"",
                          "\"frameRate\": \"50/1\"", "\"width\": 160", "\"nb_read_frames\": \"50\"", "$bytes",
                          "Invalid data found"}) {
    EXPECT_NE(found.find(text), std::string::npos) << text << found;
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(work), {}), 0);
  std::string colors;
  for (const auto name : {"results-1.jpg", "results-2.jpg", "results-3.jpg"}) {
    const auto raw = folder / "raw";
    runChild("/usr/bin/ffmpeg",
             {"-v", "error", "-y", "-i", folder / name, "-pix_fmt", "rgb24", "-f", "rawvideo", raw});
    const auto pixels = contentOf(raw);
    EXPECT_EQ(pixels.size(), 60U * 30 * 3) << name;
    colors += static_cast<unsigned char>(pixels[0]) > 128 ? 'r' : 'g';
  }
  EXPECT_EQ(colors, "rrg");

  const auto second = runChild(tool, words);
  EXPECT_EQ(second.exitStatus, 73);
  EXPECT_EQ(second.errors, "media_analysis_tool: " + results + ": -resultsFilePath exists already\n");
  const auto third = runChild(tool, {"-workDirectory", work, "-resultsFilePath", folder / "named.json",
                                     "-pathToAnalyze", card / "broken \xff.mov"});
  EXPECT_EQ(third.exitStatus, 65);
  EXPECT_NE(third.errors.find(": Invalid data found"), std::string::npos) << third.errors;
  const auto refused =
      runChild(tool, {"-newer", "flag", "-imageHeight", "0.5", "-snapshotLocation", "1.5",
                      "-snapshotLocation", "nan", "-maxImageWidth", "0", "-compressionFactor", "x"});
  EXPECT_EQ(refused.exitStatus, 64);
  const std::string_view sentences[] = {"-newer is no flag",      "-compressionfactor: cannot use \"x\"",
                                        "-workDirectory is miss", "-snapshotLocation is out of range",
                                        "-maxImageWidth is out",  "-imageHeight is out"};
  for (const auto sentence : sentences) {
    EXPECT_NE(refused.errors.find(sentence), std::string::npos) << sentence << refused.errors;
  }
}

}  // namespace
}  // namespace quillonic
