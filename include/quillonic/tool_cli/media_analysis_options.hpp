/// What a parent asks of the media-analysis tool, as records that write themselves as words.
///
///     auto basic = MediaAnalysisCLIArgumentFactory::buildBasicOptions(
///         {"/media/card"}, "/tmp/work", "/tmp/results", std::nullopt, false);
///     auto custodial = MediaAnalysisCLIArgumentFactory::custodialOptions(getpid());
///     std::vector<std::string> words = basic.orderedCLITexts();
///     std::ranges::copy(custodial.orderedCLITexts(), std::back_inserter(words));   // the child's arguments
///
/// The words of several records follow one another in any order; MediaAnalysisCLIArguments reads them back. A
/// value that begins with "-" cannot be told from a flag there and is lost: write a path as an absolute one.
/// That includes a number below 0.
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

/// What any analysis needs. Empty texts are values like any other.
struct BasicMediaAnalysisCLIOptions {
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

  friend bool operator==(const BasicMediaAnalysisCLIOptions&, const BasicMediaAnalysisCLIOptions&) = default;
};

/// What an image analysis needs besides. What the numbers measure is up to the tool. A record that holds NaN
/// equals nothing.
struct DistributedMediaAnalysisImageOptions {
  /// The positions of the still frames, in the caller's order.
  std::vector<float> snapshotLocations;
  /// The largest width of a still frame.
  float maxImageWidth = 0;
  /// The height of a still frame; absent where the width alone limits it.
  std::optional<float> imageHeight;
  /// How much the written images are compressed; absent leaves it to the tool.
  std::optional<float> compressionFactor;
  /// Permits the file manager's own preview images as a source.
  bool allowFinderImages = false;

  friend bool operator==(const DistributedMediaAnalysisImageOptions&,
                         const DistributedMediaAnalysisImageOptions&) = default;
};

/// Who started the tool.
struct MediaAnalysisCLICustodialOptions {
  /// The process identifier of the parent application.
  std::int32_t parentProcessId = 0;
  /// The number that identifies the parent application; absent until the parent sets it.
  std::optional<std::int64_t> parentAppNumber;

  friend bool operator==(const MediaAnalysisCLICustodialOptions&,
                         const MediaAnalysisCLICustodialOptions&) = default;
};

/// Writes a record of options as words and as a dictionary, both from one list of its flags.
class QUILLONIC_EXPORT MediaAnalysisCLIRecord : public CliArgumentStore {
 public:
  /// The argument list for the child, in its fixed order: each flag before its value, a flag with several
  /// values once before each of them, a switch that is on alone. Numbers are their shortest decimals, without
  /// an exponent ("1920.0"). `cliString` runs these words together.
  std::vector<std::string> orderedCLITexts() const final;

  /// The same flags with their values. A flag that may have several holds them as one list, "[a b", also when
  /// it has just one, "[a", and has no entry without any; a blank within a path therefore divides it. A
  /// switch that is on has the empty text. Made to be looked at: a tool is started with `orderedCLITexts`.
  TextDictionary argumentLookup() const final;

 protected:
  /// A flag that the record writes, with its values as texts.
  struct FlagEntry {
    /// The flag with its hyphen, a literal.
    std::string_view flag;
    /// None for a switch that is on, and for a list without values, which is not written at all.
    std::vector<std::string> values;
    /// Whether the flag may stand several times, once for each value.
    bool isList = false;
  };

 private:
  virtual std::vector<FlagEntry> flagEntries() const = 0;
};

/// The options of any analysis with their words: "-pathToAnalyze" for each path, "-workDirectory",
/// "-resultsFilePath", "-analysisId" when there is one, "-deepAnalysis" when it is on.
class QUILLONIC_EXPORT BasicMediaAnalysisCLIRecord final : public BasicMediaAnalysisCLIOptions,
                                                           public MediaAnalysisCLIRecord {
 public:
  /// Takes the options over as they are.
  explicit BasicMediaAnalysisCLIRecord(BasicMediaAnalysisCLIOptions options);

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// The options of an image analysis with their words: "-snapshotLocation" for each location,
/// "-maxImageWidth", "-imageHeight" and "-compressionFactor" when there is one, "-allowFinderImages" when it
/// is on.
class QUILLONIC_EXPORT DistributedMediaAnalysisImageRecord final
    : public DistributedMediaAnalysisImageOptions,
      public MediaAnalysisCLIRecord {
 public:
  /// Takes the options over as they are.
  explicit DistributedMediaAnalysisImageRecord(DistributedMediaAnalysisImageOptions options);

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// The custodial options with their words: "-parentPid", then "-parentAppNumber" when there is one.
class QUILLONIC_EXPORT MediaAnalysisCLICustodialRecord final : public MediaAnalysisCLICustodialOptions,
                                                               public MediaAnalysisCLIRecord {
 public:
  /// Takes the options over as they are.
  explicit MediaAnalysisCLICustodialRecord(MediaAnalysisCLICustodialOptions options);

 private:
  std::vector<FlagEntry> flagEntries() const override;
};

/// Makes the records. Every argument is kept as given.
class QUILLONIC_EXPORT MediaAnalysisCLIArgumentFactory {
 public:
  /// What any analysis needs; whether the paths exist is not asked.
  static BasicMediaAnalysisCLIRecord buildBasicOptions(std::vector<std::string> pathsToAnalyze,
                                                       std::string workDirectory, std::string resultsFilePath,
                                                       std::optional<std::string> analysisId,
                                                       bool deepAnalysis);

  /// Still frames of at most a width; the height is absent.
  static DistributedMediaAnalysisImageRecord buildImageOptions(std::vector<float> snapshotLocations,
                                                               float maxImageWidth,
                                                               std::optional<float> compressionFactor,
                                                               bool allowFinderImages);
  /// Still frames of a width and a height; the width is the record's `maxImageWidth`, under the same flag.
  static DistributedMediaAnalysisImageRecord buildImageOptions(std::vector<float> snapshotLocations,
                                                               float imageWidth, float imageHeight,
                                                               std::optional<float> compressionFactor,
                                                               bool allowFinderImages);

  /// The parent's part, without its application number; set `parentAppNumber` on the record to add that.
  static MediaAnalysisCLICustodialRecord custodialOptions(std::int32_t forParentProcessId);
};

}  // namespace quillonic
