/// Media hash lists, version 1: the checksums of a folder's files, as XML beside them.
///
///     list.write([&](std::string_view piece) { file << piece; });
///     const auto again = offload::HashList::fromText(text);
///     if (!again) std::cerr << again.error().description();
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/offload/file_copy.hpp>
#include <quillonic/support/date.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/parse_error.hpp>
#include <quillonic/support/result.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quillonic::offload {

/// One file of a list.
struct HashListEntry {
  /// Its path below the list's folder.
  std::string file;
  /// Its size in bytes.
  std::uint64_t size = 0;
  /// Its modification date, in whole seconds.
  Date modified;
  /// The kind of checksum: "xxhash64be", "xxhash64", "xxhash", "md5" or "sha1".
  std::string kind;
  /// The checksum in hexadecimal digits; "xxhash" in decimal ones.
  std::string checksum;
  /// When it was computed, in whole seconds.
  Date hashed;

  friend bool operator==(const HashListEntry&, const HashListEntry&) = default;
};

/// A list and who made it.
struct QUILLONIC_EXPORT HashList {
  /// The full name of the user.
  std::string name = {};
  /// The account name of the user.
  std::string username = {};
  /// The name of the machine.
  std::string hostname = {};
  /// The program and its version.
  std::string tool = {};
  /// When the work began, in whole seconds.
  Date started = {};
  /// When it ended.
  Date finished = {};
  /// In the order of the list.
  std::vector<HashListEntry> entries = {};

  /// Whether a list can hold an entry: its kind is one of the form's, its checksum is made of digits, and its
  /// path is UTF-8 without control characters, since no other can be written.
  static bool canHold(const HashListEntry& entry) noexcept;

  /// The list as XML, about 240 bytes per file. Leaves out what it cannot hold, and of other texts each such
  /// byte.
  std::string text() const;

  /// The same text in pieces, one per file, so that it is nowhere as a whole.
  void write(FunctionRef<void(std::string_view piece)> block) const;

  /// Reads a list. Skips unknown elements; takes the first checksum of a file that has several kinds. Refuses
  /// what is not well formed, a root other than "hashlist", another version, a file without path, size or
  /// checksum, or with two of one of them or of a date, a number or a date that does not read, document types
  /// and any nesting deeper than 64. Takes linear time. Paths are as written: see `verifyHashList`.
  static Result<HashList, ParseError> fromText(std::string_view text);

  friend bool operator==(const HashList&, const HashList&) = default;
};

/// How one file of a list was found: no error where size and checksum are those of the list. The error is
/// `OffloadError::contentDiffers` if they differ, the system's if the file cannot be read, and
/// `std::errc::invalid_argument` for a path that is not below the folder, which is not opened, and for a kind
/// of checksum that is not given.
struct VerifiedEntry {
  /// Of the list; lives as long as the list.
  const HashListEntry* entry;
  /// See above.
  std::error_code error;
};

/// Verifies each file of a list below a folder, reading it back from the volume. The first block receives
/// each result; setting `stop` ends the walk. The other receives how many of all the list's bytes are done;
/// false ends the walk at once, without a result for the file that was being read. Follows no link below the
/// folder. Throws a `std::system_error` when the folder cannot be opened.
QUILLONIC_EXPORT void verifyHashList(const HashList& list, const std::filesystem::path& folder,
                                     std::span<const ChecksumKind* const> kinds,
                                     FunctionRef<void(const VerifiedEntry& result, bool& stop)> didVerify,
                                     const ProgressBlock& progress = {});

}  // namespace quillonic::offload
