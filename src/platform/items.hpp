// Single items of the file system. Only `reach` and `canonical` follow a link in the last path component. A
// path with a NUL names nothing.
#pragma once

#include <quillonic/platform/file_type.hpp>
#include <quillonic/support/date.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/result.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace quillonic::items {

inline std::error_code systemError(std::errc error) noexcept {
  return {static_cast<int>(error), std::system_category()};
}

// Whether an error says that nothing is at a path.
inline bool isMissing(std::error_code error) noexcept {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
         error == std::errc::filename_too_long;
}

struct Status {
  FileType type = FileType::unknown;
  std::uint64_t size = 0;
  // What it takes up on its volume, in bytes.
  std::uint64_t allocated = 0;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  // Without the short name that NTFS keeps beside the only other one.
  std::uint64_t names = 0;
  std::uint32_t permissions = 0;
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::optional<Date> created;
  Date accessed;
  Date modified;
  // Nothing if the system does not know.
  std::optional<bool> isMountPoint;
};

// Whether two statuses are those of one item.
inline bool areSame(const Status& a, const Status& b) noexcept {
  return a.device == b.device && a.inode == b.inode;
}

// What a status is asked for, beside the type and the device. A server need not be asked for the rest.
struct StatusParts {
  bool size = false;
  bool created = false;
  bool modified = false;
  bool accessed = false;
};

// An open folder. Names in it are looked up without its path.
class Folder {
 public:
  // Fails for a link to a folder. A relative path counts from `parent`, or from the working folder without
  // one.
  static Result<Folder> open(const std::string& path, const Folder* parent = nullptr);
  Folder(Folder&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Folder& operator=(Folder&&) = delete;
  ~Folder();

  int descriptor() const noexcept { return descriptor_; }

 private:
  explicit Folder(int descriptor) noexcept : descriptor_(descriptor) {}

  int descriptor_;
};

// One system call, and a second one for a file with two names; wakes no automounter. A relative path counts
// from the folder, or without one from the working folder, here and below.
Result<Status> status(const std::string& path, const Folder* folder = nullptr);

// One system call. Only the parts that were asked for are known.
Result<Status> status(const std::string& path, StatusParts parts, const Folder* folder = nullptr);

// The status of an open item; counts the short name that NTFS keeps.
Result<Status> statusOfOpen(int descriptor);

// No error when an item exists at a path with all its links followed; a trailing slash requires a folder. One
// system call; wakes no automounter.
std::error_code reach(const std::string& path);

// The stored target of a symbolic link. One system call, which changes the link's access time if the volume's
// options say so: no call avoids that.
Result<std::string> linkText(const std::string& path, const Folder* folder = nullptr);

// Up to `limit` bytes from the start of a regular file; fails with EINVAL for any other item without reading
// it. Waits until another process gives up its lease on the file, but never for a pipe or a device. Keeps the
// access time if the process owns the file or may act as its owner; otherwise the volume's options decide.
Result<std::string> firstBytes(const std::string& path, std::size_t limit, const Folder* folder = nullptr);

// Up to `limit` bytes from the start of the regular file that a path names, its links followed. Fails with
// EISDIR for a folder and EINVAL for any other item without reading it, and never waits for one.
Result<std::string> firstBytesOfTarget(const std::string& path, std::size_t limit);

// The whole of such a file; fails with EFBIG if it is larger than the limit. What another process cuts off
// meanwhile is missing.
Result<std::string> wholeFile(const std::string& path, std::size_t limit);

// Creates a new file. Removes one that cannot be written whole.
std::error_code create(const std::string& path, std::string_view bytes);

// Gives a path a file with these bytes, which are on the disk before the earlier file is gone. Keeps the
// permissions of an earlier file and refuses one that may not be written.
std::error_code replace(const std::string& path, std::string_view bytes);

struct Entry {
  std::string name;
  FileType type;
};

// Calls the block with each entry but "." and "..", in the order of the file system, until it returns false.
// Callers must ask only once per folder.
std::error_code forEachEntry(const Folder& folder,
                             FunctionRef<bool(const std::string& name, FileType type)> block);

// The entries of a folder in byte order of their names, without "." and "..". Callers must ask only once per
// folder.
Result<std::vector<Entry>> entries(const Folder& folder);

// The absolute path of an existing item with all links followed.
Result<std::string> canonical(const std::string& path);

// The folder that relative paths count from: absolute, without a trailing slash unless it is the root. Fails
// if the folder was removed.
Result<std::string> workingFolder();

// The user's home folder; nothing when unknown.
std::optional<std::string> homeFolder();

}  // namespace quillonic::items
