#include "switches.hpp"

#include <quillonic/support/atomic_switch.hpp>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <mutex>
#include <numeric>
#include <pthread.h>
#include <sched.h>
#include <shared_mutex>
#include <thread>
#include <utility>
#include <vector>

namespace quillonic::benchmarks {
namespace {

using namespace std::chrono_literals;

// In place of the number of writes: the thread only keeps a processor busy.
constexpr int busy = -1;

// Threads that play at the same time, each on a processor of its own as long as there is one: where the
// system places them, it now and then keeps several on one for a while, and those hardly meet.
class Players {
 public:
  Players(const Play& play, const std::vector<int>& writes) : players_(writes.size()) {
    for (std::size_t i = 0; i < players_.size(); ++i) {
      players_[i].thread = std::thread([&, this, i, ofHundred = writes[i]] {
        cpu_set_t own;
        CPU_ZERO(&own);
        CPU_SET(i % std::thread::hardware_concurrency(), &own);
        sched_setaffinity(0, sizeof own, &own);
        if (ofHundred != busy) return play(ofHundred, ends_, players_[i].done);
        while (!ends_.load(std::memory_order_relaxed)) benchmark::ClobberMemory();
      });
    }
  }
  ~Players() {
    ends_ = true;
    for (auto& player : players_) player.thread.join();
  }

  std::int64_t doneBy(std::size_t player) const { return players_[player].done; }
  pthread_t threadOf(std::size_t player) { return players_[player].thread.native_handle(); }

