/// What can be wrong with the arguments of the media-analysis tool.
///
///     throw std::system_error(MediaAnalysisCLIError::workDirectoryNotSupplied);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <system_error>

namespace quillonic {

/// The failed check. Numbers begin at 1 because an error code of 0 means success.
enum class MediaAnalysisCLIError : std::uint8_t {
  /// The list has no path to analyse.
  pathToAnalyzeNotSupplied = 1,
  /// One of the paths to analyse does not exist.
  pathToAnalyzeDoesNotExist,
  /// The list has no folder for temporary files.
  workDirectoryNotSupplied,
  /// That folder does not exist.
  workDirectoryDoesNotExist,
  /// The list has no file for the results.
  resultsFilePathNotSupplied,
  /// The file for the results exists, and the tool does not overwrite it.
  resultsFileAlreadyExists,
  /// The file for the results cannot be created.
  resultsFilePathNotCreated,
};

/// The errors in case order, by the names of their cases.
template <> struct CaseTable<MediaAnalysisCLIError> {
  static constexpr auto rows = std::to_array<CaseRow<MediaAnalysisCLIError>>({
      {MediaAnalysisCLIError::pathToAnalyzeNotSupplied, "pathToAnalyzeNotSupplied"},
      {MediaAnalysisCLIError::pathToAnalyzeDoesNotExist, "pathToAnalyzeDoesNotExist"},
      {MediaAnalysisCLIError::workDirectoryNotSupplied, "workDirectoryNotSupplied"},
      {MediaAnalysisCLIError::workDirectoryDoesNotExist, "workDirectoryDoesNotExist"},
      {MediaAnalysisCLIError::resultsFilePathNotSupplied, "resultsFilePathNotSupplied"},
      {MediaAnalysisCLIError::resultsFileAlreadyExists, "resultsFileAlreadyExists"},
      {MediaAnalysisCLIError::resultsFilePathNotCreated, "resultsFilePathNotCreated"},
  });
};

/// What an image analysis lacks.
enum class MediaAnalysisCLIImageError : std::uint8_t { missingSnapshotLocations = 1, missingMaxImageWidth };

/// The errors in case order, by the names of their cases.
template <> struct CaseTable<MediaAnalysisCLIImageError> {
  static constexpr auto rows = std::to_array<CaseRow<MediaAnalysisCLIImageError>>({
      {MediaAnalysisCLIImageError::missingSnapshotLocations, "missingSnapshotLocations"},
      {MediaAnalysisCLIImageError::missingMaxImageWidth, "missingMaxImageWidth"},
  });
};

/// The error as a code of its own category. The message is the name of the case; the tool has texts for
/// people.
QUILLONIC_EXPORT std::error_code make_error_code(MediaAnalysisCLIError error) noexcept;
/// The image-analysis error as a code of a second category.
QUILLONIC_EXPORT std::error_code make_error_code(MediaAnalysisCLIImageError error) noexcept;

}  // namespace quillonic

template <> struct std::is_error_code_enum<quillonic::MediaAnalysisCLIError> : std::true_type {};
template <> struct std::is_error_code_enum<quillonic::MediaAnalysisCLIImageError> : std::true_type {};
