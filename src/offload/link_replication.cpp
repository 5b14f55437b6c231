#include <quillonic/filesystem/alias_creation.hpp>
#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/offload/file_copy.hpp>
#include <quillonic/offload/link_replication.hpp>
#include <quillonic/offload/offload_error.hpp>

#include <string>
#include <string_view>

#include "platform/item_changes.hpp"
#include "platform/path_text.hpp"

namespace quillonic::offload {
namespace {

namespace fs = std::filesystem;
using Resolution = ReplicatedReferenceLinkResolution;

void orThrow(const char* operation, const fs::path& item, std::error_code error) {
  if (error) throw fs::filesystem_error(operation, item, error);
}

std::string belowRoot(const fs::path& item, const fs::path& root) {
  auto rest = std::string_view(item.native()).substr(root.native().size());
  while (rest.starts_with('/')) rest.remove_prefix(1);
  return std::string(rest);
}

bool isInside(const fs::path& item, const LinkReplication& how) {
  return path_text::isWithin(item.native(), how.source.native());
}

// The place in the copy of an item of the source.
fs::path placeOf(const fs::path& item, const LinkReplication& how) {
  const auto below = belowRoot(item, how.source);
  if (below.empty()) return how.copy;
  if (how.writtenPaths) {
    // A target that was not copied may still be in a folder that was.
    for (std::string_view known = below; !known.empty(); known = path_text::folderOf(known)) {
      const auto written = how.writtenPaths->find(known);
      if (written != how.writtenPaths->end())
        return how.copy / (written->second + below.substr(known.size()));
    }
  }
  return how.copy / below;
}

// Where the copy of a link refers to; no value if such links are refused.
std::optional<fs::path> newTarget(const fs::path& target, const LinkReplication& how) {
  if (how.resolution == Resolution::relinkToOriginalSource) return target;
  if (isInside(target, how)) return placeOf(target, how);
  if (how.outside == OutsideTargets::keep) return target;
  return std::nullopt;
}

LinkReplica refused(LinkReplica replica, std::error_code error) {
  replica.refusal = error;
  return replica;
}

LinkReplica symbolicReplica(const fs::path& item, LinkReplica replica, const LinkReplication& how) {
  replica.form = LinkForm::symbolicLink;
  const auto text = items::linkText(item.native());
  orThrow("cannot read symbolic link", item, text.error());
  replica.target = *text;
  if (!how.volume.holdsSymbolicLinks) return refused(replica, OffloadError::notHeld);
  if (how.resolution == Resolution::copyOriginalLinkFile) return replica;
  fs::path target;
  try {
    target = standardizedDestinationOfSymbolicLink(item);
  } catch (const std::system_error&) {
    return replica;
  }
  const auto anew = newTarget(target, how);
  if (!anew) return refused(replica, OffloadError::targetIsOutside);
  const bool staysRelative = !text->starts_with('/') && isInside(target, how) &&
                             how.resolution == Resolution::relinkToReplicatedSource;
  replica.target = staysRelative ? anew->lexically_relative(replica.place.parent_path()) : *anew;
  return replica;
}

LinkReplica aliasReplica(const fs::path& item, LinkReplica replica, const LinkReplication& how) {
  if (how.resolution == Resolution::copyOriginalLinkFile) return replica;
  fs::path target;
  try {
    target = standardizedResolvedAliasReference(item);
  } catch (const std::system_error&) {
    return replica;
  }
  const auto anew = newTarget(target, how);
  replica.form = LinkForm::aliasFile;
  if (!anew) return refused(replica, OffloadError::targetIsOutside);
  replica.target = *anew;
  return replica;
}

LinkReplica hardReplica(const fs::path& item, LinkReplica replica, const LinkReplication& how,
                        const std::optional<fs::path>& firstName) {
  const bool isOriginal = how.resolution == Resolution::relinkToOriginalSource;
  if (!isOriginal && (how.resolution != Resolution::relinkToReplicatedSource || !firstName)) return replica;
  replica.form = LinkForm::hardName;
  replica.target = isOriginal ? item : placeOf(*firstName, how);
  return how.volume.holdsHardLinks ? replica : refused(replica, OffloadError::notHeld);
}

}  // namespace

LinkReplica linkReplica(const fs::path& item, const LinkReplication& how,
                        const std::optional<fs::path>& firstName) {
  const auto type = filePathLinkType(item);
  LinkReplica replica{.form = LinkForm::copy, .place = placeOf(item, how), .target = item, .refusal = {}};
  if (type == ReferenceLinkType::notAReferenceLink) return replica;
  if (type == ReferenceLinkType::hardSymbolicReference) return hardReplica(item, replica, how, firstName);
  if (how.resolution == Resolution::copyOriginalSource) {
    const auto target = deeplyDereferencedFilePath(item);
    if (!target) return refused(replica, OffloadError::targetIsMissing);
    if (how.outside == OutsideTargets::refuse && !isInside(*target, how)) {
      return refused(replica, OffloadError::targetIsOutside);
    }
    replica.target = *target;
    return replica;
  }
  return type == ReferenceLinkType::softSymbolicReference ? symbolicReplica(item, replica, how)
                                                          : aliasReplica(item, replica, how);
}

void makeLink(const LinkReplica& replica) {
  constexpr auto operation = "cannot make link";
  const auto& place = replica.place.native();
  orThrow(operation, replica.place, replica.refusal);
  switch (replica.form) {
    case LinkForm::symbolicLink:
      return orThrow(operation, replica.place, items::createSymbolicLink(replica.target.native(), place));
    case LinkForm::aliasFile:
      return createAliasForFilePath(replica.target, replica.place);
    case LinkForm::hardName:
      return orThrow(operation, replica.place, items::createHardName(replica.target.native(), place));
    case LinkForm::copy:
      orThrow(operation, replica.place, copyFile(replica.target, {&replica.place, 1}).targets.front().error);
  }
}

}  // namespace quillonic::offload
