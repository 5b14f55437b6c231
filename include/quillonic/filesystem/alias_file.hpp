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

/// What an alias file records of its target. Most of it helps to find a target that has moved, or whose
/// volume is mounted elsewhere; only the path is always present.
struct QUILLONIC_EXPORT AliasFile {
  /// Flags, and a mask of the known ones.
  struct Properties {
    /// One bit per flag.
    std::uint64_t flags = 0;
    /// The bits of `flags` that have a meaning.
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

  /// The number of leading bytes that make a file an alias file.
  static constexpr std::size_t markSize = 16;
  /// The greatest number of bytes of an alias file, more than ten times what desktops write. A greater file
  /// is never one, whatever it begins with, and no operation opens it: most camera clips stay closed.
  static constexpr std::size_t greatestSize = std::size_t{1} << 26;

  /// The names from the root to the target, each a plain name; empty for the root.
  std::vector<std::string> pathComponents;
  /// What kind of item the target was; see `TargetFlag`.
  std::optional<Properties> targetProperties = std::nullopt;
  /// When the target was made. Files hold seconds since 2001 as a floating-point number, which rounds today's
  /// dates to about a hundred nanoseconds.
  std::optional<Date> targetCreationDate = std::nullopt;
  /// The number of trailing names, its own included, to take off the alias file's path.
  std::optional<std::int64_t> relativeDirsUp = std::nullopt;
  /// The number of trailing names of the target's path to add then.
  std::optional<std::int64_t> relativeDirsDown = std::nullopt;
  /// Where the target's volume was mounted.
  std::optional<std::string> volumePath = std::nullopt;
  /// The name of the target's volume for people.
  std::optional<std::string> volumeName = std::nullopt;
  /// The volume's identifier, as a text; the same wherever it is mounted.
  std::optional<std::string> volumeUUID = std::nullopt;
  /// What kind of volume it was; see `VolumeFlag`.
  std::optional<Properties> volumeProperties = std::nullopt;
  /// The number of trailing names of the target's path that are below the home of the alias's maker.
  std::optional<std::int64_t> componentsBelowHome = std::nullopt;
  /// The account of the alias's maker.
  std::optional<std::string> userName = std::nullopt;
  /// The number of that account.
  std::optional<std::int64_t> userID = std::nullopt;
  /// 1024 for an alias file.
  std::optional<std::int64_t> creationOptions = std::nullopt;
  /// The target's name as people see it.
  std::optional<std::string> displayName = std::nullopt;

  /// Whether a file that begins with these bytes is an alias file, by its first `markSize` bytes alone.
  static bool isAliasFile(std::string_view firstBytes) noexcept;

  /// Reads an alias file, or the plain bookmark data that property lists carry. Nothing for bytes that are
  /// neither, that are cut short, or whose path has more than 512 names or one that is not plain: empty, "."
  /// or "..", with a slash or a NUL, or longer than 1024 bytes. Another value that is damaged or of an
  /// unexpected type is absent. Never reads outside the bytes; takes time in proportion to their number.
  static std::optional<AliasFile> fromBytes(std::string_view bytes);

  /// The bytes of an alias file that was made at a time; equal contents give equal bytes. Writes names that
  /// `fromBytes` rejects as they are.
  std::string bytes(Date madeAt = {}) const;

  friend bool operator==(const AliasFile&, const AliasFile&) = default;
};

}  // namespace quillonic
