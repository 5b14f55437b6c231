// The folder that relative paths count from.
#pragma once

#include <optional>
#include <string>

namespace quillonic {

// Absolute, without a slash at its end unless it is the root; nothing where the folder has been removed.
std::optional<std::string> workingFolder();

}  // namespace quillonic
