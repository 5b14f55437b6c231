// A Boolean that threads share: what guards it, and what that promises.
#pragma once

#include <sched.h>
#include <string>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {

enum class Promise {
  oneAtATime,
  oneAtATimeInOrder,
  readsTogether,
};

inline const char* textOf(Promise promise) {
  switch (promise) {
    case Promise::oneAtATime:
      return "one at a time";
    case Promise::oneAtATimeInOrder:
      return "one at a time, in order of arrival";
    case Promise::readsTogether:
      return "reads together";
  }
  return "";
}

// Keeps the threads of a row on processors of their own, in turn, while in scope. Where the system placed them, it would
// now and then run several on one for a while, and those hardly meet.
class Placed {
 public:
  explicit Placed(const benchmark::State& state) {
    if (state.threads() == 1) return;
    sched_getaffinity(0, sizeof before_, &before_);
    std::vector<int> processors;
    for (int number = 0; number < CPU_SETSIZE; ++number) {
      if (CPU_ISSET(number, &before_)) processors.push_back(number);
    }
    cpu_set_t own;
    CPU_ZERO(&own);
    CPU_SET(processors[static_cast<std::size_t>(state.thread_index()) % processors.size()], &own);
    sched_setaffinity(0, sizeof own, &own);
    isPlaced_ = true;
  }
  Placed(const Placed&) = delete;
  Placed& operator=(const Placed&) = delete;
  ~Placed() {
    if (isPlaced_) sched_setaffinity(0, sizeof before_, &before_);
  }

 private:
  cpu_set_t before_{};
  bool isPlaced_ = false;
};

// Every thread reads; `writes` of a hundred accesses write instead. `shared` outlives the program's rows.
template <class Switch>
bool addSwitch(Promise promise, const std::string& who, const std::string& note, Switch& shared) {
  for (const int threads : {1, 2, 4}) {
    for (const int writes : {0, 1}) {
      const auto work = std::string(textOf(promise)) + ", " + std::to_string(threads) +
                        (threads == 1 ? " thread, " : " threads, ") + std::to_string(writes) + " % writes";
      add({.topic = "switches", .work = work, .who = who, .note = note, .threads = threads},
          [&shared, writes](benchmark::State& state) {
            const Placed placed(state);
            int turn = 0;
            for (auto _ : state) {
              if (++turn == 100) turn = 0;
              if (turn < writes) {
                shared.setIsOn(turn % 2 == 0);
              } else {
                benchmark::DoNotOptimize(shared.isOn());
              }
            }
          });
    }
  }
  return true;
}

// On a cache line of its own, whatever stands beside it.
template <class Switch> struct alignas(128) Alone { Switch shared; };

// A bool behind a lock that is taken as `Read` for reading and as `Write` for writing.
template <class Mutex, class Read, class Write> class Guarded {
 public:
  bool isOn() const {
    const Read lock(mutex_);
    return isOn_;
  }
  void setIsOn(bool isOn) {
    const Write lock(mutex_);
    isOn_ = isOn;
  }

 private:
  mutable Mutex mutex_;
  bool isOn_ = false;
};

}  // namespace quillonic::benchmarks
