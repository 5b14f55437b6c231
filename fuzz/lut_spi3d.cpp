// Any text as a .spi3d file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "a.spi3d");
}

}  // namespace quillonic::fuzz
