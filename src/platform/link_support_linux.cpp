#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/vfs.h>
#include <unistd.h>

#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"
#include "platform/link_support.hpp"
#include "platform/path_text.hpp"
#include "platform/volume_names.hpp"

namespace quillonic {
namespace {

struct Row {
  std::uint32_t kind;
  LinkSupport support;
};

// The kinds of file systems that lack a kind of link. The C library has a table of its own, which credits exFAT
// with symbolic links.
constexpr auto rows = std::to_array<Row>({
    {0x00004D44, {false, false}},  // vfat and msdos
    {0x2011BAB0, {false, false}},  // exFAT
    {0x00004244, {false, false}},  // hfs, the one before hfs+
    {0xF995E849, {false, false}},  // hpfs
    {0x5346544E, {false, false}},  // the older driver for ntfs
    {0xFF534D42, {false, true}},   // cifs, unless it was mounted with an option for symbolic links
    {0xFE534D42, {false, true}},   // the same under its newer number
    {0x0000517B, {false, false}},  // smb, the one before cifs
    {0x00009FA0, {false, false}},  // proc
    {0x62656572, {false, false}},  // sysfs
});

// fuse and fuseblk
constexpr std::uint32_t servedByProgram = 0x65735546;

// Links that the client writes as files of its own, or that the server was told to keep.
bool wasMountedForSymbolicLinks(const Mount& mount) {
  const auto options = "," + mount.superOptions + ",";
  constexpr std::string_view wanted[] = {",mfsymlinks,",     ",unix,",         ",posix,",
                                         ",symlink=native,", ",symlink=unix,", ",symlink=mfsymlinks,"};
  return std::ranges::any_of(
      wanted, [&](std::string_view option) { return options.find(option) != std::string::npos; });
}

// The kind of file system that a program serves: "exfat" of "fuse.exfat"; for "fuseblk", which names none, what is
// known of its device. Empty where nobody knows.
std::string servedKind(const Mount& mount) {
  const auto point = mount.kind.find('.');
  if (point != std::string::npos) return mount.kind.substr(point + 1);
  const auto device = deviceOf(mount);
  const auto number = std::to_string(device.major) + ":" + std::to_string(device.minor);
  const auto record = contentsOfFile("/run/udev/data/b" + number).value_or(std::string());
  constexpr std::string_view key = "\nE:ID_FS_TYPE=";
  if (const auto at = record.find(key); at != std::string::npos) {
    const auto value = at + key.size();
    return record.substr(value, record.find('\n', value) - value);
  }
  // Whoever may read the device sees it there.
  std::error_code ignored;
  const auto start = items::firstBytes(mount.source, 11, ignored);
  return start && start->ends_with("EXFAT   ") ? "exfat" : "";
}

bool lacksLinks(std::string_view servedKind) {
  return servedKind.starts_with("exfat") || servedKind == "vfat" || servedKind == "msdos";
}

// Opens an item, or the nearest folder above it that is there, on whose volume it will be made. Names it only:
// a link that is the item itself is not followed, and nothing needs to be readable. The path becomes that of
// what was opened.
int openedPlace(std::string& path, std::error_code& error) {
  int place = ::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
  while (place < 0 && errno == ENOENT && !path.empty() && path != ".") {
    const auto folder = path_text::folderPrefix(path);
    // Nothing can be made behind a dangling link, and which folder a ".." means is not known yet.
    const bool isEnd = std::string_view(path).substr(folder.size()) == ".." || items::status(path, error);
    errno = ENOENT;
    if (isEnd) break;
    path = folder.empty() ? "." : std::string(path_text::withoutTrailingSlashes(folder));
    place = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    // The folder may be behind a link.
    if (place >= 0) path += "/.";
  }
  error = {place < 0 ? errno : 0, std::system_category()};
  return place;
}

// What the kind of file system alone does not tell.
LinkSupport adjusted(LinkSupport support, std::uint32_t kind, const std::string& path) {
  const bool isServed = kind == servedByProgram;
  const bool isShare = support.hardLinks && !support.symbolicLinks;
  if (!isServed && !isShare) return support;
  const auto mounts = MountTable::current();
  const auto* mount = mounts.holding(path);
  if (mount && isServed && lacksLinks(servedKind(*mount))) return {false, false};
  if (mount && isShare) support.symbolicLinks = wasMountedForSymbolicLinks(*mount);
  return support;
}

}  // namespace

std::optional<LinkSupport> linkSupportAt(const std::filesystem::path& item, std::error_code& error) {
  std::string path(path_text::withoutTrailingSlashes(item.native()));
  if (path.find('\0') != std::string::npos) {
    error = {ENOENT, std::system_category()};
    return std::nullopt;
  }
  const int place = openedPlace(path, error);
  if (place < 0) return std::nullopt;
  struct statfs volume {};
  if (::fstatfs(place, &volume) != 0) error = {errno, std::system_category()};
  ::close(place);
  if (error) return std::nullopt;
  const auto kind = static_cast<std::uint32_t>(volume.f_type);
  const auto* row = std::ranges::find(rows, kind, &Row::kind);
  return adjusted(row == rows.end() ? LinkSupport{true, true} : row->support, kind, path);
}

}  // namespace quillonic
