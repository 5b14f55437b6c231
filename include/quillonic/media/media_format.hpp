/// The formats of files on cards, drives and in projects, and what kinds of files they are.
///
///     const auto format = formatOf(FileExtension::mov);
///     displayName(format);                                   // "QuickTime movie", in the user's language
///     mainKind(FileExtension::mov) == FileKind::video;
///     isOfKind(FileExtension::dng, FileKind::frame);         // a raw still, or one frame of a sequence
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/media/formats_table.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// What a file is for.
enum class FileKind : std::uint8_t {
  video,
  audio,
  /// A finished picture.
  still,
  /// A camera's raw still.
  raw,
  /// A camera's raw motion, one file or more a clip.
  rawVideo,
  /// One picture of a sequence.
  frame,
  /// What a camera or a program wrote about another file.
  sidecar,
  /// A card's or a folder's bookkeeping.
  index,
  /// A small picture of a clip.
  thumb,
  /// A small copy of a clip.
  proxy,
  subtitle,
  project,
  /// An edit or shot list.
  list,
  /// A colour transform.
  lut,
  checksum,
  document,
  archive,
};

/// The kinds and their texts.
template <> struct CaseTable<FileKind> {
  static constexpr auto rows = std::to_array<CaseRow<FileKind>>({
      {FileKind::video, "video"},
      {FileKind::audio, "audio"},
      {FileKind::still, "still"},
      {FileKind::raw, "raw"},
      {FileKind::rawVideo, "rawvideo"},
      {FileKind::frame, "frame"},
      {FileKind::sidecar, "sidecar"},
      {FileKind::index, "index"},
      {FileKind::thumb, "thumb"},
      {FileKind::proxy, "proxy"},
      {FileKind::subtitle, "subtitle"},
      {FileKind::project, "project"},
      {FileKind::list, "list"},
      {FileKind::lut, "lut"},
      {FileKind::checksum, "checksum"},
      {FileKind::document, "document"},
      {FileKind::archive, "archive"},
  });
};

static_assert(RawHashCase<FileKind> && RawHashCase<MediaFormat>);

/// The format that an extension names. An ambiguous extension may mean others: see `ambiguity`.
QUILLONIC_EXPORT MediaFormat formatOf(FileExtension extension) noexcept;

/// The extensions of a format, the usual one first; none for an unlisted value. Lives as long as the program.
QUILLONIC_EXPORT std::span<const FileExtension> extensions(MediaFormat format) noexcept;

/// The name in the user's language: "QuickTime movie". Empty for an unlisted value.
QUILLONIC_EXPORT std::string displayName(MediaFormat format);

/// The kinds of files that the format serves as, the main one first; none for an unlisted value. Lives as
/// long as the program.
QUILLONIC_EXPORT std::span<const FileKind> kinds(MediaFormat format) noexcept;

/// Whether anything beside common knowledge says that the extensions belong to the format. If not, the name
/// of a file alone must decide nothing.
QUILLONIC_EXPORT bool isVerified(MediaFormat format) noexcept;

/// The kinds of the extension's format.
inline std::span<const FileKind> kinds(FileExtension extension) noexcept {
  return kinds(formatOf(extension));
}

/// The first of the extension's kinds.
inline FileKind mainKind(FileExtension extension) noexcept {
  return kinds(extension).front();
}

/// The name of the extension's format in the user's language.
inline std::string displayName(FileExtension extension) {
  return displayName(formatOf(extension));
}

/// Whether a file with the extension can serve as a kind, be it the main one or another.
QUILLONIC_EXPORT bool isOfKind(FileExtension extension, FileKind kind) noexcept;

}  // namespace quillonic
