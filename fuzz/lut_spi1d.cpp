// Any text as a .spi1d file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "a.spi1d");
}

}  // namespace quillonic::fuzz
