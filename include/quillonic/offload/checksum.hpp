/// Checksums of what is copied, computed by code that the host chooses.
///
///     #include <quillonic/checksums.hpp>                     // xxHash and SHA, for hosts that have them
///     auto copy = offload::copyFile(clip, targets, {.checksum = &offload::xxh64});
#pragma once

#include <quillonic/export.hpp>

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace quillonic::offload {

/// Computes the checksum of one stream of bytes.
class QUILLONIC_EXPORT Hasher {
 public:
  Hasher() = default;
  Hasher(const Hasher&) = delete;
  Hasher& operator=(const Hasher&) = delete;
  virtual ~Hasher();
  /// Adds the next bytes of the stream.
  virtual void add(std::span<const std::byte> bytes) = 0;
  /// The checksum of all bytes in lower-case hexadecimal digits. Called once, at the end.
  virtual std::string checksum() = 0;
};

/// A kind of checksum.
struct ChecksumKind {
  /// The element's name in a media hash list, as in `HashListEntry`; any other for a kind that no such list
  /// has.
  std::string name;
  /// A new hasher, never null. Any thread may call it.
  std::function<std::unique_ptr<Hasher>()> hasher;
};

}  // namespace quillonic::offload
