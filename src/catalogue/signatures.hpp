// What the first bytes of a file show.
#pragma once

#include <quillonic/catalogue/signatures_table.hpp>
#include <quillonic/media/media_format.hpp>

#include <optional>
#include <string_view>

namespace quillonic::catalogue {

struct Shown {
  Signature signature;
  // The member of the family when only the bytes are known.
  std::optional<MediaFormat> format;
  // Whether more than common knowledge says that the bytes mean the family.
  bool isVerified;
  std::optional<XmlContent> xmlContent = {};
};

// The family that the bytes show.
std::optional<Shown> shownBy(std::string_view bytes);

// Whether files of the family are texts.
constexpr bool isTextSignature(Signature signature) noexcept {
  return signature >= Signature::scc && signature <= Signature::text;
}

// Whether files of the format begin as the family does. All texts are one family.
bool hasSignature(MediaFormat format, Signature signature) noexcept;

// Whether the first bytes of the format's files are known.
bool hasSignatures(MediaFormat format) noexcept;

}  // namespace quillonic::catalogue
