/// The operating system's description of the disk under a volume, as a dictionary for `DiskDescription`.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/mount_table.hpp>
#include <quillonic/support/any_value.hpp>

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace quillonic {

/// Values by key, in byte order of the keys.
using DiskDescriptionDictionary = std::map<std::string, AnyValue, std::less<>>;

/// Describes the volume that holds an item, found like `MountTable::holding`; nothing when there is none.
/// Reads the mount table and a few small files about the device, never the device itself. The keys are:
///
/// - "DAVolumePath", a path: the mount point
/// - "DAVolumeKind", a text: the kind of file system, such as "exfat"; as in the mount table, "fuse.sshfs",
/// for a kind that only programs serve; "fuse" or "fuseblk" only when nothing more is known
/// - "DAVolumeNetwork", a Boolean: another machine serves volumes of this kind
///
/// and for a volume on a block device, directly or as the single part of an encrypted or combined device, as
/// far as the system knows:
///
/// - "DAMediaName", a text: "disk image" for a mounted image file, else the partition's name, the device's
/// model, or the name of the device node
/// - "DADeviceModel", a text: the model reported by the device, trimmed
/// - "DAMediaWritable", a Boolean: no part of the device is write-protected; true for a volume that is merely
/// mounted read-only
QUILLONIC_EXPORT std::optional<DiskDescriptionDictionary> diskDescriptionOfVolume(
    const std::filesystem::path& holding);

/// Describes a mounted volume. `deviceTree` is the folder in which the system shows its devices.
QUILLONIC_EXPORT DiskDescriptionDictionary
diskDescriptionOfMount(const Mount& mount, const std::filesystem::path& deviceTree = "/sys");

}  // namespace quillonic
