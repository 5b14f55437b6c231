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

#include "platform/link_support.hpp"
#include "platform/path_text.hpp"

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

// Links that the client writes as files of its own, or that the server was told to keep.
bool wasMountedForSymbolicLinks(const std::filesystem::path& item) {
  const auto table = MountTable::current();
  const auto* mount = table.holding(item);
  if (!mount) return false;
  const auto options = "," + mount->superOptions + ",";
  constexpr std::string_view wanted[] = {",mfsymlinks,",     ",unix,",         ",posix,",
                                         ",symlink=native,", ",symlink=unix,", ",symlink=mfsymlinks,"};
  return std::ranges::any_of(
      wanted, [&](std::string_view option) { return options.find(option) != std::string::npos; });
}

}  // namespace

std::optional<LinkSupport> linkSupportAt(const std::filesystem::path& item, std::error_code& error) {
  error.clear();
  const std::string path(path_text::withoutTrailingSlashes(item.native()));
  if (path.find('\0') != std::string::npos) {
    error = {ENOENT, std::system_category()};
    return std::nullopt;
  }
  struct statfs volume {};
  // Only names the item: a link is not followed, and nothing needs to be readable.
  const int place = ::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
  const bool isKnown = place >= 0 && ::fstatfs(place, &volume) == 0;
  if (!isKnown) error = {errno, std::system_category()};
  if (place >= 0) ::close(place);
  if (!isKnown) return std::nullopt;

  const auto kind = static_cast<std::uint32_t>(volume.f_type);
  const auto* row = std::ranges::find(rows, kind, &Row::kind);
  if (row == rows.end()) return LinkSupport{true, true};
  auto support = row->support;
  if (support.hardLinks && !support.symbolicLinks) support.symbolicLinks = wasMountedForSymbolicLinks(item);
  return support;
}

}  // namespace quillonic
