/// The mounted volumes, and which of them holds an item.
///
///     const MountTable table = MountTable::current();   // one reading for any number of items
///     for (const auto& item : items) {
///       if (const Mount* mount = table.holding(item)) use(mount->mountPoint);
///     }
#pragma once

#include <quillonic/export.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// One mounted volume.
struct Mount {
  /// What tells this mount from every other one that is mounted at the same time. A device number does not:
  /// bind mounts share one, and some file systems have several.
  std::uint64_t identifier = 0;
  /// The mount that this one is mounted on; not in the table where that one is out of sight.
  std::uint64_t parentIdentifier = 0;
  /// The number of the device behind the file system. The major number is 0 where no single block device is.
  std::uint32_t deviceMajor = 0;
  /// The second part of the device's number.
  std::uint32_t deviceMinor = 0;
  /// Which folder of the file system is mounted: "/", or the folder that a bind mount shows.
  std::filesystem::path root;
  /// Where it is mounted: absolute, a folder or a single file.
  std::filesystem::path mountPoint;
  /// The kind of file system, such as "ext4", "nfs4" or "fuse.sshfs".
  std::string kind;
  /// What is mounted, in the kind's own form: "/dev/sdb1", "server:/export", or a word without meaning.
  std::string source;
  /// Whether the mount or its file system as a whole is mounted read-only.
  bool isReadOnly = false;
  /// The options of the file system as a whole, with commas between them; they differ from kind to kind.
  std::string superOptions;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// The volumes that were mounted at one moment, as the calling process sees them. A value; does not change
/// when volumes come and go.
class QUILLONIC_EXPORT MountTable {
 public:
  MountTable() = default;

  /// Reads the system's table; one file of the process information is read. Empty where it cannot be read.
  static MountTable current();

  /// Reads a table from the text of such a file, Linux's `mountinfo`: a line per mount, with blanks, tabs,
  /// line breaks and backslashes of its paths written as "\040", and any number of optional fields before a
  /// lone
  /// "-". A line that is cut short or does not have that form is left out.
  static MountTable fromText(std::string_view text);

  /// The mounts in the table's order; of two on one mount point the later one hides the earlier one.
  std::span<const Mount> mounts() const noexcept { return mounts_; }

  /// The mount with an identifier, or null. Takes logarithmic time.
  const Mount* withIdentifier(std::uint64_t identifier) const noexcept;

  /// The mount with the longest mount point that is the path or one of the folders above it, or null.
  /// Compares texts and asks nobody: right for an absolute path without links that lies on no hidden mount.
  const Mount* withLongestMountPoint(const std::filesystem::path& resolved) const noexcept;

  /// The mount that holds an item, or null. Asks the system once about an item that exists and mounts
  /// nothing. The last component is not followed: a link lies where its own entry is, whatever it refers to.
  /// Where only the last component is missing, as that of a file still to be written, or cannot be looked at,
  /// this is the mount that holds the folder; where the folder is missing too there is none. A path relative
  /// to the working folder is fine; a slash at the end means nothing. A path with a NUL is on no mount.
  const Mount* holding(const std::filesystem::path& item) const;

 private:
  std::vector<Mount> mounts_;
  std::vector<std::size_t> byIdentifier_;
};

}  // namespace quillonic
