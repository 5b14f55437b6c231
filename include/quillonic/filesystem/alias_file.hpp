/// The contents of alias files.
///
///     if (auto alias = AliasFile::fromBytes(bytes)) use(alias->pathComponents);
///     std::string bytes = AliasFile{.pathComponents = {"Volumes", "CARD", "A.MXF"}}.bytes();
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/date.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// What an alias file records of its target. Most of it helps to find a target that has moved or whose volume
/// is mounted elsewhere; only the path is always present.
struct QUILLONIC_EXPORT AliasFile {
  /// Flags, and a mask of the valid ones.
  struct Properties {
    /// One bit per flag.
    std::uint64_t flags = 0;
    /// The bits of `flags` that are valid.
    std::uint64_t mask = 0;

    friend bool operator==(const Properties&, const Properties&) = default;
  };

  /// The flags of `targetProperties`.
  enum TargetFlag : std::uint64_t {
    regularFile = 1,
    directory = 2,
    symbolicLink = 4,
    volume = 8,
    hidden = 0x80,
    alias = 0x8000,
  };

  /// The flags of `volumeProperties`.
  enum VolumeFlag : std::uint64_t {
    local = 1,
    readOnly = 8,
    ejectable = 0x20,
    removable = 0x40,
    internal = 0x80,
    external = 0x100,
  };

  /// The number of leading bytes that identify an alias file.
  static constexpr std::size_t markSize = 16;
  /// The maximum size of an alias file in bytes, more than ten times what desktops write. A larger file is
  /// never one, whatever its contents, and no operation opens it: most camera clips stay closed.
  static constexpr std::size_t greatestSize = std::size_t{1} << 26;

  /// The names from the root to the target, each a plain name; empty for the root.
  std::vector<std::string> pathComponents;
  /// The kind of item; see `TargetFlag`.
  std::optional<Properties> targetProperties = std::nullopt;
  /// When the target was created. Files store seconds since 2001 in floating point, which rounds present
  /// dates to about a hundred nanoseconds. Absent when read from a file that records a date before 1747 or
  /// after 2254.
  std::optional<Date> targetCreationDate = std::nullopt;
  /// The number of trailing names, its own included, to remove from the alias file's path.
  std::optional<std::int64_t> relativeDirsUp = std::nullopt;
  /// The number of trailing names of the target's path to append then.
  std::optional<std::int64_t> relativeDirsDown = std::nullopt;
  /// Where the target's volume was mounted.
  std::optional<std::string> volumePath = std::nullopt;
  /// The display name of the target's volume.
  std::optional<std::string> volumeName = std::nullopt;
  /// The volume's identifier as a text, the same wherever it is mounted.
  std::optional<std::string> volumeUUID = std::nullopt;
  /// The kind of volume; see `VolumeFlag`.
  std::optional<Properties> volumeProperties = std::nullopt;
  /// The number of trailing names of the target's path below its creator's home folder.
  std::optional<std::int64_t> componentsBelowHome = std::nullopt;
  /// The account name of the alias's creator.
  std::optional<std::string> userName = std::nullopt;
  /// The account number of the alias's creator.
  std::optional<std::int64_t> userID = std::nullopt;
  /// 1024 for an alias file.
  std::optional<std::int64_t> creationOptions = std::nullopt;
  /// The display name of the target.
  std::optional<std::string> displayName = std::nullopt;

  /// Whether a file with these first bytes is an alias file, judged by the first `markSize` bytes alone.
  static bool isAliasFile(std::string_view firstBytes) noexcept;

  /// Reads an alias file, or the plain bookmark data of property lists. Nothing when the bytes are neither or
  /// are cut short, or when the path has more than 512 names or a name that is not plain: empty, "." or "..",
  /// with a slash or a NUL, or longer than 1024 bytes. Any other damaged or mistyped value is absent. Never
  /// reads outside the bytes; linear time.
  static std::optional<AliasFile> fromBytes(std::string_view bytes);

  /// The bytes of an alias file created at a given time; equal contents give equal bytes. Writes even names
  /// that `fromBytes` rejects.
  std::string bytes(Date madeAt = {}) const;

  friend bool operator==(const AliasFile&, const AliasFile&) = default;
};

}  // namespace quillonic
