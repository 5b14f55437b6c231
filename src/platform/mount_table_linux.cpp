#include <quillonic/platform/logging.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

struct Whereabouts {
  bool exists = false;
  bool isDirectory = false;
  // Absent when the kernel or the file system does not report it.
  std::optional<std::uint64_t> mountIdentifier;
};

Whereabouts whereaboutsOf(const char* path, int linkFlag) noexcept {
  struct statx item {};
  // Wakes no automounter and asks no server: neither is needed to know the mount.
  const int flags = linkFlag | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
  if (::statx(AT_FDCWD, path, flags, STATX_TYPE | STATX_MNT_ID, &item) == 0) {
    Whereabouts found{.exists = true, .isDirectory = S_ISDIR(item.stx_mode), .mountIdentifier = {}};
    if ((item.stx_mask & STATX_MNT_ID) != 0) found.mountIdentifier = item.stx_mnt_id;
    return found;
  }
  if (errno != ENOSYS && errno != EPERM) return {};
  // Some sandboxes refuse only the newer call.
  struct stat older {};
  if (::fstatat(AT_FDCWD, path, &older, linkFlag | AT_NO_AUTOMOUNT) != 0) return {};
  return {.exists = true, .isDirectory = S_ISDIR(older.st_mode), .mountIdentifier = {}};
}

}  // namespace

MountTable MountTable::current() {
  const auto text = contentsOfFile("/proc/self/mountinfo");
  if (!text) {
    VantiroLogging::defaultLogger()->logWarning("QLC_MT_C-Failed to read the mount table with error " +
                                                text.error().message());
    return {};
  }
  return fromText(*text);
}

const Mount* MountTable::holding(const std::filesystem::path& item) const {
  const std::string path(path_text::withoutTrailingSlashes(item.native()));
  if (path.empty() || path.find('\0') != std::string::npos) return nullptr;
  const std::string prefix(path_text::folderPrefix(path));
  const auto folder = [&] { return prefix.empty() ? std::string(".") : prefix; };
  auto found = whereaboutsOf(path.c_str(), AT_SYMLINK_NOFOLLOW);
  const bool itself = found.exists;
  if (!itself) {
    found = whereaboutsOf(folder().c_str(), 0);
    if (!found.exists || !found.isDirectory) return nullptr;
  }
  if (found.mountIdentifier) {
    if (const auto* mount = withIdentifier(*found.mountIdentifier)) return mount;
  }

  // Mounted after the table was read, or not reported by the system.
  const auto name = path.substr(prefix.size());
  const bool namesFolder = name.empty() || name == "." || name == "..";
  const auto place = items::canonical(namesFolder ? path : folder());
  if (!place) return nullptr;
  std::filesystem::path resolved(*place);
  if (itself && !namesFolder) resolved /= name;
  return withLongestMountPoint(resolved);
}

}  // namespace quillonic
