// A media-analysis tool: asks ffprobe about each file, takes still frames with ffmpeg, and writes what it
// found as JSON to the results file.
//
//     media_analysis_tool -pathToAnalyze /media/a.mov -workDirectory /tmp -resultsFilePath /media/a.json
//         -snapshotLocation 0.5 -maxImageWidth 640 -compressionFactor 0.8
//
// Its units: a location is a part of the duration, 0 the first frame and 1 the last; width and height are
// pixels within which a still frame fits; the compression factor is the quality that stays, from 0 to 1.
// Still frames are JPEG files beside the results file. A folder is analysed with all files in it. A deep
// analysis decodes everything: it counts the frames and tells what is damaged.
//
// Ends with 64 for arguments that it cannot use, 65 for a file that is no media, 66 for one that is missing, 69
// where ffmpeg is missing, and 73 for results or still frames that it cannot write.
#include <quillonic/json.hpp>
#include <quillonic/tool_cli.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "child.hpp"
#include "probe.hpp"

namespace {

using namespace quillonic;
using nlohmann::ordered_json;

constexpr int wrongArguments = 64;
constexpr int badInput = 65;
constexpr int missingInput = 66;
constexpr int missingProgram = 69;
constexpr int noOutput = 73;

std::string_view meaning(MediaAnalysisCLIFlag flag) {
  switch (flag) {
    case MediaAnalysisCLIFlag::pathToAnalyze:
      return "A media file, or a folder with all files in it; repeated for each.";
    case MediaAnalysisCLIFlag::analysisId:
      return "A name for the results.";
    case MediaAnalysisCLIFlag::workDirectory:
      return "A folder for temporary files.";
    case MediaAnalysisCLIFlag::resultsFilePath:
      return "The file for the results, which must not exist; still frames are beside it.";
    case MediaAnalysisCLIFlag::deepAnalysis:
      return "Decodes everything, counts the frames and tells what is damaged.";
  }
  return {};
}

std::string_view meaning(MediaAnalysisImageCLIFlags flag) {
  switch (flag) {
    case MediaAnalysisImageCLIFlags::compressionFactor:
      return "The quality of a still frame, from 0 to 1; 0.8 without it.";
    case MediaAnalysisImageCLIFlags::snapshotLocation:
      return "The place of a still frame, from 0 for the first to 1 for the last; repeated for each.";
    case MediaAnalysisImageCLIFlags::maxImageWidth:
      return "Its greatest width in pixels, from 1.";
    case MediaAnalysisImageCLIFlags::imageHeight:
      return "Its greatest height in pixels, from 1.";
    case MediaAnalysisImageCLIFlags::allowFinderImages:
      return "Has no effect: still frames are always decoded.";
  }
  return {};
}

std::string_view sentence(MediaAnalysisCLIError error) {
  switch (error) {
    case MediaAnalysisCLIError::pathToAnalyzeNotSupplied:
      return "-pathToAnalyze is missing";
    case MediaAnalysisCLIError::pathToAnalyzeDoesNotExist:
      return "there is no such file or folder to analyse";
    case MediaAnalysisCLIError::workDirectoryNotSupplied:
      return "-workDirectory is missing";
    case MediaAnalysisCLIError::workDirectoryDoesNotExist:
      return "-workDirectory is no folder";
    case MediaAnalysisCLIError::resultsFilePathNotSupplied:
      return "-resultsFilePath is missing";
    case MediaAnalysisCLIError::resultsFileAlreadyExists:
      return "-resultsFilePath exists already";
    case MediaAnalysisCLIError::resultsFilePathNotCreated:
      return "-resultsFilePath cannot be written";
  }
  return {};
}

std::string_view sentence(MediaAnalysisCLIImageError error) {
  switch (error) {
    case MediaAnalysisCLIImageError::missingSnapshotLocations:
      return "-snapshotLocation is missing, which still frames need";
    case MediaAnalysisCLIImageError::missingMaxImageWidth:
      return "-maxImageWidth is missing, which still frames need";
  }
  return {};
}

template <class Flag> void printFlags() {
  for (const auto flag : allCases<Flag>()) {
    std::cout << "  " << std::left << std::setw(28)
              << std::string(cliFlag(flag)) + (acceptsArguments(flag) ? " VALUE" : "") << meaning(flag)
              << '\n';
  }
}

void printHelp() {
  std::cout << "usage: media_analysis_tool -pathToAnalyze PATH -workDirectory FOLDER -resultsFilePath FILE "
               "[FLAG [VALUE]]...\n";
  printFlags<MediaAnalysisCLIFlag>();
  printFlags<MediaAnalysisImageCLIFlags>();
}

[[noreturn]] void fail(int exitStatus, MediaAnalysisCLIError error, const std::string& about) {
  throw CLIExitCodeError(exitStatus, about + ": " + std::string(sentence(error)));
}

// A sentence for each argument that cannot be used.
std::vector<std::string> problems(const MediaAnalysisCLIArguments& arguments) {
  std::vector<std::string> sentences;
  const auto known = [](std::string_view flag) {
    constexpr auto lower = CLISanitizationOptions::lowercase;
    for (const auto& flags : {sanitizeAllCLIFlags<MediaAnalysisCLIFlag>(lower),
                              sanitizeAllCLIFlags<MediaAnalysisImageCLIFlags>(lower),
                              sanitizeAllCLIFlags<CLICustodialFlag>(lower)}) {
      if (std::ranges::find(flags, flag) != flags.end()) return true;
    }
    return false;
  };
  for (const auto& [flag, value] : arguments.setAside) {
    sentences.push_back(flag + (!known(flag) ? " is no flag of the tool"
                                : value      ? ": cannot use \"" + *value + '"'
                                             : " needs a value"));
  }
  for (const auto error : arguments.errors) sentences.emplace_back(sentence(error));
  for (const auto error : arguments.imageErrors) sentences.emplace_back(sentence(error));
  if (!arguments.image) return sentences;

  const auto check = [&](MediaAnalysisImageCLIFlags flag, bool isInRange) {
    if (isInRange) return;
    sentences.push_back(std::string(cliFlag(flag)) + " is out of range. " + std::string(meaning(flag)));
  };
  const auto& image = *arguments.image;
  const auto isPart = [](float value) { return value >= 0 && value <= 1; };
  for (const float location : image.snapshotLocations) {
    check(MediaAnalysisImageCLIFlags::snapshotLocation, isPart(location));
  }
  check(MediaAnalysisImageCLIFlags::maxImageWidth, image.maxImageWidth >= 1);
  check(MediaAnalysisImageCLIFlags::imageHeight, image.imageHeight.value_or(1) >= 1);
  check(MediaAnalysisImageCLIFlags::compressionFactor, isPart(image.compressionFactor.value_or(1)));
  return sentences;
}

void check(const MediaAnalysisCLIArguments& arguments) {
  std::string refused;
  for (const auto& problem : problems(arguments)) refused.append("\n  ").append(problem);
  if (!refused.empty()) {
    throw CLIExitCodeError(wrongArguments, "cannot use these arguments; -h lists all flags" + refused);
  }
  std::error_code ignored;
  const auto& basic = *arguments.basic;
  for (const auto& path : basic.pathsToAnalyze) {
    if (!std::filesystem::exists(path, ignored))
      fail(missingInput, MediaAnalysisCLIError::pathToAnalyzeDoesNotExist, path);
  }
  if (!std::filesystem::is_directory(basic.workDirectory, ignored)) {
    fail(missingInput, MediaAnalysisCLIError::workDirectoryDoesNotExist, basic.workDirectory);
  }
  if (std::filesystem::exists(basic.resultsFilePath, ignored)) {
    fail(noOutput, MediaAnalysisCLIError::resultsFileAlreadyExists, basic.resultsFilePath);
  }
}

// A path is bytes; JSON has them even where they are no text.
ordered_json jsonOf(const std::filesystem::path& path) {
  return toJson(CodedValue(path.native()));
}

// The still frames of one file, at the places that are asked for.
class Snapshots {
 public:
  Snapshots(const MediaAnalysisCLIArguments& arguments, const child::PrivateFolder& folder)
      : options_(*arguments.image), results_(arguments.basic->resultsFilePath), folder_(folder) {}

