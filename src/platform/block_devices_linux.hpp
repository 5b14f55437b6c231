// Block devices, and what they are made of, as the system shows them in its device tree, "/sys".
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/volume_names.hpp"

namespace quillonic {

// A device is its folder in the device tree, all links followed; it has the device's name.
class BlockDevices {
 public:
  explicit BlockDevices(std::filesystem::path tree) : tree_(std::move(tree)) {}

  // Nothing where it is not there, or no device is shown.
  std::optional<std::filesystem::path> numbered(DeviceNumber number) const;
  std::optional<std::filesystem::path> named(const std::string& name) const;

  static bool isPartition(const std::filesystem::path& device);
  // The devices that a combined, encrypted or otherwise mapped one is made of.
  static std::vector<std::filesystem::path> parts(const std::filesystem::path& device);
  // The file that the device shows as a disk.
  static std::optional<std::filesystem::path> imageFile(const std::filesystem::path& device);

  // All devices of the btrfs volume that has the device; none where it is in no such volume.
  std::vector<std::filesystem::path> sharingVolume(const std::filesystem::path& device) const;

  // A number that no other drive gets while the system runs.
  std::string sequenceFile(const std::string& name) const;

 private:
  std::filesystem::path tree_;
};

}  // namespace quillonic
