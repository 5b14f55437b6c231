#include <algorithm>
#include <charconv>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <system_error>

#include "platform/items.hpp"
#include "platform/volume_names.hpp"

namespace quillonic {
namespace {

std::optional<DeviceNumber> blockDeviceAt(const std::string& path) {
  struct stat device {};
  if (::stat(path.c_str(), &device) != 0 || !S_ISBLK(device.st_mode)) return std::nullopt;
  return DeviceNumber{major(device.st_rdev), minor(device.st_rdev)};
}

// Bytes that a name in the device folder cannot hold are written there as "\x20".
std::string withoutHexEscapes(std::string_view name) {
  std::string text;
  for (std::size_t at = 0; at < name.size(); ++at) {
    const auto code = name.substr(at, 4);
    std::uint8_t byte = 0;
    const bool isEscape = code.size() == 4 && code.starts_with("\\x") &&
                          std::from_chars(code.data() + 2, code.data() + 4, byte, 16).ptr == code.data() + 4;
    text.push_back(isEscape ? static_cast<char>(byte) : name[at]);
    if (isEscape) at += 3;
  }
  return text;
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
  std::error_code ignored;
  const auto opened = items::Folder::open(folder, ignored);
  const auto links = opened ? items::entries(*opened, ignored) : std::nullopt;
  if (!links) return;
  for (const auto& link : *links) {
    if (const auto device = blockDeviceAt(folder + "/" + link.name))
      rows_.push_back({*device, withoutHexEscapes(link.name)});
  }
}

std::optional<std::string> VolumeNames::of(const Mount& mount) const {
  if (rows_.empty()) return std::nullopt;
  const auto row = std::ranges::find(rows_, deviceOf(mount), &Row::device);
  return row == rows_.end() ? std::nullopt : std::optional(row->name);
}

}  // namespace quillonic
