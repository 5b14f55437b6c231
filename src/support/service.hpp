// What hosts may replace while other threads use it: the logger, the list of codecs.
#pragma once

#include <mutex>
#include <utility>

namespace quillonic {

// A function-local `static NeverDestroyed<Service<T>>` is one service of the library.
template <class T> class Service {
 public:
  explicit Service(T initial) : current_(std::move(initial)) {}

  T current() const {
    const std::lock_guard lock(mutex_);
    return current_;
  }

  // Destroys the previous one outside the lock, since its destructor may log.
  void replace(T replacement) {
    const std::lock_guard lock(mutex_);
    std::swap(current_, replacement);
  }

  // Reads the current one in place, without a copy.
  template <class Question> auto ask(Question question) const {
    const std::lock_guard lock(mutex_);
    return question(current_);
  }

 private:
  mutable std::mutex mutex_;
  T current_;
};

}  // namespace quillonic
