#include <quillonic/support/atomic_switch.hpp>

#include <array>
#include <atomic>
#include <barrier>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace quillonic {
namespace {

using Kind = DispatchQueue::Attribute;

// One switch of each type.
class AtomicSwitches : public testing::Test {
 protected:
  UnfairLockBasedAtomicSwitch unfair_{false};
  QueueBasedAtomicSwitch serial_{false, "serial", DispatchQoS{DispatchQoS::QoSClass::userInitiated, -3}};
  ConcurrentQueueBasedAtomicSwitch concurrent_{false, "concurrent", DispatchQoS::QoSClass::background};
  const std::array<AtomicSwitch*, 3> all_{&unfair_, &serial_, &concurrent_};
};

// A thread that has said where it is and then waits in a queue, asleep.
class WaitingThread {
 public:
  template <class Work>
  explicit WaitingThread(Work work)
      : thread_([this, work] {
          id_ = gettid();
          work();
        }) {
    while (id_ == 0) std::this_thread::yield();
    for (std::string state; state != "S";) {
      std::ifstream("/proc/self/task/" + std::to_string(id_) + "/stat") >> state >> state >> state;
    }
  }

 private:
  std::atomic<pid_t> id_{0};
  std::jthread thread_;
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

// Readers that never pause do not keep a writer out, nor writers a reader.
TEST_F(AtomicSwitches, LetNobodyStarve) {
  for (auto* shared : all_) {
    for (const bool progressWrites : {true, false}) {
      const auto act = [&](bool writes) {
        writes ? shared->setIsOn(true) : static_cast<void>(shared->isOn());
      };
      std::atomic<bool> done = false;
      std::vector<std::jthread> crowd;
      for (int i = 0; i < 3; ++i) {
        crowd.emplace_back([&] {
          while (!done) act(!progressWrites);
        });
      }
      for (int turn = 0; turn < 200; ++turn) act(progressWrites);
      done = true;
    }
  }
}

// Two modifications that overlap: the inner one's write is overwritten by the outer one's. What was
// modified is written back also where the modification throws.
TEST_F(AtomicSwitches, LoseAToggleBetweenTheReadAndTheWriteOfAnother) {
  for (auto* shared : all_) {
    shared->modifyIsOn([&](bool& value) {
      std::jthread([&] { shared->toggle(); }).join();
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
  const auto kept = [](const auto& queued) {
    return std::tuple(queued.label(), queued.qos(), queued.targetQos());
  };
  using Kept = decltype(kept(serial_));
  EXPECT_TRUE(kept(serial_) == Kept("serial", {Class::userInitiated, -3}, std::nullopt));
  EXPECT_TRUE(kept(targeting) == Kept("targeting", DispatchQoS::unspecified, Class::utility));
  EXPECT_TRUE(kept(concurrent_) == Kept("concurrent", DispatchQoS::unspecified, Class::background));
  EXPECT_TRUE(targeting.isOn());
}

class DispatchQueues : public testing::TestWithParam<Kind> {
 protected:
  DispatchQueue queue_{"queue", {}, GetParam()};
};
INSTANTIATE_TEST_SUITE_P(All, DispatchQueues, testing::Values(Kind::serial, Kind::concurrent));

TEST_P(DispatchQueues, RunBlocksInOrderOfArrival) {
  std::string order;
  std::vector<std::unique_ptr<WaitingThread>> threads;
  queue_.syncBarrier([&] {
    for (const char name : {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}) {
      threads.push_back(std::make_unique<WaitingThread>([&, name] {
        const auto block = [&] { order.push_back(name); };
        GetParam() == Kind::serial ? queue_.sync(block) : queue_.syncBarrier(block);
      }));
    }
  });
  threads.clear();
  EXPECT_EQ(order, "abcdefgh");
}

// Threads come as readers and writers without end; now and then a block takes so long that those behind it sleep.
TEST_P(DispatchQueues, LoseNobodyAndKeepBarriersAlone) {
  std::atomic<int> readers = 0;
  std::atomic<int> writers = 0;
  const auto play = [&](unsigned seed) {
    std::minstd_rand random(seed);
    for (int round = 0; round < 1500; ++round) {
      const bool writes = random() % 3 == 0;
      const auto block = [&] {
        auto& own = writes || GetParam() == Kind::serial ? writers : readers;
        ++own;
        if (random() % 64 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const int alone = writers;
        EXPECT_TRUE(alone == 0 || (alone == 1 && readers == 0 && &own == &writers));
        --own;
      };
      writes ? queue_.syncBarrier(block) : queue_.sync(block);
    }
  };
  std::vector<std::jthread> threads;
  for (unsigned seed = 1; seed <= 6; ++seed) threads.emplace_back(play, seed);
}

TEST_P(DispatchQueues, PassAnExceptionAndEndTheTurn) {
  const auto fail = [] { throw std::runtime_error("failed"); };
  EXPECT_THROW(queue_.sync(fail), std::runtime_error);
  EXPECT_THROW(queue_.syncBarrier(fail), std::runtime_error);
  EXPECT_EQ(queue_.syncBarrier([] { return 7; }), 7);
}

// Two readers meet inside; a writer that came then waits for both, and readers behind it wait for it.
TEST(DispatchQueue, LetsReadersRunTogetherAndNoneOvertakeABarrier) {
  DispatchQueue queue("queue", {}, Kind::concurrent);
  std::barrier inside(2);
  std::barrier leave(2);
  std::barrier together(2);
  bool hasWritten = false;
  std::atomic<int> lateReaders = 0;
  std::jthread second([&] {
    queue.sync([&] {
      inside.arrive_and_wait();
      leave.arrive_and_wait();
    });
  });
  std::vector<std::unique_ptr<WaitingThread>> late;
  queue.sync([&] {
    inside.arrive_and_wait();
    late.push_back(std::make_unique<WaitingThread>([&] {
      queue.syncBarrier([&] {
        EXPECT_EQ(lateReaders, 0);
        hasWritten = true;
      });
    }));
    for (int i = 0; i < 2; ++i) {
      late.push_back(std::make_unique<WaitingThread>([&] {
        queue.sync([&] {
          together.arrive_and_wait();
          EXPECT_TRUE(hasWritten) << "the barrier comes first";
          ++lateReaders;
        });
      }));
    }
    EXPECT_FALSE(hasWritten);
    leave.arrive_and_wait();
  });
  late.clear();
  EXPECT_EQ(lateReaders, 2);
}

}  // namespace
}  // namespace quillonic
