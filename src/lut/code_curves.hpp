// Curves on integers: a result for each code that a sample can hold.
#pragma once

#include <quillonic/lut/applier.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "lut/kernels.hpp"

namespace quillonic::lut {

class CodeCurves {
 public:
  // For a table without a cube, and a source of integers.
  CodeCurves(const Lut& lut, const ApplierOptions& options, const Kernels& kernels);

  // Red, green and blue. No channel may be in both.
  void apply(const Channels& source, const Channels& target, std::size_t count) const noexcept;

 private:
  using Replace = void (*)(const std::byte* results, const std::uint8_t* from, std::uint8_t* to,
                           std::size_t count) noexcept;

  Replace replace_;
  // A table per channel.
  std::vector<std::byte> results_;
};

}  // namespace quillonic::lut
