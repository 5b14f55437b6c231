#include <quillonic/version.hpp>

namespace quillonic {

std::string_view runningVersion() noexcept {
  return QUILLONIC_VERSION;
}

}  // namespace quillonic
