// The example that copies a card, as a process.

#include <quillonic/offload.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "child_process.hpp"
#include "trees.hpp"

namespace quillonic {
namespace {

TEST(OffloadApp, FindsNothingToDoTheSecondTime) {
  const auto program = fs::path(EXAMPLES_DIRECTORY) / "offload_app";
  if (!fs::exists(program)) GTEST_SKIP() << "needs nlohmann-json, xxHash and OpenSSL";
  const TemporaryFolder folder;
  folder.file("card/DCIM/A001.dat", "a clip");
  folder.file("card/empty", "");
  folder.link("card/latest", "DCIM/A001.dat");
  const auto first = folder.folder("first");
  const auto second = folder.folder("second");
  const auto run = [&](const char* flag = "--json") {
    return runChild(program, {folder / "card", first, second, "--json", flag});
  };
  const auto copying = run();
  EXPECT_EQ(copying.exitStatus, 0);
  EXPECT_THAT(copying.output, testing::HasSubstr("\"verified\": 2"));
  const auto again = run();
  EXPECT_EQ(again.errors, "");
  EXPECT_THAT(again.output,
              testing::AllOf(testing::HasSubstr("\"found\": 4"), testing::HasSubstr("\"good\": true"),
                             testing::Not(testing::HasSubstr("verified"))));
  folder.file("second/card/DCIM/A001.dat", "a clop");
  fs::last_write_time(second / "card/DCIM/A001.dat", fs::last_write_time(folder / "card/DCIM/A001.dat"));
  EXPECT_EQ(run().exitStatus, 0);
  EXPECT_THAT(run("--verify-all").output, testing::HasSubstr("\"failed\": 1"));
  const auto reading = offload::HashList::fromText(contentOf(second / "card/card.mhl"));
  EXPECT_EQ(reading.value().entries.size(), 2U);
}

}  // namespace
}  // namespace quillonic
