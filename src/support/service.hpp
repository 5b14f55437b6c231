// What hosts may replace while other threads use it: the logger, the list of codecs.
#pragma once

#include <mutex>
#include <utility>

namespace quillonic {

// A function-local `static NeverDestroyed<Service<T>>` is one service of the library.
template <class T> class Service {
 public:
  explicit Service(T initial) : initial_(std::move(initial)), current_(initial_) {}

  T current() const {
    const std::lock_guard lock(mutex_);
    return current_;
  }

  // Null brings the first one back. Destroys the previous one outside the lock, since its destructor may log.
  void replace(T replacement) {
    if constexpr (requires { replacement == nullptr; }) {
      if (replacement == nullptr) replacement = initial_;
    }
    const std::lock_guard lock(mutex_);
    std::swap(current_, replacement);
  }

 private:
  mutable std::mutex mutex_;
  const T initial_;
  T current_;
};

}  // namespace quillonic
