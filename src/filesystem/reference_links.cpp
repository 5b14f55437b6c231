#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/reference_links.hpp>

#include <string>
#include <system_error>
#include <utility>

#include "filesystem/alias_resolution.hpp"
#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/items.hpp"
#include "platform/link_support.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

using link_types::leadsElsewhere;
using link_types::typeOf;
using locations::absolutePath;
using locations::fail;
using locations::itself;
using locations::standardized;
using std::filesystem::path;

// As many as the system follows while it looks up one path.
constexpr int greatestStepCount = 40;

std::string linkTextOf(const std::string& item) {
  std::error_code error;
  auto text = items::linkText(item, error);
  if (!text) fail("cannot read symbolic link", item, error);
  return *std::move(text);
}

// The target of a link of a kind, one step away.
std::string dereferenced(ReferenceLinkType type, const path& item) {
  switch (type) {
    case ReferenceLinkType::softSymbolicReference:
      return standardizedDestinationOfSymbolicLink(item).native();
    case ReferenceLinkType::aliasReference:
      return standardizedResolvedAliasReference(item).native();
    case ReferenceLinkType::notAReferenceLink:
    case ReferenceLinkType::hardSymbolicReference:
      break;
  }
  return standardized(absolutePath(itself(item)));
}

// Follows links until an item that is none; nothing where a link leads to a missing item.
std::optional<std::string> finalTarget(std::string item, ReferenceLinkType type) {
  for (int step = 0; leadsElsewhere(type); ++step) {
    if (step == greatestStepCount) {
      fail("cannot follow links", item, std::make_error_code(std::errc::too_many_symbolic_link_levels));
    }
    item = dereferenced(type, item);
    std::error_code error;
    const auto next = typeOf(item, error);
    if (!next && (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)) {
      return std::nullopt;
    }
    if (!next) fail("cannot read item", item, error);
    type = *next;
  }
  return standardized(absolutePath(item));
}

LinkSupport linkSupport(const path& url) {
  std::error_code error;
  const auto support = linkSupportAt(url, error);
  if (!support) fail("cannot ask the volume", url.native(), error);
  return *support;
}

}  // namespace

std::optional<ReferenceLinkType> referenceLinkTypeOfItem(const path& atURL) {
  std::error_code error;
  return typeOf(itself(atURL), error);
}

ReferenceLinkType filePathLinkType(const path& fileAt) {
  const auto item = itself(fileAt);
  std::error_code error;
  const auto type = typeOf(item, error);
  if (!type) fail("cannot read item", item, error);
  return *type;
}

bool filePathAppearsToBeNonHardReference(const path& path) {
  return leadsElsewhere(filePathLinkType(path));
}

bool symbolicLinkIsRelative(const path& atPath) {
  return !linkTextOf(itself(atPath)).starts_with('/');
}

path standardizedDestinationOfSymbolicLink(const path& atPath) {
  const auto item = itself(atPath);
  const auto text = linkTextOf(item);
  const auto absolute = absolutePath(item);
  auto target = locations::destination(path_text::folderPrefix(absolute), false, text);
  if (!target)
    fail("cannot follow symbolic link", item, FilePathAttributeGenerationError::symbolicLinkTargetNotFound);
  return *std::move(target);
}

path standardizedResolvedAliasReference(const path& aliasFileAt, AliasResolutionOptions /*options*/) {
  const auto item = itself(aliasFileAt);
  std::error_code error;
  const auto bytes = items::firstBytes(item, AliasFile::greatestSize + 1, error);
  if (!bytes) fail("cannot read alias file", item, error);
  if (!AliasFile::isAliasFile(*bytes) || bytes->size() > AliasFile::greatestSize) {
    fail("cannot resolve alias file", item, FilePathAttributeGenerationError::notAnAliasFile);
  }
  const auto alias = AliasFile::fromBytes(*bytes);
  if (!alias) fail("cannot resolve alias file", item, FilePathAttributeGenerationError::malformedAliasFile);
  auto target = targetOf(*alias, locations::placeOf(item).path());
  if (!target) fail("cannot resolve alias file", item, FilePathAttributeGenerationError::aliasTargetNotFound);
  return *std::move(target);
}

std::optional<path> deeplyDereferencedFilePath(const path& forLinkFile,
                                               AliasResolutionOptions /*resolutionOptions*/) {
  const auto item = itself(forLinkFile);
  return finalTarget(item, filePathLinkType(item));
}

bool fileSystemSupportsSymbolicLinks(const path& url) {
  return linkSupport(url).symbolicLinks;
}

bool fileSystemSupportsHardLinks(const path& url) {
  return linkSupport(url).hardLinks;
}

path dereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  return dereferenced(type, forURL);
}

path deeplyDereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  const auto target = finalTarget(itself(forURL), type);
  if (!target) {
    fail("cannot follow links", forURL.native(), std::make_error_code(std::errc::no_such_file_or_directory));
  }
  return *target;
}

}  // namespace quillonic
