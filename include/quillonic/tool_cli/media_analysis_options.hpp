/// What a parent asks of the media-analysis tool: records that write themselves as words.
///
///     auto basic = MediaAnalysisCLIArgumentFactory::buildBasicOptions(
///         {"/media/card"}, "/tmp/work", "/tmp/results", std::nullopt, false);
///     auto words = basic.launchArguments();                       // the child's arguments
///     CLICustodialOptions(getpid()).appendTo(words);
///
/// The words of several records may come in any order; `MediaAnalysisCLIArguments` reads them. It takes a
/// value with a leading "-" for a flag, so the value is lost: write absolute paths. Negative numbers are lost
/// too.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/custodial_options.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Base of the records: writes words and a dictionary from one list of flags.
class QUILLONIC_EXPORT MediaAnalysisCLIRecord : public CliArgumentStore {
 public:
  /// The child's argument list in a fixed order: each flag before its value, a flag with several values
  /// before each of them, a switch alone if it is on. Numbers are their shortest decimals without an exponent
  /// ("1920.0"). `cliString` joins these words.
  std::vector<std::string> orderedCLITexts() const final;
  /// The words of `orderedCLITexts`. The list of `commandLineArguments` starts no tool: it has several values
  /// as one, which the tool refuses.
  std::vector<std::string> launchArguments() const final { return orderedCLITexts(); }

  /// The flags and their values, for inspection: start a tool with `launchArguments`. A flag that allows
  /// several values has them as one list, "[a b" or "[a", in which a space within a path separates too;
  /// without values it has no entry. A switch that is on has the empty text.
  TextDictionary argumentLookup() const final;

 protected:
  /// A flag that the record writes, and its values as texts.
  struct FlagEntry {
    /// The flag with its hyphen, a literal.
    std::string_view flag;
    /// Empty for a switch that is on, and for a list without values, which is not written.
    std::vector<std::string> values;
    /// Whether the flag is repeated for each value.
    bool isList = false;
  };

 private:
  virtual std::vector<FlagEntry> flagEntries() const = 0;
};

/// What any analysis needs: "-pathToAnalyze" for each path, "-workDirectory", "-resultsFilePath",
/// "-analysisId" if present, "-deepAnalysis" if on. Empty texts are ordinary values.
struct QUILLONIC_EXPORT BasicMediaAnalysisCLIOptions final : MediaAnalysisCLIRecord {
  /// Media files or folders, in the caller's order.
  std::vector<std::string> pathsToAnalyze;
  /// A folder for temporary files.
  std::string workDirectory;
  /// The file that receives the results.
  std::string resultsFilePath;
  /// The parent's own name for this analysis.
  std::optional<std::string> analysisId;
  /// Requests the slower, deeper analysis.
  bool deepAnalysis = false;

  /// Compares field by field.
  bool operator==(const BasicMediaAnalysisCLIOptions& other) const;

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// What an image analysis needs in addition: "-snapshotLocation" for each location, "-maxImageWidth",
/// "-imageHeight" and "-compressionFactor" if present, "-allowFinderImages" if on. The tool defines the units
/// of the numbers.
struct QUILLONIC_EXPORT DistributedMediaAnalysisImageOptions final : MediaAnalysisCLIRecord {
  /// The positions of the still frames, in the caller's order.
  std::vector<float> snapshotLocations;
  /// The largest width of a still frame.
  float maxImageWidth = 0;
  /// The height of a still frame; absent when only the width limits it.
  std::optional<float> imageHeight;
  /// The compression of the written images; absent lets the tool choose.
  std::optional<float> compressionFactor;
  /// Allows the file manager's own preview images as a source.
  bool allowFinderImages = false;

  /// Compares field by field; a record with NaN equals nothing.
  bool operator==(const DistributedMediaAnalysisImageOptions& other) const;

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// The process that starts the tool, as for every tool.
using MediaAnalysisCLICustodialOptions = CLICustodialOptions;

/// Makes the records, with every argument kept as given.
class QUILLONIC_EXPORT MediaAnalysisCLIArgumentFactory {
 public:
  /// What any analysis needs; the paths need not exist.
  static BasicMediaAnalysisCLIOptions buildBasicOptions(std::vector<std::string> pathsToAnalyze,
                                                        std::string workDirectory,
                                                        std::string resultsFilePath,
                                                        std::optional<std::string> analysisId,
                                                        bool deepAnalysis);

  /// Still frames with a largest width; the height is absent.
  static DistributedMediaAnalysisImageOptions buildImageOptions(std::vector<float> snapshotLocations,
                                                                float maxImageWidth,
                                                                std::optional<float> compressionFactor,
                                                                bool allowFinderImages);
  /// Still frames with a width, stored as `maxImageWidth` under the same flag, and a height.
  static DistributedMediaAnalysisImageOptions buildImageOptions(std::vector<float> snapshotLocations,
                                                                float imageWidth, float imageHeight,
                                                                std::optional<float> compressionFactor,
                                                                bool allowFinderImages);

  /// The parent's record without its application number; set `parentAppNumber` separately.
  static MediaAnalysisCLICustodialOptions custodialOptions(std::int32_t forParentProcessId);
};

}  // namespace quillonic
