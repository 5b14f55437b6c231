// The volume of a single item, and what tells a mount from all others.
#pragma once

#include <quillonic/platform/mount_table.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quillonic {

// As `MountTable::holding` of the current table, which is read only up to the mount.
std::optional<Mount> mountHolding(const std::filesystem::path& item);

// A number that no other mount gets until the system restarts, unlike its identifier. Nothing where the system
// has none or another mount covers this one. Asks no server.
std::optional<std::uint64_t> lastingIdentifier(const Mount& mount);

}  // namespace quillonic