 private:
  struct alignas(128) Player {
    std::atomic<std::int64_t> done = 0;
    std::thread thread;
  };
  std::atomic<bool> ends_ = false;
  std::vector<Player> players_;
};

double secondsOn(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The median of short looks, since on a machine that shares its processors with others the threads meet in
// some of them only; where most pass without an access, the mean. The accesses of the threads from
// `firstCounted` on count.
std::optional<double> secondsPerAccess(const Play& play, const std::vector<int>& writes,
                                       std::size_t firstCounted) {
  Players players(play, writes);
  const auto count = [&] {
    std::int64_t sum = 0;
    for (std::size_t i = firstCounted; i < writes.size(); ++i) sum += players.doneBy(i);
    return static_cast<double>(sum);
  };
  // A thread alone is timed by what it uses of its processor, which other programs do not lengthen.
  clockid_t clock = CLOCK_MONOTONIC;
  if (writes.size() == 1) pthread_getcpuclockid(players.threadOf(0), &clock);
  std::this_thread::sleep_for(2ms);
  std::vector<double> rates(9);
  for (auto& rate : rates) {
    const auto start = secondsOn(clock);
    const auto before = count();
    std::this_thread::sleep_for(5ms);
    const auto passed = secondsOn(clock) - start;
    rate = passed > 0 ? (count() - before) / passed : 0;
  }
  std::sort(rates.begin(), rates.end());
  const auto mean = std::accumulate(rates.begin(), rates.end(), 0.0) / static_cast<double>(rates.size());
  const auto rate = rates[rates.size() / 2] > 0 ? rates[rates.size() / 2] : mean;
  return rate > 0 ? std::optional(1 / rate) : std::nullopt;
}

// Stops the thread that gets the signal, wherever it is, until it is let go, and notes what another one has
// used of its processor until then.
std::atomic<bool> isStopped = false;
std::atomic<bool> letGo = false;
clockid_t clockOfOther;
double usedBefore = 0;

void standStill(int /*signal*/) {
  constexpr timespec aMillisecond{0, 1'000'000};
  const int error = errno;  // of whatever is stopped
  usedBefore = secondsOn(clockOfOther);
  isStopped = true;
  while (!letGo) nanosleep(&aMillisecond, nullptr);
  isStopped = false;
  errno = error;
}

// What a thread uses of its processor as it waits a second for its turn, while another is stopped in its own.
std::optional<double> secondsUsedByWaiting(const Play& play) {
  std::signal(SIGUSR1, standStill);
  Players players(play, {50, 50});
  pthread_getcpuclockid(players.threadOf(1), &clockOfOther);
  std::optional<double> found;
  for (int tries = 0; tries < 100 && !found; ++tries) {
    std::this_thread::sleep_for(2ms);
    letGo = false;
    pthread_kill(players.threadOf(0), SIGUSR1);
    while (!isStopped) std::this_thread::yield();
    std::this_thread::sleep_for(1ms);
    // Between its turns the other one holds nobody up.
    const auto done = players.doneBy(1);
    const auto waits = [&](auto time) {
      return std::this_thread::sleep_for(time), players.doneBy(1) == done;
    };
    if (waits(20ms) && waits(979ms)) found = secondsOn(clockOfOther) - usedBefore;
    letGo = true;
    while (isStopped) std::this_thread::yield();
  }
  return found;
}

class AtomicBool {
 public:
  bool isOn() const { return isOn_.load(); }
  void setIsOn(bool isOn) { isOn_.store(isOn); }

 private:
  std::atomic<bool> isOn_ = false;
};

Alone<AtomicBool> atomicBool;
Alone<Guarded<std::mutex>> exclusive;
Alone<ReadTogether<std::shared_mutex>> together;
Alone<UnfairLockBasedAtomicSwitch> unfair{UnfairLockBasedAtomicSwitch(false)};
Alone<QueueBasedAtomicSwitch> queue{QueueBasedAtomicSwitch(false, "serial", DispatchQoS::utility)};
Alone<ConcurrentQueueBasedAtomicSwitch> concurrent{
    ConcurrentQueueBasedAtomicSwitch(false, "concurrent", DispatchQoS::QoSClass::utility)};

const bool added = [] {
  addSwitch(oneAtATime, ours, "", unfair.shared);
  addSwitch(inOrder, ours, "", queue.shared);
  addSwitch(readsTogether, ours, "", concurrent.shared);
  addSwitch(oneAtATime, "std::mutex", "", exclusive.shared);
  addSwitch(inOrder, "std::mutex", "less: keeps no order", exclusive.shared);
  addSwitch(readsTogether, "std::shared_mutex", "less: keeps no order, a write can starve", together.shared);
  for (const auto* promise : {oneAtATime, inOrder, readsTogether}) {
    addSwitch(promise, least("one atomic"), "", atomicBool.shared);
  }
  return true;
}();

}  // namespace

bool addPlay(const std::string& promise, const std::string& who, const std::string& note, Play play) {
  const auto addScene = [&](const std::string& name, const std::vector<int>& writes, std::size_t firstCounted,
                            bool isKept) {
    addMeasured(
        {promise + ": " + name, who, note, 1, isKept},
        [=] { return secondsPerAccess(play, writes, firstCounted); }, 5);
  };
  for (const int threads : {1, 2, 4}) {
    for (const int writes : {0, 1, 50}) {
      const auto kind = writes == 0 ? std::string(" reading") : ", " + std::to_string(writes) + " % writes";
      const bool isKept = (threads == 1 && writes == 0) || (threads == 2 && writes == 50) ||
                          (threads == 2 && writes == 0 && promise == readsTogether);
      addScene(std::to_string(threads) + (threads == 1 ? " thread" : " threads") + kind,
               std::vector<int>(static_cast<std::size_t>(threads), writes), 0, isKept);
    }
  }
  if (who.starts_with("least")) return true;
  addScene("2 threads, 50 % writes, beside two busy loops", {50, 50, busy, busy}, 0, promise == inOrder);
  addScene("a write while two threads read without a pause", {0, 0, 100}, 2, promise == readsTogether);
  addMeasured(
      {promise + ": processor's time for a second of waiting", who, note, 1, promise == inOrder},
      [=] { return secondsUsedByWaiting(play); }, 1);
  return true;
}

}  // namespace quillonic::benchmarks
