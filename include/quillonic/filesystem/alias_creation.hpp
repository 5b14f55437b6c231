/// Making alias files.
///
///     createAliasForFilePath("/project/media/clip.mov", "/project/clip alias");
#pragma once

#include <quillonic/export.hpp>

#include <filesystem>

namespace quillonic {

/// Writes an alias file for an existing item, in the form that desktop Macs write and read. Does not follow a
/// link that is the item. Throws a `std::system_error` when the item is missing, and when something, even a
/// dangling link, is at the location already: nothing is ever replaced. An alias file that cannot be written
/// whole is removed again. Records the identifier and the label of the item's volume where the system lists
/// them.
QUILLONIC_EXPORT void createAliasForFilePath(const std::filesystem::path& path,
                                             const std::filesystem::path& atLocation);

}  // namespace quillonic
