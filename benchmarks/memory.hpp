// What the program asks the heap for, counted for C and C++ alike: the program's own malloc stands before the C
// library's, for every library that it loads.
#pragma once

#include <cstddef>

namespace quillonic::benchmarks::memory {

// How often the calling thread has asked for memory.
std::size_t allocations() noexcept;

// The bytes that `work` holds at most, beyond those held before it.
class Peak {
 public:
  Peak() noexcept;
  Peak(const Peak&) = delete;
  Peak& operator=(const Peak&) = delete;
  ~Peak();

  std::size_t bytes() const noexcept;
};

}  // namespace quillonic::benchmarks::memory
