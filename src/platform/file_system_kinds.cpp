#include "platform/file_system_kinds.hpp"

#include <algorithm>

namespace quillonic {
namespace {

using namespace std::chrono_literals;
using enum FileSystemServer;
using enum LinkHolding;

constexpr NameRules anyName{};
constexpr NameRules windowsNames{.illegalCharacters = "\\:*?\"<>|",
                                 .allowsControls = false,
                                 .allowsTrailingStopOrSpace = false,
                                 .allowsDeviceNames = false,
                                 .ignoresCase = true,
                                 .characters = NameCharacters::unicode};
constexpr NameRules macNames{
    .illegalCharacters = ":", .ignoresCase = true, .characters = NameCharacters::unicode};
constexpr NameRules tapeNames{.illegalCharacters = {}, .characters = NameCharacters::tape};

constexpr FileSystemKind local(std::string_view name, std::uint32_t magic, NameRules names,
                               std::chrono::nanoseconds dateGrain, FileSystemServer server = kernel) {
  return {.name = name, .server = server, .magics = {magic}, .names = names, .dateGrain = dateGrain};
}

constexpr FileSystemKind withoutLinks(FileSystemKind kind) {
  kind.symbolicLinks = no;
  kind.hardLinks = no;
  return kind;
}

constexpr FileSystemKind fat(std::string_view name, std::uint32_t magic, FileSystemServer server) {
  auto kind = withoutLinks(local(name, magic, windowsNames, 2s, server));
  kind.greatestFileSize = 0xFFFF'FFFF;
  kind.holdsOwners = false;
  return kind;
}

// The programs drop what the kind holds of a second.
constexpr FileSystemKind exfat(std::string_view name, std::uint32_t magic, FileSystemServer server) {
  auto kind = withoutLinks(local(name, magic, windowsNames, server == kernel ? 10ms : 1s, server));
  kind.holdsOwners = false;
  return kind;
}

constexpr FileSystemKind network(std::string_view name, FileSystemServer server,
                                 std::array<std::uint32_t, 2> magics = {}) {
  return {.name = name, .server = server, .magics = magics, .isNetwork = true};
}

constexpr FileSystemKind windowsShare(std::string_view name, std::array<std::uint32_t, 2> magics) {
  auto kind = network(name, kernel, magics);
  kind.symbolicLinks = asMounted;
  return kind;
}

// Not from the C library, which also knows the kinds with symbolic links but counts exFAT among them.
constexpr auto kinds = std::to_array<FileSystemKind>({
    local("ext4", 0xEF53, anyName, 1ns),
    local("ext3", 0xEF53, anyName, 1s),
    local("ext2", 0xEF53, anyName, 1s),
    local("xfs", 0x58465342, anyName, 1ns),
    local("btrfs", 0x9123683E, anyName, 1ns),
    local("tmpfs", 0x01021994, anyName, 1ns),
    fat("vfat", 0x4D44, either),
    fat("msdos", 0x4D44, either),
    exfat("exfat", 0x2011BAB0, kernel),
    exfat("exfat", 0, program),
    exfat("exfat-fuse", 0, program),
    exfat("fuse-exfat", 0, program),
    fat("fusefat", 0, program),
    fat("fatfuse", 0, program),
    fat("umfuse-fat", 0, program),
    // The older driver; its successor supports links.
    withoutLinks(local("ntfs", 0x5346544E, windowsNames, 100ns)),
    local("ntfs", 0, windowsNames, 100ns, program),
    local("ntfs-3g", 0, windowsNames, 100ns, program),
    // A device whose kind is not known: most such volumes have these names.
    local("fuseblk", 0, windowsNames, 0ns, program),
    local("ntfs3", 0x7366746E, windowsNames, 100ns),
    local("ltfs", 0, tapeNames, 1ns, program),
    withoutLinks(local("hfs", 0x4244, macNames, 1s)),
    local("hfsplus", 0x482B, macNames, 1s),
    withoutLinks(local("hpfs", 0xF995E849, windowsNames, 1s)),
    withoutLinks({.name = "proc", .magics = {0x9FA0}}),
    withoutLinks({.name = "sysfs", .magics = {0x62656572}}),
    {.name = "autofs", .magics = {0x0187}, .isAutomount = true},
    windowsShare("cifs", {0xFF534D42, 0xFE534D42}),
    windowsShare("smb3", {0xFE534D42}),
    withoutLinks(network("smbfs", kernel, {0x517B})),
    network("nfs", kernel, {0x6969}),
    network("nfs4", kernel, {0x6969}),
    network("9p", kernel, {0x01021997}),
    network("acfs", kernel),
    network("afp", either),
    network("afs", kernel, {0x5346414F, 0x6B414653}),
    network("ceph", kernel, {0x00C36400}),
    network("coda", kernel, {0x73757245}),
    network("lustre", kernel, {0x0BD00BD0}),
    network("ncp", kernel, {0x564C}),
    network("ncpfs", kernel, {0x564C}),
    network("orangefs", kernel, {0x20030528}),
    network("pvfs2", kernel, {0x20030528}),
    network("beegfs", kernel),
    network("beegfs_nodev", kernel),
    network("cvfs", kernel),
    network("fhgfs", kernel),
    network("fhgfs_nodev", kernel),
    network("gfs2", kernel, {0x01161970}),
    network("gpfs", kernel, {0x47504653}),
    network("ocfs2", kernel, {0x7461636F}),
    network("panfs", kernel, {0xAAD7AAEA}),
    network("stornext", kernel),
    network("wekafs", kernel),
    network("afpfs", program),
    network("ceph-fuse", program),
    network("cephfs", program),
    network("curlftpfs", program),
    network("cvmfs2", program),
    network("davfs", program),
    network("davfs2", program),
    network("gcsfuse", program),
    network("glusterfs", program),
    network("juicefs", program),
    network("lizardfs", program),
    network("mfs", program),
    network("moosefs", program),
    network("quobyte", program),
    network("saunafs", program),
    network("seaweedfs", program),
    network("gvfsd-fuse", program),
    network("rclone", program),
    network("s3fs", program),
    network("smbnetfs", program),
    network("sshfs", program),
});

// Kinds with the same magic number must support the same links.
constexpr bool numbersAreUnambiguous() {
  for (const auto& kind : kinds) {
    for (const auto magic : kind.magics) {
      const auto agrees = [&](const FileSystemKind& other) {
        return std::ranges::find(other.magics, magic) == other.magics.end() ||
               (other.symbolicLinks == kind.symbolicLinks && other.hardLinks == kind.hardLinks);
      };
      if (magic != 0 && !std::ranges::all_of(kinds, agrees)) return false;
    }
  }
  return true;
}
static_assert(numbersAreUnambiguous());

// Kinds served by a program are named "fuse." or, on a device, "fuseblk.", and their own name. If they give
// none, it is that of the program: "mount.exfat".
constexpr std::string_view withoutServer(std::string_view mountedKind) {
  for (const std::string_view prefix : {"fuse.", "fuseblk.", "mount."}) {
    if (mountedKind.starts_with(prefix)) mountedKind.remove_prefix(prefix.size());
  }
  return mountedKind;
}

}  // namespace

const FileSystemKind* kindOfMagic(std::uint32_t magic) noexcept {
  if (magic == 0) return nullptr;
  const auto hasMagic = [&](const FileSystemKind& kind) {
    return std::ranges::find(kind.magics, magic) != kind.magics.end();
  };
  const auto* row = std::ranges::find_if(kinds, hasMagic);
  return row != kinds.end() ? row : nullptr;
}

const FileSystemKind* kindNamed(std::string_view mountedKind, FileSystemServer server) noexcept {
  const auto name = withoutServer(mountedKind);
  const auto isIt = [&](const FileSystemKind& kind) {
    return kind.name == name && (kind.server == server || kind.server == either || server == either);
  };
  const auto* row = std::ranges::find_if(kinds, isIt);
  return row != kinds.end() ? row : nullptr;
}

std::optional<bool> isNetworkVolume(const Mount& mount) noexcept {
  if (const auto* kind = kindNamed(mount.kind, either)) return kind->isNetwork;
  // Without a known name, the address or the device decides.
  const bool isServedByProgram = isProgramServed(mount.kind);
  if (mount.kind == "fuse" && mount.source.find("://") != std::string::npos) return true;
  if (isServedByProgram && mount.deviceMajor == 0 && !mount.source.starts_with("/dev/")) return std::nullopt;
  return false;
}

bool isAutomountKind(std::string_view mountedKind) noexcept {
  const auto* kind = kindNamed(mountedKind, kernel);
  return kind && kind->isAutomount;
}

}  // namespace quillonic
