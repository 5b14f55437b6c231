#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <system_error>

#include "platform/items.hpp"
#include "platform/volume_identities.hpp"

namespace quillonic {

std::vector<VolumeIdentity> volumeIdentities() {
  constexpr const char* folder = "/dev/disk/by-uuid";
  std::error_code ignored;
  const auto opened = items::Folder::open(folder, ignored);
  const auto links = opened ? items::entries(*opened, ignored) : std::nullopt;
  std::vector<VolumeIdentity> identities;
  if (!links) return identities;
  for (const auto& link : *links) {
    struct stat device {};
    if (::stat((std::string(folder) + "/" + link.name).c_str(), &device) != 0) continue;
    identities.push_back({link.name, major(device.st_rdev), minor(device.st_rdev)});
  }
  return identities;
}

}  // namespace quillonic
