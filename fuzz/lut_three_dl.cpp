// Any text as a .3dl file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "a.3dl");
}

}  // namespace quillonic::fuzz
