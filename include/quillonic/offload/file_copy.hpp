/// Copies of single files that replace nothing and are whole or absent.
///
///     const std::filesystem::path targets[] = {"/raid/A001.mov", "/shuttle/A001.mov"};
///     const auto copy = offload::copyFile("/card/A001.mov", targets, {.checksum = &offload::xxh64});
///     for (const auto& target : copy.targets) if (target.error) report(target.path, target.error);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/offload/checksum.hpp>
#include <quillonic/platform/unheld.hpp>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace quillonic::offload {

/// Receives how many bytes of the source are done; returning false stops the operation.
using ProgressBlock = std::function<bool(std::uint64_t bytes)>;

/// One copy.
struct CopiedFile {
  /// Where it is, or was to be.
  std::filesystem::path path;
  /// None when the copy is whole and on its volume; else nothing is left there that was not there before.
  std::error_code error;
  /// What of the source the copy lacks.
  Unheld unheld;
};

/// A file that was copied.
struct FileCopy {
  /// Of the source, in bytes.
  std::uint64_t size = 0;
  /// Of the bytes as they were read from the source; nothing unless one was asked for and all were read.
  std::optional<std::string> checksum;
  /// One per target, in the order of the targets.
  std::vector<CopiedFile> targets;
};

/// How a file is copied.
struct FileCopyOptions {
  /// Computed on the way unless null.
  const ChecksumKind* checksum = nullptr;
  /// Takes the next free name where a target's name is taken or written to, as
  /// `FileManager::filePathAdjustedForCollision` forms it.
  bool takesFreeName = false;
  /// Stops the copy if it says so; the targets then fail with `std::errc::operation_canceled`.
  ProgressBlock progress = {};
};

/// Reads a regular file once and writes it to every target, whose folders must exist. Follows no link in the
/// last component of either. A copy gets its name when it is whole and on the volume: a taken name, even a
/// dangling link, is an error and never replaced. Until then it has none, and nothing is left of it when the
/// program is killed. Where the volume has no files without names, as FAT, exFAT, NTFS and servers, it has a
/// hidden name beside its own: what a killed program left there is removed by the next copy, and while
/// another program writes there, the error is `device_or_resource_busy`. Copies keep the holes, owner,
/// permissions, extended attributes and dates as far as their volumes do. The source's access time stays if
/// the process owns the file or is root.
///
/// With one target and no checksum the bytes are shared with the source, or copied by the system, where the
/// volumes offer it. A target that fails does not stop the others. Throws a `std::system_error` when the
/// source cannot be read, is not a regular file or changes meanwhile (`OffloadError::sourceChanged`); nothing
/// is left at any target then, nor when a block throws.
QUILLONIC_EXPORT FileCopy copyFile(const std::filesystem::path& source,
                                   std::span<const std::filesystem::path> targets,
                                   const FileCopyOptions& options = {});

/// The checksum of a file read back from its volume, past the system's memory of it where the system allows
/// that; bytes that are not on the volume yet, as from another program, come from memory. Follows no final
/// link. Throws a `std::system_error` when the file cannot be read, and `operation_canceled` for a stop.
QUILLONIC_EXPORT std::string checksumOfFile(const std::filesystem::path& file, const ChecksumKind& kind,
                                            const ProgressBlock& progress = {});

}  // namespace quillonic::offload
