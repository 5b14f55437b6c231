#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/vfs.h>
#include <utility>

#include "platform/descriptor_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/items.hpp"
#include "platform/link_support.hpp"
#include "platform/path_text.hpp"
#include "text/pieces.hpp"

namespace quillonic {
namespace {

// Links that the client writes as files, or that the server was told to keep.
bool wasMountedForSymbolicLinks(const Mount* mount) {
  constexpr std::string_view wanted[] = {"mfsymlinks",     "unix",         "posix",
                                         "symlink=native", "symlink=unix", "symlink=mfsymlinks"};
  return mount && std::ranges::any_of(wanted, [&](std::string_view option) {
           return text::hasPiece(mount->superOptions, ',', option);
         });
}

struct OpenedPlace {
  Descriptor opened;
  // The path that was opened.
  std::string path;
  bool isParent = false;
};

// Whether the names in a folder are mount points, so that a missing name is a pulled volume.
bool holdsMountPoints(std::string_view folder, const MountTable& mounts) {
  if (const auto* mount = mounts.withLongestMountPoint(folder); mount && mount->mountPoint == folder)
    return false;
  const auto parent = path_text::folderOf(folder);
  // Desktops give each user a folder there.
  return folder == "/media" || folder == "/run/media" || folder == "/mnt" || parent == "/media" ||
         parent == "/run/media";
}

// Opens an item, or its nearest existing parent folder, on whose volume it will be created, without following
// a final link. Nothing needs to be readable.
Result<OpenedPlace> openedPlace(std::string path) {
  Descriptor place(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  const bool isParent = !place;
  while (!place && errno == ENOENT && !path.empty() && path != ".") {
    const auto folder = path_text::folderPrefix(path);
    // Nothing can be created below a dangling link, and it is not known yet which folder a ".." means.
    const bool isEnd = std::string_view(path).substr(folder.size()) == ".." || items::status(path);
    errno = ENOENT;
    if (isEnd) break;
    path = folder.empty() ? "." : std::string(path_text::withoutTrailingSlashes(folder));
    place = Descriptor(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    // The path may be a link to the folder.
    if (place) path += "/.";
  }
  if (!place) return lastError();
  return OpenedPlace{std::move(place), std::move(path), isParent};
}

}  // namespace

Result<LinkSupport> linkSupportAt(const std::filesystem::path& item) {
  std::string path(path_text::withoutTrailingSlashes(item.native()));
  if (path.find('\0') != std::string::npos) return items::systemError(std::errc::no_such_file_or_directory);
  const auto place = openedPlace(std::move(path));
  if (!place) return place.error();
  if (place->isParent) {
    const auto folder = items::canonical(place->path);
    if (folder && holdsMountPoints(*folder, MountTable::current())) {
      return items::systemError(std::errc::no_such_file_or_directory);
    }
  }
  struct statfs volume {};
  if (::fstatfs(place->opened.number(), &volume) != 0) return lastError();

  const auto magic = static_cast<std::uint32_t>(volume.f_type);
  const auto* kind = kindOfMagic(magic);
  const bool isServedByProgram = magic == programServedMagic;
  const bool needsMount = isServedByProgram || (kind && kind->symbolicLinks == LinkHolding::asMounted);
  const auto mounts = needsMount ? MountTable::current() : MountTable();
  const auto* mount = mounts.holding(place->path);
  if (isServedByProgram && mount) kind = knownKindOf(*mount);
  const auto holds = [&](LinkHolding holding) {
    return holding == LinkHolding::asMounted ? wasMountedForSymbolicLinks(mount)
                                             : holding == LinkHolding::yes;
  };
  if (!kind) return LinkSupport{true, true};
  return LinkSupport{holds(kind->symbolicLinks), holds(kind->hardLinks)};
}

}  // namespace quillonic
