// What remains of an offload that fails, or is killed, at any of its calls.

#include <quillonic/offload.hpp>

#include <cerrno>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "child_process.hpp"
#include "trees.hpp"

namespace quillonic {
namespace {

struct Outcome {
  bool hasEnded = false;
  bool isGood = false;
  long callCount = 0;
};

struct Fixture {
  // In memory, where waiting for a volume takes no time.
  TemporaryFolder folder{fs::exists("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()};
  fs::path card = oddCard(folder);
  std::vector<fs::path> targets{folder.folder("first"), folder.folder("second")};

  std::string files = "nameless";

  Outcome copy(const std::string& way, long call) {
    const auto times = accessTimes(card);
    const auto result = runChild(COPYING_CHILD, {files, way, std::to_string(call), card.native(),
                                                 targets[0].native(), targets[1].native()});
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(accessTimes(card), times);
    Outcome outcome{.hasEnded = result.exitStatus == 0};
    std::istringstream(result.output) >> outcome.isGood >> outcome.callCount;
    return outcome;
  }

  void clear() {
    for (const auto& target : targets) {
      fs::remove_all(target);
      fs::create_directory(target);
    }
  }
};

// A clean run, then one that fails at a call, and a clean one that goes on from there.
void expectRecovery(Fixture& fixture, const std::string& way, long call) {
  SCOPED_TRACE(way + " at call " + std::to_string(call));
  fixture.clear();
  const auto plan = offload::planOffload(fixture.card, fixture.targets);
  const auto failing = fixture.copy(way, call);
  EXPECT_EQ(failing.hasEnded, way != "KILL");
  for (std::size_t i = 0; i < 2; ++i) {
    expectOnlyWholeFiles(plan, i, failing.isGood);
    if (way != "KILL") {
      EXPECT_EQ(partialCount(fixture.targets[i]), 0U);
    }
  }
  const bool isHarmless = way == "SHORT" || way == std::to_string(EINTR);
  EXPECT_TRUE(failing.isGood || !isHarmless);
  EXPECT_TRUE(isHarmless || !failing.isGood);

  EXPECT_TRUE(fixture.copy("none", 0).isGood);
  for (std::size_t i = 0; i < 2; ++i) {
    expectOnlyWholeFiles(plan, i, true);
    EXPECT_EQ(partialCount(fixture.targets[i]), 0U);
  }
}

TEST(Offload, SurvivesAFaultAtAnyCall) {
  Fixture fixture;
  for (const auto* files : {"nameless", "named"}) {
    fixture.files = files;
    fixture.clear();
    const auto clean = fixture.copy("none", 0);
    ASSERT_TRUE(clean.isGood);
    ASSERT_GT(clean.callCount, 50);
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
      for (long call = 1; call <= clean.callCount; call += 29)
        expectRecovery(fixture, std::to_string(error), call);
    }
    for (long call = 1; call <= 25; ++call) expectRecovery(fixture, "KILL", call * clean.callCount / 25);
    expectRecovery(fixture, std::to_string(EINTR), 1);
    expectRecovery(fixture, "SHORT", 1);
  }
}

}  // namespace
}  // namespace quillonic
