#include <algorithm>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

#include "platform/descriptor_linux.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/volume_names.hpp"
#include "text/pieces.hpp"

namespace quillonic {

std::string trueKindOf(const Mount& mount) {
  if (mount.kind != "fuse" && !mount.kind.starts_with("fuseblk")) return mount.kind;
  const auto record = contentsOfFile("/run/udev/data/b" + deviceOf(mount).text()).value_or({});
  if (const auto kind = text::valueInLines(record, "E:ID_FS_TYPE=")) return std::string(*kind);
  // Processes that may read the device, or the file with the volume, find the kind there. The source may be a
  // link to it.
  struct stat item {};
  const bool isReadable = mount.source.starts_with('/') && ::stat(mount.source.c_str(), &item) == 0 &&
                          (S_ISBLK(item.st_mode) || S_ISREG(item.st_mode));
  const Descriptor volume(isReadable ? ::open(mount.source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);
  const auto start = volume ? bytesOf(volume.number(), 11).value_or({}) : std::string();
  const auto name = std::string_view(start).substr(std::min<std::size_t>(start.size(), 3));
  if (name == "EXFAT   ") return "exfat";
  return name == "NTFS    " ? "ntfs" : mount.kind;
}

const FileSystemKind* knownKindOf(const Mount& mount) {
  const auto server = isProgramServed(mount.kind) ? FileSystemServer::program : FileSystemServer::kernel;
  return kindNamed(trueKindOf(mount), server);
}

}  // namespace quillonic
