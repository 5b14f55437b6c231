#include "memory.hpp"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

// The C library's functions, under the names that it keeps for programs that replace malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace quillonic::benchmarks::memory {
namespace {

struct Account {
  std::size_t allocations = 0;
  // Measuring each block costs time, so it happens only when a peak is requested.
  bool isWeighed = false;
  std::ptrdiff_t held = 0;
  std::ptrdiff_t peak = 0;
};

// Without a constructor, so that the first malloc of a thread may use it.
constinit thread_local Account account;

void* taken(void* memory) noexcept {
  ++account.allocations;
  if (account.isWeighed) {
    account.held += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    account.peak = std::max(account.peak, account.held);
  }
  return memory;
}

void givenBack(void* memory) noexcept {
  if (account.isWeighed) account.held -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
}

}  // namespace

std::size_t allocations() noexcept {
  return account.allocations;
}

Peak::Peak() noexcept {
  account.isWeighed = true;
  account.held = account.peak = 0;
}

Peak::~Peak() {
  account.isWeighed = false;
}

// An object, so that peaks are measured only in its scope.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
std::size_t Peak::bytes() const noexcept {
  return static_cast<std::size_t>(account.peak);
}

}  // namespace quillonic::benchmarks::memory

using quillonic::benchmarks::memory::givenBack;
using quillonic::benchmarks::memory::taken;

extern "C" {

void* malloc(std::size_t size) {
  return taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
  return taken(__libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size) {
  givenBack(memory);
  return taken(__libc_realloc(memory, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
  return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return taken(__libc_memalign(alignment, size));
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  *memory = taken(__libc_memalign(alignment, size));
  return *memory ? 0 : ENOMEM;
}

void free(void* memory) {
  givenBack(memory);
  __libc_free(memory);
}

}  // extern "C"
