#include <fcntl.h>

#include "platform/descriptor_linux.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "text/pieces.hpp"
#include "platform/volume_names.hpp"

namespace quillonic {

std::string programServedKind(const Mount& mount) {
  const auto point = mount.kind.find('.');
  if (point != std::string::npos) return mount.kind.substr(point + 1);
  const auto device = deviceOf(mount);
  const auto number = std::to_string(device.major) + ":" + std::to_string(device.minor);
  const auto record = contentsOfFile("/run/udev/data/b" + number).value_or({});
  if (const auto kind = text::valueInLines(record, "E:ID_FS_TYPE=")) return std::string(*kind);
  // Whoever may read the device sees it there.
  const Descriptor volume(
      mount.source.starts_with('/') ? ::open(mount.source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);
  const auto start = volume ? bytesOf(volume.number(), 11).value_or({}) : std::string();
  return start.ends_with("EXFAT   ") ? "exfat" : "";
}

}  // namespace quillonic
