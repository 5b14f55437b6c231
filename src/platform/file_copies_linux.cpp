#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <linux/fs.h>
#include <string_view>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <utility>
#include <vector>

#include "platform/descriptor_linux.hpp"
#include "platform/file_copies.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

bool isLocked(int file) noexcept {
  if (uninterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0) return false;
  // Some servers know no locks; their users have to do without a second program.
  return errno == EWOULDBLOCK;
}

// Whether a name is that of an open file.
bool isNamed(int file, int folder, const std::string& name) noexcept {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file, &opened) == 0 && ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Removes what a killed program left; EBUSY while a program has it locked, no error when it is gone.
std::error_code removeLeftover(int folder, const std::string& hidden) {
  const Descriptor file(
      ::openat(folder, hidden.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  // A file that cannot be opened may be locked; a link cannot.
  if (!file && errno != ELOOP) return errno == ENOENT ? std::error_code() : lastError();
  if (file && isLocked(file.number())) return items::systemError(std::errc::device_or_resource_busy);
  // Its writer may have given it its name before it was locked here.
  if (file && !isNamed(file.number(), folder, hidden)) return {};
  return ::unlinkat(folder, hidden.c_str(), 0) == 0 || errno == ENOENT ? std::error_code() : lastError();
}

// The names of all extended attributes.
std::vector<std::string> attributeNames(int file) {
  std::string names;
  for (ssize_t size = ::flistxattr(file, nullptr, 0); size > 0;) {
    names.resize(static_cast<std::size_t>(size));
    const auto count = ::flistxattr(file, names.data(), names.size());
    if (count >= 0) {
      names.resize(static_cast<std::size_t>(count));
      break;
    }
    names.clear();
    size = errno == ERANGE ? ::flistxattr(file, nullptr, 0) : 0;
  }
  std::vector<std::string> list;
  for (auto pieces = text::split(names, '\0'); const auto name = pieces.next();) {
    if (!name->empty()) list.emplace_back(*name);
  }
  return list;
}

bool copyAttribute(int from, int to, const char* name) {
  std::string value;
  // It may grow between the two calls.
  for (int tries = 0; tries < 3; ++tries) {
    const auto size = ::fgetxattr(from, name, nullptr, 0);
    if (size < 0) return errno == ENODATA;
    value.resize(static_cast<std::size_t>(size));
    const auto count = ::fgetxattr(from, name, value.data(), value.size());
    if (count < 0 && errno == ERANGE) continue;
    if (count < 0) return errno == ENODATA;
    return ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(count), 0) == 0;
  }
  return false;
}

// The name that a file has while it is written.
std::string partialNameOf(std::string_view name) {
  // Of fixed length, because the other name may be as long as the volume allows.
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
  return std::string(".quillonic-").append(digits.data()).append(".partial");
}

}  // namespace

Result<SourceFile> SourceFile::open(const std::string& path, const items::Folder* folder) {
  auto file =
      openedUntouched(descriptorOf(folder), path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  if (!file) return lastError();
  const auto status = items::statusOfOpen(file.number());
  if (!status) return status.error();
  if (status->type != FileType::regular) return items::systemError(std::errc::invalid_argument);
  constexpr std::uint64_t large = std::uint64_t{1} << 20;
  if (status->size >= large) static_cast<void>(::posix_fadvise(file.number(), 0, 0, POSIX_FADV_SEQUENTIAL));
  return SourceFile(file.release(), *status);
}

Result<SourceFile> SourceFile::ofOpen(int descriptor, const items::Status& status) {
  return SourceFile(descriptor, status);
}

SourceFile::SourceFile(SourceFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), status_(other.status_) {}

SourceFile::~SourceFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<std::size_t> SourceFile::read(std::uint64_t offset, std::span<std::byte> bytes) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto count = uninterrupted([&] {
      return ::pread(descriptor_, bytes.data() + done, bytes.size() - done,
                     static_cast<off_t>(offset + done));
    });
    if (count < 0) return lastError();
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

SourceFile::Extent SourceFile::nextData(std::uint64_t offset) const {
  const auto size = status_.size;
  const auto begin = ::lseek(descriptor_, static_cast<off_t>(offset), SEEK_DATA);
  if (begin < 0) return errno == ENXIO ? Extent{size, size} : Extent{offset, size};
  const auto end = ::lseek(descriptor_, begin, SEEK_HOLE);
  const auto first = static_cast<std::uint64_t>(begin);
  if (first >= size) return {size, size};
  return {first, end < 0 ? size : std::min(static_cast<std::uint64_t>(end), size)};
}

bool SourceFile::isUnchanged() const {
  const auto now = items::statusOfOpen(descriptor_);
  return now && now->size == status_.size && now->modified == status_.modified;
}

void SourceFile::forgetCached() const noexcept {
  static_cast<void>(::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_DONTNEED));
}

Result<PartialFile> PartialFile::create(const std::string& name,
                                        std::shared_ptr<const items::Folder> folder) {
  // Access times stay while the copy is read back.
  constexpr int flags = O_RDWR | O_CLOEXEC | O_NOATIME;
  const int place = folder->descriptor();
  Descriptor nameless(uninterrupted([&] { return ::openat(place, ".", flags | O_TMPFILE, 0600); }));
  if (nameless) return PartialFile(nameless.release(), std::move(folder), {});
  auto hidden = partialNameOf(name);
  for (int tries = 0; tries < 100; ++tries) {
    Descriptor file(uninterrupted([&] {
      constexpr int exclusively = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
      return ::openat(place, hidden.c_str(), exclusively, 0600);
    }));
    if (file && isLocked(file.number())) return items::systemError(std::errc::device_or_resource_busy);
    // Before it was locked, another program may have taken it for what a killed one left.
    if (file && !isNamed(file.number(), place, hidden)) continue;
    if (file) {
      static_cast<void>(::fcntl(file.number(), F_SETFL, O_NOATIME));
      return PartialFile(file.release(), std::move(folder), std::move(hidden));
    }
    if (errno != EEXIST) return lastError();
    if (const auto error = removeLeftover(place, hidden)) return error;
  }
  return items::systemError(std::errc::device_or_resource_busy);
}

