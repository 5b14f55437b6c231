// Objects that outlive every static object of a host, whose destructor may still log or look at drives.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace quillonic {

// Holds an object whose destructor never runs; for function-local statics.
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
