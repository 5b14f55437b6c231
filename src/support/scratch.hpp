// Elements that a single call needs, on its stack where they are few.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>

namespace quillonic {

// `size` elements without a value.
template <class T, std::size_t few> class Scratch {
  static_assert(std::is_trivially_default_constructible_v<T>);

 public:
  explicit Scratch(std::size_t size) : many_(size > few ? new T[size] : nullptr), size_(size) {}

  std::span<T> elements() noexcept { return {many_ ? many_.get() : few_.data(), size_}; }

 private:
  // NOLINTBEGIN(modernize-avoid-c-arrays): an array of a size that is not known before
  std::array<T, few> few_;
  std::unique_ptr<T[]> many_;
  // NOLINTEND(modernize-avoid-c-arrays)
  std::size_t size_;
};

}  // namespace quillonic
