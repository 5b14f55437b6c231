// The command line over a real process boundary: the example programs, and a child that echoes its words.

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

const Words awkwardPaths{"/a/plain.mov",        "/a/with blanks .mov",   "/a/it's \"take 3\".mov",
                         "/a/two\nlines\r.mov", "/a/latin-\xe9\xff.mov", "/a/\u00c9t\u00e9\u3000.MOV",
                         "/a/$(touch x);`x`&*"};

TEST(ProcessBoundary, EveryWordAndEveryPathArrivesByteForByte) {
  TranscodeCliArguments settings(orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud), true);
  settings.setInputFileGroups(
      InputFileGroups{{0, awkwardPaths}, {1, {awkwardPaths.rbegin(), awkwardPaths.rend()}}});
  settings.setArgumentFlagValue(VAVOutputFileFlag, awkwardPaths[3]);
  const auto words = settings.commandLineArguments();
  ASSERT_THAT(words, testing::Contains(""));

  auto expected = words;
  const auto files = *settings.inputFiles();
  expected.insert(expected.end(), files.begin(), files.end());
  expected.push_back(awkwardPaths[3]);

  const auto child = runChild(WORD_ECHO, words);
  Words received;
  std::istringstream output(child.output);
  for (std::string text; std::getline(output, text, '\0');) received.push_back(text);
  EXPECT_EQ(received, expected);
}

TEST(OffloadApp, StartsTheToolWhichReadsEverySettingBack) {
  const TemporaryFolder folder;
  Words words{examples / "transcoder_tool", folder.path()};
  std::string joined;
  for (const auto name : {"A.MOV", "it's \"take 3\".mov", "two\nlines.mov", "latin-\xe9.mov"}) {
    words.push_back(folder / name);
    const std::string content(1000, name[0]);
    std::ofstream(folder / name, std::ios::binary) << content;
    joined += content;
  }
  const auto result = runChild(examples / "offload_app", words);

  const auto in = [&](std::string_view name) { return (folder / name).native() + "\n"; };
  const auto first = in("A.MOV");
  const auto second = in("it's \"take 3\".mov");
  const auto third = in("two\\nlines.mov");
  const auto fourth = in("latin-\xe9.mov");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output,
            "parent\n"
            "  -parentpid        " +
                std::to_string(result.process) +
                "\n"
                "  -parentappnumber  7\n"
                "settings\n"
                "  -acl              stereo\n"
                "  -acodec           aac\n"
                "  -aspect_scaling   stretch\n"
                "  -asr              48000\n"
                "  -dims             960x540\n"
                "  -file_format      qt\n"
                "  -in_0_0           " +
                first + "  -in_0_1           " + second + "  -in_1_0           " + third +
                "  -in_1_1           " + fourth + "  -out              " + in("review.mov") +
                "  -overwrite        \n"
                "  -progress_file    " +
                in("review.progress") +
                "  -progress_prefix  progress:\n"
                "  -vbr              3\n"
                "  -vcodec           h264\n"
                "  -web              \n"
                "input group 0\n"
                "  " +
                first + "  " + second +
                "input group 1\n"
                "  " +
                third + "  " + fourth +
                "progress:0%\nprogress:25%\nprogress:50%\nprogress:75%\nprogress:100%\n");
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_EQ(contentOf(folder / "review.mov"), joined);
  EXPECT_EQ(contentOf(folder / "review.progress"), "0%\n25%\n50%\n75%\n100%\n");
}

TEST(TranscoderTool, PrintsTheVocabularyForEveryCommand) {
  const auto lines = [](const Words& words) {
    std::string text;
    for (const auto& word : words) text += word + "\n";
    return text;
  };
  const struct {
    std::string command;
    std::string output;
  } cases[] = {
      {"-formats", lines({"qt", "mp4", "wav"})},
      {"-codecs", lines({"dnxhd", "h264", "h265", "mjpeg", "mp4", "prores4444", "prores4444xq", "prores422",
                         "prores422hq", "prores422lt", "prores422proxy"})},
      {"-PRESETS", lines({"vantiro_cloud (cloud)", "vantiro_4444xq (ProRes 4444 XQ)"})},
      {"-aspect_scalings", lines({"match", "stretch", "letterbox", "crop"})},
      {"-color_spaces", lines({"rec_2020", "rec_709", "sRGB", "smpte_c", "ebu_3213"})},
      {"-crop_anchors", lines({"tl", "tc", "tr", "cl", "c", "cr", "bl", "bc", "br"})},
      {"-tc_burn_anchors", lines({"tl", "tc", "tr", "cl", "c", "cr", "bl", "bc", "br"})},
      {"-audio_channel_layouts", lines({"mono", "stereo", "quad", "pent", "hex", "oct"})},
      {"-gpu_platforms", lines({"opencl", "metal", "default"})},
  };
  for (const auto& c : cases) {
    const auto result = runTool({c.command});
    EXPECT_EQ(result.output, c.output);
    EXPECT_EQ(result.exitStatus, 0);
  }
  const auto help = runTool({"-h"}).output;
  for (const auto flag : TranscodeCliArguments::allKnownCommandFlags()) {
    EXPECT_THAT(help, testing::HasSubstr("\n  " + std::string(flag)));
  }
  for (const auto command : {"-version", "-acknowledge"})
    EXPECT_THAT(runTool({command}).output, testing::EndsWith("\n"));
}

TEST(TranscoderTool, RefusesWhatItCannotDo) {
  const auto unknown = runTool({"-vcodec", "h264", "-Bogus", "1", "-parentPid", "1", "--what"});
  EXPECT_EQ(unknown.exitStatus, 64);
  EXPECT_EQ(unknown.errors, "transcoder_tool: unknown flags: --what -bogus\n");
  EXPECT_EQ(runTool({}).exitStatus, 64);
  EXPECT_EQ(runTool({"-in", "/nowhere/a.mov", "-out", "/nowhere/b.mov"}).exitStatus, 66);
  EXPECT_EQ(runTool({"-in", "/dev/null", "-out", "/dev"}).exitStatus, 73);
}

}  // namespace
}  // namespace quillonic
