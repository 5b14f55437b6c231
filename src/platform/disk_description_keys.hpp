// The keys of disk descriptions.
#pragma once

namespace quillonic::disk_description_keys {

inline constexpr auto volumePath = "DAVolumePath";
inline constexpr auto volumeKind = "DAVolumeKind";
inline constexpr auto volumeNetwork = "DAVolumeNetwork";
inline constexpr auto mediaName = "DAMediaName";
inline constexpr auto mediaWritable = "DAMediaWritable";
inline constexpr auto deviceModel = "DADeviceModel";

}  // namespace quillonic::disk_description_keys