PartialFile::PartialFile(PartialFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      folder_(std::move(other.folder_)),
      hidden_(std::exchange(other.hidden_, {})) {}

PartialFile::~PartialFile() {
  // Removed while locked: afterwards another program may have its own there.
  if (!hidden_.empty()) ::unlinkat(folder_->descriptor(), hidden_.c_str(), 0);
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool takeAttributes(int copy, int source, const items::Status& status) {
  struct stat own {};
  if (::fstat(copy, &own) != 0) return false;
  // The owner first, since a change of owner takes permission bits away; then the attributes, since an access
  // control list changes some; the dates last, since all else may change them.
  bool isOwned = own.st_uid == status.owner && own.st_gid == status.group;
  if (!isOwned) isOwned = ::fchown(copy, status.owner, status.group) == 0;
  if (!isOwned) static_cast<void>(::fchown(copy, static_cast<uid_t>(-1), status.group));
  bool hasAll = true;
  for (const auto& name : attributeNames(source))
    hasAll = copyAttribute(source, copy, name.c_str()) && hasAll;
  // What runs as its owner or group must not run as another. The volume may ignore both without an error.
  static_cast<void>(::fchmod(copy, isOwned ? status.permissions : status.permissions & 01777U));
  const std::array<timespec, 2> dates{timeOf(status.accessed), timeOf(status.modified)};
  static_cast<void>(::futimens(copy, dates.data()));
  return hasAll;
}

bool PartialFile::clone(const SourceFile& source) const noexcept {
  return uninterrupted([&] { return ::ioctl(descriptor_, FICLONE, source.descriptor()); }) == 0;
}

Result<std::size_t> PartialFile::copyWithin(const SourceFile& source, std::uint64_t offset,
                                            std::size_t count) const {
  auto from = static_cast<off_t>(offset);
  auto to = from;
  const auto copied = uninterrupted(
      [&] { return ::copy_file_range(source.descriptor(), &from, descriptor_, &to, count, 0); });
  if (copied >= 0) return static_cast<std::size_t>(copied);
  // The volumes may differ, and some kinds do not offer it.
  const bool isRefused = errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP ||
                         errno == EPERM || errno == EBADF || errno == ETXTBSY;
  if (isRefused) return std::size_t{0};
  return lastError();
}

std::error_code PartialFile::write(std::uint64_t offset, std::span<const std::byte> bytes) const {
  while (!bytes.empty()) {
    const auto count = uninterrupted(
        [&] { return ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset)); });
    if (count < 0) return lastError();
    // A volume that takes nothing and says nothing is full.
    if (count == 0) return items::systemError(std::errc::no_space_on_device);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
    offset += static_cast<std::uint64_t>(count);
  }
  return {};
}

std::error_code PartialFile::setSize(std::uint64_t size) const {
  const auto set = [&] { return ::ftruncate(descriptor_, static_cast<off_t>(size)); };
  return uninterrupted(set) == 0 ? std::error_code() : lastError();
}

Result<SourceFile> PartialFile::reading() const {
  Descriptor file(::fcntl(descriptor_, F_DUPFD_CLOEXEC, 0));
  if (!file) return lastError();
  const auto status = items::statusOfOpen(file.number());
  return status ? SourceFile::ofOpen(file.release(), *status) : status.error();
}

std::error_code PartialFile::sync() const {
  return uninterrupted([&] { return ::fsync(descriptor_); }) == 0 ? std::error_code() : lastError();
}

std::error_code PartialFile::link(const std::string& name) const {
  const int folder = folder_->descriptor();
  const auto linked = [&](int place, const char* path, int flags) {
    return uninterrupted([&] { return ::linkat(place, path, folder, name.c_str(), flags); }) == 0;
  };
  if (linked(descriptor_, "", AT_EMPTY_PATH)) return {};
  if (errno != ENOENT) return lastError();
  // Older systems allow only root that.
  std::array<char, 32> own{};
  std::snprintf(own.data(), own.size(), "/proc/self/fd/%d", descriptor_);
  return linked(AT_FDCWD, own.data(), AT_SYMLINK_FOLLOW) ? std::error_code() : lastError();
}

std::error_code PartialFile::rename(const std::string& name) const {
  const int folder = folder_->descriptor();
  const auto renamed = [&](unsigned flags) {
    return uninterrupted([&] { return ::renameat2(folder, hidden_.c_str(), folder, name.c_str(), flags); }) ==
           0;
  };
  if (renamed(RENAME_NOREPLACE)) return {};
  if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return lastError();
  if (::linkat(folder, hidden_.c_str(), folder, name.c_str(), 0) == 0) {
    ::unlinkat(folder, hidden_.c_str(), 0);
    return {};
  }
  if (errno == EEXIST) return lastError();
  // Without either, an empty file of one's own is what is replaced.
  const Descriptor own(
      ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!own) return lastError();
  if (renamed(0)) return {};
  const auto error = lastError();
  ::unlinkat(folder, name.c_str(), 0);
  return error;
}

std::error_code PartialFile::publish(const std::string& name) {
  const auto error = hidden_.empty() ? link(name) : rename(name);
  if (!error) hidden_.clear();
  return error;
}

}  // namespace quillonic
