#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/futex.hpp"

namespace quillonic::futex {

static_assert(sizeof(std::atomic<std::uint32_t>) == sizeof(std::uint32_t));

void wait(const std::atomic<std::uint32_t>& word, std::uint32_t value) noexcept {
  syscall(SYS_futex, &word, FUTEX_WAIT_PRIVATE, value, nullptr, nullptr, 0);
}

void wakeOne(const std::atomic<std::uint32_t>* word) noexcept {
  syscall(SYS_futex, word, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

}  // namespace quillonic::futex
