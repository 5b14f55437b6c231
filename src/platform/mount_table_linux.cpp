#include <quillonic/platform/logging.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <array>
#include <fcntl.h>
#include <optional>

#include "platform/descriptor_linux.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"
#include "platform/mount_holding.hpp"
#include "platform/path_text.hpp"
#include "platform/statx_linux.hpp"

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
  if (!readStatus(AT_FDCWD, path, flags, STATX_TYPE | STATX_MNT_ID, item)) return {};
  Whereabouts found{.exists = true, .isDirectory = S_ISDIR(item.stx_mode), .mountIdentifier = {}};
  if ((item.stx_mask & STATX_MNT_ID) != 0) found.mountIdentifier = item.stx_mnt_id;
  return found;
}

// Where an item is looked for: itself, or the folder of one that is missing.
struct SoughtItem {
  std::string path;
  // The part of the path before the item's name; empty for a name in the working folder.
  std::string prefix;
  bool isItself = false;
  std::optional<std::uint64_t> mountIdentifier;

  std::string folder() const { return prefix.empty() ? "." : prefix; }
};

// Nothing where the folder is missing too.
std::optional<SoughtItem> soughtItem(const std::filesystem::path& item) {
  SoughtItem sought;
  sought.path = path_text::withoutTrailingSlashes(item.native());
  if (sought.path.empty() || sought.path.find('\0') != std::string::npos) return std::nullopt;
  sought.prefix = path_text::folderPrefix(sought.path);
  auto found = whereaboutsOf(sought.path.c_str(), AT_SYMLINK_NOFOLLOW);
  sought.isItself = found.exists;
  if (!sought.isItself) {
    found = whereaboutsOf(sought.folder().c_str(), 0);
    if (!found.exists || !found.isDirectory) return std::nullopt;
  }
  sought.mountIdentifier = found.mountIdentifier;
  return sought;
}

constexpr auto tableFile = "/proc/self/mountinfo";

// The mount with an identifier. The system takes its time to write each line of its table, so that the lines
// after that of the mount are not read.
std::optional<Mount> readMount(std::uint64_t identifier) {
  const Descriptor table(::open(tableFile, O_RDONLY | O_CLOEXEC));
  const auto start = std::to_string(identifier) + ' ';
  // The line that is being read.
  std::string line;
  std::array<char, 512> block;
  for (auto count = ::read(table.number(), block.data(), block.size()); count > 0;
       count = ::read(table.number(), block.data(), block.size())) {
    line.append(block.data(), static_cast<std::size_t>(count));
    for (auto end = line.find('\n'); end != std::string::npos; end = line.find('\n')) {
      if (line.starts_with(start)) {
        const auto mounts = MountTable::fromText(std::string_view(line).substr(0, end));
        return mounts.mounts().empty() ? std::nullopt : std::optional(mounts.mounts().front());
      }
      line.erase(0, end + 1);
    }
  }
  return std::nullopt;
}

constexpr unsigned lastingIdentifierPart = 0x4000;  // STATX_MNT_ID_UNIQUE, since Linux 6.8

}  // namespace

MountTable MountTable::current() {
  const auto text = contentsOfFile(tableFile);
  if (!text) {
    VantiroLogging::defaultLogger()->logWarning("QLC_MT_C-Failed to read the mount table with error " +
                                                text.error().message());
    return {};
  }
  return fromText(*text);
}

const Mount* MountTable::holding(const std::filesystem::path& item) const {
  const auto sought = soughtItem(item);
  if (!sought) return nullptr;
  if (sought->mountIdentifier) {
    if (const auto* mount = withIdentifier(*sought->mountIdentifier)) return mount;
  }

  // Mounted since the table was read, or not reported by the system.
  const auto name = sought->path.substr(sought->prefix.size());
  const bool namesFolder = name.empty() || name == "." || name == "..";
  const auto canonical = items::canonical(namesFolder ? sought->path : sought->folder());
  if (!canonical) return nullptr;
  std::filesystem::path resolved(*canonical);
  if (sought->isItself && !namesFolder) resolved /= name;
  return withLongestMountPoint(resolved);
}

std::optional<Mount> mountHolding(const std::filesystem::path& item) {
  const auto sought = soughtItem(item);
  if (!sought) return std::nullopt;
  if (sought->mountIdentifier) {
    if (auto mount = readMount(*sought->mountIdentifier)) return mount;
  }
  const auto table = MountTable::current();
  const auto* mount = table.holding(item);
  return mount ? std::optional(*mount) : std::nullopt;
}

std::optional<std::uint64_t> lastingIdentifier(const Mount& mount) {
  const auto* const path = mount.mountPoint.c_str();
  if (whereaboutsOf(path, AT_SYMLINK_NOFOLLOW).mountIdentifier != mount.identifier) return std::nullopt;
  struct statx item {};
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
  if (!readStatus(AT_FDCWD, path, flags, lastingIdentifierPart, item)) return std::nullopt;
  return (item.stx_mask & lastingIdentifierPart) != 0 ? std::optional<std::uint64_t>(item.stx_mnt_id)
                                                      : std::nullopt;
}

}  // namespace quillonic
