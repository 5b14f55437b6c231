// Reading the small files in which the system tells about itself.
#pragma once

#include <optional>
#include <string>

namespace quillonic {

// The whole of a file, or nothing where it cannot be read. Such files have no size that could be asked for.
std::optional<std::string> contentsOfFile(const std::string& path);

}  // namespace quillonic
