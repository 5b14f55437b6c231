// Any text as a .cube file.
#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  readAs(bytes, "a.cube");
}

}  // namespace quillonic::fuzz
