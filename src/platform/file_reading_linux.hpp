// Reading files.
#pragma once

#include <cstddef>
#include <string>

#include "support/result.hpp"

namespace quillonic {

// What is left to read of an open file, at most `limit` bytes.
Result<std::string> bytesOf(int file, std::size_t limit);

// The whole of one of the system's small files about itself, which report no size.
Result<std::string> contentsOfFile(const std::string& path);

}  // namespace quillonic
