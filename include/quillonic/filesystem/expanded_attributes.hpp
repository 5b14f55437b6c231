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
/// `isLinkFilePath` of a small file that may not be opened. A dangling symbolic link is logged too, but has
/// its `referencedFileSystemURL` if its target names a location. Of the dates, only the modification date can
/// be set on a copy; a copy has its own creation date. Takes one system call per item, two for a file with
/// two names; for a symbolic link three, and one per folder of its target. Opens regular files of 16 bytes to
/// 64 MiB and reads 16 bytes to recognise an alias, which asks the server on a network volume; the access
/// time stays if the process owns the file or is root.
QUILLONIC_EXPORT std::optional<FileAttributes> expandedAttributesOfItem(const std::filesystem::path& atURL);

}  // namespace quillonic
