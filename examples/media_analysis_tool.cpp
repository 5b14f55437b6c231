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
#include <quillonic/json.hpp>
#include <quillonic/tool_cli.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "child.hpp"
#include "probe.hpp"

namespace {

using namespace quillonic;
using nlohmann::ordered_json;

constexpr int wrongArguments = 64;
constexpr int missingInput = 66;
constexpr int missingProgram = 69;
constexpr int noOutput = 73;

template <class Error> [[noreturn]] void fail(int exitStatus, Error error, std::string_view about = {}) {
  throw CLIExitCodeError(exitStatus, make_error_code(error).message().append(" ").append(about));
}

void check(const MediaAnalysisCLIArguments& arguments) {
  for (const auto& [flag, value] : arguments.setAside) {
    std::cerr << "ignored: " << flag << ' ' << value.value_or("") << '\n';
  }
  for (const auto error : arguments.errors) fail(wrongArguments, error);
  for (const auto error : arguments.imageErrors) fail(wrongArguments, error);
  if (arguments.image && arguments.image->allowFinderImages) {
    std::cerr << "ignored: -allowfinderimages, because still frames are always decoded\n";
  }

  std::error_code ignored;
  const auto exists = [&](const std::string& path) { return std::filesystem::exists(path, ignored); };
  const auto& basic = *arguments.basic;
  for (const auto& path : basic.pathsToAnalyze) {
    if (!exists(path)) fail(missingInput, MediaAnalysisCLIError::pathToAnalyzeDoesNotExist, path);
  }
  if (!exists(basic.workDirectory)) {
    fail(missingInput, MediaAnalysisCLIError::workDirectoryDoesNotExist, basic.workDirectory);
  }
  if (exists(basic.resultsFilePath)) {
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
      if (!(location >= 0 && location <= 1)) {
        one["error"] = "a location is a part of the duration, from 0 to 1";
      } else {
        takeOne(name, media, static_cast<double>(location), one);
      }
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
    const double quality =
        std::clamp(static_cast<double>(options_.compressionFactor.value_or(0.8F)), 0.0, 1.0);
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

void analyze(const MediaAnalysisCLIArguments& arguments) {
  const auto& basic = *arguments.basic;
  const auto files = filesIn(basic.pathsToAnalyze);
  ordered_json results;
  if (basic.analysisId) results["analysisId"] = toJson(CodedValue(*basic.analysisId));
  if (arguments.custodial) results["parentPid"] = arguments.custodial->parentProcessId;
  results["deep"] = basic.deepAnalysis;
  results["files"] = ordered_json::array();

  try {
    child::PartFile part(basic.resultsFilePath);
    const child::PrivateFolder folder(basic.workDirectory);
    std::optional<Snapshots> snapshots;
    if (arguments.image) snapshots.emplace(arguments, folder);
    for (const auto& path : files) {
      const auto name = "in" + std::to_string(results["files"].size());
      results["files"].push_back(
          resultFor(path, folder, name, basic.deepAnalysis, snapshots ? &*snapshots : nullptr));
    }
    std::ofstream(part.path()) << results.dump(2) << '\n';
    if (const auto error = part.finish(false)) throw std::system_error(error);
  } catch (const std::system_error& error) {
    std::cerr << error.what() << '\n';
    fail(noOutput, MediaAnalysisCLIError::resultsFilePathNotCreated, basic.resultsFilePath);
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto arguments = MediaAnalysisCLIArguments::read(ArgumentWords::fromMain(argc, argv));
    child::watch(arguments.custodial ? arguments.custodial->parentProcessId : 0);
    check(arguments);
    analyze(arguments);
    return 0;
  } catch (const CLIExitCodeError& error) {
    std::cerr << error.what() << '\n';
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
