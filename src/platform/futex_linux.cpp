#include <bit>
#include <climits>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/futex.hpp"

namespace quillonic::futex {
namespace {

// The system looks at the numbers themselves, or at a half of them.
static_assert(sizeof(std::atomic<std::uint32_t>) == 4 && std::atomic<std::uint32_t>::is_always_lock_free);
static_assert(sizeof(std::atomic<std::uint64_t>) == 8 && std::atomic<std::uint64_t>::is_always_lock_free);

const void* upperHalf(const std::atomic<std::uint64_t>* word) noexcept {
  return reinterpret_cast<const char*>(word) + (std::endian::native == std::endian::little ? 4 : 0);
}

// The system tells sleepers apart by 32 bits.
std::uint32_t bitOf(std::uint32_t awaited) noexcept {
  return 1U << awaited % 32;
}

}  // namespace

void wait(const std::atomic<std::uint32_t>& word, std::uint32_t value) noexcept {
  syscall(SYS_futex, &word, FUTEX_WAIT_PRIVATE, value, nullptr, nullptr, 0);
}

void wakeOne(const std::atomic<std::uint32_t>* word) noexcept {
  syscall(SYS_futex, word, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

void waitFor(const std::atomic<std::uint64_t>& word, std::uint64_t value, std::uint32_t awaited) noexcept {
  syscall(SYS_futex, upperHalf(&word), FUTEX_WAIT_BITSET_PRIVATE, static_cast<std::uint32_t>(value >> 32U),
          nullptr, nullptr, bitOf(awaited));
}

void wakeThoseFor(const std::atomic<std::uint64_t>* word, std::uint32_t awaited) noexcept {
  syscall(SYS_futex, upperHalf(word), FUTEX_WAKE_BITSET_PRIVATE, INT_MAX, nullptr, nullptr, bitOf(awaited));
}

}  // namespace quillonic::futex
