#include <quillonic/platform/disk_descriptions.hpp>

#include <string_view>
#include <utility>

#include "platform/block_devices_linux.hpp"
#include "platform/disk_description_keys.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/mount_holding.hpp"
#include "platform/volume_names.hpp"
#include "text/pieces.hpp"

namespace quillonic {
namespace {

namespace fs = std::filesystem;
namespace keys = disk_description_keys;

// The value of a "NAME=value" line in a device's properties.
std::optional<std::string> property(const fs::path& device, std::string_view key) {
  const auto properties = textOfFile(device / "uevent").value_or("");
  const auto value = text::valueInLines(properties, key);
  return value ? std::optional<std::string>(*value) : std::nullopt;
}

void describeDevice(fs::path device, DiskDescriptionDictionary& description) {
  std::optional<bool> writable;
  const auto noteProtection = [&](const fs::path& part) {
    if (const auto readOnly = textOfFile(part / "ro")) writable = writable.value_or(true) && readOnly == "0";
  };
  noteProtection(device);
  // Down to the device below encrypted or combined ones, as long as it is the only one.
  constexpr int deepestStack = 16;
  for (int depth = 0; depth < deepestStack; ++depth) {
    auto parts = BlockDevices::parts(device);
    if (parts.size() != 1) break;
    device = std::move(parts.front());
    noteProtection(device);
  }
  const auto disk = BlockDevices::isPartition(device) ? device.parent_path() : device;
  noteProtection(disk);
  auto model = textOfFile(disk / "device/model");
  if (!model) model = textOfFile(disk / "device/name");

  std::optional<std::string> name;
  if (BlockDevices::imageFile(disk)) name = "disk image";
  if (!name) name = property(device, "PARTNAME=");
  if (!name) name = model;
  if (!name) name = property(device, "DEVNAME=");

  if (name) description.emplace(keys::mediaName, std::move(*name));
  if (model) description.emplace(keys::deviceModel, std::move(*model));
  if (writable) description.emplace(keys::mediaWritable, *writable);
}

}  // namespace

DiskDescriptionDictionary diskDescriptionOfMount(const Mount& mount, const fs::path& deviceTree) {
  DiskDescriptionDictionary description{{keys::volumePath, mount.mountPoint},
                                        {keys::volumeKind, trueKindOf(mount)},
                                        {keys::volumeNetwork, isNetworkVolume(mount).value_or(false)}};
  if (auto device = BlockDevices(deviceTree).numbered(deviceOf(mount))) {
    describeDevice(*std::move(device), description);
  }
  return description;
}

std::optional<DiskDescriptionDictionary> diskDescriptionOfVolume(const fs::path& holding) {
  const auto mount = mountHolding(holding);
  return mount ? std::optional(diskDescriptionOfMount(*mount)) : std::nullopt;
}

}  // namespace quillonic
