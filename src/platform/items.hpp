// What the file system tells of single items. But for one, no operation
// follows a link that is the last component of a path.
// A path with a NUL names nothing. Each reports a failure in `error` and by giving nothing, and clears `error`
// otherwise.
#pragma once

#include <quillonic/platform/file_type.hpp>
#include <quillonic/support/any_value.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace quillonic::items {

struct Status {
  FileType type = FileType::unknown;
  std::uint64_t size = 0;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t names = 0;
  std::uint32_t permissions = 0;
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::optional<AnyValue::Date> created;
  AnyValue::Date modified;
};

// A folder held open. Names in it are looked up without its path.
class Folder {
 public:
  // The folder is no link to one.
  static std::optional<Folder> open(const std::string& path, std::error_code& error);
  Folder(Folder&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Folder& operator=(Folder&&) = delete;
  ~Folder();

  int descriptor() const noexcept { return descriptor_; }

 private:
  explicit Folder(int descriptor) noexcept : descriptor_(descriptor) {}

  int descriptor_;
};

// One system call; wakes no automounter. A relative path counts from the folder, or without one from the
// working folder; so it does below.
std::optional<Status> status(const std::string& path, std::error_code& error, const Folder* folder = nullptr);

// Whether there is an item behind a path, the one operation that follows links; a slash at the end asks for a
// folder. One system call; wakes no automounter.
bool existsBehindLinks(const std::string& path, std::error_code& error);

// The target of a symbolic link as it is stored. One system call.
std::optional<std::string> linkText(const std::string& path, std::error_code& error,
                                    const Folder* folder = nullptr);

// Up to `limit` bytes from the start of a regular file. Never waits for a pipe or a device.
std::optional<std::string> firstBytes(const std::string& path, std::size_t limit, std::error_code& error);

// Makes a file that was not there. One that cannot be written whole is removed again.
bool create(const std::string& path, std::string_view bytes, std::error_code& error);

struct Entry {
  std::string name;
  FileType type;
};

// The entries of a folder in the byte order of their names, without "." and "..". To be asked once.
std::optional<std::vector<Entry>> entries(const Folder& folder, std::error_code& error);

// The absolute path of an existing item with every link in it followed.
std::optional<std::string> canonical(const std::string& path, std::error_code& error);

// The user's home folder; nothing when it is not known.
std::optional<std::string> homeFolder();

}  // namespace quillonic::items
