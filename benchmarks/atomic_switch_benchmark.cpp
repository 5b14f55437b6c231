// The switches beside a bool behind the standard library's mutexes and beside a bare atomic, for 1, 2 and 4
// threads that only read, and that write once in a hundred times.
#include <quillonic/support/atomic_switch.hpp>

#include <atomic>
#include <benchmark/benchmark.h>
#include <mutex>
#include <shared_mutex>

namespace quillonic {
namespace {

class MutexSwitch {
 public:
  bool isOn() const {
    const std::lock_guard lock(mutex_);
    return isOn_;
  }
  void setIsOn(bool isOn) {
    const std::lock_guard lock(mutex_);
    isOn_ = isOn;
  }

 private:
  mutable std::mutex mutex_;
  bool isOn_ = false;
};

class SharedMutexSwitch {
 public:
  bool isOn() const {
    const std::shared_lock lock(mutex_);
    return isOn_;
  }
  void setIsOn(bool isOn) {
    const std::lock_guard lock(mutex_);
    isOn_ = isOn;
  }

 private:
  mutable std::shared_mutex mutex_;
  bool isOn_ = false;
};

class AtomicBool {
 public:
  bool isOn() const { return isOn_.load(); }
  void setIsOn(bool isOn) { isOn_.store(isOn); }

 private:
  std::atomic<bool> isOn_ = false;
};

// On a cache line of its own, whatever stands beside it.
template <class Switch> struct alignas(64) Alone { Switch shared; };

Alone<MutexSwitch> mutexSwitch;
Alone<SharedMutexSwitch> sharedMutexSwitch;
Alone<AtomicBool> atomicBool;
Alone<UnfairLockBasedAtomicSwitch> unfairSwitch{UnfairLockBasedAtomicSwitch(false)};
Alone<QueueBasedAtomicSwitch> queueSwitch{QueueBasedAtomicSwitch(false, "serial", DispatchQoS::utility)};
Alone<ConcurrentQueueBasedAtomicSwitch> concurrentSwitch{
    ConcurrentQueueBasedAtomicSwitch(false, "concurrent", DispatchQoS::QoSClass::utility)};

// The argument is how many of a hundred accesses write.
template <auto* alone> void access(benchmark::State& state) {
  auto& shared = alone->shared;
  const auto writes = state.range(0);
  int turn = 0;
  for (auto _ : state) {
    if (++turn == 100) turn = 0;
    if (turn < writes) {
      shared.setIsOn(turn % 2 == 0);
    } else {
      benchmark::DoNotOptimize(shared.isOn());
    }
  }
}

void cases(benchmark::internal::Benchmark* family) {
  family->ArgName("writes")->Arg(0)->Arg(1);
  for (const int threads : {1, 2, 4}) family->Threads(threads);
  family->UseRealTime();
}

BENCHMARK_TEMPLATE(access, &mutexSwitch)->Apply(cases);
BENCHMARK_TEMPLATE(access, &unfairSwitch)->Apply(cases);
BENCHMARK_TEMPLATE(access, &sharedMutexSwitch)->Apply(cases);
BENCHMARK_TEMPLATE(access, &concurrentSwitch)->Apply(cases);
BENCHMARK_TEMPLATE(access, &queueSwitch)->Apply(cases);
BENCHMARK_TEMPLATE(access, &atomicBool)->Apply(cases);

}  // namespace
}  // namespace quillonic
