#include <quillonic/tool_cli/media_analysis_flags.hpp>
#include <quillonic/tool_cli/media_analysis_options.hpp>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include "text/number_text.hpp"

namespace quillonic {

std::vector<std::string> MediaAnalysisCLIRecord::orderedCLITexts() const {
  std::vector<std::string> words;
  for (auto& entry : flagEntries()) {
    if (entry.values.empty() && !entry.isList) words.emplace_back(entry.flag);
    for (auto& value : entry.values) {
      words.emplace_back(entry.flag);
      words.push_back(std::move(value));
    }
  }
  return words;
}

TextDictionary MediaAnalysisCLIRecord::argumentLookup() const {
  TextDictionary lookup;
  for (const auto& entry : flagEntries()) {
    if (!entry.isList) {
      lookup.emplace(entry.flag, entry.values.empty() ? std::string() : entry.values.front());
    } else if (!entry.values.empty()) {
      lookup.emplace(entry.flag, buildCLIList(entry.values));
    }
  }
  return lookup;
}

bool BasicMediaAnalysisCLIOptions::operator==(const BasicMediaAnalysisCLIOptions& other) const {
  const auto fields = [](const auto& record) {
    return std::tie(record.pathsToAnalyze, record.workDirectory, record.resultsFilePath, record.analysisId,
                    record.deepAnalysis);
  };
  return fields(*this) == fields(other);
}

std::vector<MediaAnalysisCLIRecord::FlagEntry> BasicMediaAnalysisCLIOptions::flagEntries() const {
  using Flag = MediaAnalysisCLIFlag;
  std::vector<FlagEntry> entries{
      {cliFlag(Flag::pathToAnalyze), pathsToAnalyze, true},
      {cliFlag(Flag::workDirectory), {workDirectory}},
      {cliFlag(Flag::resultsFilePath), {resultsFilePath}},
  };
  if (const auto& id = analysisId) {
    entries.push_back({cliFlag(Flag::analysisId), {*id}});
  }
  if (deepAnalysis) {
    entries.push_back({cliFlag(Flag::deepAnalysis), {}});
  }
  return entries;
}

bool DistributedMediaAnalysisImageOptions::operator==(
    const DistributedMediaAnalysisImageOptions& other) const {
  const auto fields = [](const auto& record) {
    return std::tie(record.snapshotLocations, record.maxImageWidth, record.imageHeight,
                    record.compressionFactor, record.allowFinderImages);
  };
  return fields(*this) == fields(other);
}

std::vector<MediaAnalysisCLIRecord::FlagEntry> DistributedMediaAnalysisImageOptions::flagEntries() const {
  using Flag = MediaAnalysisImageCLIFlags;
  const auto text = [](float number) { return number_text::shortest(number); };
  std::vector<std::string> locations;
  std::ranges::transform(snapshotLocations, std::back_inserter(locations), text);
  std::vector<FlagEntry> entries{
      {cliFlag(Flag::snapshotLocation), std::move(locations), true},
      {cliFlag(Flag::maxImageWidth), {text(maxImageWidth)}},
  };
  if (imageHeight) entries.push_back({cliFlag(Flag::imageHeight), {text(*imageHeight)}});
  if (compressionFactor) entries.push_back({cliFlag(Flag::compressionFactor), {text(*compressionFactor)}});
  if (allowFinderImages) entries.push_back({cliFlag(Flag::allowFinderImages), {}});
  return entries;
}

BasicMediaAnalysisCLIOptions MediaAnalysisCLIArgumentFactory::buildBasicOptions(
    std::vector<std::string> pathsToAnalyze, std::string workDirectory, std::string resultsFilePath,
    std::optional<std::string> analysisId, bool deepAnalysis) {
  BasicMediaAnalysisCLIOptions options;
  options.pathsToAnalyze = std::move(pathsToAnalyze);
  options.workDirectory = std::move(workDirectory);
  options.resultsFilePath = std::move(resultsFilePath);
  options.analysisId = std::move(analysisId);
  options.deepAnalysis = deepAnalysis;
  return options;
}

DistributedMediaAnalysisImageOptions MediaAnalysisCLIArgumentFactory::buildImageOptions(
    std::vector<float> snapshotLocations, float maxImageWidth, std::optional<float> compressionFactor,
    bool allowFinderImages) {
  DistributedMediaAnalysisImageOptions options;
  options.snapshotLocations = std::move(snapshotLocations);
  options.maxImageWidth = maxImageWidth;
  options.compressionFactor = compressionFactor;
  options.allowFinderImages = allowFinderImages;
  return options;
}

DistributedMediaAnalysisImageOptions MediaAnalysisCLIArgumentFactory::buildImageOptions(
    std::vector<float> snapshotLocations, float imageWidth, float imageHeight,
    std::optional<float> compressionFactor, bool allowFinderImages) {
  auto options =
      buildImageOptions(std::move(snapshotLocations), imageWidth, compressionFactor, allowFinderImages);
  options.imageHeight = imageHeight;
  return options;
}

MediaAnalysisCLICustodialOptions MediaAnalysisCLIArgumentFactory::custodialOptions(
    std::int32_t forParentProcessId) {
  return MediaAnalysisCLICustodialOptions(forParentProcessId);
}

}  // namespace quillonic
