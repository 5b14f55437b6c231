#include "lut/kernels.hpp"

#ifdef __x86_64__

#include <cpuid.h>
#include <immintrin.h>

// Only what follows may use these instructions.
#define QUILLONIC_HAS_AVX2
#ifdef __clang__
#pragma clang attribute push(__attribute__((target("avx2,f16c"))), apply_to = function)
#include "lut/kernels_body.hpp"
#pragma clang attribute pop
#else
#pragma GCC push_options
#pragma GCC target("avx2,f16c")
#include "lut/kernels_body.hpp"
#pragma GCC pop_options
#endif

namespace quillonic::lut {
namespace {

// Not every compiler's builtin knows the name.
bool hasHalfFloats() noexcept {
  unsigned a = 0, b = 0, features = 0, d = 0;
  return __get_cpuid(1, &a, &b, &features, &d) != 0 && (features & bit_F16C) != 0;
}

}  // namespace

const Kernels* avx2Kernels() noexcept {
  static const bool isAvailable = __builtin_cpu_supports("avx2") && hasHalfFloats();
  return isAvailable ? &kernels : nullptr;
}

}  // namespace quillonic::lut

#else

namespace quillonic::lut {

const Kernels* avx2Kernels() noexcept {
  return nullptr;
}

}  // namespace quillonic::lut

#endif
