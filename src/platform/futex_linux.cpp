#include <bit>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/futex.hpp"

namespace quillonic::futex {

namespace {

static_assert(sizeof(std::atomic<std::uint32_t>) == 4 && sizeof(std::atomic<std::uint64_t>) == 8);

void sleepOn(const void* half, std::uint32_t value) noexcept {
  syscall(SYS_futex, half, FUTEX_WAIT_PRIVATE, value, nullptr, nullptr, 0);
}

void wakeOneOn(const void* half) noexcept {
  syscall(SYS_futex, half, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

const void* lowerHalf(const std::atomic<std::uint64_t>* word) noexcept {
  return reinterpret_cast<const char*>(word) + (std::endian::native == std::endian::little ? 0 : 4);
}

}  // namespace

void wait(const std::atomic<std::uint32_t>& word, std::uint32_t value) noexcept {
  sleepOn(&word, value);
}

void wait(const std::atomic<std::uint64_t>& word, std::uint64_t value) noexcept {
  sleepOn(lowerHalf(&word), static_cast<std::uint32_t>(value));
}

void wakeOne(const std::atomic<std::uint32_t>* word) noexcept {
  wakeOneOn(word);
}

void wakeOne(const std::atomic<std::uint64_t>* word) noexcept {
  wakeOneOn(lowerHalf(word));
}

}  // namespace quillonic::futex
