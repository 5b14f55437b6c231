// Names compared with patterns as in a shell.
#pragma once

#include <string_view>

namespace quillonic::selection {

// Whether the whole name matches. "[" without an end, and a trailing "\", mean themselves. A byte that is
// not UTF-8 counts as one character.
bool matchesPattern(std::string_view pattern, std::string_view name) noexcept;

}  // namespace quillonic::selection
