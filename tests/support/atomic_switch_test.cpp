#include <quillonic/support/atomic_switch.hpp>

#include <array>
#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <vector>

#include "support/ordered_shared_mutex.hpp"

namespace quillonic {
namespace {

// One switch of each type.
class AtomicSwitches : public testing::Test {
 protected:
  UnfairLockBasedAtomicSwitch unfair_{false};
  QueueBasedAtomicSwitch serial_{false, "serial", DispatchQoS{DispatchQoS::QoSClass::userInitiated, -3}};
  ConcurrentQueueBasedAtomicSwitch concurrent_{false, "concurrent", DispatchQoS::QoSClass::background};
  const std::array<AtomicSwitch*, 3> all_{&unfair_, &serial_, &concurrent_};
};

TEST_F(AtomicSwitches, ShowAWriteToEveryReadThatBeginsAfterIt) {
  for (auto* shared : all_) {
    // Every hand-over carries a value that only the switch protects.
    std::array<int, 2> unprotected{};
    const auto play = [&](std::size_t own) {
      for (int round = 0; round < 2000; ++round) {
        while (shared->isOn() != (own == 1)) std::this_thread::yield();
        ASSERT_EQ(unprotected[1 - own], round + static_cast<int>(own));
        ++unprotected[own];
        shared->setIsOn(own == 0);
      }
    };
    std::jthread other([&] { play(1); });
    play(0);
  }
}

// Two overlapping modifications: the outer one overwrites the inner one's write. A modification is written
// back even if it throws.
TEST_F(AtomicSwitches, LoseAToggleBetweenTheReadAndTheWriteOfAnother) {
  for (auto* shared : all_) {
    shared->modifyIsOn([&](bool& value) {
      shared->toggle();
      EXPECT_TRUE(shared->isOn());
      value = !value;
    });
    EXPECT_TRUE(shared->isOn()) << "two toggles of a switch that was off";
    const auto fail = [](bool& value) {
      value = false;
      throw std::runtime_error("failed");
    };
    EXPECT_THROW(shared->modifyIsOn(fail), std::runtime_error);
    EXPECT_FALSE(shared->isOn());
  }
  EXPECT_TRUE(UnfairLockBasedAtomicSwitch(true).isOn());
}

TEST_F(AtomicSwitches, KeepLabelQualityAndTarget) {
  using Class = DispatchQoS::QoSClass;
  const QueueBasedAtomicSwitch targeting(true, "targeting", Class::utility);
  EXPECT_TRUE(targeting.isOn());
  const auto kept = [](const auto& of) { return std::tuple(of.label(), of.qos(), of.targetQos()); };
  using Kept = decltype(kept(serial_));
  EXPECT_TRUE(kept(serial_) == Kept("serial", {Class::userInitiated, -3}, std::nullopt));
  EXPECT_TRUE(kept(targeting) == Kept("targeting", DispatchQoS::unspecified, Class::utility));
  EXPECT_TRUE(kept(concurrent_) == Kept("concurrent", DispatchQoS::unspecified, Class::background));
}

// Takes a turn as a reader, or as the only one.
void takeTurn(OrderedSharedMutex& mutex, bool isShared, auto work) {
  isShared ? mutex.lock_shared() : mutex.lock();
  work();
  isShared ? mutex.unlock_shared() : mutex.unlock();
}

TEST(OrderedSharedMutex, LosesNobodyAndKeepsWritersAlone) {
  OrderedSharedMutex mutex;
  std::array<int, 2> halves{};
  const auto play = [&](int thread) {
    for (int round = 0; round < 3000; ++round) {
      const bool isReader = (round + thread) % 3 != 0;
      takeTurn(mutex, isReader, [&] {
        ASSERT_EQ(halves[0], halves[1]);
        if (isReader) return;
        ++halves[0];
        if (round % 32 == 0) std::this_thread::yield();
        ++halves[1];
      });
    }
  };
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 6; ++thread) threads.emplace_back(play, thread);
  threads.clear();
  EXPECT_EQ(halves[0], 6000);
}

// Threads that come while the mutex is held, each once the one before sleeps. Capital letters are writers. A
// writer that finds readers inside goes ahead of those that come later, so no stream of readers keeps it out.
TEST(OrderedSharedMutex, ServesThreadsInOrderOfArrivalAndReadersTogether) {
  const std::string arrivals = "AbCdEFg";
  for (const bool isHeldByReader : {false, true}) {
    OrderedSharedMutex mutex;
    std::string served;
    std::vector<std::jthread> threads;
    takeTurn(mutex, isHeldByReader, [&] {
      if (isHeldByReader) std::jthread([&] { takeTurn(mutex, true, [] {}); }).join();
      for (const char name : arrivals) {
        std::atomic<pid_t> id = 0;
        threads.emplace_back([&, name] {
          id = gettid();
          takeTurn(mutex, name >= 'a', [&] { served.push_back(name); });
        });
        while (id == 0) std::this_thread::yield();
        for (std::string state; state != "S";) {
          std::ifstream("/proc/self/task/" + std::to_string(id) + "/stat") >> state >> state >> state;
        }
      }
      EXPECT_EQ(served, "");
    });
    threads.clear();
    EXPECT_EQ(served, arrivals);
  }
}

}  // namespace
}  // namespace quillonic
