// The identifiers of the volumes on block devices.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillonic {

struct VolumeIdentity {
  std::string uuid;
  std::uint32_t deviceMajor;
  std::uint32_t deviceMinor;
};

// Those of all devices that the system lists, mounted or not; empty where it lists none.
std::vector<VolumeIdentity> volumeIdentities();

}  // namespace quillonic
