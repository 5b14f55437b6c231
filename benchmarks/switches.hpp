// A Boolean that threads share: how it is guarded, and what that guarantees.
#pragma once

#include <functional>
#include <string>

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

// Lets threads play rounds of a hundred accesses at the same time, each on its own processor if there are
// enough, and returns the seconds per access.
double secondsPerAccess(int threads, const std::function<void()>& playRound);

// Every thread reads; `writes` of a hundred accesses write instead. `shared` outlives the program's rows.
template <class Switch>
bool addSwitch(Promise promise, const std::string& who, const std::string& note, Switch& shared) {
  for (const int threads : {1, 2, 4}) {
    for (const int writes : {0, 1}) {
      const auto work = std::string(textOf(promise)) + ", " + std::to_string(threads) +
                        (threads == 1 ? " thread, " : " threads, ") + std::to_string(writes) + " % writes";
      add({.topic = "switches", .work = work, .who = who, .note = note, .timesItself = true},
          [&shared, threads, writes](benchmark::State& state) {
            const auto playRound = [&] {
              for (int turn = 0; turn < 100; ++turn) {
                if (turn < writes) {
                  shared.setIsOn(true);
                } else {
                  benchmark::DoNotOptimize(shared.isOn());
                }
              }
            };
            for (auto _ : state) state.SetIterationTime(secondsPerAccess(threads, playRound));
          });
    }
  }
  return true;
}

// On its own cache line, whatever is next to it.
template <class Switch> struct alignas(128) Alone { Switch shared; };

// A bool with a lock that is taken as `Read` for reading and as `Write` for writing.
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
