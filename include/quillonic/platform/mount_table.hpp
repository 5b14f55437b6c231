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
  /// Unique among the mounts of one moment. A device number is not: bind mounts share one, and some file
  /// systems have several.
  std::uint64_t identifier = 0;
  /// The mount that this one is mounted on; not in the table if the process cannot see it.
  std::uint64_t parentIdentifier = 0;
  /// The device number of the file system. The major number is 0 when there is no single block device.
  std::uint32_t deviceMajor = 0;
  /// The minor number of the device.
  std::uint32_t deviceMinor = 0;
  /// The mounted folder within the file system: "/", or the folder of a bind mount.
  std::filesystem::path root;
  /// The mount point: an absolute path to a folder or a single file.
  std::filesystem::path mountPoint;
  /// The kind of file system, such as "ext4", "nfs4" or "fuse.sshfs".
  std::string kind;
  /// What is mounted, in a form that depends on the kind: "/dev/sdb1", "server:/export", or a word without
  /// meaning.
  std::string source;
  /// Whether the mount or the whole file system is read-only.
  bool isReadOnly = false;
  /// The options of the whole file system, separated by commas; they depend on the kind.
  std::string superOptions;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// The volumes mounted at one moment, as seen by the calling process. A value: it does not change when
/// volumes come and go.
class QUILLONIC_EXPORT MountTable {
 public:
  MountTable() = default;

  /// Reads the system's table, one file in the process information. Empty, with a warning logged, when it
  /// cannot be read.
  static MountTable current();

  /// Parses the text of a table in the form of Linux's `mountinfo`: a line per mount, with spaces, tabs, line
  /// breaks and backslashes in paths written as "\040", and any number of optional fields before a lone "-".
  /// Skips lines that are cut short or have another form.
  static MountTable fromText(std::string_view text);

  /// The mounts in table order; of two on one mount point, the later hides the earlier.
  std::span<const Mount> mounts() const noexcept { return mounts_; }

  /// The mount with an identifier, or null. Logarithmic time.
  const Mount* withIdentifier(std::uint64_t identifier) const noexcept;

  /// The mount with the longest mount point that is the path or one of its parent folders, or null. Compares
  /// only texts: right for an absolute path without links that is on no hidden mount.
  const Mount* withLongestMountPoint(const std::filesystem::path& resolved) const noexcept;

  /// The mount that holds an item, or null. One system call for an existing item; mounts nothing. Does not
  /// follow a final link: a link is on the mount that holds it. If only the last component is missing, like a
  /// file still to be written, or cannot be looked at, this is the mount of the folder; null if the folder is
  /// missing too. A relative path counts from the working folder; a trailing slash is ignored. Null for a
  /// path with a NUL.
  const Mount* holding(const std::filesystem::path& item) const;

 private:
  std::vector<Mount> mounts_;
  std::vector<std::size_t> byIdentifier_;
};

}  // namespace quillonic
