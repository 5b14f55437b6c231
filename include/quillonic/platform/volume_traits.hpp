/// What the volume of an item holds.
///
///     const auto volume = VolumeTraits::at("/media/SHUTTLE");
///     if (volume.greatestFileSize != 0 && clip > volume.greatestFileSize) refuse();
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>

namespace quillonic {

/// The properties of a volume that decide about copies.
struct VolumeTraits {
  /// The kind of file system as in the mount table, "exfat"; empty when unknown. "fuse" or "fuseblk" only when
  /// a program serves the volume and nothing more is known.
  std::string kind;
  /// The granularity of modification dates in nanoseconds; 0 when unknown.
  std::int64_t dateGrain = 0;
  /// In bytes; 0 when no file is too large.
  std::int64_t greatestFileSize = 0;
  /// Whether the volume holds symbolic links.
  bool holdsSymbolicLinks = true;
  /// Whether a file may have several names.
  bool holdsHardLinks = true;
  /// Whether items have owners and permissions of their own.
  bool holdsOwners = true;
  /// Whether one wait for the whole volume makes everything on it durable. Where a program or another machine
  /// serves the volume, only a wait for each file tells that to the server.
  bool syncsAtOnce = false;

  /// The traits of volumes of a kind, given as in the mount table; those of an ordinary volume for an unknown
  /// one. Asks nothing of the system.
  QUILLONIC_EXPORT static VolumeTraits ofKind(std::string_view kind);

  /// The traits of the volume that holds an item, or its nearest existing parent folder. Throws a
  /// `std::system_error` when the volume cannot be asked.
  QUILLONIC_EXPORT static VolumeTraits at(const std::filesystem::path& item);

  friend bool operator==(const VolumeTraits&, const VolumeTraits&) = default;
};

/// How traits are stored.
template <> struct FieldTable<VolumeTraits> {
  static constexpr auto fields = std::tuple(
      Field{"kind", &VolumeTraits::kind}, Field{"dateGrain", &VolumeTraits::dateGrain},
      Field{"greatestFileSize", &VolumeTraits::greatestFileSize},
      Field{"holdsSymbolicLinks", &VolumeTraits::holdsSymbolicLinks},
      Field{"holdsHardLinks", &VolumeTraits::holdsHardLinks},
      Field{"holdsOwners", &VolumeTraits::holdsOwners}, Field{"syncsAtOnce", &VolumeTraits::syncsAtOnce});
};

}  // namespace quillonic
