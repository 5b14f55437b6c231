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

// Notes every notification as a text, and keeps the last records.
struct Observer {
  explicit Observer(NotificationCenter& center) {
    tokens.push_back(
        center.observeAll([this](const Notification& notification) { heard += notification.name + " "; }));
    tokens.push_back(center.observe(driveSpeedUpdate, [this](const DriveSpeed& speed) {
      heard += speed.drive + " ";
      last = speed;
    }));
    tokens.push_back(center.observe(removedActiveJob, [this](const JobState& job) { removed = job; }));
    tokens.push_back(center.observe(allActiveJobsUpdate, [this](const JobList& list) { jobs = list.jobs; }));
    tokens.push_back(
        center.observe(mainActivityUpdateBroadcast, [this](const ActivityTotal& sum) { total = sum; }));
  }

  std::string take() { return std::exchange(heard, {}); }

  std::string heard;
  DriveSpeed last;
  JobState removed;
  std::vector<JobState> jobs;
  ActivityTotal total;
  std::vector<Observation> tokens;
};

struct Activity : testing::Test {
  std::shared_ptr<NotificationCenter> center = std::make_shared<NotificationCenter>();
  Observer observer{*center};
  ActivityTracker tracker{center};
  Moment now{};

  auto updateAfter(std::chrono::milliseconds time) { return tracker.update(now += time); }
};

TEST_F(Activity, TellsWhatHasChangedAndNothingElse) {
  EXPECT_FALSE(updateAfter(0ms));
  EXPECT_EQ(observer.take(), "");

  auto job = tracker.start({"A001", "offload", {"CARD"}, {"RAID"}, 1000});
  const auto next = updateAfter(500ms);
  EXPECT_EQ(next, now + 500ms);
  EXPECT_EQ(observer.take(), "kNewActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  job.advance(100);
  updateAfter(50ms);
  EXPECT_EQ(observer.take(), "") << "too soon to measure";
  updateAfter(450ms);
  EXPECT_EQ(observer.take(),
            "kAllActiveJobsUpdate kMainActivityUpdateBroadcast "
            "driveSpeedUpdate CARD driveSpeedUpdate RAID ");
  EXPECT_EQ(observer.last, (DriveSpeed{"RAID", 0, 100, 0, 200, 0.5}));
  EXPECT_EQ(observer.jobs.at(0), (JobState{1, "A001", "offload", {"CARD"}, {"RAID"}, {100, 1000, 200, 4.5}}));
  // Without progress the mean falls until the window has passed.
  while (updateAfter(500ms), tracker.drives()[0].bytesReadPerSecond > 0) continue;
  observer.take();
  EXPECT_TRUE(updateAfter(500ms));
  EXPECT_EQ(observer.take(), "");

  job.end();
  job.advance(1);
  job.setBytesExpected(5);
  EXPECT_FALSE(updateAfter(500ms));
  EXPECT_EQ(observer.take(), "kRemovedActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  EXPECT_EQ(observer.removed.progress.bytesDone, 100U);
  EXPECT_TRUE(observer.jobs.empty());

  center->post({"kNeedsUpdateForAllActiveJobs", {}});
  EXPECT_EQ(observer.take(), "kNeedsUpdateForAllActiveJobs kAllActiveJobsUpdate ");
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
  EXPECT_EQ(observer.total, (ActivityTotal{"", 1, {1100, 1400, 100, 3}}));
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
  EXPECT_EQ(observer.take(), "kNewActiveJob kAllActiveJobsUpdate kMainActivityUpdateBroadcast ");
  EXPECT_TRUE(updateAfter(1s));
}

TEST_F(Activity, CountsEveryByteOfManyThreads) {
  // It is not made for calls on several threads.
  observer.tokens.clear();
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
