/// File-name extensions of the media files that the applications read and write.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// An extension without its full stop, which is its `rawValue`. New ones are added at the end.
enum class FileExtension : std::uint8_t { mov, mp4, wav, mxf, mjpeg };

/// The extensions and their texts.
template <> struct CaseTable<FileExtension> {
  static constexpr auto rows = std::to_array<CaseRow<FileExtension>>({
      {FileExtension::mov, "mov"},
      {FileExtension::mp4, "mp4"},
      {FileExtension::wav, "wav"},
      {FileExtension::mxf, "mxf"},
      {FileExtension::mjpeg, "mjpeg"},
  });
};

static_assert(RawHashCase<FileExtension>);

}  // namespace quillonic
