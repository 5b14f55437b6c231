#include <quillonic/filesystem/alias_creation.hpp>
#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <chrono>
#include <string>

#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "platform/volume_names.hpp"
#include "text/ascii.hpp"

namespace quillonic {
namespace {

using locations::Place;
using locations::placeOf;

AliasFile::Properties targetProperties(const std::string& name, FileType type, bool isVolume, bool isAlias) {
  std::uint64_t flags = 0;
  if (type == FileType::regular) flags |= AliasFile::regularFile;
  if (type == FileType::directory) flags |= AliasFile::directory;
  if (type == FileType::symbolicLink) flags |= AliasFile::symbolicLink;
  if (isVolume) flags |= AliasFile::volume;
  if (name.starts_with('.')) flags |= AliasFile::hidden;
  if (isAlias) flags |= AliasFile::alias;
  constexpr std::uint64_t known = AliasFile::regularFile | AliasFile::directory | AliasFile::symbolicLink |
                                  AliasFile::volume | AliasFile::hidden | AliasFile::alias;
  return {flags, known};
}

// It is unknown whether the device is built in or removable.
AliasFile::Properties volumeProperties(const Mount& mount) {
  AliasFile::Properties properties{.flags = 0, .mask = AliasFile::readOnly};
  if (mount.isReadOnly) properties.flags |= AliasFile::readOnly;
  if (const auto isNetwork = isNetworkVolume(mount)) {
    properties.mask |= AliasFile::local;
    if (!*isNetwork) properties.flags |= AliasFile::local;
  }
  return properties;
}

AliasFile aliasTo(const Place& target, const items::Status& status, const Place& alias) {
  const auto targetPath = target.path();
  AliasFile file;
  file.pathComponents = path_text::components(targetPath);
  file.targetCreationDate = status.created;
  const auto own = path_text::components(alias.path());
  const auto& names = file.pathComponents;
  const auto [mine, its] = std::ranges::mismatch(own, names);
  file.relativeDirsUp = own.end() - mine;
  file.relativeDirsDown = names.end() - its;

  const auto mounts = MountTable::current();
  const auto* mount = mounts.holding(targetPath);
  if (mount) {
    const auto& point = mount->mountPoint.native();
    file.volumePath = point;
    file.volumeName = VolumeNames::labels().of(*mount);
    if (!file.volumeName) file.volumeName = point == "/" ? point : mount->mountPoint.filename().native();
    file.volumeUUID = VolumeNames::identifiers().of(*mount);
    if (file.volumeUUID) std::ranges::transform(*file.volumeUUID, file.volumeUUID->begin(), ascii::raised);
    file.volumeProperties = volumeProperties(*mount);
  }
  const auto type = link_types::typeOf(targetPath, status);
  file.targetProperties = targetProperties(target.name, status.type,
                                           mount && mount->mountPoint == std::filesystem::path(targetPath),
                                           type && *type == ReferenceLinkType::aliasReference);
  file.creationOptions = 1024;
  file.displayName = names.empty() ? "/" : names.back();
  return file;
}

}  // namespace

void createAliasForFilePath(const std::filesystem::path& item, const std::filesystem::path& atLocation) {
  constexpr auto reading = "cannot make an alias of a missing item";
  const auto target = locations::valueOrFail(placeOf(item), reading, item);
  const auto status = locations::valueOrFail(items::status(target.path()), reading, item);
  constexpr auto writing = "cannot write alias file";
  const auto place = locations::valueOrFail(placeOf(atLocation), writing, atLocation);
  const auto alias = aliasTo(target, status, place);
  if (const auto error = items::create(place.path(), alias.bytes(std::chrono::system_clock::now()))) {
    locations::fail(writing, atLocation, error);
  }
}

}  // namespace quillonic
