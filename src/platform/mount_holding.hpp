// The volume of a single item.
#pragma once

#include <quillonic/platform/mount_table.hpp>

#include <filesystem>
#include <optional>

namespace quillonic {

// As `MountTable::holding` of the current table, which is read only up to the mount.
std::optional<Mount> mountHolding(const std::filesystem::path& item);

}  // namespace quillonic
