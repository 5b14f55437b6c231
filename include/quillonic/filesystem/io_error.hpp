/// The errors of the replication input/output layer, and of gathering a file's attributes.
///
///     throw std::system_error(IOError::failedToReposition);
///     catch (const std::system_error& error) { if (error.code() == IOError::closedToIOActivity) ... }
#pragma once

#include <quillonic/export.hpp>

#include <system_error>

namespace quillonic {

/// What the replication layer reports of itself. The platform's own errors pass through it unchanged. The
/// messages are fixed: lower case and without a full stop.
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

/// Why a link's details cannot be had although the system reports no error.
enum class FilePathAttributeGenerationError {
  /// The file does not begin as alias files do, or it is greater than any of them.
  notAnAliasFile = 1,
  /// The file begins like an alias file but is damaged.
  malformedAliasFile,
  /// Nothing is found at any of the places that the alias file leads to.
  aliasTargetNotFound,
  /// A symbolic link names no place, or the working folder that it counts from is gone.
  symbolicLinkTargetNotFound,
};

/// The category of `IOError`; its name is "quillonic.io".
QUILLONIC_EXPORT const std::error_category& ioErrorCategory() noexcept;
/// Lets an `IOError` stand wherever an error code does.
QUILLONIC_EXPORT std::error_code make_error_code(IOError error) noexcept;

/// The category of `FilePathAttributeGenerationError`; its name is "quillonic.attributes".
QUILLONIC_EXPORT const std::error_category& filePathAttributeGenerationErrorCategory() noexcept;
/// Lets a `FilePathAttributeGenerationError` stand wherever an error code does.
QUILLONIC_EXPORT std::error_code make_error_code(FilePathAttributeGenerationError error) noexcept;

}  // namespace quillonic

template <> struct std::is_error_code_enum<quillonic::IOError> : std::true_type {};
template <> struct std::is_error_code_enum<quillonic::FilePathAttributeGenerationError> : std::true_type {};
