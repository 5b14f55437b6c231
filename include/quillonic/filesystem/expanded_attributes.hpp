/// The attributes of items.
///
///     auto attributes = expandedAttributesOfItem("/card/clip.mov");
///     ExpandedAttributesReader reader;
///     for (const auto& item : items) add(reader.attributesOfItem(item));
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attributes.hpp>

#include <filesystem>
#include <memory>
#include <optional>

namespace quillonic {

class LookUps;

/// The attributes of an item; nothing when it is missing or cannot be looked at. Does not follow a final
/// link. They are the platform's (size, kind, dates to the nanosecond, permissions, owner, group, device,
/// inode, number of names) and the library's `filePathName`, `fileResourceType`, `isLinkFilePath`,
/// `isDirectoryPath` and `referenceLinkType`; for a link also `referencedFileSystemURL`, and for a symbolic
/// link `isRelativeSymbolicReference`.
///
/// A detail of a link that cannot be read is logged and left out, and so are `referenceLinkType` and
/// `isLinkFilePath` of a small file that may not be opened. A dangling symbolic link is logged too, but has
/// its `referencedFileSystemURL` if its target names a location. Of the dates, only the modification date can
/// be set on a copy; a copy has its own creation date. Opens regular files of 16 bytes to 64 MiB and reads 16
/// bytes to recognise an alias, which asks the server on a network volume; the access time stays if the
/// process owns the file or is root. Takes one system call per item, four or five more for a file that it
/// opens, one more for a file with two names, and for a symbolic link a few per folder of its target.
///
/// For many items, callers must use an `ExpandedAttributesReader`: for an alias whose target is not found at
/// once, this lists all folders above it anew, so that n aliases of an absent drive in one folder take time
/// in proportion to the square of n.
QUILLONIC_EXPORT std::optional<FileAttributes> expandedAttributesOfItem(const std::filesystem::path& atURL);

/// Reads the attributes of many items, as `expandedAttributesOfItem` does for one. Lists each folder once:
/// the 10,000 items of a card take linear time, even if all are aliases of an absent drive.
///
/// To find the targets of aliases, a reader remembers the mounted volumes and the folders that it looked at,
/// even a folder that was missing or unreadable. What is created, renamed or mounted later may count as
/// missing, so callers should use a new reader for each pass over a card. Items and symbolic links are looked
/// at on every call. Callers must use a reader on one thread at a time.
class QUILLONIC_EXPORT ExpandedAttributesReader {
 public:
  ExpandedAttributesReader() noexcept;
  /// Moves what the other reader remembers, which is then as new.
  ExpandedAttributesReader(ExpandedAttributesReader&&) noexcept;
  /// Forgets what this reader remembers in favour of the other, which is then as new.
  ExpandedAttributesReader& operator=(ExpandedAttributesReader&&) noexcept;
  ~ExpandedAttributesReader();

  /// The attributes of an item; nothing when it is missing or cannot be looked at. A relative path counts
  /// from the working folder of the moment.
  std::optional<FileAttributes> attributesOfItem(const std::filesystem::path& atURL);

 private:
  std::unique_ptr<LookUps> lookUps_;
};

}  // namespace quillonic
