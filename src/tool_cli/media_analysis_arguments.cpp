#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/tool_cli/media_analysis_arguments.hpp>
#include <quillonic/tool_cli/media_analysis_flags.hpp>
#include <quillonic/tool_cli/sanitizer.hpp>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>
#include <variant>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

using Value = std::optional<std::string_view>;

// Flags are compared ignoring case. They are not trimmed: a path with a leading space and hyphen must not
// become a flag.
constexpr auto flagForm = CLISanitizationOptions::lowercase;

// What `commandLineArguments` of a record writes for its absolute paths, which are not one path.
constexpr std::string_view openedListOfPaths = "[/";

// Takes flags and values, one at a time; `take` returns whether it used the value.
class Intake {
 public:
  bool take(MediaAnalysisCLIFlag flag, Value value) {
    switch (flag) {
      case MediaAnalysisCLIFlag::pathToAnalyze:
        if (!value || value->starts_with(openedListOfPaths)) return false;
        basic_.pathsToAnalyze.emplace_back(*value);
        return true;
      case MediaAnalysisCLIFlag::analysisId:
        return keep(value, basic_.analysisId);
      case MediaAnalysisCLIFlag::workDirectory:
        return keep(value, workDirectory_);
      case MediaAnalysisCLIFlag::resultsFilePath:
        return keep(value, resultsFilePath_);
      case MediaAnalysisCLIFlag::deepAnalysis:
        basic_.deepAnalysis = true;
        return true;
    }
    return false;
  }

  bool take(MediaAnalysisImageCLIFlags flag, Value value) {
    asksForImages_ = true;
    switch (flag) {
      case MediaAnalysisImageCLIFlags::compressionFactor:
        return keepNumber(value, image_.compressionFactor);
      case MediaAnalysisImageCLIFlags::snapshotLocation: {
        std::optional<float> location;
        if (!keepNumber(value, location)) return false;
        image_.snapshotLocations.push_back(*location);
        return true;
      }
      case MediaAnalysisImageCLIFlags::maxImageWidth:
        return keepNumber(value, maxImageWidth_);
      case MediaAnalysisImageCLIFlags::imageHeight:
        return keepNumber(value, image_.imageHeight);
      case MediaAnalysisImageCLIFlags::allowFinderImages:
        image_.allowFinderImages = true;
        return true;
    }
    return false;
  }

  bool take(CLICustodialFlag flag, Value value) {
    switch (flag) {
      case CLICustodialFlag::parentPid:
        return keepNumber(value, parentProcessId_);
      case CLICustodialFlag::parentAppNumber:
        return keepNumber(value, parentAppNumber_);
    }
    return false;
  }

  void setAside(std::string_view flag, Value value) {
    read_.setAside.push_back({std::string(flag), value ? std::optional<std::string>(*value) : std::nullopt});
  }

  MediaAnalysisCLIArguments arguments() && {
    const auto require = [](bool supplied, auto error, auto& errors) {
      if (!supplied) errors.push_back(error);
    };
    require(!basic_.pathsToAnalyze.empty(), MediaAnalysisCLIError::pathToAnalyzeNotSupplied, read_.errors);
    require(workDirectory_.has_value(), MediaAnalysisCLIError::workDirectoryNotSupplied, read_.errors);
    require(resultsFilePath_.has_value(), MediaAnalysisCLIError::resultsFilePathNotSupplied, read_.errors);
    if (read_.errors.empty()) {
      basic_.workDirectory = std::move(*workDirectory_);
      basic_.resultsFilePath = std::move(*resultsFilePath_);
      read_.basic = std::move(basic_);
    }
    if (asksForImages_) {
      require(!image_.snapshotLocations.empty(), MediaAnalysisCLIImageError::missingSnapshotLocations,
              read_.imageErrors);
      require(maxImageWidth_.has_value(), MediaAnalysisCLIImageError::missingMaxImageWidth,
              read_.imageErrors);
      if (read_.imageErrors.empty()) {
        image_.maxImageWidth = *maxImageWidth_;
        read_.image = std::move(image_);
      }
    }
    if (parentProcessId_) {
      read_.custodial.emplace(*parentProcessId_, parentAppNumber_);
    } else if (parentAppNumber_) {
      setAside(flagForm.sanitize(cliFlag(CLICustodialFlag::parentAppNumber)),
               std::to_string(*parentAppNumber_));
    }
    return std::move(read_);
  }

 private:
  static bool keep(Value value, std::optional<std::string>& target) {
    if (value) target = *value;
    return value.has_value();
  }

  template <class Number> static bool keepNumber(Value value, std::optional<Number>& target) {
    const auto number = value ? number_text::read<Number>(*value) : std::nullopt;
    if (number) target = number;
    return number.has_value();
  }

  MediaAnalysisCLIArguments read_;
  BasicMediaAnalysisCLIOptions basic_;
  std::optional<std::string> workDirectory_;
  std::optional<std::string> resultsFilePath_;
  DistributedMediaAnalysisImageOptions image_;
  std::optional<float> maxImageWidth_;
  std::optional<std::int32_t> parentProcessId_;
  std::optional<std::int64_t> parentAppNumber_;
  bool asksForImages_ = false;
};

// A flag that the tool knows, and its form in the sanitizer's reports.
struct KnownFlag {
  std::string text;
  std::variant<MediaAnalysisCLIFlag, MediaAnalysisImageCLIFlags, CLICustodialFlag> flag;
};

template <CliFlag Flag> void addKnown(std::vector<KnownFlag>& known) {
  for (const Flag flag : allCases<Flag>()) known.push_back({flagForm.sanitize(cliFlag(flag)), flag});
}

}  // namespace

MediaAnalysisCLIArguments MediaAnalysisCLIArguments::read(ArgumentWords cliArgs) {
  std::vector<KnownFlag> known;
  addKnown<MediaAnalysisCLIFlag>(known);
  addKnown<MediaAnalysisImageCLIFlags>(known);
  addKnown<CLICustodialFlag>(known);
  std::vector<std::string> validFlags;
  std::ranges::transform(known, std::back_inserter(validFlags), &KnownFlag::text);

  Intake intake;
  const CLIArgumentSanitizer sanitizer(std::move(validFlags), flagForm);
  sanitizer.enumerateSanitizedCLIEntries(
      cliArgs, [](std::string_view /*flag*/) { return CLISanitizationOptions{}; },
      [&](std::string_view flag, Value value) {
        // The sanitizer calls a flag valid when it contains a known one, so the same rule finds which one.
        const auto occurs = [&](const KnownFlag& candidate) {
          return flag.find(candidate.text) != std::string_view::npos;
        };
        const auto found = std::ranges::find_if(known, occurs);
        const auto take = [&](auto knownFlag) { return intake.take(knownFlag, value); };
        if (found == known.end() || !std::visit(take, found->flag)) intake.setAside(flag, value);
      },
      [&](std::string_view flag, Value value) { intake.setAside(flag, value); });
  return std::move(intake).arguments();
}

}  // namespace quillonic
