// Counts what the program asks of the heap, for C and C++ alike: the program's malloc replaces the C
// library's for every library that it loads.
#pragma once

#include <cstddef>

namespace quillonic::benchmarks::memory {

// How often the calling thread has asked for memory.
std::size_t allocations() noexcept;

// The most bytes that `work` holds, beyond those held before it.
class Peak {
 public:
  Peak() noexcept;
  Peak(const Peak&) = delete;
  Peak& operator=(const Peak&) = delete;
  ~Peak();

  std::size_t bytes() const noexcept;
};

}  // namespace quillonic::benchmarks::memory
