/// What kind of item a directory entry is.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// The kinds of items in a file system. An alias file is a regular file; see `ReferenceLinkType`.
enum class QUILLONIC_EXPORT FileType : std::uint8_t {
  regular,
  directory,
  symbolicLink,
  socket,
  namedPipe,
  characterSpecial,
  blockSpecial,
  unknown,
};

/// The kinds and their texts for logs.
template <> struct CaseTable<FileType> {
  static constexpr auto rows = std::to_array<CaseRow<FileType>>({
      {FileType::regular, "regular"},
      {FileType::directory, "directory"},
      {FileType::symbolicLink, "symbolicLink"},
      {FileType::socket, "socket"},
      {FileType::namedPipe, "namedPipe"},
      {FileType::characterSpecial, "characterSpecial"},
      {FileType::blockSpecial, "blockSpecial"},
      {FileType::unknown, "unknown"},
  });
};

}  // namespace quillonic
