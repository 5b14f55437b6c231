#include <quillonic/platform/volume_traits.hpp>

#include <system_error>

#include "platform/file_system_kinds.hpp"
#include "platform/link_support.hpp"
#include "platform/mount_holding.hpp"

namespace quillonic {

namespace {

VolumeTraits traitsOf(std::string_view kind, const FileSystemKind* row, bool isServedByProgram) {
  VolumeTraits traits;
  traits.kind = kind;
  if (row) {
    traits.dateGrain = row->dateGrain.count();
    traits.greatestFileSize = static_cast<std::int64_t>(row->greatestFileSize);
    traits.holdsSymbolicLinks = row->symbolicLinks == LinkHolding::yes;
    traits.holdsHardLinks = row->hardLinks == LinkHolding::yes;
    traits.holdsOwners = row->holdsOwners;
    traits.syncsAtOnce = !row->isNetwork && !isServedByProgram;
  }
  return traits;
}

}  // namespace

VolumeTraits VolumeTraits::ofKind(std::string_view kind) {
  const auto* row = kindNamed(kind, FileSystemServer::either);
  return traitsOf(kind, row, row && row->server == FileSystemServer::program);
}

VolumeTraits VolumeTraits::at(const std::filesystem::path& item) {
  const auto links = linkSupportAt(item);
  if (!links) throw std::filesystem::filesystem_error("cannot ask the volume", item, links.error());
  auto place = item;
  std::error_code ignored;
  while (!std::filesystem::exists(std::filesystem::symlink_status(place, ignored)) &&
         place.has_parent_path() && place != place.parent_path()) {
    place = place.parent_path();
  }
  const auto mount = mountHolding(place.empty() ? "." : place);
  auto traits = mount ? traitsOf(trueKindOf(*mount), knownKindOf(*mount), isProgramServed(mount->kind))
                      : VolumeTraits();
  traits.holdsSymbolicLinks = links->symbolicLinks;
  traits.holdsHardLinks = links->hardLinks;
  return traits;
}

}  // namespace quillonic
