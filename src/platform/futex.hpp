// Sleeping until a word of memory changes.
#pragma once

#include <atomic>
#include <cstdint>

namespace quillonic::futex {

// Sleeps while the word has the value, until woken. May also return for no reason.
void wait(const std::atomic<std::uint32_t>& word, std::uint32_t value) noexcept;

// Wakes one of the threads that sleep on a word. The word is only named here and not read: it may be gone.
void wakeOne(const std::atomic<std::uint32_t>* word) noexcept;

// Tells the processor that the caller turns round in a waiting loop.
inline void pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#elif defined(__aarch64__)
  asm volatile("yield");
#endif
}

// How often a thread looks again before it sleeps. What it waits for takes a few instructions, unless the
// thread that does it has lost its processor.
inline constexpr int looksBeforeSleep = 30;

}  // namespace quillonic::futex
