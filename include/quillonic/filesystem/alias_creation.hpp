/// Creating alias files.
///
///     createAliasForFilePath("/project/media/clip.mov", "/project/clip alias");
#pragma once

#include <quillonic/export.hpp>

#include <filesystem>

namespace quillonic {

/// Writes an alias file for an existing item, in the format that desktop Macs read and write. Does not follow
/// a final link. Throws a `std::system_error` when the item is missing, or when the location is taken, even
/// by a dangling link: nothing is ever replaced. Removes an alias file that cannot be written whole. Records
/// the identifier and label of the item's volume if the system lists them.
QUILLONIC_EXPORT void createAliasForFilePath(const std::filesystem::path& path,
                                             const std::filesystem::path& atLocation);

}  // namespace quillonic
