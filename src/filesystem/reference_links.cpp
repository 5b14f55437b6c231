#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/reference_links.hpp>

#include <string>
#include <system_error>
#include <utility>

#include "filesystem/alias_resolution.hpp"
#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/items.hpp"

namespace quillonic {
namespace {

using link_types::leadsElsewhere;
using link_types::typeOf;
using locations::itself;
using locations::valueOrFail;
using std::filesystem::path;

// The system's own limit in one path look-up.
constexpr int greatestStepCount = 40;

constexpr auto cannotFollow = "cannot follow links";

Result<std::string> symbolicTarget(const std::string& link) {
  const auto text = items::linkText(link);
  return text ? locations::destinationOf(link, *text) : text.error();
}

// The target of a link of a given kind, one step away.
Result<std::string> dereferenced(ReferenceLinkType type, const std::string& item) {
  switch (type) {
    case ReferenceLinkType::softSymbolicReference:
      return symbolicTarget(item);
    case ReferenceLinkType::aliasReference: {
      LookUps lookUps;
      return aliasTarget(item, lookUps);
    }
    case ReferenceLinkType::notAReferenceLink:
    case ReferenceLinkType::hardSymbolicReference:
      break;
  }
  return locations::standardizedItem(item);
}

path targetOrFail(ReferenceLinkType type, const path& item) {
  return valueOrFail(dereferenced(type, itself(item)), "cannot follow link", item);
}

// The link itself was read, but nothing is at its target.
bool isMissingTarget(std::error_code error) noexcept {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
         error == FilePathAttributeGenerationError::aliasTargetNotFound;
}

// Follows links to an item that is not a link.
Result<std::string> finalTarget(std::string item, ReferenceLinkType type) {
  for (int step = 0; leadsElsewhere(type); ++step) {
    if (step == greatestStepCount) return items::systemError(std::errc::too_many_symbolic_link_levels);
    auto target = dereferenced(type, item);
    const auto next = target ? typeOf(*target) : target.error();
    if (!next) return next.error();
    item = *std::move(target);
    type = *next;
  }
  return locations::standardizedItem(item);
}

}  // namespace

std::optional<ReferenceLinkType> referenceLinkTypeOfItem(const path& atURL) {
  const auto item = itself(atURL);
  return link_types::logged(typeOf(item), item);
}

ReferenceLinkType filePathLinkType(const path& fileAt) {
  const auto item = itself(fileAt);
  return valueOrFail(typeOf(item), "cannot read item", item);
}

bool filePathAppearsToBeNonHardReference(const path& path) {
  return leadsElsewhere(filePathLinkType(path));
}

bool symbolicLinkIsRelative(const path& atPath) {
  const auto text = valueOrFail(items::linkText(itself(atPath)), "cannot read symbolic link", atPath);
  return !text.starts_with('/');
}

path standardizedDestinationOfSymbolicLink(const path& atPath) {
  return targetOrFail(ReferenceLinkType::softSymbolicReference, atPath);
}

path standardizedResolvedAliasReference(const path& aliasFileAt, AliasResolutionOptions /*options*/) {
  return targetOrFail(ReferenceLinkType::aliasReference, aliasFileAt);
}

std::optional<path> deeplyDereferencedFilePath(const path& forLinkFile,
                                               AliasResolutionOptions /*resolutionOptions*/) {
  const auto item = itself(forLinkFile);
  auto target = finalTarget(item, filePathLinkType(item));
  if (!target && isMissingTarget(target.error())) return std::nullopt;
  return valueOrFail(std::move(target), cannotFollow, item);
}

path dereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  return targetOrFail(type, forURL);
}

path deeplyDereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  return valueOrFail(finalTarget(itself(forURL), type), cannotFollow, forURL);
}

}  // namespace quillonic
