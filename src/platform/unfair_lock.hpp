// The cheapest lock that the platform has, for a few instructions at a time.
#pragma once

#include <atomic>
#include <cstdint>
#include <sys/single_threaded.h>

#include "platform/futex.hpp"

namespace quillonic {

// Holds a lock, which is a word that begins as 0, while in scope. Unfair: whoever comes while the lock is
// free has it, however long others have slept for it.
class UnfairGuard {
 public:
  using Word = std::atomic<std::uint32_t>;

  explicit UnfairGuard(Word& word) noexcept : word_(word) {
    // In a program of one thread nobody can come between.
    if (__libc_single_threaded && word_.load(std::memory_order_relaxed) == free) {
      word_.store(held, std::memory_order_relaxed);
      return;
    }
    std::uint32_t before = free;
    if (word_.compare_exchange_strong(before, held, std::memory_order_acquire, std::memory_order_relaxed))
      return;
    // Whoever has slept takes the lock as awaited, since others may sleep still.
    while (word_.exchange(awaited, std::memory_order_acquire) != free) futex::wait(word_, awaited);
  }
  UnfairGuard(const UnfairGuard&) = delete;
  UnfairGuard& operator=(const UnfairGuard&) = delete;

  ~UnfairGuard() {
    if (__libc_single_threaded) {
      word_.store(free, std::memory_order_relaxed);
    } else if (word_.exchange(free, std::memory_order_release) == awaited) {
      futex::wakeOne(&word_);
    }
  }

 private:
  enum State : std::uint32_t {
    free,
    held,
    awaited,  // held, and a thread may sleep for it
  };

  Word& word_;
};

}  // namespace quillonic