  ordered_json take(const std::string& name, const child::Media& media) {
    auto taken = ordered_json::array();
    for (const float location : options_.snapshotLocations) {
      ordered_json one{{"location", location}};
      takeOne(name, media, static_cast<double>(location), one);
      taken.push_back(std::move(one));
    }
    return taken;
  }

 private:
  void takeOne(const std::string& name, const child::Media& media, double location, ordered_json& one) {
    // The last frame begins one frame before the end.
    const double frame = media.rate.frames > 0 ? 1 / media.rate.perSecond() : 0;
    const double last = std::max(0.0, media.pictureDuration - frame);
    const double seconds = std::min(location * media.pictureDuration, last);
    one["seconds"] = seconds;
    const auto file =
        results_.parent_path() / (results_.stem().native() + "-" + std::to_string(++number_) + ".jpg");
    const auto width = std::to_string(options_.maxImageWidth);
    const auto fit =
        options_.imageHeight ? "min(" + width + "," + std::to_string(*options_.imageHeight) + "*dar)" : width;
    const auto quality = static_cast<double>(options_.compressionFactor.value_or(0.8F));
    child::PartFile part(file);
    const auto out = folder_.link(part.path(), "out" + std::to_string(number_));
    child::Child ffmpeg(
        {"ffmpeg",
         {"-nostdin",
          "-v",
          "error",
          "-y",
          "-ss",
          std::to_string(seconds),
          "-protocol_whitelist",
          "file",
          "-i",
          name,
          "-map",
          "0:V:0",
          "-frames:v",
          "1",
          "-vf",
          "scale=w='max(1,min(iw*sar," + fit + "))':h='max(1,round(ow/dar))',setsar=1,format=yuvj420p",
          "-q:v",
          std::to_string(std::lround(31 - 29 * quality)),
          "-f",
          "mjpeg",
          out},
         folder_.path()});
    const auto result = child::collect(ffmpeg);
    if (result.status != 0 || std::filesystem::file_size(part.path()) == 0) {
      one["error"] = result.errors.empty() ? "no frame there" : result.errors;
    } else if (const auto error = part.finish(false)) {
      one["error"] = error.message();
    } else {
      one["path"] = jsonOf(file);
    }
  }

