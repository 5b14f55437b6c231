#include "switches.hpp"

#include <quillonic/support/atomic_switch.hpp>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <chrono>
#include <cstdint>
#include <numeric>
#include <sched.h>
#include <thread>
#include <utility>
#include <vector>

namespace quillonic::benchmarks {
namespace {

class AtomicBool {
 public:
  bool isOn() const { return isOn_.load(); }
  void setIsOn(bool isOn) { isOn_.store(isOn); }

 private:
  std::atomic<bool> isOn_ = false;
};

Alone<AtomicBool> atomicBool;
Alone<UnfairLockBasedAtomicSwitch> unfair{UnfairLockBasedAtomicSwitch(false)};
Alone<QueueBasedAtomicSwitch> queue{QueueBasedAtomicSwitch(false, "serial", DispatchQoS::utility)};
Alone<ConcurrentQueueBasedAtomicSwitch> concurrent{
    ConcurrentQueueBasedAtomicSwitch(false, "concurrent", DispatchQoS::QoSClass::utility)};

const bool added = [] {
  addSwitch(Promise::oneAtATime, ours, "", unfair.shared);
  addSwitch(Promise::oneAtATimeInOrder, ours, "", queue.shared);
  addSwitch(Promise::readsTogether, ours, "", concurrent.shared);
  for (const auto promise : {Promise::oneAtATime, Promise::oneAtATimeInOrder, Promise::readsTogether}) {
    addSwitch(promise, limit("one atomic"), "", atomicBool.shared);
  }
  return true;
}();

// When the system places threads, it sometimes keeps several on one processor for a while, and those hardly
// meet.
void stayOn(std::size_t place) {
  cpu_set_t allowed;
  if (sched_getaffinity(0, sizeof allowed, &allowed) != 0) return;
  std::vector<unsigned> processors;
  for (unsigned number = 0; number < CPU_SETSIZE; ++number) {
    if (CPU_ISSET(number, &allowed)) processors.push_back(number);
  }
  cpu_set_t own;
  CPU_ZERO(&own);
  CPU_SET(processors[place % processors.size()], &own);
  sched_setaffinity(0, sizeof own, &own);
}

}  // namespace

// The median of many short samples: on a machine that shares its processors, the threads meet only in some of
// them, or one thread is stopped.
double secondsPerAccess(int threads, const std::function<void()>& playRound) {
  struct alignas(128) Player {
    std::atomic<std::int64_t> rounds = 0;
    std::jthread thread;
  };
  std::atomic<bool> ends = false;
  std::barrier starts(threads + 1);
  std::vector<Player> players(static_cast<std::size_t>(threads));
  for (std::size_t i = 0; i < players.size(); ++i) {
    players[i].thread = std::jthread([&, i] {
      stayOn(i);
      starts.arrive_and_wait();
      while (!ends.load(std::memory_order_relaxed)) {
        playRound();
        players[i].rounds.fetch_add(1, std::memory_order_relaxed);
      }
    });
  }
  starts.arrive_and_wait();

  const auto look = [&] {
    const auto sum = [](std::int64_t rounds, const Player& player) { return rounds + player.rounds; };
    return std::pair(std::chrono::steady_clock::now(),
                     std::accumulate(players.begin(), players.end(), std::int64_t{0}, sum));
  };
  std::vector<double> seconds;
  for (auto before = look(); seconds.size() < 25;) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    const auto after = look();
    const std::chrono::duration<double> passed = after.first - before.first;
    seconds.push_back(passed.count() / (100.0 * static_cast<double>(after.second - before.second)));
    before = after;
  }
  ends = true;
  const auto median = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::ranges::nth_element(seconds, median);
  return *median;
}

}  // namespace quillonic::benchmarks
