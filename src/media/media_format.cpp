#include <quillonic/media/media_format.hpp>
#include <quillonic/platform/localization.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "text/ascii.hpp"
#include "text/find_sorted.hpp"

namespace quillonic {
namespace {

struct FormatRow {
  std::string_view name;
  std::span<const FileKind> kinds;
  std::span<const FileExtension> extensions;
  bool isVerified;
};

struct ExtensionRow {
  MediaFormat format;
  std::string_view mimeType;
  bool isRegistered;
};

struct AmbiguityRow {
  FileExtension extension;
  ExtensionAmbiguity ambiguity;
};

#include "media/formats_table.inc"

template <class Rows, class Case> constexpr const auto* rowAt(const Rows& rows, Case value) noexcept {
  const auto number = static_cast<std::size_t>(value);
  return number < std::size(rows) ? &rows[number] : nullptr;
}

// No extension is longer; so each is a number, and finding one takes a few comparisons.
constexpr std::size_t greatestLength = 8;

constexpr std::uint64_t packed(std::string_view text) noexcept {
  std::uint64_t number = 0;
  for (const char c : text) number = number << 8U | static_cast<unsigned char>(ascii::lowered(c));
  return number;
}

struct PackedExtension {
  std::uint64_t text;
  FileExtension extension;
};

constexpr auto packedExtensions = [] {
  constexpr auto& cases = CaseTable<FileExtension>::rows;
  std::array<PackedExtension, cases.size()> all{};
  std::ranges::transform(cases, all.begin(), [](const auto& row) {
    if (row.rawValue.size() > greatestLength) throw "too long";
    return PackedExtension{packed(row.rawValue), row.value};
  });
  std::ranges::sort(all, {}, &PackedExtension::text);
  return all;
}();

}  // namespace

std::optional<FileExtension> fileExtensionFromText(std::string_view text) noexcept {
  if (text.empty() || text.size() > greatestLength) return std::nullopt;
  const auto* found = findSorted(packedExtensions, packed(text), &PackedExtension::text);
  return found ? std::optional(found->extension) : std::nullopt;
}

std::string_view extensionText(std::string_view fileName) noexcept {
  const auto point = fileName.rfind('.');
  return point == std::string_view::npos || point == 0 ? std::string_view() : fileName.substr(point + 1);
}

std::optional<FileExtension> fileExtensionOfName(std::string_view fileName) noexcept {
  return fileExtensionFromText(extensionText(fileName));
}

std::string_view mimeType(FileExtension extension) noexcept {
  const auto* row = rowAt(extensionRows, extension);
  return row ? row->mimeType : std::string_view();
}

bool hasRegisteredMimeType(FileExtension extension) noexcept {
  const auto* row = rowAt(extensionRows, extension);
  return row && row->isRegistered && !row->mimeType.empty();
}

const ExtensionAmbiguity* ambiguity(FileExtension extension) noexcept {
  const auto* row = detail::rowWhere(ambiguityRows, &AmbiguityRow::extension, extension);
  return row ? &row->ambiguity : nullptr;
}

MediaFormat formatOf(FileExtension extension) noexcept {
  const auto* row = rowAt(extensionRows, extension);
  return row ? row->format : MediaFormat{};
}

std::span<const FileExtension> extensions(MediaFormat format) noexcept {
  const auto* row = rowAt(formatRows, format);
  return row ? row->extensions : std::span<const FileExtension>();
}

std::string displayName(MediaFormat format) {
  const auto* row = rowAt(formatRows, format);
  return row ? Localization::localized(row->name) : std::string();
}

std::span<const FileKind> kinds(MediaFormat format) noexcept {
  const auto* row = rowAt(formatRows, format);
  return row ? row->kinds : std::span<const FileKind>();
}

bool isVerified(MediaFormat format) noexcept {
  const auto* row = rowAt(formatRows, format);
  return row && row->isVerified;
}

bool isOfKind(FileExtension extension, FileKind kind) noexcept {
  return std::ranges::find(kinds(extension), kind) != kinds(extension).end();
}

}  // namespace quillonic
