// What the file system tells of single items. But for one, no operation
// follows a link that is the last component of a path.
// A path with a NUL names nothing. Each reports a failure in `error` and by giving nothing, and clears `error`
// otherwise.
#pragma once

#include <quillonic/filesystem/file_type.hpp>
#include <quillonic/support/any_value.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
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

// One system call; wakes no automounter.
std::optional<Status> status(const std::string& path, std::error_code& error);

// Whether there is an item behind a path, the one operation that follows links. One system call; wakes no
// automounter.
bool existsBehindLinks(const std::string& path);

// The target of a symbolic link as it is stored. One system call.
std::optional<std::string> linkText(const std::string& path, std::error_code& error);

// Up to `limit` bytes from the start of a regular file. Never waits for a pipe or a device.
std::optional<std::string> firstBytes(const std::string& path, std::size_t limit, std::error_code& error);

// Makes a file that was not there. One that cannot be written whole is removed again.
bool create(const std::string& path, std::string_view bytes, std::error_code& error);

struct Entry {
  std::string name;
  FileType type;
};

// The entries of a folder, which is no link to one, in the byte order of their names, without "." and "..".
std::optional<std::vector<Entry>> entries(const std::string& folder, std::error_code& error);

// The absolute path of an existing item with every link in it followed.
std::optional<std::string> canonical(const std::string& path);

// The user's home folder; nothing when it is not known.
std::optional<std::string> homeFolder();

}  // namespace quillonic::items
