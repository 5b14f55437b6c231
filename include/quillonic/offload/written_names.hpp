/// Names that a volume holds, for items whose own names it does not.
///
///     const auto volume = VolumeTraits::at("/media/SHUTTLE");
///     auto name = offload::writtenName("take: 1?.mov", volume.kind);        // "take_ 1_.mov" on exFAT
///     auto names = offload::writtenNames(namesOfTheFolder, volume.kind);    // and no two alike
#pragma once

#include <quillonic/export.hpp>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::offload {

/// The name under which an item is written on volumes of a kind, given as in `VolumeTraits::kind` ("vfat",
/// "exfat", "ntfs", "ltfs", "hfsplus"): the name itself if such volumes hold it, or if the kind is unknown,
/// as it is of "fuse". For "fuseblk", a device whose kind is unknown, a name that NTFS and exFAT hold. Never
/// empty. Each character that is not allowed becomes "_", and so does each trailing full stop or space where
/// these are not allowed, and each byte that is not UTF-8 where names are Unicode. The name of a device gets
/// a "_": "con_.txt". A name that is too long, in the units that the kind counts, loses the end of its stem
/// and keeps its extension. A written name is written as itself.
QUILLONIC_EXPORT std::string writtenName(std::string_view name, std::string_view volumeKind);

/// The written names of all items of a folder, in their order, each unique: also without regard to case and
/// composition where the kind ignores case. A name that need not change keeps itself; of the others, the
/// later gets a counter as `FileManager` forms it, "take_ 2.mov". Equal names give equal results in every
/// process.
QUILLONIC_EXPORT std::vector<std::string> writtenNames(std::span<const std::string> names,
                                                       std::string_view volumeKind);

}  // namespace quillonic::offload
