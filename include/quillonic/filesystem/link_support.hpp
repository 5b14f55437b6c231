/// Which links volumes hold.
///
///     if (!fileSystemSupportsSymbolicLinks("/media/CARD/out")) copyTargetsInstead();
#pragma once

#include <quillonic/export.hpp>

#include <filesystem>

namespace quillonic {

/// Whether symbolic links can be created on the volume that holds an item. For an item still to be written,
/// even in missing folders, this is the volume of its nearest existing parent folder. Throws a
/// `std::system_error` when the volume cannot be asked or was pulled, that is when a name is missing in a
/// folder of mount points: "/media", "/run/media", "/mnt", or a user's folder in the first two, unless the
/// folder itself is a mounted volume. Judges by the kind of file system; a cifs share supports them if it was
/// mounted with an option for them. A file system served by a program counts as supporting them unless its
/// kind is known, from its name, its device or the device database, and does not. For a read-only volume the
/// answer is what its kind supports.
QUILLONIC_EXPORT bool fileSystemSupportsSymbolicLinks(const std::filesystem::path& url);

/// Whether hard links can be created there. True for a network share, although its server may refuse.
QUILLONIC_EXPORT bool fileSystemSupportsHardLinks(const std::filesystem::path& url);

}  // namespace quillonic
