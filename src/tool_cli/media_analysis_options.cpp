#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/tool_cli/media_analysis_flags.hpp>
#include <quillonic/tool_cli/media_analysis_options.hpp>

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/number_text.hpp"

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

BasicMediaAnalysisCLIRecord::BasicMediaAnalysisCLIRecord(BasicMediaAnalysisCLIOptions options)
    : BasicMediaAnalysisCLIOptions(std::move(options)) {}

std::vector<MediaAnalysisCLIRecord::FlagEntry> BasicMediaAnalysisCLIRecord::flagEntries() const {
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

DistributedMediaAnalysisImageRecord::DistributedMediaAnalysisImageRecord(
    DistributedMediaAnalysisImageOptions options)
    : DistributedMediaAnalysisImageOptions(std::move(options)) {}

std::vector<MediaAnalysisCLIRecord::FlagEntry> DistributedMediaAnalysisImageRecord::flagEntries() const {
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

MediaAnalysisCLICustodialRecord::MediaAnalysisCLICustodialRecord(MediaAnalysisCLICustodialOptions options)
    : MediaAnalysisCLICustodialOptions(options) {}

std::vector<MediaAnalysisCLIRecord::FlagEntry> MediaAnalysisCLICustodialRecord::flagEntries() const {
  std::vector<FlagEntry> entries{{cliFlag(CLICustodialFlag::parentPid), {std::to_string(parentProcessId)}}};
  if (parentAppNumber) {
    entries.push_back({cliFlag(CLICustodialFlag::parentAppNumber), {std::to_string(*parentAppNumber)}});
  }
  return entries;
}

BasicMediaAnalysisCLIRecord MediaAnalysisCLIArgumentFactory::buildBasicOptions(
    std::vector<std::string> pathsToAnalyze, std::string workDirectory, std::string resultsFilePath,
    std::optional<std::string> analysisId, bool deepAnalysis) {
  return BasicMediaAnalysisCLIRecord({std::move(pathsToAnalyze), std::move(workDirectory),
                                      std::move(resultsFilePath), std::move(analysisId), deepAnalysis});
}

DistributedMediaAnalysisImageRecord MediaAnalysisCLIArgumentFactory::buildImageOptions(
    std::vector<float> snapshotLocations, float maxImageWidth, std::optional<float> compressionFactor,
    bool allowFinderImages) {
  return DistributedMediaAnalysisImageRecord(
      {std::move(snapshotLocations), maxImageWidth, std::nullopt, compressionFactor, allowFinderImages});
}

DistributedMediaAnalysisImageRecord MediaAnalysisCLIArgumentFactory::buildImageOptions(
    std::vector<float> snapshotLocations, float imageWidth, float imageHeight,
    std::optional<float> compressionFactor, bool allowFinderImages) {
  return DistributedMediaAnalysisImageRecord(
      {std::move(snapshotLocations), imageWidth, imageHeight, compressionFactor, allowFinderImages});
}

MediaAnalysisCLICustodialRecord MediaAnalysisCLIArgumentFactory::custodialOptions(
    std::int32_t forParentProcessId) {
  return MediaAnalysisCLICustodialRecord({forParentProcessId, std::nullopt});
}

}  // namespace quillonic
