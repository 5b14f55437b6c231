/// The contents of alias files.
///
///     if (auto alias = AliasFile::fromBytes(bytes)) use(alias->pathComponents);
///     std::string bytes = AliasFile{.pathComponents = {"Volumes", "CARD", "A.MXF"}}.bytes();
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/any_value.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// What an alias file records of its target. Most of it helps to find a target that has moved or that lies on
/// a volume which is mounted elsewhere; all but the path may be absent.
struct QUILLONIC_EXPORT AliasFile {
  /// Flags, and a mask of those flags that are known.
  struct Properties {
    /// The values of the flags, one bit each.
    std::uint64_t flags = 0;
    /// Which of those bits mean anything; the others say nothing.
    std::uint64_t mask = 0;

    friend bool operator==(const Properties&, const Properties&) = default;
  };

  /// What `targetProperties` tells.
  enum TargetFlag : std::uint64_t {
    regularFile = 1,
    directory = 2,
    symbolicLink = 4,
    volume = 8,
    hidden = 0x80,
    alias = 0x8000,
  };

  /// What `volumeProperties` tells.
  enum VolumeFlag : std::uint64_t {
    local = 1,
    readOnly = 8,
    ejectable = 0x20,
    removable = 0x40,
    internal = 0x80,
    external = 0x100,
  };

  /// How many bytes at the start of a file tell whether it is an alias file.
  static constexpr std::size_t markSize = 16;
  /// No alias file is greater than this many bytes, some hundred times what desktops write. A greater file is
  /// none whatever it begins with, and is nowhere looked into: camera clips need not be opened.
  static constexpr std::size_t greatestSize = std::size_t{1} << 20;

  /// The names from the root to the target, each a plain name; none for the root itself.
  std::vector<std::string> pathComponents;
  /// What kind of item the target was; see `TargetFlag`.
  std::optional<Properties> targetProperties = std::nullopt;
  /// When the target was made. Files hold seconds since 2001 as a floating-point number, so of today's dates
  /// the last hundred nanoseconds are lost.
  std::optional<AnyValue::Date> targetCreationDate = std::nullopt;
  /// How many names to take from the end of the alias file's own path, its own name included, and how many
  /// from the end of the target's to add then.
  std::optional<std::int64_t> relativeDirsUp = std::nullopt;
  /// The number of names that are added then.
  std::optional<std::int64_t> relativeDirsDown = std::nullopt;
  /// Where the target's volume was mounted.
  std::optional<std::string> volumePath = std::nullopt;
  /// The name of the target's volume for people.
  std::optional<std::string> volumeName = std::nullopt;
  /// What identifies the volume wherever it is mounted, as a text.
  std::optional<std::string> volumeUUID = std::nullopt;
  /// What kind of volume it was; see `VolumeFlag`.
  std::optional<Properties> volumeProperties = std::nullopt;
  /// How many names at the end of the target's path lie below the home of who made the alias.
  std::optional<std::int64_t> componentsBelowHome = std::nullopt;
  /// The account of who made the alias.
  std::optional<std::string> userName = std::nullopt;
  /// The number of that account.
  std::optional<std::int64_t> userID = std::nullopt;
  /// 1024 for an alias file.
  std::optional<std::int64_t> creationOptions = std::nullopt;
  /// The target's name as it was shown to people.
  std::optional<std::string> displayName = std::nullopt;

  /// Whether a file that begins with these bytes is an alias file, by its first `markSize` bytes alone.
  static bool isAliasFile(std::string_view firstBytes) noexcept;

  /// Reads an alias file, or the plain bookmark data that property lists carry. Nothing for bytes that are
  /// neither, that are cut short, or whose path has a name that is no plain one: empty, "." or "..", with a
  /// slash or a NUL, or longer than 1024 bytes; nor for a path of more than 512 names. Another value that is
  /// damaged or of an unexpected type is absent. Never reads outside the bytes, whatever they hold; takes
  /// time in proportion to their number.
  static std::optional<AliasFile> fromBytes(std::string_view bytes);

  /// The bytes of an alias file that was made at a time. The same contents give the same bytes. Names that
  /// `fromBytes` would reject are written as they are.
  std::string bytes(AnyValue::Date madeAt = {}) const;

  friend bool operator==(const AliasFile&, const AliasFile&) = default;
};

}  // namespace quillonic
