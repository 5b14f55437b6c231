#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <utility>

#include "platform/items.hpp"

namespace quillonic::items {
namespace {

std::error_code lastError() noexcept {
  return {errno, std::system_category()};
}

// Clears the error, or sets it for a path that no entry can bear.
bool canExist(const std::string& path, std::error_code& error) noexcept {
  error.clear();
  if (path.find('\0') != std::string::npos) error = {ENOENT, std::system_category()};
  return !error;
}

struct CloseFolder {
  void operator()(DIR* stream) const noexcept { ::closedir(stream); }
};

int placeOf(const Folder* folder) noexcept {
  return folder ? folder->descriptor() : AT_FDCWD;
}

constexpr FileType typeOfMode(unsigned mode) noexcept {
  switch (mode & S_IFMT) {
    case S_IFREG:
      return FileType::regular;
    case S_IFDIR:
      return FileType::directory;
    case S_IFLNK:
      return FileType::symbolicLink;
    case S_IFSOCK:
      return FileType::socket;
    case S_IFIFO:
      return FileType::namedPipe;
    case S_IFCHR:
      return FileType::characterSpecial;
    case S_IFBLK:
      return FileType::blockSpecial;
    default:
      return FileType::unknown;
  }
}

// The nearest date that can be kept: file systems reach beyond it in both directions.
AnyValue::Date dateOf(const statx_timestamp& time) noexcept {
  using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text
  if (time.tv_sec >= floor<seconds>(nanoseconds::max()).count()) return AnyValue::Date::max();
  if (time.tv_sec <= ceil<seconds>(nanoseconds::min()).count()) return AnyValue::Date::min();
  return AnyValue::Date(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

Status statusOf(const struct statx& item) noexcept {
  Status status{.type = typeOfMode(item.stx_mode),
                .size = item.stx_size,
                .device = makedev(item.stx_dev_major, item.stx_dev_minor),
                .inode = item.stx_ino,
                .names = item.stx_nlink,
                .permissions = item.stx_mode & 07777U,
                .owner = item.stx_uid,
                .group = item.stx_gid,
                .created = {},
                .modified = dateOf(item.stx_mtime)};
  if ((item.stx_mask & STATX_BTIME) != 0) status.created = dateOf(item.stx_btime);
  return status;
}

// Some sandboxes refuse the newer call alone.
bool olderStatus(int folder, const char* path, struct statx& item) noexcept {
  struct stat older {};
  if (::fstatat(folder, path, &older, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return false;
  item.stx_mode = static_cast<decltype(item.stx_mode)>(older.st_mode);
  item.stx_size = static_cast<std::uint64_t>(older.st_size);
  item.stx_dev_major = major(older.st_dev);
  item.stx_dev_minor = minor(older.st_dev);
  item.stx_ino = older.st_ino;
  item.stx_nlink = static_cast<std::uint32_t>(older.st_nlink);
  item.stx_uid = older.st_uid;
  item.stx_gid = older.st_gid;
  item.stx_mtime.tv_sec = older.st_mtim.tv_sec;
  item.stx_mtime.tv_nsec = static_cast<std::uint32_t>(older.st_mtim.tv_nsec);
  return true;
}

FileType typeOfEntry(const dirent& entry) noexcept {
  // The numbers of directory entries are those of modes, moved down; 0 where the file system does not tell.
  return typeOfMode(static_cast<unsigned>(entry.d_type) << 12U);
}

}  // namespace

Folder::~Folder() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<Folder> Folder::open(const std::string& path, std::error_code& error) {
  if (!canExist(path, error)) return std::nullopt;
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (descriptor >= 0) return Folder(descriptor);
  error = lastError();
  return std::nullopt;
}

std::optional<Status> status(const std::string& path, std::error_code& error, const Folder* folder) {
  if (!canExist(path, error)) return std::nullopt;
  struct statx item {};
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
  bool isKnown = ::statx(placeOf(folder), path.c_str(), flags, STATX_BASIC_STATS | STATX_BTIME, &item) == 0;
  if (!isKnown && (errno == ENOSYS || errno == EPERM))
    isKnown = olderStatus(placeOf(folder), path.c_str(), item);
  if (isKnown) return statusOf(item);
  error = lastError();
  return std::nullopt;
}

bool existsBehindLinks(const std::string& path, std::error_code& error) {
  struct stat ignored {};
  if (!canExist(path, error)) return false;
  if (::fstatat(AT_FDCWD, path.c_str(), &ignored, AT_NO_AUTOMOUNT) != 0) error = lastError();
  return !error;
}

std::optional<std::string> linkText(const std::string& path, std::error_code& error, const Folder* folder) {
  if (!canExist(path, error)) return std::nullopt;
  std::array<char, PATH_MAX> text;  // no file system here keeps a longer one
  const auto length = ::readlinkat(placeOf(folder), path.c_str(), text.data(), text.size());
  if (length >= 0) return std::string(text.data(), static_cast<std::size_t>(length));
  error = lastError();
  return std::nullopt;
}

std::optional<std::string> firstBytes(const std::string& path, std::size_t limit, std::error_code& error) {
  if (!canExist(path, error)) return std::nullopt;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  if (file < 0) {
    error = lastError();
    return std::nullopt;
  }
  std::string bytes;
  std::size_t size = 0;
  ssize_t count = 1;
  while (size < limit && count != 0 && !error) {
    bytes.resize(std::min(limit, std::max<std::size_t>(2 * size, 4096)));
    count = ::read(file, bytes.data() + size, bytes.size() - size);
    if (count >= 0) {
      size += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      error = lastError();
    }
  }
  ::close(file);
  bytes.resize(size);
  return error ? std::nullopt : std::optional(std::move(bytes));
}

bool create(const std::string& path, std::string_view bytes, std::error_code& error) {
  if (!canExist(path, error)) return false;
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0) {
    error = lastError();
    return false;
  }
  while (!bytes.empty() && !error) {
    const auto count = ::write(file, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      error = lastError();
    }
  }
  // The last writes may be refused as late as here.
  if (::close(file) != 0 && !error) error = lastError();
  if (error) ::unlink(path.c_str());
  return !error;
}

std::optional<std::vector<Entry>> entries(const Folder& folder, std::error_code& error) {
  error.clear();
  // The stream takes over a descriptor; this one goes on being used for look-ups.
  const int descriptor = ::fcntl(folder.descriptor(), F_DUPFD_CLOEXEC, 0);
  const std::unique_ptr<DIR, CloseFolder> stream(descriptor >= 0 ? ::fdopendir(descriptor) : nullptr);
  if (!stream) {
    error = lastError();
    if (descriptor >= 0) ::close(descriptor);
    return std::nullopt;
  }
  std::vector<Entry> found;
  errno = 0;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") found.push_back({std::string(name), typeOfEntry(*entry)});
    errno = 0;
  }
  if (errno != 0) {
    error = lastError();
    return std::nullopt;
  }
  std::ranges::sort(found, {}, &Entry::name);
  return found;
}

std::optional<std::string> canonical(const std::string& path, std::error_code& error) {
  if (!canExist(path, error)) return std::nullopt;
  const std::unique_ptr<char, decltype(&std::free)> text(::realpath(path.c_str(), nullptr), &std::free);
  if (text) return std::string(text.get());
  error = lastError();
  return std::nullopt;
}

std::optional<std::string> homeFolder() {
  const char* home = std::getenv("HOME");
  return home && *home == '/' ? std::optional<std::string>(home) : std::nullopt;
}

}  // namespace quillonic::items
