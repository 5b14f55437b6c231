// A Boolean that threads share: what guards it, and what that promises.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <shared_mutex>

#include "rows.hpp"

namespace quillonic::benchmarks {

inline constexpr const char* oneAtATime = "one at a time";
inline constexpr const char* inOrder = "in order of arrival";
inline constexpr const char* readsTogether = "reads together";

// Reads and writes, so many of a hundred, until it is told to end, and tells how often.
using Play = std::function<void(int writes, const std::atomic<bool>& ends, std::atomic<std::int64_t>& done)>;

bool addPlay(const std::string& promise, const std::string& who, const std::string& note, Play play);

// `shared` outlives the program's rows.
template <class Switch>
bool addSwitch(const std::string& promise, const std::string& who, const std::string& note, Switch& shared) {
  return addPlay(promise, who, note, [&](int writes, const auto& ends, auto& done) {
    std::array<bool, 100> writesNow;
    for (int i = 0; i < 100; ++i) writesNow[static_cast<std::size_t>(i)] = i * writes % 100 < writes;
    for (std::int64_t turn = 0; !ends.load(std::memory_order_relaxed);
         done.store(++turn, std::memory_order_relaxed)) {
      if (writesNow[static_cast<std::size_t>(turn) % 100]) {
        shared.setIsOn(true);
      } else {
        use(shared.isOn());
      }
    }
  });
}

// On a cache line of its own, whatever is beside it.
template <class Switch> struct alignas(128) Alone { Switch shared; };

// A bool behind a lock that is taken as `Read` for reading and as `Write` for writing.
template <class Mutex, class Read = std::lock_guard<Mutex>, class Write = std::lock_guard<Mutex>>
class Guarded {
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

template <class Mutex> using ReadTogether = Guarded<Mutex, std::shared_lock<Mutex>>;

}  // namespace quillonic::benchmarks
