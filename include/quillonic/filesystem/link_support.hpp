/// Which links volumes hold.
///
///     if (!fileSystemSupportsSymbolicLinks("/media/CARD/out")) copyTargetsInstead();
#pragma once

#include <quillonic/export.hpp>

#include <filesystem>

namespace quillonic {

/// Whether symbolic links can be made on the volume that holds an item. For an item still to be written,
/// whose folders may be missing too, this is the volume of the nearest existing parent folder. Throws a
/// `std::system_error` when the volume cannot be asked, or was pulled: where a name is missing in a folder of
/// mount points, "/media", "/mnt" or a user's folder in "/media" or "/run/media". Goes by the kind of file
/// system; a share of the kind cifs has them when it was mounted with an option for them. A file system that
/// a program serves counts as having them unless its kind is known from its name, its device or the device
/// database and has none. For a read-only volume the answer is what its kind can hold.
QUILLONIC_EXPORT bool fileSystemSupportsSymbolicLinks(const std::filesystem::path& url);

/// Whether hard links can be made there. A network share counts as having them, although its server may
/// refuse.
QUILLONIC_EXPORT bool fileSystemSupportsHardLinks(const std::filesystem::path& url);

}  // namespace quillonic
