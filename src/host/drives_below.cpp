#include <quillonic/host/drive_meter.hpp>

#include <algorithm>
#include <utility>

#include "platform/block_devices_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "text/pieces.hpp"

namespace quillonic::host {
namespace {

namespace fs = std::filesystem;

constexpr auto kindsInMemory =
    std::to_array<std::string_view>({"tmpfs", "ramfs", "devtmpfs", "proc", "sysfs", "cgroup2"});

// Follows mounts and devices down to drives.
class Descent {
 public:
  Descent(const MountTable& table, const fs::path& root) : table_(table), devices_(root / "sys") {}

  void addMount(const Mount& mount, int depth = 0) {
    if (depth == deepest) return;
    if (mount.kind == "overlay") {
      if (const auto changes = option(mount.superOptions, "upperdir=")) addFile(*changes, depth + 1);
    } else if (const auto device = deviceBelow(mount)) {
      const auto sharing = devices_.sharingVolume(*device);
      for (const auto& each : sharing) addDevice(each, depth + 1);
      if (sharing.empty()) addDevice(*device, depth + 1);
    } else if (isNetworkVolume(mount).value_or(false)) {
      kind_ = StorageKind::network;
    } else if (std::ranges::find(kindsInMemory, mount.kind) != kindsInMemory.end()) {
      kind_ = StorageKind::memory;
    }
  }

  DrivesBelow found() && {
    std::ranges::sort(drives_);
    drives_.erase(std::unique(drives_.begin(), drives_.end()), drives_.end());
    return {drives_.empty() ? kind_ : StorageKind::drives, std::move(drives_)};
  }

 private:
  // Devices are in each other to no greater depth, unless one is in itself.
  static constexpr int deepest = 16;

  static std::optional<fs::path> option(std::string_view options, std::string_view key) {
    for (auto pieces = text::split(options, ','); const auto piece = pieces.next();) {
      if (piece->starts_with(key)) return piece->substr(key.size());
    }
    return std::nullopt;
  }

  std::optional<fs::path> deviceBelow(const Mount& mount) const {
    auto device = devices_.numbered(deviceOf(mount));
    if (!device && mount.source.starts_with("/dev/"))
      device = devices_.named(fs::path(mount.source).filename());
    return device;
  }

  void addFile(const fs::path& file, int depth) {
    if (const auto* mount = table_.withLongestMountPoint(file)) addMount(*mount, depth);
  }

  void addDevice(const fs::path& device, int depth) {
    if (depth >= deepest) return;
    const auto whole = BlockDevices::isPartition(device) ? device.parent_path() : device;
    // Only a whole device has an image or parts.
    if (const auto image = BlockDevices::imageFile(whole)) return addFile(*image, depth + 1);
    const auto parts = BlockDevices::parts(whole);
    for (const auto& part : parts) addDevice(part, depth + 1);
    if (parts.empty()) drives_.push_back(whole.filename());
  }

  const MountTable& table_;
  BlockDevices devices_;
  StorageKind kind_ = StorageKind::unknown;
  std::vector<std::string> drives_;
};

}  // namespace

DrivesBelow drivesBelow(const fs::path& item) {
  const auto table = MountTable::current();
  const auto* mount = table.holding(item);
  return mount ? drivesBelowMount(*mount, table) : DrivesBelow();
}

DrivesBelow drivesBelowMount(const Mount& mount, const MountTable& table, const fs::path& root) {
  Descent descent(table, root);
  descent.addMount(mount);
  return std::move(descent).found();
}

}  // namespace quillonic::host
