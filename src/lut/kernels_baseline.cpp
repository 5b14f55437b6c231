#include "lut/kernels.hpp"
#include "lut/kernels_body.hpp"

namespace quillonic::lut {

const Kernels& baselineKernels() noexcept {
  return kernels;
}

}  // namespace quillonic::lut
