// The example that runs a command.

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "child_process.hpp"
#include "private_process.hpp"

namespace quillonic {
namespace {

const std::filesystem::path tool = std::filesystem::path(EXAMPLES_DIRECTORY) / "activity_tool";

TEST(ActivityTool, TellsWhatACommandWritesAndEndsAsItDoes) {
  const TemporaryFolder folder;
  const auto script =
      "echo out; head -c 8000000 /dev/zero > " + (folder / "file").native() + "; sleep 1.2; exit 7";
  const auto result = runChild(tool, {"sh", "-c", script});
  EXPECT_EQ(result.exitStatus, 7);
  EXPECT_EQ(result.output, "out\n");
  EXPECT_NE(result.errors.find("\ncommand: 8.0 MB read, 8.0 MB written\n"), std::string::npos)
      << result.errors;
  EXPECT_NE(result.errors.find("/s written\n"), std::string::npos) << result.errors;

  EXPECT_EQ(runChild(tool, {"sh", "-c", "kill -9 $$"}).exitStatus, 128 + SIGKILL);
  EXPECT_EQ(runChild(tool, {"/missing/command"}).exitStatus, 127);
  EXPECT_EQ(runChild(tool, {}).exitStatus, 64);
  // What the tool gets the command gets.
  EXPECT_EQ(runChild(tool, {"sh", "-c", "trap 'exit 9' TERM; kill -TERM $PPID; while :; do sleep 0.1; done"})
                .exitStatus,
            9);
}

// Of a process that has ended, only who watched it before may read what it did.
TEST(ActivityTool, CountsAShortCommandOfAnyUser) {
  runPrivately([] {
    becomeNobody();
    if (access(tool.c_str(), X_OK) != 0) endAsNotAllowed();
    for (int i = 0; i < 20; ++i) {
      const auto result = runChild(tool, {"head", "-c", "3000000", "/dev/zero"});
      EXPECT_EQ(result.output.size(), 3'000'000U);
      EXPECT_NE(result.errors.find("\ncommand: 3.0 MB read, 3.0 MB written\n"), std::string::npos);
    }
  });
}

}  // namespace
}  // namespace quillonic
