#include <quillonic/filesystem/expanded_attributes.hpp>
#include <quillonic/platform/logging.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "filesystem/alias_resolution.hpp"
#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "filesystem/look_ups.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "support/never_destroyed.hpp"

namespace quillonic {
namespace {

// Values that many dictionaries share.
template <class Enumeration> const AnyValue& sharedValue(Enumeration value) {
  static const NeverDestroyed<std::vector<AnyValue>> values(allCases<Enumeration>().begin(),
                                                            allCases<Enumeration>().end());
  return (*values)[static_cast<std::size_t>(value)];
}

struct LinkDetails {
  std::optional<ReferenceLinkType> type;
  std::optional<std::string> target;
  std::optional<bool> isRelative;
};

LinkDetails symbolicLinkDetails(const std::string& item) {
  LinkDetails details{.type = ReferenceLinkType::softSymbolicReference, .target = {}, .isRelative = {}};
  const auto text = items::linkText(item);
  if (text) details.target = locations::destinationOf(item, *text).asOptional();
  // One look through the link shows whether its target exists, however many links follow.
  if (!details.target || items::reach(item)) link_types::logMissingTarget(item);
  if (text) {
    details.isRelative = !text->starts_with('/');
  } else {
    VantiroLogging::defaultLogger()->logWarning("Failed to discover if symbolic link is relative");
  }
  return details;
}

LinkDetails linkDetails(const std::string& item, const items::Status& status, LookUps& lookUps) {
  if (status.type == FileType::symbolicLink) return symbolicLinkDetails(item);
  LinkDetails details;
  details.type = link_types::logged(link_types::typeOf(item, status), item);
  if (details.type == ReferenceLinkType::aliasReference)
    details.target = link_types::loggedTarget(aliasTarget(item, lookUps), item);
  return details;
}

std::string nameOf(std::string_view item) {
  const auto name = item.substr(path_text::folderPrefix(item).size());
  return std::string(name.empty() ? item : name);
}

FileAttributes attributesOf(const std::string& item, const items::Status& status, LookUps& lookUps) {
  const auto details = linkDetails(item, status, lookUps);
  std::vector<FileAttributes::Entry> entries;
  entries.reserve(18);
  // In the order in which the dictionary keeps them, so that nothing has to be sorted.
  const auto add = [&](const FileAttributeKey& key, auto&& value) {
    entries.push_back({key, std::forward<decltype(value)>(value)});
  };
  if (status.created) add(FileAttributeKey::NSFileCreationDate, *status.created);
  add(FileAttributeKey::NSFileGroupOwnerAccountID, status.group);
  add(FileAttributeKey::NSFileModificationDate, status.modified);
  add(FileAttributeKey::NSFileOwnerAccountID, status.owner);
  add(FileAttributeKey::NSFilePosixPermissions, status.permissions);
  add(FileAttributeKey::NSFileReferenceCount, status.names);
  add(FileAttributeKey::NSFileSize, status.size);
  add(FileAttributeKey::NSFileSystemFileNumber, status.inode);
  add(FileAttributeKey::NSFileSystemNumber, status.device);
  add(FileAttributeKey::NSFileType, sharedValue(status.type));
  add(FileAttributeKey::filePathName, nameOf(item));
  add(FileAttributeKey::isDirectoryPath, status.type == FileType::directory);
  if (details.type) add(FileAttributeKey::isLinkFilePath, link_types::leadsElsewhere(*details.type));
  if (details.isRelative) add(FileAttributeKey::isRelativeSymbolicReference, *details.isRelative);
  if (details.type) add(FileAttributeKey::referenceLinkType, sharedValue(*details.type));
  if (details.target) add(FileAttributeKey::referencedFileSystemURL, std::filesystem::path(*details.target));
  add(FileAttributeKey::fileResourceType, sharedValue(status.type));
  return FileAttributes(std::move(entries));
}

std::optional<FileAttributes> attributesOf(const std::filesystem::path& path, LookUps& lookUps) {
  const auto item = locations::itself(path);
  const auto status = items::status(item);
  if (status) return attributesOf(item, *status, lookUps);
  link_types::logged(status.error(), item);
  return std::nullopt;
}

}  // namespace

std::optional<FileAttributes> expandedAttributesOfItem(const std::filesystem::path& atURL) {
  LookUps lookUps;
  return attributesOf(atURL, lookUps);
}

ExpandedAttributesReader::ExpandedAttributesReader() noexcept = default;
ExpandedAttributesReader::ExpandedAttributesReader(ExpandedAttributesReader&&) noexcept = default;
ExpandedAttributesReader& ExpandedAttributesReader::operator=(ExpandedAttributesReader&&) noexcept = default;
ExpandedAttributesReader::~ExpandedAttributesReader() = default;

std::optional<FileAttributes> ExpandedAttributesReader::attributesOfItem(const std::filesystem::path& atURL) {
  if (!lookUps_) lookUps_ = std::make_unique<LookUps>();
  return attributesOf(atURL, *lookUps_);
}

}  // namespace quillonic
