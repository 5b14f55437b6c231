#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/reference_links.hpp>

#include <cerrno>
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
using locations::fail;
using locations::itself;
using std::filesystem::path;

// As many as the system follows while it looks up one path.
constexpr int greatestStepCount = 40;

std::optional<std::string> symbolicTarget(const std::string& link, std::error_code& error) {
  const auto text = items::linkText(link, error);
  const auto absolute = text ? locations::absolutePath(link, error) : std::nullopt;
  if (!absolute) return std::nullopt;
  return locations::destination(path_text::folderPrefix(*absolute), false, *text, error);
}

// The target of a link of a kind, one step away. Nothing, and an error, where there is none.
std::optional<std::string> dereferenced(ReferenceLinkType type, const std::string& item,
                                        std::error_code& error) {
  switch (type) {
    case ReferenceLinkType::softSymbolicReference:
      return symbolicTarget(item, error);
    case ReferenceLinkType::aliasReference:
      return aliasTarget(item, error);
    case ReferenceLinkType::notAReferenceLink:
    case ReferenceLinkType::hardSymbolicReference:
      break;
  }
  return locations::standardizedItem(item, error);
}

path targetOrFail(ReferenceLinkType type, const path& item) {
  std::error_code error;
  auto target = dereferenced(type, itself(item), error);
  if (!target) fail("cannot follow link", item, error);
  return *std::move(target);
}

// The link itself was read, and nothing is where it leads.
bool isMissingTarget(std::error_code error) noexcept {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
         error == FilePathAttributeGenerationError::aliasTargetNotFound;
}

// Follows links until an item that is none.
std::optional<std::string> finalTarget(std::string item, ReferenceLinkType type, std::error_code& error) {
  for (int step = 0; leadsElsewhere(type); ++step) {
    if (step == greatestStepCount) {
      error = std::error_code(ELOOP, std::system_category());
      return std::nullopt;
    }
    auto target = dereferenced(type, item, error);
    const auto next = target ? typeOf(*target, error) : std::nullopt;
    if (!next) return std::nullopt;
    item = *std::move(target);
    type = *next;
  }
  return locations::standardizedItem(item, error);
}

LinkSupport linkSupport(const path& url) {
  std::error_code error;
  const auto support = linkSupportAt(url, error);
  if (!support) fail("cannot ask the volume", url, error);
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
  std::error_code error;
  const auto text = items::linkText(itself(atPath), error);
  if (!text) fail("cannot read symbolic link", atPath, error);
  return !text->starts_with('/');
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
  std::error_code error;
  auto target = finalTarget(item, filePathLinkType(item), error);
  if (!target && !isMissingTarget(error)) fail("cannot follow links", item, error);
  return target;
}

bool fileSystemSupportsSymbolicLinks(const path& url) {
  return linkSupport(url).symbolicLinks;
}

bool fileSystemSupportsHardLinks(const path& url) {
  return linkSupport(url).hardLinks;
}

path dereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  return targetOrFail(type, forURL);
}

path deeplyDereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  std::error_code error;
  auto target = finalTarget(itself(forURL), type, error);
  if (!target) fail("cannot follow links", forURL, error);
  return *std::move(target);
}

}  // namespace quillonic
