// Any text as a .csp file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "a.csp");
}

}  // namespace quillonic::fuzz
