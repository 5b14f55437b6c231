#include "catalogue/signatures.hpp"

#include <quillonic/support/enumeration.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "support/xml.hpp"
#include "text/ascii.hpp"

namespace quillonic::catalogue {
namespace {

struct Part {
  std::size_t offset;
  std::string_view bytes;
};

struct SignatureRow {
  Signature signature;
  std::span<const Part> parts;
  std::optional<MediaFormat> format;
  bool isVerified;
};

struct BrandRow {
  std::string_view brand;
  std::optional<MediaFormat> format;
};

struct RootRow {
  std::string_view name;
  XmlContent content;
  MediaFormat format;
  bool isVerified;
};

#include "catalogue/signatures_table.inc"

constexpr bool hasAll(std::string_view bytes, std::span<const Part> parts) noexcept {
  return std::ranges::all_of(parts, [&](const Part& part) {
    return bytes.size() >= part.offset && bytes.substr(part.offset).starts_with(part.bytes);
  });
}

bool contains(std::string_view bytes, std::string_view wanted) noexcept {
  return bytes.find(wanted) != std::string_view::npos;
}

// A still and a clip of one maker share their brand; the version of what compressed them differs.
std::optional<MediaFormat> formatOfCanon(std::string_view bytes) noexcept {
  if (contains(bytes, "CanonCRM")) return MediaFormat::canonRawLight;
  return contains(bytes, "CanonCR3") ? std::optional(MediaFormat::canonRaw3) : std::nullopt;
}

// The member of a family, by what its bytes say further inside.
std::optional<MediaFormat> memberOf(const SignatureRow& row, std::string_view bytes) noexcept {
  if (row.signature == Signature::ftyp && bytes.size() >= 12) {
    const auto brand = bytes.substr(8, 4);
    if (brand == "crx ") return formatOfCanon(bytes);
    const auto* known = detail::rowWhere(brandRows, &BrandRow::brand, brand);
    return known ? known->format : row.format;
  }
  const auto head = bytes.substr(0, 128);
  if (row.signature == Signature::ebml && contains(head, "\x42\x82\x84webm")) return MediaFormat::webM;
  if (row.signature == Signature::ogg && contains(head, "\x80theora")) return MediaFormat::oggVideo;
  return row.format;
}

bool isUtf16(std::string_view bytes) noexcept {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// Without a control character that no text has.
bool isText(std::string_view bytes) noexcept {
  constexpr std::string_view allowed = "\t\n\r\f\x1A\x1B";
  return !bytes.empty() && (isUtf16(bytes) || std::ranges::none_of(bytes, [&](char c) {
                              const auto byte = static_cast<unsigned char>(c);
                              return (byte < 0x20 || byte == 0x7F) &&
                                     allowed.find(c) == std::string_view::npos;
                            }));
}

// Whether a text merely begins with a word that begins files too, as in "The free ...". In those files numbers
// follow, with bytes that no text has.
bool isWordOfText(Signature signature, std::string_view bytes) noexcept {
  constexpr auto words =
      std::to_array({Signature::qtold, Signature::id3, Signature::r3d, Signature::ape, Signature::dsf});
  constexpr std::size_t leastText = 16;
  return std::ranges::find(words, signature) != words.end() && bytes.size() >= leastText && isText(bytes);
}

// Markup is known by its root element, other texts by having no byte that no text has.
std::optional<Shown> shownByText(std::string_view bytes) {
  const auto root = ascii::loweredText(xmlRoot(bytes).value_or(""));
  const auto* known = detail::rowWhere(rootRows, &RootRow::name, std::string_view(root));
  if (known) return Shown{Signature::xml, known->format, known->isVerified, known->content};
  if (!isText(bytes)) return std::nullopt;
  if (root == "html") return Shown{Signature::html, MediaFormat::html, true};
  // Any "<word>" may begin a text; a declaration may not.
  const bool isDeclared = contains(bytes.substr(0, 8), "<?xml") || (isUtf16(bytes) && !root.empty());
  if (isDeclared) return Shown{Signature::xml, MediaFormat::xml, true};
  return Shown{Signature::text, MediaFormat::plainText, true};
}

// A label that is not of the format may precede it.
bool hasRunIn(std::string_view bytes) noexcept {
  return contains(bytes,
                  detail::rowWhere(signatureRows, &SignatureRow::signature, Signature::mxf)->parts[0].bytes);
}

}  // namespace

std::optional<Shown> shownBy(std::string_view bytes) {
  for (const auto& row : signatureRows) {
    if (!hasAll(bytes, row.parts) || isWordOfText(row.signature, bytes)) continue;
    // A text that may be more is a text at least.
    const bool isPlain = !row.isVerified && isTextSignature(row.signature);
    if (isPlain) return Shown{row.signature, MediaFormat::plainText, true};
    return Shown{row.signature, memberOf(row, bytes), row.isVerified};
  }
  if (auto text = shownByText(bytes)) return text;
  if (hasRunIn(bytes)) return Shown{Signature::mxf, MediaFormat::mxf, false};
  return std::nullopt;
}

bool hasSignature(MediaFormat format, Signature signature) noexcept {
  const auto own = formatSignatures[static_cast<std::size_t>(format)];
  return std::ranges::any_of(own, [&](Signature each) {
    return each == signature || (isTextSignature(each) && isTextSignature(signature));
  });
}

bool hasSignatures(MediaFormat format) noexcept {
  return !formatSignatures[static_cast<std::size_t>(format)].empty();
}

}  // namespace quillonic::catalogue