  const DistributedMediaAnalysisImageOptions& options_;
  std::filesystem::path results_;
  const child::PrivateFolder& folder_;
  int number_ = 0;
};

ordered_json resultFor(const std::filesystem::path& path, const child::PrivateFolder& folder,
                       const std::string& name, bool deep, Snapshots* snapshots) {
  ordered_json result{{"path", jsonOf(path)}, {"bytes", std::filesystem::file_size(path)}};
  folder.link(path, name);
  child::Probe probe(folder, name, deep);
  try {
    const auto& media = probe.media();
    result["format"] = media.json.at("format").value("format_name", "");
    result["duration"] = media.duration;
    if (media.timecode) result["timecode"] = *media.timecode;
    if (media.creationTime) result["created"] = *media.creationTime;
    if (media.hasVideo) {
      result["width"] = media.width;
      result["height"] = media.height;
      result["frameRate"] = media.rate.text();
    }
    result["streams"] = media.json.at("streams");
    if (deep) result["damage"] = probe.damage();
    if (snapshots && media.hasVideo) result["snapshots"] = snapshots->take(name, media);
  } catch (const child::UnreadableMedia& error) {
    result["error"] = error.what();
  }
  return result;
}

// The files of all paths, those of folders in order of their names.
std::vector<std::filesystem::path> filesIn(const std::vector<std::string>& paths) {
  std::vector<std::filesystem::path> files;
  for (const std::filesystem::path path : paths) {
    if (!std::filesystem::is_directory(path)) {
      files.push_back(path);
      continue;
    }
    std::set<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      if (entry.is_regular_file()) found.insert(entry.path());
    }
    files.insert(files.end(), found.begin(), found.end());
  }
  return files;
}

