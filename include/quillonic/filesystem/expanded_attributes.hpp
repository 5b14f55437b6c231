/// The attributes of items.
///
///     auto attributes = expandedAttributesOfItem("/card/clip.mov");
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attributes.hpp>

#include <filesystem>
#include <optional>

namespace quillonic {

/// The attributes of an item; nothing when it is missing or cannot be looked at. Does not follow a final
/// link. They are the platform's (size, kind, dates to the nanosecond, permissions, owner, group, device,
/// inode, number of names) and the library's `filePathName`, `fileResourceType`, `isLinkFilePath`,
/// `isDirectoryPath` and `referenceLinkType`; for a link also `referencedFileSystemURL`, and for a symbolic
/// link `isRelativeSymbolicReference`.
///
/// A detail of a link that cannot be read is logged and left out, and so are `referenceLinkType` and
/// `isLinkFilePath` of a small file that may not be opened. A symbolic link to nothing is logged too, but has
/// its `referencedFileSystemURL` where its target names a location. The modification date is the only date
/// that can be set on a copy; a copy has its own creation date. Takes one system call per item, two for a
/// file with two names; for a symbolic link three, and one per folder of its target. Opens a regular file of
/// 16 bytes to 64 MiB, and reads 16 bytes of it, to see whether it is an alias; its access time stays where
/// the process owns the file or is root. On a network volume opening and reading ask the server.
QUILLONIC_EXPORT std::optional<FileAttributes> expandedAttributesOfItem(const std::filesystem::path& atURL);

}  // namespace quillonic
