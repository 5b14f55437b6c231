// One file that is read once and written to several targets, in steps that a group of files can share.
#pragma once

#include <quillonic/offload/file_copy.hpp>
#include <quillonic/platform/volume_traits.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_copies.hpp"

namespace quillonic::offload {

// What the processor keeps near while it is read, summed and written.
inline constexpr std::size_t bufferSize = std::size_t{1} << 18;

// Adds a count of zeros.
void addZeros(Hasher& hasher, std::uint64_t count);

// The checksum of an open file, read from its volume.
Result<std::string> checksumOf(const SourceFile& file, const ChecksumKind& kind,
                               const ProgressBlock& progress);

// Gives an open file or folder what another has beside its content. Returns what it lacks of that.
Unheld copyAttributes(int source, const items::Status& status, int copy, const VolumeTraits& volume);

class Copying {
 public:
  struct Target {
    std::string name;
    VolumeTraits volume;
    // Absent when it could not be created or has failed.
    std::optional<PartialFile> file;
    std::error_code error;
    Unheld unheld;
  };

  // A target that cannot be created has failed.
  void addTarget(std::string name, Result<std::shared_ptr<const items::Folder>> folder, VolumeTraits volume);
  std::vector<Target>& targets() noexcept { return targets_; }

  // Writes bytes and attributes. The error is the source's, or that of a stop; a target's own is with it.
  std::error_code write(const SourceFile& source, const ChecksumKind* checksum,
                        const ProgressBlock& progress);
  const std::optional<std::string>& checksum() const noexcept { return checksum_; }

  // Ends a target with an error, if it is one. Removes its file.
  static void settle(Target& target, std::error_code error);

 private:
  std::error_code writeBytes(const SourceFile& source, Hasher* hasher, const ProgressBlock& progress);
  bool isAlive() const noexcept;
  template <class Operation> void onTargets(Operation operation);

  std::vector<Target> targets_;
  std::optional<std::string> checksum_;
};

}  // namespace quillonic::offload