// Says what of a result failed; the results file says it too. The exit status for it: folders may hold files
// that are no media.
int report(const std::filesystem::path& path, bool isNamed, const ordered_json& result) {
  const auto say = [&](const std::string& what, const ordered_json& entry) {
    std::cerr << path.native() << ": " << what << entry["error"].get<std::string>() << '\n';
  };
  int status = 0;
  if (result.contains("error")) {
    say("", result);
    if (isNamed) status = badInput;
  }
  for (const auto& snapshot : result.value("snapshots", ordered_json::array())) {
    if (!snapshot.contains("error")) continue;
    say("no still frame at " + snapshot["location"].dump() + ": ", snapshot);
    status = noOutput;
  }
  return status;
}

int analyze(const MediaAnalysisCLIArguments& arguments) {
  const auto& basic = *arguments.basic;
  const auto files = filesIn(basic.pathsToAnalyze);
  if (files.empty()) throw CLIExitCodeError(missingInput, "the folders to analyse have no files");
  ordered_json results;
  if (basic.analysisId) results["analysisId"] = toJson(CodedValue(*basic.analysisId));
  if (arguments.custodial) results["parentPid"] = arguments.custodial->parentProcessId;
  results["deep"] = basic.deepAnalysis;
  results["files"] = ordered_json::array();

  int status = 0;
  try {
    child::PartFile part(basic.resultsFilePath);
    const child::PrivateFolder folder(basic.workDirectory);
    std::optional<Snapshots> snapshots;
    if (arguments.image) snapshots.emplace(arguments, folder);
    for (const auto& path : files) {
      const auto name = "in" + std::to_string(results["files"].size());
      const auto& result = results["files"].emplace_back(
          resultFor(path, folder, name, basic.deepAnalysis, snapshots ? &*snapshots : nullptr));
      const bool isNamed =
          std::ranges::find(basic.pathsToAnalyze, path.native()) != basic.pathsToAnalyze.end();
      if (const int failure = report(path, isNamed, result)) status = failure;
    }
    const bool isWritten = (std::ofstream(part.path()) << results.dump(2) << '\n').flush().good();
    const auto error = isWritten ? part.finish(false) : std::make_error_code(std::errc::io_error);
    if (error) throw std::system_error(error);
    return status;
  } catch (const std::system_error& error) {
    std::cerr << error.what() << '\n';
    fail(noOutput, MediaAnalysisCLIError::resultsFilePathNotCreated, basic.resultsFilePath);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && (argv[1] == std::string_view("-h") || argv[1] == std::string_view("--help"))) {
    printHelp();
    return 0;
  }
  try {
    const auto arguments = MediaAnalysisCLIArguments::read(ArgumentWords::fromMain(argc, argv));
    child::watch(arguments.custodial ? arguments.custodial->parentProcessId : 0);
    check(arguments);
    return analyze(arguments);
  } catch (const CLIExitCodeError& error) {
    std::cerr << "media_analysis_tool: " << error.what() << '\n';
    return error.exitStatus();
  } catch (const child::MissingProgram& program) {
    std::cerr << program.what() << " is missing: install the package ffmpeg\n";
    return missingProgram;
  } catch (const child::Interrupted& interrupted) {
    child::endBy(interrupted.signal);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
