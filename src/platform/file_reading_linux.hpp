// Reading files.
#pragma once

#include <cstddef>
#include <string>

#include "support/result.hpp"

namespace quillonic {

// The rest of an open file, at most `limit` bytes. One of the expected size is read without a copy.
Result<std::string> bytesOf(int file, std::size_t limit, std::size_t expected = 0);

// The whole of a small file of the system's own, which reports no size.
Result<std::string> contentsOfFile(const std::string& path);

}  // namespace quillonic
