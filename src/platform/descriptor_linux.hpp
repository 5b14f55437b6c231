// Descriptors that close at the end of their scope, and what else system calls take and give.
#pragma once

#include <quillonic/support/date.hpp>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillonic {

inline std::error_code lastError() noexcept {
  return {errno, std::system_category()};
}

// The result of a system call, made again while a signal interrupts it. A failing server may say so forever.
template <class Call> auto uninterrupted(Call call) {
  auto result = call();
  for (int triesLeft = 10'000; result < 0 && errno == EINTR && triesLeft > 0; --triesLeft) result = call();
  return result;
}

inline timespec timeOf(Date date) noexcept {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
  timespec time{};
  time.tv_sec = seconds.time_since_epoch().count();
  time.tv_nsec = (date - seconds).count();
  return time;
}

class Descriptor {
 public:
  explicit Descriptor(int number = -1) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { static_cast<void>(close()); }

  explicit operator bool() const noexcept { return number_ >= 0; }
  int number() const noexcept { return number_; }
  // Callers must close the returned descriptor.
  int release() noexcept { return std::exchange(number_, -1); }

  // A write may fail as late as here.
  std::error_code close() noexcept {
    const bool isClosed = number_ < 0 || ::close(release()) == 0;
    return isClosed ? std::error_code() : lastError();
  }

 private:
  int number_;
};

}  // namespace quillonic
