// A value that a host may set while other threads read it.
#pragma once

#include <mutex>
#include <utility>

namespace quillonic {

template <class T> class Settable {
 public:
  explicit Settable(T value) : value_(std::move(value)) {}

  T get() const {
    const std::lock_guard lock(mutex_);
    return value_;
  }

  void set(T value) {
    const std::lock_guard lock(mutex_);
    std::swap(value_, value);
  }

  // Asks about the value in place, for readers that need no copy.
  template <class Question> auto ask(Question question) const {
    const std::lock_guard lock(mutex_);
    return question(value_);
  }

 private:
  mutable std::mutex mutex_;
  T value_;
};

}  // namespace quillonic
