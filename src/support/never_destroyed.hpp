// Objects that outlive a host's static objects, whose destructors may still log or look at drives.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace quillonic {

// Holds an object that is never destroyed; for function-local statics.
template <class T> class NeverDestroyed {
 public:
  template <class... Arguments>
  explicit NeverDestroyed(Arguments&&... arguments)
      : object_(new (bytes_) T(std::forward<Arguments>(arguments)...)) {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T& operator*() const noexcept { return *object_; }
  T* operator->() const noexcept { return object_; }

 private:
  alignas(T) std::byte bytes_[sizeof(T)];  // NOLINT(modernize-avoid-c-arrays)
  T* object_;
};

}  // namespace quillonic
