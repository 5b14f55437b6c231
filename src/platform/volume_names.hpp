// The identifiers and labels of the volumes on block devices.
#pragma once

#include <quillonic/platform/mount_table.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillonic {

struct DeviceNumber {
  std::uint32_t major;
  std::uint32_t minor;

  // "8:1".
  std::string text() const { return std::to_string(major) + ":" + std::to_string(minor); }
  friend bool operator==(const DeviceNumber&, const DeviceNumber&) = default;
};

// The device of a mount. A file system on several devices has a number of its own; its source names one of
// them.
DeviceNumber deviceOf(const Mount& mount);

// The system's names for its volumes, mounted or not.
class VolumeNames {
 public:
  static VolumeNames identifiers();
  static VolumeNames labels();

  std::optional<std::string> of(const Mount& mount) const;

 private:
  explicit VolumeNames(const std::string& folder);

  struct Row {
    DeviceNumber device;
    std::string name;
  };

  std::vector<Row> rows_;
};

}  // namespace quillonic
