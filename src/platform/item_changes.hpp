// Creates items that replace nothing, and makes volumes keep what was written. Relative paths count from the
// folder; no final link is followed.
#pragma once

#include <quillonic/support/date.hpp>
#include <quillonic/support/result.hpp>

#include <cstdint>
#include <string>
#include <system_error>

#include "platform/items.hpp"

namespace quillonic::items {

// Each fails with EEXIST where the name is taken, even by a dangling link.
std::error_code createFolder(const std::string& path, const Folder* folder = nullptr);
std::error_code createSymbolicLink(const std::string& text, const std::string& path,
                                   const Folder* folder = nullptr);
// Both paths count from the folder.
std::error_code createHardName(const std::string& existing, const std::string& path,
                               const Folder* folder = nullptr);

// Removes a file, a link or an empty folder.
std::error_code remove(const std::string& path, const Folder* folder = nullptr);

// Gives an item, which may be a link, a modification date as far as its volume holds it.
void setModified(const std::string& path, Date date, const Folder* folder = nullptr);

// Returns when the volume of a folder has all that was written to it.
std::error_code syncVolume(const Folder& folder);

// Returns when the volume has the names in a folder.
std::error_code syncFolder(const Folder& folder);

// What a user without rights may still write to the volume of a folder, in bytes.
Result<std::uint64_t> freeSpace(const Folder& folder);

}  // namespace quillonic::items
