/// What a parent asks of the media-analysis tool: records that write themselves as words.
///
///     auto basic = MediaAnalysisCLIArgumentFactory::buildBasicOptions(
///         {"/media/card"}, "/tmp/work", "/tmp/results", std::nullopt, false);
///     auto custodial = MediaAnalysisCLIArgumentFactory::custodialOptions(getpid());
///     std::vector<std::string> words = basic.orderedCLITexts();
///     std::ranges::copy(custodial.orderedCLITexts(), std::back_inserter(words));   // the child's arguments
///
/// The words of several records follow one another in any order; `MediaAnalysisCLIArguments` reads them back.
/// It takes a value that begins with "-" for a flag, and the value is lost: write a path as an absolute one.
/// A number below 0 is lost too.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/tool_cli/argument_store.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Base of the records: writes one as words and as a dictionary, both from one list of its flags.
class QUILLONIC_EXPORT MediaAnalysisCLIRecord : public CliArgumentStore {
 public:
  /// The child's argument list in its fixed order: each flag before its value, a flag with several values
  /// before each of them, a switch that is on alone. Numbers are their shortest decimals without an exponent
  /// ("1920.0"). `cliString` runs these words together.
  std::vector<std::string> orderedCLITexts() const final;

  /// The same flags with their values, to look at: start a tool with `orderedCLITexts`. A flag that can have
  /// several values holds them as one list, "[a b" or "[a", so a space within a path divides it; without
  /// values it has no entry. A switch that is on has the empty text.
  TextDictionary argumentLookup() const final;

 protected:
  /// A flag that the record writes, with its values as texts.
  struct FlagEntry {
    /// The flag with its hyphen, a literal.
    std::string_view flag;
    /// None for a switch that is on, and for a list without values, which is not written at all.
    std::vector<std::string> values;
    /// Whether the flag is repeated for each value.
    bool isList = false;
  };

 private:
  virtual std::vector<FlagEntry> flagEntries() const = 0;
};

/// What any analysis needs: "-pathToAnalyze" for each path, "-workDirectory", "-resultsFilePath",
/// "-analysisId" when present, "-deepAnalysis" when on. Empty texts are values like any other.
struct QUILLONIC_EXPORT BasicMediaAnalysisCLIOptions final : MediaAnalysisCLIRecord {
  /// Media files or folders, in the caller's order.
  std::vector<std::string> pathsToAnalyze;
  /// A folder for temporary files.
  std::string workDirectory;
  /// The file that receives the results.
  std::string resultsFilePath;
  /// The parent's own name for this analysis.
  std::optional<std::string> analysisId;
  /// Asks for the slower, deeper analysis.
  bool deepAnalysis = false;

  /// Compares field by field.
  bool operator==(const BasicMediaAnalysisCLIOptions& other) const;

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// What an image analysis needs in addition: "-snapshotLocation" for each location, "-maxImageWidth",
/// "-imageHeight" and "-compressionFactor" when present, "-allowFinderImages" when on. The tool defines the
/// units of the numbers.
struct QUILLONIC_EXPORT DistributedMediaAnalysisImageOptions final : MediaAnalysisCLIRecord {
  /// The positions of the still frames, in the caller's order.
  std::vector<float> snapshotLocations;
  /// The largest width of a still frame.
  float maxImageWidth = 0;
  /// The height of a still frame; absent when only the width limits it.
  std::optional<float> imageHeight;
  /// How much the written images are compressed; absent leaves it to the tool.
  std::optional<float> compressionFactor;
  /// Permits the file manager's own preview images as a source.
  bool allowFinderImages = false;

  /// Compares field by field; a record that holds NaN equals nothing.
  bool operator==(const DistributedMediaAnalysisImageOptions& other) const;

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// The process that started the tool: "-parentPid", then "-parentAppNumber" when present.
struct QUILLONIC_EXPORT MediaAnalysisCLICustodialOptions final : MediaAnalysisCLIRecord {
  /// The process identifier of the parent application.
  std::int32_t parentProcessId = 0;
  /// The number that identifies the parent application; absent until the parent sets it.
  std::optional<std::int64_t> parentAppNumber;

  /// Compares field by field.
  bool operator==(const MediaAnalysisCLICustodialOptions& other) const;

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// Makes the records. Every argument is kept as given.
class QUILLONIC_EXPORT MediaAnalysisCLIArgumentFactory {
 public:
  /// What any analysis needs; the paths need not exist.
  static BasicMediaAnalysisCLIOptions buildBasicOptions(std::vector<std::string> pathsToAnalyze,
                                                        std::string workDirectory,
                                                        std::string resultsFilePath,
                                                        std::optional<std::string> analysisId,
                                                        bool deepAnalysis);

  /// Still frames of a largest width; the height is absent.
  static DistributedMediaAnalysisImageOptions buildImageOptions(std::vector<float> snapshotLocations,
                                                                float maxImageWidth,
                                                                std::optional<float> compressionFactor,
                                                                bool allowFinderImages);
  /// Still frames of a width and a height. The width is the record's `maxImageWidth`, under the same flag.
  static DistributedMediaAnalysisImageOptions buildImageOptions(std::vector<float> snapshotLocations,
                                                                float imageWidth, float imageHeight,
                                                                std::optional<float> compressionFactor,
                                                                bool allowFinderImages);

  /// The parent's part without its application number, which is the record's `parentAppNumber`.
  static MediaAnalysisCLICustodialOptions custodialOptions(std::int32_t forParentProcessId);
};

}  // namespace quillonic
