// Sleeping until a word of memory changes.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <utility>

namespace quillonic::futex {

// Sleeps while the word has the value, until woken. May also return for no reason.
void wait(const std::atomic<std::uint32_t>& word, std::uint32_t value) noexcept;

// Wakes one of the threads that sleep on a word. The word is only named here and not read: it may be gone.
void wakeOne(const std::atomic<std::uint32_t>* word) noexcept;

// The same for the upper half of a word, while the lower one may change. Those who sleep say which value they wait for,
// and all who wait for one are woken, beside few others.
void waitFor(const std::atomic<std::uint64_t>& word, std::uint64_t value, std::uint32_t awaited) noexcept;
void wakeThoseFor(const std::atomic<std::uint64_t>* word, std::uint32_t awaited) noexcept;

// Tells the processor that the caller turns round in a waiting loop.
inline void pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#elif defined(__aarch64__)
  asm volatile("yield");
#endif
}

// Until when no thread hands its processor on to look again, since a busy program would keep it. What is lost to such
// programs stays half of the time.
inline std::atomic<std::chrono::steady_clock::time_point> processorsAreWantedUntil{};

// Looks again and again whether something has come that takes other threads a few instructions. False where it has
// not: then the caller should sleep.
template <class Condition> bool comesSoon(Condition hasCome) noexcept {
  using Clock = std::chrono::steady_clock;
  for (int look = 0; look < 5; ++look) {
    if (hasCome()) return true;
    pause();
  }
  auto now = Clock::now();
  if (now < processorsAreWantedUntil.load(std::memory_order_relaxed)) return false;
  // Where more threads run than there are processors, the one that is waited for may need this one. To be put to
  // sleep and woken costs as much as hundreds of such turns, and where the machine is shared up to a millisecond or two.
  const auto end = now + std::chrono::milliseconds(2);
  while (now < end) {
    std::this_thread::yield();
    const auto before = std::exchange(now, Clock::now());
    if (!hasCome()) continue;
    const auto givenAway = now - before;
    if (givenAway > std::chrono::microseconds(500)) {
      processorsAreWantedUntil.store(now + givenAway, std::memory_order_relaxed);
    }
    return true;
  }
  return false;
}

}  // namespace quillonic::futex
