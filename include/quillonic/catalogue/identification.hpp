/// What a file is, by its name and by its first bytes: the bytes decide the family, the extension the member
/// of the family.
///
///     catalogue::identifyName("A001C001.MXF").format;        // MediaFormat::mxf
///     auto file = catalogue::identifyFile("/card/clip.mov");
///     if (file.isContradictory) warn(file.byName, file.byBytes);
#pragma once

#include <quillonic/catalogue/signatures_table.hpp>
#include <quillonic/export.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/media/media_format.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::catalogue {

/// What a name alone says about a file's place in the world.
enum class NameRole : std::uint8_t {
  ordinary,
  /// "._name", which a desktop writes for another file's attributes; never media, whatever the extension.
  companion,
  /// A desktop's or a file system's own, such as ".DS_Store". A faithful copy keeps it; a list leaves it out.
  leftover,
};

/// The role of a file's or folder's name.
QUILLONIC_EXPORT NameRole nameRole(std::string_view name) noexcept;

/// What is known of a file.
struct Identification {
  /// The format; nothing when unknown, when name and bytes contradict each other, when only common knowledge
  /// speaks for it, and for a companion or leftover.
  std::optional<MediaFormat> format;
  /// The extension of the name, if it is a known one.
  std::optional<FileExtension> extension;
  /// What the first bytes show: a family of formats.
  std::optional<Signature> signature;
  /// What an XML file is by its root element.
  std::optional<XmlContent> xmlContent;
  /// The format that the name alone gives.
  std::optional<MediaFormat> byName;
  /// The format that the bytes alone give.
  std::optional<MediaFormat> byBytes;
  /// What the name says apart from its extension.
  NameRole role = NameRole::ordinary;
  /// Why the bytes are unknown, if the file could not be read.
  std::error_code readError;
  /// Whether name and bytes belong to different families, so that both are given and neither is the format.
  bool isContradictory = false;

  friend bool operator==(const Identification&, const Identification&) = default;
};

/// The most bytes that identifying a file reads, from its start.
inline constexpr std::size_t greatestIdentifiedSize = std::size_t{64} * 1024;

/// Identifies a file by its name without folders, in any case. Touches no disk.
QUILLONIC_EXPORT Identification identifyName(std::string_view name) noexcept;

/// Identifies a file by its first bytes; fewer than 64 KiB may tell less, and more are ignored.
QUILLONIC_EXPORT Identification identifyBytes(std::string_view firstBytes);

/// Identifies a file by both.
QUILLONIC_EXPORT Identification identify(std::string_view name, std::string_view firstBytes);

/// Identifies a file by its name and its first bytes. Opens it once and reads 4 KiB, or for a file that they
/// do not tell opens it again and reads up to 64 KiB. Follows no final link. What cannot be read is
/// identified by name, with the error; so is an item that is not a regular file.
QUILLONIC_EXPORT Identification identifyFile(const std::filesystem::path& path);

/// The name of a family of formats, such as "ISO base media", in the user's language.
QUILLONIC_EXPORT std::string displayName(Signature signature);

/// What an XML file is, such as "Sony card index", in the user's language.
QUILLONIC_EXPORT std::string displayName(XmlContent content);

/// The codec that a four-byte label in a mov or mp4 file means, such as "ProRes 422 HQ" for "apch"; empty for
/// an unknown one. Names of codecs are not translated.
QUILLONIC_EXPORT std::string_view codecName(std::string_view label) noexcept;

}  // namespace quillonic::catalogue
