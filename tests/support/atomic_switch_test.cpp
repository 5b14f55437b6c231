#include <quillonic/support/atomic_switch.hpp>

#include <array>
#include <atomic>
#include <barrier>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quillonic {
namespace {

using Kind = DispatchQueue::Attribute;

std::vector<std::unique_ptr<AtomicSwitch>> oneOfEach(bool isOn) {
  std::vector<std::unique_ptr<AtomicSwitch>> switches;
  switches.push_back(std::make_unique<UnfairLockBasedAtomicSwitch>(isOn));
  switches.push_back(std::make_unique<QueueBasedAtomicSwitch>(isOn, "serial", DispatchQoS::utility));
  switches.push_back(std::make_unique<ConcurrentQueueBasedAtomicSwitch>(isOn, "concurrent",
                                                                        DispatchQoS::QoSClass::background));
  return switches;
}

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
    const auto path = "/proc/self/task/" + std::to_string(id_) + "/stat";
    std::string state;
    while (state != "S") {
      std::ifstream stat(path);
      std::string ignored;
      stat >> ignored >> ignored >> state;
    }
  }

 private:
  std::atomic<pid_t> id_{0};
  std::jthread thread_;
};

TEST(AtomicSwitch, AWriteIsSeenByEveryReadThatBeginsAfterIt) {
  for (const bool start : {false, true}) {
    for (const auto& shared : oneOfEach(start)) {
      EXPECT_EQ(shared->isOn(), start);
      // Every hand-over carries a value that only the switch protects.
      std::array<int, 2> unprotected{};
      constexpr int rounds = 2000;
      shared->setIsOn(false);
      const auto play = [&](std::size_t own) {
        for (int round = 0; round < rounds; ++round) {
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
}

TEST(AtomicSwitch, ManyThreadsReadAndWriteAtOnce) {
  for (const auto& shared : oneOfEach(false)) {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&, i] {
        for (int turn = 0; turn < 5000; ++turn) {
          if (turn % 7 == i) shared->setIsOn(turn % 2 == 0);
          static_cast<void>(shared->isOn());
        }
      });
    }
    threads.clear();
    shared->setIsOn(true);
    EXPECT_TRUE(shared->isOn());
  }
}

// Readers that never pause do not keep a writer out, nor writers a reader.
TEST(AtomicSwitch, NobodyStarves) {
  for (const bool progressWrites : {true, false}) {
    for (const auto& shared : oneOfEach(false)) {
      std::atomic<bool> done = false;
      std::vector<std::jthread> crowd;
      for (int i = 0; i < 3; ++i) {
        crowd.emplace_back([&] {
          while (!done) progressWrites ? static_cast<void>(shared->isOn()) : shared->setIsOn(true);
        });
      }
      for (int turn = 0; turn < 200; ++turn) {
        progressWrites ? shared->setIsOn(true) : static_cast<void>(shared->isOn());
      }
      done = true;
    }
  }
}

// Two modifications that overlap: the inner one's write is overwritten by the outer one's.
TEST(AtomicSwitch, AToggleIsLostBetweenTheReadAndTheWriteOfAnother) {
  for (const auto& shared : oneOfEach(false)) {
    shared->modifyIsOn([&](bool& value) {
      std::jthread([&] { shared->toggle(); }).join();
      EXPECT_TRUE(shared->isOn());
      value = !value;
    });
    EXPECT_TRUE(shared->isOn()) << "two toggles of a switch that was off";
    shared->toggle();
    EXPECT_FALSE(shared->isOn());
  }
}

TEST(AtomicSwitch, AModificationThatThrowsIsWrittenBack) {
  for (const auto& shared : oneOfEach(false)) {
    const auto fail = [](bool& value) {
      value = true;
      throw std::runtime_error("failed");
    };
    EXPECT_THROW(shared->modifyIsOn(fail), std::runtime_error);
    EXPECT_TRUE(shared->isOn());
  }
}

TEST(AtomicSwitch, KeepsLabelQualityAndTarget) {
  using Class = DispatchQoS::QoSClass;
  const QueueBasedAtomicSwitch plain(true, "plain", DispatchQoS{Class::userInitiated, -3});
  EXPECT_EQ(plain.label(), "plain");
  EXPECT_EQ(plain.qos(), (DispatchQoS{Class::userInitiated, -3}));
  EXPECT_EQ(plain.targetQos(), std::nullopt);
  const QueueBasedAtomicSwitch targeting(true, "targeting", Class::utility);
  EXPECT_EQ(targeting.qos(), DispatchQoS::unspecified);
  EXPECT_EQ(targeting.targetQos(), Class::utility);
  const ConcurrentQueueBasedAtomicSwitch concurrent(false, "concurrent", Class::background);
  EXPECT_EQ(concurrent.label(), "concurrent");
  EXPECT_EQ(concurrent.qos(), DispatchQoS::unspecified);
  EXPECT_EQ(concurrent.targetQos(), Class::background);
}

TEST(DispatchQueue, RunsBlocksInOrderOfArrival) {
  for (const auto kind : {Kind::serial, Kind::concurrent}) {
    DispatchQueue queue("queue", {}, kind);
    std::vector<int> order;
    {
      std::vector<std::unique_ptr<WaitingThread>> threads;
      queue.syncBarrier([&] {
        for (int i = 0; i < 8; ++i) {
          threads.push_back(std::make_unique<WaitingThread>([&, i] {
            const auto block = [&] { order.push_back(i); };
            kind == Kind::serial ? queue.sync(block) : queue.syncBarrier(block);
          }));
        }
      });
    }
    EXPECT_EQ(order, (std::vector{0, 1, 2, 3, 4, 5, 6, 7}));
  }
}

// Two readers meet inside; a writer that came then waits for both, and a reader behind it waits for it.
TEST(DispatchQueue, ReadersRunTogetherAndNoneOvertakesABarrier) {
  DispatchQueue queue("queue", {}, Kind::concurrent);
  std::vector<std::string> order;
  std::barrier inside(2);
  std::barrier leave(2);
  std::barrier together(2);
  std::jthread second([&] {
    queue.sync([&] {
      inside.arrive_and_wait();
      leave.arrive_and_wait();
    });
  });
  std::unique_ptr<WaitingThread> writer;
  std::unique_ptr<WaitingThread> late;
  std::unique_ptr<WaitingThread> later;
  std::atomic<int> lateReaders = 0;
  queue.sync([&] {
    inside.arrive_and_wait();
    const auto read = [&] {
      queue.sync([&] {
        together.arrive_and_wait();
        EXPECT_EQ(order.size(), 1U) << "the barrier comes first";
        ++lateReaders;
      });
    };
    writer = std::make_unique<WaitingThread>([&] {
      queue.syncBarrier([&] {
        EXPECT_EQ(lateReaders, 0);
        order.emplace_back("writer");
      });
    });
    late = std::make_unique<WaitingThread>(read);
    later = std::make_unique<WaitingThread>(read);
    EXPECT_TRUE(order.empty());
    leave.arrive_and_wait();
  });
  late.reset();
  later.reset();
  EXPECT_EQ(lateReaders, 2);
}

TEST(DispatchQueue, AnExceptionPassesAndEndsTheTurn) {
  for (const auto kind : {Kind::serial, Kind::concurrent}) {
    DispatchQueue queue("queue", {}, kind);
    EXPECT_THROW(queue.sync([] { throw std::runtime_error("failed"); }), std::runtime_error);
    EXPECT_THROW(queue.syncBarrier([] { throw std::runtime_error("failed"); }), std::runtime_error);
    EXPECT_EQ(queue.syncBarrier([] { return 7; }), 7);
  }
}

}  // namespace
}  // namespace quillonic
