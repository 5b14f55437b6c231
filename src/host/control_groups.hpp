// What the control groups of this process allow.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quillonic::host {

// The least of all levels; absent where none sets a limit.
struct ControlGroupLimits {
  // In processors.
  std::optional<double> processors;
  // In bytes.
  std::optional<std::int64_t> memory;
};

// Looks below a root at the places where systems mount control groups of both versions.
ControlGroupLimits controlGroupLimits(const std::filesystem::path& root);

}  // namespace quillonic::host
