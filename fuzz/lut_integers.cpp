// Any text as a .lut file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "8to8.lut");
}

}  // namespace quillonic::fuzz
