/// The flags of the media-analysis tool.
///
///     static_assert(cliFlag(MediaAnalysisCLIFlag::workDirectory) == "-workDirectory");
///     static_assert(!acceptsArguments(MediaAnalysisCLIFlag::deepAnalysis));
///     auto known = sanitizeAllCLIFlags<MediaAnalysisCLIFlag>(CLISanitizationOptions::lowercase);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/tool_cli/sanitization_options.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// The flags of any analysis.
enum class MediaAnalysisCLIFlag : std::uint8_t {
  /// A media file or folder to analyse; repeated for each.
  pathToAnalyze,
  /// The parent's own name for this analysis.
  analysisId,
  /// A folder for temporary files.
  workDirectory,
  /// The file that receives the results.
  resultsFilePath,
  /// Switch: requests the slower, deeper analysis.
  deepAnalysis,
};

/// The flags in case order.
template <> struct CaseTable<MediaAnalysisCLIFlag> {
  static constexpr auto rows = std::to_array<FlagRow<MediaAnalysisCLIFlag>>({
      {MediaAnalysisCLIFlag::pathToAnalyze, "-pathToAnalyze", true},
      {MediaAnalysisCLIFlag::analysisId, "-analysisId", true},
      {MediaAnalysisCLIFlag::workDirectory, "-workDirectory", true},
      {MediaAnalysisCLIFlag::resultsFilePath, "-resultsFilePath", true},
      {MediaAnalysisCLIFlag::deepAnalysis, "-deepAnalysis", false},
  });
};

static_assert(CliFlag<MediaAnalysisCLIFlag>);

/// The flags of an image analysis, which takes still frames. The tool defines the units of the numbers.
enum class MediaAnalysisImageCLIFlags : std::uint8_t {
  /// The compression of the written images.
  compressionFactor,
  /// The position of a still frame; repeated for each.
  snapshotLocation,
  /// The largest width of a still frame.
  maxImageWidth,
  /// The height of a still frame.
  imageHeight,
  /// Switch: allows the file manager's own preview images as a source.
  allowFinderImages,
};

/// The flags in case order.
template <> struct CaseTable<MediaAnalysisImageCLIFlags> {
  static constexpr auto rows = std::to_array<FlagRow<MediaAnalysisImageCLIFlags>>({
      {MediaAnalysisImageCLIFlags::compressionFactor, "-compressionFactor", true},
      {MediaAnalysisImageCLIFlags::snapshotLocation, "-snapshotLocation", true},
      {MediaAnalysisImageCLIFlags::maxImageWidth, "-maxImageWidth", true},
      {MediaAnalysisImageCLIFlags::imageHeight, "-imageHeight", true},
      {MediaAnalysisImageCLIFlags::allowFinderImages, "-allowFinderImages", false},
  });
};

static_assert(CliFlag<MediaAnalysisImageCLIFlags>);

/// The lower-cased flag, as a sanitizer reports it.
inline std::string sanitizedFlag(MediaAnalysisImageCLIFlags flag) {
  return CLISanitizationOptions::lowercase.sanitize(cliFlag(flag));
}

/// `sanitizeAllCLIFlags` under its second name.
template <CliFlag Flag> std::vector<std::string> sanitizeAll(CLISanitizationOptions options) {
  return sanitizeAllCLIFlags<Flag>(options);
}

/// All locations as one text, each after its flag and a space: "-snapshotLocation 0.25-snapshotLocation 0.5".
/// The missing space between them is a fixed contract. Numbers are their shortest decimals without an
/// exponent; no locations give the empty text.
QUILLONIC_EXPORT std::string snapShotLocationsCLIValue(std::span<const float> locations);

}  // namespace quillonic
