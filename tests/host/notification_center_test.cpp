#include <quillonic/host/drive_watcher.hpp>
#include <quillonic/host/notification_center.hpp>

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace quillonic::host {
namespace {

TEST(NotificationCenter, CallsObserversInTheOrderOfRegistration) {
  NotificationCenter center;
  std::string heard;
  const auto hear = [&](const char* who) { return [&heard, who](const Notification&) { heard += who; }; };
  const auto first = center.observe("a", hear("1"));
  const auto all = center.observeAll(hear("2"));
  auto other = center.observe("b", hear("3"));
  const auto second = center.observe("a", hear("4"));
  center.post({"a", {}});
  center.post({"b", {}});
  center.post({"c", {}});
  EXPECT_EQ(heard, "124232");

  heard.clear();
  other = center.observe("a", hear("5"));
  center.post({"b", {}});
  center.post({"a", {}});
  EXPECT_EQ(heard, "21245");
}

TEST(NotificationCenter, LetsObserversChangeItAndThrow) {
  NotificationCenter center;
  std::string heard;
  std::array<Observation, 6> tokens;
  tokens[0] =
      center.observe("a", [&](const Notification&) { heard += "0", tokens[0].end(), tokens[2].end(); });
  tokens[1] = center.observe("a", [&](const Notification&) {
    heard += "1";
    tokens[5] = center.observe("a", [&](const Notification&) { heard += "5"; });
    throw std::runtime_error("first");
  });
  tokens[2] = center.observe("a", [&](const Notification&) { heard += "2"; });
  tokens[3] = center.observe("a", [&](const Notification&) {
    heard += "3";
    center.post({"b", {}});
    throw std::logic_error("second");
  });
  tokens[4] = center.observe("b", [&](const Notification&) { heard += "4"; });
  EXPECT_THROW(center.post({"a", {}}), std::runtime_error);
  EXPECT_EQ(heard, "0134");
  tokens[1].end();
  EXPECT_THROW(center.post({"a", {}}), std::logic_error);
  EXPECT_EQ(heard, "0134345");
}

TEST(NotificationCenter, OutlivesAndIsOutlived) {
  std::optional<NotificationCenter> center(std::in_place);
  auto token = center->observe("a", [&](const Notification&) { center.reset(); });
  const auto shared = std::make_shared<int>();
  auto holding = center->observe("b", [shared](const Notification&) {});
  EXPECT_EQ(shared.use_count(), 2);
  holding.end();
  EXPECT_EQ(shared.use_count(), 1);
  center->post({"a", {}});
  token.end();

  const auto own = std::make_shared<NotificationCenter>();
  const auto builtIn = NotificationCenter::current();
  NotificationCenter::replace(own);
  EXPECT_EQ(NotificationCenter::current(), own);
  NotificationCenter::replace(nullptr);
  EXPECT_EQ(NotificationCenter::current(), builtIn);
}

TEST(NotificationCenter, PassesRecordsOnOnlyWhole) {
  NotificationCenter center;
  std::vector<VolumeChange> heard;
  const auto token = center.observe(driveMount, [&](const VolumeChange& change) { heard.push_back(change); });
  const VolumeChange change{"/media/CARD", {{"DAVolumePath", std::filesystem::path("/media/CARD")}}, true};
  center.post(driveMount, change);
  auto values = change.payload();
  values["wasPulled"] = 1;
  center.post({"driveMount", values});
  center.post({"driveMount", {}});
  EXPECT_EQ(heard, std::vector{change});
}

// What observers use is gone as soon as the token is, while other threads post.
TEST(NotificationCenter, WaitsForCallsOnOtherThreads) {
  NotificationCenter center;
  std::atomic<bool> ends = false;
  std::atomic<int> calls = 0;
  std::vector<std::thread> posting;
  for (int i = 0; i < 3; ++i) {
    posting.emplace_back([&] {
      while (!ends) center.post({"a", {}});
    });
  }
  const auto comeAndGo = [&] {
    for (int i = 0; i < 300; ++i) {
      auto used = std::make_unique<std::atomic<int>>(0);
      std::vector<Observation> tokens;
      for (int j = 0; j < 3; ++j)
        tokens.push_back(
            center.observe("a", [&calls, own = used.get()](const Notification&) { ++*own, ++calls; }));
      if (i % 10 == 0) std::this_thread::yield();
    }
  };
  // Those that end within observers do not wait for each other.
  std::atomic<Observation*> victim = nullptr;
  Observation ended = center.observe("a", [](const Notification&) {});
  victim = &ended;
  const auto ending = center.observe("a", [&](const Notification&) {
    if (auto* token = victim.exchange(nullptr)) token->end();
  });
  std::thread other(comeAndGo);
  comeAndGo();
  other.join();
  while (victim) std::this_thread::yield();
  ends = true;
  for (auto& thread : posting) thread.join();
  EXPECT_GT(calls, 0);
}

}  // namespace
}  // namespace quillonic::host
