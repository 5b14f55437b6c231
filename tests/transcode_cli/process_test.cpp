// The command line across a real process boundary: the example programs, and a child that echoes its words.

#include <quillonic/transcode_cli.hpp>

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "child_process.hpp"

namespace quillonic {
namespace {

using Words = std::vector<std::string>;

const std::filesystem::path examples = EXAMPLES_DIRECTORY;

ChildResult runTool(const Words& words) {
  return runChild(examples / "transcoder_tool", words);
}

// A file of expected output, with @NAME@ replaced.
std::string expected(const std::string& file,
                     const std::vector<std::pair<std::string, std::string>>& names = {}) {
  auto text = contentOf(std::filesystem::path(EXPECTED_DIRECTORY) / file);
  for (const auto& [name, value] : names) {
    for (std::size_t at = 0; (at = text.find(name, at)) != std::string::npos; at += value.size()) {
      text.replace(at, name.size(), value);
    }
  }
  return text;
}

TEST(ProcessBoundary, EveryWordAndEveryPathArrivesByteForByte) {
  const Words paths{"/a/plain.mov",        "/a/with blanks .mov",   "/a/it's \"take 3\".mov",
                    "/a/two\nlines\r.mov", "/a/latin-\xe9\xff.mov", "/a/\u00c9t\u00e9\u3000.MOV",
                    "/a/$(touch x);`x`&*"};
  TranscodeCliArguments settings(orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud), true);
  settings.setInputFileGroups(InputFileGroups{{0, paths}, {1, {paths.rbegin(), paths.rend()}}});
  settings.setArgumentFlagValue(VAVOutputFileFlag, paths[3]);
  const auto words = settings.commandLineArguments();
  ASSERT_THAT(words, testing::Contains(""));

  auto sent = words;
  const auto files = *settings.inputFiles();
  sent.insert(sent.end(), files.begin(), files.end());
  sent.push_back(paths[3]);
  Words received;
  std::istringstream output(runChild(WORD_ECHO, words).output);
  for (std::string text; std::getline(output, text, '\0');) received.push_back(text);
  EXPECT_EQ(received, sent);
}

TEST(TranscoderTool, PrintsTheVocabularyForEveryCommand) {
  std::string output;
  for (const auto& command : VAVTranscodeCliCommand::allCases().subspan(1)) {
    const auto result = runTool({std::string(command.cliFlag())});
    EXPECT_EQ(result.exitStatus, 0);
    output += std::string(command) + "\n" + result.output + "\n";
  }
  EXPECT_EQ(output, expected("transcoder_tool.txt"));
}

TEST(TranscoderTool, PrintsASentenceForEveryFlag) {
  const auto help = runTool({"-h"}).output;
  for (const auto flag : TranscodeCliArguments::allKnownCommandFlags()) {
    EXPECT_THAT(help, testing::ContainsRegex("\n  " + std::string(flag) + " .*[.]\n"));
  }
  EXPECT_THAT(help, testing::HasSubstr("\n  -vr number                   Frames per second.\n"));
  EXPECT_THAT(help, testing::ContainsRegex("\n  -acodec name .*\n +lpcm aac apple_lossless\n"));
}

}  // namespace
}  // namespace quillonic
