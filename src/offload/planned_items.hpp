// What planning and running ask about an item.
#pragma once

#include <quillonic/offload/copy_match.hpp>
#include <quillonic/offload/offload_plan.hpp>

#include <chrono>
#include <cstdint>

#include "platform/items.hpp"

namespace quillonic::offload {

inline Date modificationDateOf(const PlannedItem& item) {
  return Date(std::chrono::nanoseconds(item.modified));
}

// Whether an item is a name of a regular file, whose bytes may have to be copied.
inline bool isFile(const PlannedItem& item) {
  return item.kind == PlannedKind::file || item.kind == PlannedKind::hardName;
}

// Whether a volume gets a copy of an item's bytes: also of a further name of a file, where it holds no links.
inline bool isCopied(const PlannedItem& item, const VolumeTraits& volume) {
  return item.kind == PlannedKind::file || (item.kind == PlannedKind::hardName && !volume.holdsHardLinks);
}

inline bool isTooLarge(const PlannedItem& item, const VolumeTraits& volume) {
  return volume.greatestFileSize != 0 && item.size > volume.greatestFileSize;
}

// Whether what has an item's name in a target is a file of its size, and of its date.
inline bool hasSizeOf(const PlannedItem& item, const items::Status& copy) {
  return copy.type == FileType::regular && copy.size == static_cast<std::uint64_t>(item.size);
}
inline bool hasDateOf(const PlannedItem& item, const items::Status& copy, const VolumeTraits& volume) {
  return areSameDates(copy.modified, modificationDateOf(item), volume);
}

}  // namespace quillonic::offload
