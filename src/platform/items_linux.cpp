#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/xattr.h>

#include "platform/descriptor_linux.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"
#include "platform/statx_linux.hpp"

namespace quillonic::items {
namespace {

// No entry has a NUL in its name.
bool canExist(const std::string& path) noexcept {
  const bool hasNul = path.find('\0') != std::string::npos;
  if (hasNul) errno = ENOENT;
  return !hasNul;
}

Descriptor openedNew(const std::string& path) noexcept {
  return Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
}

std::error_code write(const Descriptor& file, std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const auto count = uninterrupted([&] { return ::write(file.number(), bytes.data(), bytes.size()); });
    if (count < 0) return lastError();
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return {};
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

// The nearest date in the type's range; file systems exceed it in both directions. The range has only a part
// of its first and of its last second, which count as outside.
Date dateOf(const statx_timestamp& time) noexcept {
  using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text
  if (time.tv_sec >= floor<seconds>(nanoseconds::max()).count()) return Date::max();
  if (time.tv_sec <= ceil<seconds>(nanoseconds::min()).count()) return Date::min();
  return Date(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

// Of the dates, those in the mask.
Status statusOf(const struct statx& item, unsigned mask) noexcept {
  Status status{.type = typeOfMode(item.stx_mode),
                .size = item.stx_size,
                .allocated = item.stx_blocks * 512,
                .device = makedev(item.stx_dev_major, item.stx_dev_minor),
                .inode = item.stx_ino,
                .names = item.stx_nlink,
                .permissions = item.stx_mode & 07777U,
                .owner = item.stx_uid,
                .group = item.stx_gid,
                .created = {},
                .accessed = {},
                .modified = {},
                .isMountPoint = {}};
  if ((mask & STATX_MTIME) != 0) status.modified = dateOf(item.stx_mtime);
  if ((mask & STATX_ATIME) != 0) status.accessed = dateOf(item.stx_atime);
  if ((mask & item.stx_mask & STATX_BTIME) != 0) status.created = dateOf(item.stx_btime);
  if ((item.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) {
    status.isMountPoint = (item.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
  }
  return status;
}

// Whether the second of an item's two names is the short one that NTFS keeps for old programs. The volume
// tells the short name only of an item with a single long one, whose count is 1 where both are the same.
bool hasShortName(const Folder* folder, const std::string& path) {
  const auto place = folder ? "/proc/self/fd/" + std::to_string(folder->descriptor()) + "/" : std::string();
  return ::lgetxattr((place + path).c_str(), "system.ntfs_dos_name", nullptr, 0) >= 0;
}

// Opened for reading, if it is a regular file. The second descriptor names exactly the item that the first
// one found.
Descriptor openedAfterLease(int folder, const char* path) noexcept {
  const Descriptor item(::openat(folder, path, O_PATH | O_NOFOLLOW | O_CLOEXEC));
  struct stat status {};
  if (!item || ::fstat(item.number(), &status) != 0) return Descriptor();
  if (!S_ISREG(status.st_mode)) {
    errno = EINVAL;
    return Descriptor();
  }
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "/proc/self/fd/%d", item.number());
  return openedUntouched(AT_FDCWD, name.data(), O_RDONLY);
}

// Opened for reading, if it is a regular file after its links are followed; else the last error tells why.
Descriptor openedTarget(const std::string& path, struct stat& status) noexcept {
  if (!canExist(path)) return Descriptor();
  auto file = openedUntouched(AT_FDCWD, path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!file || ::fstat(file.number(), &status) != 0) return Descriptor();
  if (S_ISREG(status.st_mode)) return file;
  static_cast<void>(file.close());
  errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  return Descriptor();
}

FileType typeOfEntry(unsigned char type) noexcept {
  // The types of entries are those of modes, shifted; 0 when the file system does not know.
  return typeOfMode(static_cast<unsigned>(type) << 12U);
}

}  // namespace

Folder::~Folder() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<Folder> Folder::open(const std::string& path, const Folder* parent) {
  if (!canExist(path)) return lastError();
  auto descriptor = openedUntouched(descriptorOf(parent), path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  if (!descriptor) return lastError();
  return Folder(descriptor.release());
}

namespace {

Result<Status> statusWith(unsigned mask, const std::string& path, const Folder* folder) {
  if (!canExist(path)) return lastError();
  struct statx item;  // the system fills all of it
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
  const int place = descriptorOf(folder);
  // The older call does not know of creation and mount points, but large trees feel its lower cost.
  const bool isBasic = (mask & STATX_BTIME) == 0 && (mask & (STATX_SIZE | STATX_MTIME | STATX_ATIME)) != 0;
  if (!(isBasic ? readBasicStatus(place, path.c_str(), flags, item)
                : readStatus(place, path.c_str(), flags, mask, item))) {
    return lastError();
  }
  return statusOf(item, mask);
}

}  // namespace

Result<Status> status(const std::string& path, const Folder* folder) {
  const auto found = statusWith(STATX_BASIC_STATS | STATX_BTIME, path, folder);
  if (!found || found->type != FileType::regular || found->names != 2 || !hasShortName(folder, path))
    return found;
  auto status = *found;
  status.names = 1;
  return status;
}

Result<Status> statusOfOpen(int descriptor) {
  struct statx item {};
  if (!readStatus(descriptor, "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, item)) return lastError();
  return statusOf(item, STATX_BASIC_STATS | STATX_BTIME);
}

Result<Status> status(const std::string& path, StatusParts parts, const Folder* folder) {
  const unsigned mask = STATX_TYPE | STATX_INO | (parts.size ? STATX_SIZE : 0U) |
                        (parts.created ? STATX_BTIME : 0U) | (parts.modified ? STATX_MTIME : 0U) |
                        (parts.accessed ? STATX_ATIME : 0U);
  return statusWith(mask, path, folder);
}

std::error_code reach(const std::string& path) {
  struct stat ignored {};
  const bool isThere = canExist(path) && ::fstatat(AT_FDCWD, path.c_str(), &ignored, AT_NO_AUTOMOUNT) == 0;
  return isThere ? std::error_code() : lastError();
}

Result<std::string> linkText(const std::string& path, const Folder* folder) {
  if (!canExist(path)) return lastError();
  std::array<char, PATH_MAX> text;  // no file system here stores a longer one
  const auto length = ::readlinkat(descriptorOf(folder), path.c_str(), text.data(), text.size());
  if (length < 0) return lastError();
  return std::string(text.data(), static_cast<std::size_t>(length));
}

Result<std::string> firstBytes(const std::string& path, std::size_t limit, const Folder* folder) {
  if (!canExist(path)) return lastError();
  auto file =
      openedUntouched(descriptorOf(folder), path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  if (!file && errno == EAGAIN) file = openedAfterLease(descriptorOf(folder), path.c_str());
  struct stat status {};
  if (!file || ::fstat(file.number(), &status) != 0) return lastError();
  return S_ISREG(status.st_mode) ? bytesOf(file.number(), limit) : systemError(std::errc::invalid_argument);
}

Result<std::string> firstBytesOfTarget(const std::string& path, std::size_t limit) {
  struct stat status {};
  const auto file = openedTarget(path, status);
  if (!file) return lastError();
  return bytesOf(file.number(), limit, std::min(limit, static_cast<std::size_t>(status.st_size)));
}

Result<std::string> wholeFile(const std::string& path, std::size_t limit) {
  struct stat status {};
  const auto file = openedTarget(path, status);
  if (!file) return lastError();
  const auto isTooLarge = [&](std::uint64_t size) { return size > limit; };
  if (isTooLarge(static_cast<std::uint64_t>(status.st_size))) return systemError(std::errc::file_too_large);
  auto bytes = bytesOf(file.number(), limit + 1, static_cast<std::size_t>(status.st_size));
  if (bytes && isTooLarge(bytes->size())) return systemError(std::errc::file_too_large);
  return bytes;
}

std::error_code create(const std::string& path, std::string_view bytes) {
  if (!canExist(path)) return lastError();
  Descriptor file(openedNew(path));
  if (!file) return lastError();
  auto error = write(file, bytes);
  const auto closing = file.close();
  if (!error) error = closing;
  if (error) ::unlink(path.c_str());
  return error;
}

std::error_code replace(const std::string& path, std::string_view bytes) {
  if (!canExist(path)) return lastError();
  struct stat earlier {};
  const bool isThere = ::stat(path.c_str(), &earlier) == 0;
  if (isThere && !S_ISREG(earlier.st_mode)) return systemError(std::errc::invalid_argument);
  if (isThere && ::access(path.c_str(), W_OK) != 0) return lastError();
  // A hidden name of its own beside the path, short enough for every folder.
  std::string name;
  Descriptor file;
  for (int number = 0; !file; ++number) {
    name = path.substr(0, path.rfind('/') + 1) + ".new-" + std::to_string(::getpid()) + "-" +
           std::to_string(number);
    file = openedNew(name);
    if (!file && errno != EEXIST) return lastError();
  }
  auto error = write(file, bytes);
  if (!error && isThere && ::fchmod(file.number(), earlier.st_mode & 07777U) != 0) error = lastError();
  if (!error && ::fsync(file.number()) != 0) error = lastError();
  const auto closing = file.close();
  if (!error) error = closing;
  if (!error && ::rename(name.c_str(), path.c_str()) != 0) error = lastError();
  if (error) ::unlink(name.c_str());
  return error;
}

std::error_code forEachEntry(const Folder& folder,
                             FunctionRef<bool(const std::string& name, FileType type)> block) {
  // As much as the C library reads at once.
  alignas(dirent64) std::array<char, 32'768> read;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  std::string name;
  while (true) {
    const auto size =
        uninterrupted([&] { return ::getdents64(folder.descriptor(), read.data(), read.size()); });
    if (size <= 0) return size == 0 ? std::error_code() : lastError();
    for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
      const auto& entry = *reinterpret_cast<const dirent64*>(read.data() + at);
      at += entry.d_reclen;
      name = static_cast<const char*>(entry.d_name);
      if (name != "." && name != ".." && !block(name, typeOfEntry(entry.d_type))) return {};
    }
  }
}

Result<std::vector<Entry>> entries(const Folder& folder) {
  std::vector<Entry> found;
  const auto error = forEachEntry(folder, [&](const std::string& name, FileType type) {
    found.push_back({name, type});
    return true;
  });
  if (error) return error;
  std::ranges::sort(found, {}, &Entry::name);
  return found;
}

Result<std::string> canonical(const std::string& path) {
  if (!canExist(path)) return lastError();
  const std::unique_ptr<char, decltype(&std::free)> text(::realpath(path.c_str(), nullptr), &std::free);
  if (!text) return lastError();
  return std::string(text.get());
}

Result<std::string> workingFolder() {
  std::error_code error;
  auto folder = std::filesystem::current_path(error);
  if (error) return error;
  return std::move(folder).native();
}

std::optional<std::string> homeFolder() {
  const char* home = std::getenv("HOME");
  return home && *home == '/' ? std::optional<std::string>(home) : std::nullopt;
}

}  // namespace quillonic::items
