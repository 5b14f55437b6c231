/// The errors of the replication input/output layer, and of gathering a file's attributes.
///
///     throw std::system_error(IOError::failedToReposition);
///     catch (const std::system_error& error) { if (error.code() == IOError::closedToIOActivity) ... }
#pragma once

#include <quillonic/export.hpp>

#include <system_error>

namespace quillonic {

/// The replication layer's own errors; the platform's errors pass through it unchanged. The messages are
/// fixed: lower case, without a full stop.
enum class IOError {
  /// "invalid path type"
  invalidPathType = 1,
  /// "invalid data type"
  invalidDataType,
  /// "path does not exist"
  nonexistentIOPath,
  /// "io has closed"
  closedToIOActivity,
  /// "reposition failure"
  failedToReposition,
  /// "data ignored"
  ioDataIgnored,
  /// "file attributes unavailable"
  unavailableFileAttributes,
  /// "invalid replication structure"
  invalidReplicationStructure,
  /// "replicator type not supported"
  unsupportedReplicator,
  /// "replication resources unavailable"
  unavailableReplicationResources,
  /// "output already processed"
  outputPreviouslyProcessed,
  /// "verification resources unavailable"
  unavailableVerificationResources,
};

/// Why a link's details are unknown when the system reports no error.
enum class FilePathAttributeGenerationError {
  /// The file does not begin like an alias file, or is too large.
  notAnAliasFile = 1,
  /// The file begins like an alias file but is damaged, or its target takes too many look-ups.
  malformedAliasFile,
  /// No item exists at any place that the alias file records.
  aliasTargetNotFound,
  /// A symbolic link names no place.
  symbolicLinkTargetNotFound,
};

/// The category of `IOError`; its name is "quillonic.io".
QUILLONIC_EXPORT const std::error_category& ioErrorCategory() noexcept;
/// Converts an `IOError` to an error code.
QUILLONIC_EXPORT std::error_code make_error_code(IOError error) noexcept;

/// The category of `FilePathAttributeGenerationError`; its name is "quillonic.attributes".
QUILLONIC_EXPORT const std::error_category& filePathAttributeGenerationErrorCategory() noexcept;
/// Converts a `FilePathAttributeGenerationError` to an error code.
QUILLONIC_EXPORT std::error_code make_error_code(FilePathAttributeGenerationError error) noexcept;

}  // namespace quillonic

template <> struct std::is_error_code_enum<quillonic::IOError> : std::true_type {};
template <> struct std::is_error_code_enum<quillonic::FilePathAttributeGenerationError> : std::true_type {};
