// The kinds of file systems, and what is known of each.
#pragma once

#include <quillonic/platform/mount_table.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

// What serves volumes of a kind: the kernel, or a program through it.
enum class FileSystemServer : std::uint8_t { kernel, program, either };

// Which links volumes of a kind hold.
enum class LinkHolding : std::uint8_t {
  yes,
  no,
  // Only where the volume was mounted with an option for them.
  asMounted,
};

// Which names volumes of a kind hold, beyond that no name has a slash or a NUL.
struct NameRules {
  std::string_view illegalCharacters;
  bool allowsControls = true;
  bool allowsTrailingStopOrSpace = true;
};

struct FileSystemKind {
  // As the mount table writes it, without the "fuse." of what a program serves.
  std::string_view name;
  FileSystemServer server = FileSystemServer::kernel;
  // The `f_type` of `statfs`; 0 is none.
  std::array<std::uint32_t, 2> magics{};
  LinkHolding symbolicLinks = LinkHolding::yes;
  LinkHolding hardLinks = LinkHolding::yes;
  // Absent where it is not known, as for what another machine serves.
  std::optional<NameRules> names = std::nullopt;
  // The step in which modification dates are kept; 0 where it is not known.
  std::chrono::nanoseconds dateGrain{0};
  // Another machine serves it.
  bool isNetwork = false;
  // A look below such a folder mounts something there.
  bool isAutomount = false;
};

// Null for a kind about which nothing is known; most of these hold links. Names are those of the mount table.
const FileSystemKind* kindOfMagic(std::uint32_t magic) noexcept;
const FileSystemKind* kindNamed(std::string_view mountedKind, FileSystemServer server) noexcept;

// Whether another machine serves a volume; nothing where a program may have it from anywhere.
std::optional<bool> isNetworkVolume(const Mount& mount) noexcept;
bool isAutomountKind(std::string_view mountedKind) noexcept;

// What "fuse" and "fuseblk" volumes report as their kind.
inline constexpr std::uint32_t programServedMagic = 0x65735546;

// The kind of a volume: that of the mount table, or where this names no kind but "fuse" or "fuseblk", that of
// the device database or the device itself, if any: "exfat".
std::string trueKindOf(const Mount& mount);

// What a mount's true kind is known to be, or null.
const FileSystemKind* knownKindOf(const Mount& mount);

}  // namespace quillonic
