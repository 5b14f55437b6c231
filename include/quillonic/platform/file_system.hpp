/// The questions that the file manager asks about the file system. A host or a test can answer them instead
/// of the operating system.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/function_ref.hpp>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace quillonic {

/// Whether a directory entry exists.
enum class ItemPresence : std::uint8_t {
  /// No entry has the name.
  absent,
  /// An entry has the name: a file, a folder, or a link, whether its target exists or not.
  present,
  /// Unknown, for example because a folder in the path may not be searched.
  unknown,
};

/// Answers the file manager's questions. Any thread may call any operation at any time.
class QUILLONIC_EXPORT PlatformFileSystem {
 public:
  PlatformFileSystem() = default;
  PlatformFileSystem(const PlatformFileSystem&) = delete;
  PlatformFileSystem& operator=(const PlatformFileSystem&) = delete;
  virtual ~PlatformFileSystem();

  /// Whether an entry exists at a path; does not follow a final link. The path has no trailing slash; a
  /// relative one counts from the working folder. Takes a text, which callers build in place for each
  /// candidate name.
  virtual ItemPresence presenceOfItem(const std::string& path) const = 0;

  /// Receives an item and the mount point of the volume that holds it, or null. Both live until the block
  /// returns.
  using VolumeRootBlock =
      FunctionRef<void(const std::filesystem::path& item, const std::filesystem::path* volumeRoot)>;

  /// Calls the block once per item, in order. A link counts for the volume that holds the link itself. An
  /// item of which only the last component is missing has the root of its folder; an item in a missing folder
  /// has none.
  virtual void enumerateVolumeRoots(std::span<const std::filesystem::path> items,
                                    VolumeRootBlock block) const = 0;

  /// Asks the operating system: one call per existence question; for volume roots one reading of the mount
  /// table, for a single item only up to its mount, and one call per existing item. A path that is too long,
  /// has a NUL or passes through something that is not a folder is absent, since no entry can have it.
  static std::shared_ptr<const PlatformFileSystem> system();
};

}  // namespace quillonic
