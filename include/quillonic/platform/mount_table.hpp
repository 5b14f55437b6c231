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
  /// Unique among all mounts at one time. A device number is not: bind mounts share one, and some file
  /// systems have several.
  std::uint64_t identifier = 0;
  /// The mount that this one is mounted on; missing in the table where the process cannot see it.
  std::uint64_t parentIdentifier = 0;
  /// The number of the file system's device. The major number is 0 where there is no single block
  /// device.
  std::uint32_t deviceMajor = 0;
  /// The device's minor number.
  std::uint32_t deviceMinor = 0;
  /// The mounted folder of the file system: "/", or the folder that a bind mount shows.
  std::filesystem::path root;
  /// Where it is mounted: absolute, a folder or a single file.
  std::filesystem::path mountPoint;
  /// The kind of file system, such as "ext4", "nfs4" or "fuse.sshfs".
  std::string kind;
  /// What is mounted, in a form that differs from kind to kind: "/dev/sdb1", "server:/export", or a word
  /// without meaning.
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

  /// Reads the system's table; one file of the process information is read. Empty, and a warning
  /// logged, where it cannot be read.
  static MountTable current();

  /// Reads a table from the text of such a file, Linux's `mountinfo`: a line per mount, with spaces, tabs,
  /// line breaks and backslashes of its paths written as "\040", and any number of optional fields before a
  /// lone "-". Leaves out a line that is cut short or has another form.
  static MountTable fromText(std::string_view text);

  /// The mounts in the table's order; of two on one mount point the later one hides the earlier one.
  std::span<const Mount> mounts() const noexcept { return mounts_; }

  /// The mount with an identifier, or null. Takes logarithmic time.
  const Mount* withIdentifier(std::uint64_t identifier) const noexcept;

  /// The mount with the longest mount point that is the path or one of the folders above it, or null.
  /// Compares texts only: right for an absolute path without links that is on no hidden mount.
  const Mount* withLongestMountPoint(const std::filesystem::path& resolved) const noexcept;

  /// The mount that holds an item, or null. One system call for an item that exists; mounts nothing. Does not
  /// follow a final link: a link is where its entry is. Where only the last component is missing, as that of
  /// a file still to be written, or cannot be looked at, this is the mount that holds the folder; null where
  /// the folder is missing too. A relative path counts from the working folder; a trailing slash is ignored.
  /// Null for a path with a NUL.
  const Mount* holding(const std::filesystem::path& item) const;

 private:
  std::vector<Mount> mounts_;
  std::vector<std::size_t> byIdentifier_;
};

}  // namespace quillonic
