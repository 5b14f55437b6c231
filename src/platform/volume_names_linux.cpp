#include <quillonic/support/enumeration.hpp>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/items.hpp"
#include "platform/volume_names.hpp"
#include "text/pieces.hpp"

namespace quillonic {
namespace {

std::optional<DeviceNumber> blockDeviceAt(const std::string& path) {
  struct stat device {};
  if (::stat(path.c_str(), &device) != 0 || !S_ISBLK(device.st_mode)) return std::nullopt;
  return DeviceNumber{major(device.st_rdev), minor(device.st_rdev)};
}

}  // namespace

DeviceNumber deviceOf(const Mount& mount) {
  if (mount.deviceMajor == 0 && mount.source.starts_with("/dev/")) {
    if (const auto device = blockDeviceAt(mount.source)) return *device;
  }
  return {mount.deviceMajor, mount.deviceMinor};
}

VolumeNames VolumeNames::identifiers() {
  return VolumeNames("/dev/disk/by-uuid");
}

VolumeNames VolumeNames::labels() {
  return VolumeNames("/dev/disk/by-label");
}

VolumeNames::VolumeNames(const std::string& folder) {
  const auto opened = items::Folder::open(folder);
  if (!opened) return;
  for (const auto& link : items::entries(*opened).value_or({})) {
    // The device folder escapes bytes that a name cannot have as "\x20".
    if (const auto device = blockDeviceAt(folder + "/" + link.name))
      rows_.push_back({*device, text::unescaped(link.name, "\\x", 2, 16)});
  }
}

std::optional<std::string> VolumeNames::of(const Mount& mount) const {
  if (rows_.empty()) return std::nullopt;
  const auto* row = detail::rowWhere(rows_, &Row::device, deviceOf(mount));
  return row ? std::optional(row->name) : std::nullopt;
}

}  // namespace quillonic
