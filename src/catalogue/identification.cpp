#include <quillonic/catalogue/identification.hpp>
#include <quillonic/platform/localization.hpp>

#include <algorithm>
#include <array>

#include "catalogue/signatures.hpp"
#include "platform/items.hpp"
#include "text/ascii.hpp"

namespace quillonic::catalogue {
namespace {

struct CodecRow {
  std::string_view label;
  std::string_view name;
};

#include "catalogue/names_table.inc"

constexpr std::size_t usualSize = 4096;

bool needsBytes(const Identification& file) noexcept {
  const auto* meanings = file.extension ? ambiguity(*file.extension) : nullptr;
  return meanings && meanings->told == MeaningTold::byBytes;
}

// Whether bytes of a family that the format can have leave the name no other meaning.
bool confirms(const Shown& shown, const Identification& file) noexcept {
  if (!hasSignature(*file.byName, shown.signature)) return false;
  // Of a text that may be anything, only a known root element tells.
  return !needsBytes(file) || !isTextSignature(shown.signature) || shown.xmlContent;
}

// Adds what the bytes show to what the name says, and settles the format.
Identification settled(Identification file, std::string_view bytes) {
  const auto shown = shownBy(bytes);
  if (shown) {
    file.signature = shown->signature;
    file.xmlContent = shown->xmlContent;
    if (shown->isVerified) file.byBytes = shown->format;
  }
  if (file.signature == Signature::appledouble && file.role == NameRole::ordinary)
    file.role = NameRole::companion;
  if (file.role != NameRole::ordinary) {
    file.format.reset();
  } else if (!file.byName) {
    file.format = file.byBytes;
  } else if (!shown) {
    if (needsBytes(file)) file.format.reset();
  } else if (confirms(*shown, file)) {
    // Together, what is weak alone is enough. The root of an XML file tells more than "xml".
    const bool tellsMore = shown->signature == Signature::xml && shown->format;
    file.format = file.byName == MediaFormat::xml && tellsMore ? shown->format : file.byName;
  } else if (shown->isVerified && hasSignatures(*file.byName)) {
    file.isContradictory = true;
    file.format.reset();
  }
  return file;
}

}  // namespace

NameRole nameRole(std::string_view name) noexcept {
  if (name.starts_with("._")) return NameRole::companion;
  const bool isLeftover = std::ranges::any_of(
      leftoverNames, [&](std::string_view leftover) { return ascii::equalsIgnoringCase(name, leftover); });
  return isLeftover ? NameRole::leftover : NameRole::ordinary;
}

Identification identifyName(std::string_view name) noexcept {
  Identification file;
  file.role = nameRole(name);
  file.extension = fileExtensionOfName(name);
  if (file.extension) file.byName = formatOf(*file.extension);
  if (file.role == NameRole::ordinary && file.byName && isVerified(*file.byName)) file.format = file.byName;
  return file;
}

Identification identifyBytes(std::string_view firstBytes) {
  return identify({}, firstBytes);
}

Identification identify(std::string_view name, std::string_view firstBytes) {
  return settled(identifyName(name), firstBytes.substr(0, greatestIdentifiedSize));
}

Identification identifyFile(const std::filesystem::path& path) {
  const std::string_view text = path.native();
  auto file = identifyName(text.substr(text.rfind('/') + 1));  // npos + 1 is 0
  auto bytes = items::firstBytes(path.native(), usualSize);
  if (bytes && bytes->size() == usualSize) {
    const auto shown = shownBy(*bytes);
    const bool isPlain = !shown || shown->signature == Signature::text || !shown->format;
    if (isPlain) bytes = items::firstBytes(path.native(), greatestIdentifiedSize);
  }
  if (!bytes) {
    file.readError = bytes.error();
    return file;
  }
  return settled(file, *bytes);
}

std::string displayName(Signature signature) {
  const auto number = static_cast<std::size_t>(signature);
  return number < std::size(signatureNames) ? Localization::localized(signatureNames[number]) : std::string();
}

std::string displayName(XmlContent content) {
  const auto number = static_cast<std::size_t>(content);
  return number < std::size(xmlContentNames) ? Localization::localized(xmlContentNames[number])
                                             : std::string();
}

std::string_view codecName(std::string_view label) noexcept {
  const auto* row = detail::rowWhere(codecRows, &CodecRow::label, label);
  return row ? row->name : std::string_view();
}

}  // namespace quillonic::catalogue
