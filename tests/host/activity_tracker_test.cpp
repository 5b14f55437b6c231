#include <quillonic/host/activity_tracker.hpp>

#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace quillonic::host {
namespace {

using namespace std::chrono_literals;

using Moment = ActivityTracker::Clock::time_point;

struct Activity : testing::Test {
  auto updateAfter(std::chrono::milliseconds time) { return tracker.update(now += time); }
  std::string take() { return std::exchange(heard, {}); }

  std::shared_ptr<NotificationCenter> center = std::make_shared<NotificationCenter>();
  std::string heard;
  Observation all = center->observeAll([this](const Notification& posted) { heard += posted.name + " "; });
  Observation speeds =
      center->observe(driveSpeedUpdate, [this](const DriveSpeed& speed) { heard += speed.drive + " "; });
  ActivityTracker tracker{center};
  Moment now{};
};

TEST_F(Activity, TellsWhatHasChangedAndNothingElse) {
  EXPECT_FALSE(updateAfter(0ms));
  EXPECT_FALSE(updateAfter(1s));
  EXPECT_EQ(take(), "");

  auto job = tracker.start({"A001", "offload", {"CARD"}, {"RAID"}, 1000});
  const auto next = updateAfter(500ms);
  EXPECT_EQ(next, now + 500ms);
  EXPECT_EQ(take(), "kNewActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  job.advance(100);
  updateAfter(50ms);
  EXPECT_EQ(take(), "") << "too soon to measure";
  updateAfter(450ms);
  EXPECT_EQ(take(),
            "kAllActiveJobsUpdate kMainActivityUpdateBroadcast "
            "driveSpeedUpdate CARD driveSpeedUpdate RAID ");
  EXPECT_EQ(tracker.drives().at(1), (DriveSpeed{"RAID", 0, 100, 0, 200, 0.5}));
  const JobState state{1, "A001", "offload", {"CARD"}, {"RAID"}, {100, 1000, 200, 4.5}};
  EXPECT_EQ(tracker.jobs(), std::vector{state});
  EXPECT_EQ(JobList::fromPayload(JobList{{state}}.payload()), JobList{{state}});
  // Without progress the mean falls until the window has passed.
  while (updateAfter(500ms), tracker.drives()[0].bytesReadPerSecond > 0) continue;
  take();
  EXPECT_TRUE(updateAfter(500ms));
  EXPECT_EQ(take(), "");

  job.end();
  job.advance(1);
  job.setBytesExpected(5);
  EXPECT_FALSE(updateAfter(500ms));
  EXPECT_EQ(take(), "kRemovedActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  EXPECT_TRUE(tracker.jobs().empty());
  EXPECT_EQ(tracker.drives().at(0).bytesRead, 100U);

  center->post({"kNeedsUpdateForAllActiveJobs", {}});
  EXPECT_EQ(take(), "kNeedsUpdateForAllActiveJobs kAllActiveJobsUpdate ");
}

// Once it asks for no call, none has anything to tell.
TEST_F(Activity, TellsAllOfAShortJobBeforeItRests) {
  tracker.start({"1", "a", {"CARD"}}).advance(5);
  for (int calls = 0; updateAfter(500ms); ++calls) ASSERT_LT(calls, 10);
  EXPECT_NE(take(), "");
  EXPECT_FALSE(updateAfter(1s));
  EXPECT_EQ(take(), "");
}

TEST_F(Activity, AddsUpJobsUntilNoneIsActive) {
  auto first = tracker.start({"1", "offload", {}, {"RAID", "LTO"}, 1000});
  auto second = tracker.start({"2", "verify", {"RAID"}, {}, 500});
  first.advance(1000);
  first.end();
  updateAfter(0ms);
  second.advance(100);
  second.setBytesExpected(400);
  updateAfter(1s);
  EXPECT_EQ(tracker.total(), (ActivityTotal{"", 1, {1100, 1400, 100, 3}}));
  EXPECT_EQ(tracker.drives().at(1), (DriveSpeed{"RAID", 100, 1000, 100, 0, 1}));
  EXPECT_EQ(tracker.applications().at(0), (ActivityTotal{"offload", 0, {1000, 1000, 0, std::nullopt}}));
  EXPECT_EQ(tracker.applications().at(1), (ActivityTotal{"verify", 1, {100, 400, 100, 3}}));

  second.setBytesExpected(std::nullopt);
  auto third = tracker.start({"3", "verify"});
  second = ActiveJob();
  updateAfter(1s);
  EXPECT_EQ(tracker.total().progress.bytesExpected, std::nullopt);
  third.end();
  updateAfter(1s);
  EXPECT_EQ(tracker.total().progress.bytesExpected, 1100U);
  const auto fourth = tracker.start({"4", "offload", {}, {}, 7});
  updateAfter(1s);
  EXPECT_EQ(tracker.total(), (ActivityTotal{"", 1, {0, 7, std::nullopt, std::nullopt}}));
  EXPECT_EQ(fourth.identifier(), 4U);
}

// At a steady pace every speed is that pace, however unevenly the host calls.
TEST_F(Activity, MeasuresASteadyPaceExactly) {
  auto job = tracker.start({"1", "a", {}, {"D"}, std::uint64_t{1} << 40U});
  updateAfter(0ms);
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same cases in each run
  for (int i = 0; i < 2000; ++i) {
    const std::chrono::milliseconds step(
        std::uniform_int_distribution(100, i % 50 == 0 ? 60'000 : 900)(random));
    job.advance(static_cast<std::uint64_t>(step.count()) * 1000);
    updateAfter(step);
    ASSERT_NEAR(tracker.total().progress.bytesPerSecond.value(), 1e6, 1e-3);
    ASSERT_GE(tracker.drives()[0].measuredSeconds, 0.1);
    if (i % 50 != 0) {
      ASSERT_LE(tracker.drives()[0].measuredSeconds, 61);
    }
  }
  const auto progress = tracker.jobs()[0].progress;
  const auto left = static_cast<double>(*progress.bytesExpected - progress.bytesDone);
  EXPECT_NEAR(progress.secondsToGo.value(), left / 1e6, 1);
}

TEST_F(Activity, PostsAllEvenIfObserversThrow) {
  const auto throwing =
      center->observe("kNewActiveJob", [](const Notification&) { throw std::runtime_error(""); });
  const auto job = tracker.start({"1", "a"});
  EXPECT_THROW(updateAfter(1s), std::runtime_error);
  EXPECT_EQ(take(), "kNewActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  EXPECT_TRUE(updateAfter(1s));
}

TEST_F(Activity, CountsEveryByteOfManyThreads) {
  // They are not made for calls on several threads.
  all.end();
  speeds.end();
  auto shared = tracker.start({"1", "a", {}, {"D"}});
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < 200; ++turn) {
        auto own = tracker.start({"own", "b", {}, {"D"}});
        shared.advance(1);
        own.advance(2);
        if (turn % 50 == 0) tracker.update();
      }
    });
  }
  for (auto& thread : threads) thread.join();
  tracker.update(ActivityTracker::Clock::now() + 1s);
  EXPECT_EQ(tracker.jobs().at(0).progress.bytesDone, 800U);
  EXPECT_EQ(tracker.drives().at(0).bytesWritten, 4U * 200 * 3);
}

}  // namespace
}  // namespace quillonic::host
