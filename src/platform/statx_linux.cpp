#include "platform/statx_linux.hpp"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <sys/sysmacros.h>

#include "platform/descriptor_linux.hpp"

namespace quillonic {

bool readStatus(int folder, const char* path, int flags, unsigned mask, struct statx& item) noexcept {
  if (uninterrupted([&] { return ::statx(folder, path, flags, mask, &item); }) == 0) return true;
  // The C library replaces a missing call, but not with all flags.
  if (errno != ENOSYS && errno != EPERM && errno != EINVAL) return false;
  return readBasicStatus(folder, path, flags & ~AT_STATX_DONT_SYNC, item);
}

bool readBasicStatus(int folder, const char* path, int flags, struct statx& item) noexcept {
  struct stat older {};
  if (uninterrupted([&] { return ::fstatat(folder, path, &older, flags); }) != 0) return false;
  item = {};
  item.stx_mask = STATX_BASIC_STATS;
  item.stx_mode = static_cast<decltype(item.stx_mode)>(older.st_mode);
  item.stx_size = static_cast<std::uint64_t>(older.st_size);
  item.stx_dev_major = major(older.st_dev);
  item.stx_dev_minor = minor(older.st_dev);
  item.stx_ino = older.st_ino;
  item.stx_nlink = static_cast<std::uint32_t>(older.st_nlink);
  item.stx_uid = older.st_uid;
  item.stx_gid = older.st_gid;
  item.stx_blocks = static_cast<std::uint64_t>(older.st_blocks);
  item.stx_atime.tv_sec = older.st_atim.tv_sec;
  item.stx_atime.tv_nsec = static_cast<std::uint32_t>(older.st_atim.tv_nsec);
  item.stx_mtime.tv_sec = older.st_mtim.tv_sec;
  item.stx_mtime.tv_nsec = static_cast<std::uint32_t>(older.st_mtim.tv_nsec);
  return true;
}

}  // namespace quillonic
