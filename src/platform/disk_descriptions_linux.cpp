#include <quillonic/platform/disk_descriptions.hpp>

#include <string_view>
#include <system_error>
#include <utility>

#include "platform/disk_description_keys.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/items.hpp"
#include "platform/mount_holding.hpp"
#include "platform/volume_names.hpp"
#include "text/pieces.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

namespace fs = std::filesystem;
namespace keys = disk_description_keys;

std::optional<std::string> attribute(const fs::path& device, const char* name) {
  const auto contents = contentsOfFile(device / name);
  if (!contents) return std::nullopt;
  std::string value(text::trimmed(*contents));
  return value.empty() ? std::nullopt : std::optional(std::move(value));
}

// The value of a "NAME=value" line in a device's properties.
std::optional<std::string> property(const fs::path& device, std::string_view key) {
  const auto properties = attribute(device, "uevent").value_or(std::string());
  const auto value = text::valueInLines(properties, key);
  return value ? std::optional<std::string>(*value) : std::nullopt;
}

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

// The device below an encrypted or combined device, if it is the only one.
std::optional<fs::path> onlyPart(const fs::path& device) {
  const auto folder = device / "slaves";
  const auto opened = items::Folder::open(folder);
  const auto parts = opened ? items::entries(*opened) : opened.error();
  return parts && parts->size() == 1 ? std::optional(folder / parts->front().name) : std::nullopt;
}

void describeDevice(fs::path device, DiskDescriptionDictionary& description) {
  std::optional<bool> writable;
  const auto noteProtection = [&](const fs::path& part) {
    if (const auto readOnly = attribute(part, "ro")) writable = writable.value_or(true) && readOnly == "0";
  };
  noteProtection(device);
  constexpr int deepestStack = 16;
  for (int depth = 0; depth < deepestStack; ++depth) {
    auto part = onlyPart(device);
    if (!part) break;
    device = std::move(*part);
    noteProtection(device);
  }
  const auto disk = isThere(device / "partition") ? device / ".." : device;
  noteProtection(disk);
  auto model = attribute(disk, "device/model");
  if (!model) model = attribute(disk, "device/name");

  std::optional<std::string> name;
  if (isThere(disk / "loop/backing_file")) name = "disk image";
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
  const auto block = deviceOf(mount);
  const auto number = std::to_string(block.major) + ":" + std::to_string(block.minor);
  const auto device = deviceTree / "dev/block" / number;
  if (isThere(device)) describeDevice(device, description);
  return description;
}

std::optional<DiskDescriptionDictionary> diskDescriptionOfVolume(const fs::path& holding) {
  const auto mount = mountHolding(holding);
  return mount ? std::optional(diskDescriptionOfMount(*mount)) : std::nullopt;
}

}  // namespace quillonic
