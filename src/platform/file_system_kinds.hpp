// The kinds of file systems and their properties.
#pragma once

#include <quillonic/platform/mount_table.hpp>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

// Who serves volumes of a kind: the kernel, or a program through it.
enum class FileSystemServer : std::uint8_t { kernel, program, either };

// Which links volumes of a kind support.
enum class LinkHolding : std::uint8_t {
  yes,
  no,
  // Only if the volume was mounted with an option for them.
  asMounted,
};

// Which characters a kind's names have.
enum class NameCharacters : std::uint8_t {
  // Any bytes, of which the length is counted.
  bytes,
  // Unicode, counted in units of UTF-16.
  unicode,
  // Those of a tape, counted in bytes.
  tape,
};

// Which names volumes of a kind support; a slash and a NUL are never allowed.
struct NameRules {
  std::string_view illegalCharacters;
  bool allowsControls = true;
  bool allowsTrailingStopOrSpace = true;
  // Names of devices, such as "con" and "lpt1", name no file, whatever their extension.
  bool allowsDeviceNames = true;
  bool ignoresCase = false;
  NameCharacters characters = NameCharacters::bytes;
  std::size_t greatestLength = 255;
};

struct FileSystemKind {
  // As in the mount table, without the server: "fuse." and the like.
  std::string_view name;
  FileSystemServer server = FileSystemServer::kernel;
  // The `f_type` of `statfs`; 0 for none.
  std::array<std::uint32_t, 2> magics{};
  LinkHolding symbolicLinks = LinkHolding::yes;
  LinkHolding hardLinks = LinkHolding::yes;
  // Absent when unknown, as when another machine serves the volume.
  std::optional<NameRules> names = std::nullopt;
  // The granularity of modification dates; 0 when unknown.
  std::chrono::nanoseconds dateGrain{0};
  // In bytes; 0 when no file that exists is too large.
  std::uint64_t greatestFileSize = 0;
  // Whether items have owners and permissions of their own.
  bool holdsOwners = true;
  // Another machine serves it.
  bool isNetwork = false;
  // Looking at a name in such a folder mounts something there.
  bool isAutomount = false;
};

// Null for unknown kinds, most of which support links. Names are those of the mount table.
const FileSystemKind* kindOfMagic(std::uint32_t magic) noexcept;
const FileSystemKind* kindNamed(std::string_view mountedKind, FileSystemServer server) noexcept;

// Whether another machine serves a volume; nothing when a program may get it from anywhere.
std::optional<bool> isNetworkVolume(const Mount& mount) noexcept;
// Not for "fusectl", which the kernel serves.
constexpr bool isProgramServed(std::string_view mountedKind) noexcept {
  const auto server = mountedKind.substr(0, mountedKind.find('.'));
  return server == "fuse" || server == "fuseblk";
}
bool isAutomountKind(std::string_view mountedKind) noexcept;

// The magic number of "fuse" and "fuseblk" volumes.
inline constexpr std::uint32_t programServedMagic = 0x65735546;

// The kind of a volume: that of the mount table, or if this is only "fuse" or begins with "fuseblk", that of
// the device database, or of what the device or the file with the volume begins with, if known: "exfat".
std::string trueKindOf(const Mount& mount);

// What is known of a mount's true kind, or null.
const FileSystemKind* knownKindOf(const Mount& mount);

}  // namespace quillonic
