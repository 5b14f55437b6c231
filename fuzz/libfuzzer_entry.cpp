// The entry point for libFuzzer.

#include <cstddef>
#include <cstdint>

#include "quiet_log.hpp"
#include "target.hpp"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  quillonic::fuzz::QuietLog::install();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillonic::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
