/// File-name extensions of the media files that the applications read and write.
///
///     static_assert(rawValue(FileExtension::mov) == "mov");
///     fileExtensionFromText("MOV");            // FileExtension::mov
///     fileExtensionOfName("A001C001.MXF");     // FileExtension::mxf
///     mimeType(FileExtension::mxf);            // "application/mxf"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/formats_table.hpp>
#include <quillonic/support/enumeration.hpp>

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillonic {

static_assert(RawHashCase<FileExtension>);

/// The extension with a text, without its full stop and in any ASCII case, since cards write capitals;
/// nothing for an unknown one. `fromRawValue` compares the case too.
QUILLONIC_EXPORT std::optional<FileExtension> fileExtensionFromText(std::string_view text) noexcept;

/// The text after the last full stop of a name; empty when there is none. A name that begins with its only
/// full stop has no extension.
QUILLONIC_EXPORT std::string_view extensionText(std::string_view fileName) noexcept;

/// The extension of a file name without its folders, in any ASCII case; nothing for an unknown one.
QUILLONIC_EXPORT std::optional<FileExtension> fileExtensionOfName(std::string_view fileName) noexcept;

/// The MIME type of files with an extension; empty when there is none, or for an unlisted value.
QUILLONIC_EXPORT std::string_view mimeType(FileExtension extension) noexcept;

/// Whether the MIME type is a registered one, and not merely the usual one.
QUILLONIC_EXPORT bool hasRegisteredMimeType(FileExtension extension) noexcept;

/// What tells apart the meanings of an ambiguous extension.
enum class MeaningTold : std::uint8_t {
  /// A file without the first bytes of the format is of another format.
  byBytes,
  /// The bytes are the same; the extension itself decides.
  byExtension,
  /// The folder and the files around it tell.
  byFolder,
  /// Only the content further inside tells.
  byInside,
};

/// That an extension means more than one thing.
struct ExtensionAmbiguity {
  /// The meanings for people, in English, separated by "; ".
  std::string_view meanings;
  /// What tells them apart.
  MeaningTold told;
};

/// The meanings of an extension that has several; null for all others. Lives as long as the program.
QUILLONIC_EXPORT const ExtensionAmbiguity* ambiguity(FileExtension extension) noexcept;

}  // namespace quillonic
