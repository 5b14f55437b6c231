// A parent application. From the files of a card it makes a copy for review and one for editing, by two
// transcoder tools that run side by side, and then has the media-analysis tool look at both. It shows one
// progress bar a job; Ctrl-C ends the children too.
//
//     offload_app TRANSCODER_TOOL ANALYSIS_TOOL OUTPUT_FOLDER [--watermark IMAGE] FILE...
//
// Given a card instead, it copies that to each target, and then starts the tools on what is new:
//
//     offload_app CARD TARGET... [--json] [--unverified | --verify-all]

#include <quillonic/filesystem.hpp>
#include <quillonic/media.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "card_offload.hpp"
#include "child.hpp"

namespace {

using namespace quillonic;
using Path = std::filesystem::path;

constexpr std::string_view progressPrefix = "progress:";
constexpr int thisApplication = 7;

struct Job {
  std::string name;
  Path program;
  std::vector<std::string> words;
};

// What both copies have in common.
TranscodeCliArguments common(const std::vector<Path>& files) {
  TranscodeCliArguments settings;
  // For example, the first half was shot in the morning and the rest after lunch.
  const auto middle = files.begin() + static_cast<std::ptrdiff_t>((files.size() + 1) / 2);
  settings.setInputFileGroup(0, {files.begin(), middle});
  settings.setInputFileGroup(1, {middle, files.end()});
  settings.setProgressOutputPrefix(progressPrefix);
  settings.setTimecodeSource(TimecodeSource::match);
  settings.setTimecodeAddTrack(true);
  return settings;
}

TranscodeCliArguments forReview(const TranscodeCliArguments& common, const std::optional<Path>& watermark) {
  auto settings = common.clone();
  settings.apply(TranscodeCliPreset::vantiroCloud, ApplyLayer::aboveWhatIsSet);
  settings.setVideoAspectScaling(VAVLetterboxAspect);
  settings.setTimecodeAddBurn(true);
  settings.setTimecodeBurnFontColor(Color::rgb255(255, 255, 255));
  settings.setTimecodeBurnBoxColor(Color::grey(0.1));
  settings.setWatermarkTextAddBurn(true);
  settings.setWatermarkTextBurnText("for review only");
  settings.setWatermarkTextBurnAnchor(VAVAnchorTopLeft);
  settings.setWatermarkTextBurnFontColor(Color::cmyk(0, 0.2, 0.8, 0));
  settings.setWatermarkFileBurnFilePath(watermark);
  if (watermark) settings.setWatermarkFileBurnAnchor(VAVAnchorTopRight);
  return settings;
}

TranscodeCliArguments forEditing(const TranscodeCliArguments& common) {
  auto settings = common.clone();
  settings.setFileFormat(VAVQuickTimeFileFormat);
  settings.setVideoFormat(VAVProRes422LT);
  settings.setAudioFormat(VAVLpcmAudioFormatValue);
  settings.setAudioBitsPerChannel(24);
  return settings;
}

// The path of a watermark arrives in lower case. One that would change gets a link that does not.
class Watermark {
 public:
  explicit Watermark(const Path& image) : path_(image) {
    TranscodeCliArguments settings;
    settings.setWatermarkFileBurnFilePath(image);
    if (settings.problems().empty()) return;
    link_ = path_ = "/tmp/watermark-" + std::to_string(getpid());
    std::filesystem::create_symlink(image, path_);
  }
  Watermark(const Watermark&) = delete;
  Watermark& operator=(const Watermark&) = delete;
  ~Watermark() {
    std::error_code ignored;
    if (link_) std::filesystem::remove(*link_, ignored);
  }
  const Path& path() const { return path_; }

 private:
  Path path_;
  std::optional<Path> link_;
};

// One bar for each job on a terminal; elsewhere a line for each tenth of its work.
class Bars {
 public:
  explicit Bars(const std::vector<Job>& jobs) : progress_(jobs.size()) {
    for (const auto& job : jobs) names_.push_back(job.name);
    if (isTerminal_) draw(false);
  }

  void show(std::size_t job, const ProgressLine& progress) {
    const auto tenth = [](const ProgressLine& line) {
      return static_cast<int>(line.fraction.value_or(0) * 10);
    };
    const bool isNews = !progress_[job] || tenth(*progress_[job]) != tenth(progress);
    progress_[job] = progress;
    if (isTerminal_) {
      draw(true);
    } else if (isNews) {
      std::cout << names_[job] << ": " << progress.text() << std::endl;
    }
  }

  // A job that tells nothing on its way ends all the same.
  void finish(std::size_t job) {
    if (!progress_[job]) show(job, {.fraction = 1});
  }

  // A line above the bars.
  void log(std::size_t job, std::string_view line) {
    if (isTerminal_) std::cout << "\033[" << names_.size() << "A\033[J";
    std::cout << names_[job] << ": " << line << std::endl;
    if (isTerminal_) draw(false);
  }

 private:
  void draw(bool over) const {
    if (over) std::cout << "\033[" << names_.size() << "A";
    for (std::size_t job = 0; job < names_.size(); ++job) {
      const auto text = progress_[job] ? progress_[job]->text() : "";
      const auto done =
          static_cast<std::size_t>((progress_[job] ? progress_[job]->fraction.value_or(0) : 0) * 30);
      std::cout << "\033[K[" << std::string(done, '#') << std::string(30 - done, '.') << "] " << names_[job]
                << ' ' << text << '\n';
    }
    std::cout << std::flush;
  }

  bool isTerminal_ = isatty(STDOUT_FILENO) == 1;
  std::vector<std::string> names_;
  std::vector<std::optional<ProgressLine>> progress_;
};

//! [run a child]
// Runs the jobs side by side, and returns the first exit status that tells of a failure. The words of a job
// are `settings.launchArguments()` and the flags that a parent adds.
int run(std::vector<Job> jobs) {
  std::list<child::Child> children;
  std::vector<child::Child*> pointers;
  for (auto& job : jobs) {
    CLICustodialOptions(getpid(), thisApplication).appendTo(job.words);
    std::cout << job.program.native() << ' ' << shellQuoted(job.words) << std::endl;
  }
  for (const auto& job : jobs)
    pointers.push_back(&children.emplace_back(child::Program{job.program, job.words}));

  Bars bars(jobs);
  child::readLines(pointers, [&](std::size_t job, child::Stream, std::string_view line) {
    if (const auto progress = ProgressLine::fromText(line, progressPrefix)) {
      bars.show(job, *progress);
    } else {
      bars.log(job, line);
    }
  });

  int result = 0;
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    const int status = pointers[i]->wait();
    if (status == 0) {
      bars.finish(i);
      continue;
    }
    const auto known = fromRawValue<TranscodeExitStatus>(status);
    std::cerr << jobs[i].name << " ended with " << status << ": " << (known ? meaning(*known) : "") << '\n';
    if (result == 0) result = status;
  }
  return result;
}
//! [run a child]

int run(const Path& transcoder, const Path& analyzer, const Path& folder, const std::optional<Path>& image,
        const std::vector<Path>& files) {
  const FileManager fileManager;
  const auto freePath = [&](const char* name) {
    return fileManager.filePathAdjustedForCollision(folder / name);
  };
  std::optional<Watermark> watermark;
  if (image) watermark.emplace(*image);

  auto review = forReview(common(files), watermark ? std::optional(watermark->path()) : std::nullopt);
  auto editing = forEditing(common(files));
  review.setOutputFile(freePath("review.mov"));
  editing.setOutputFile(freePath("edit.mov"));
  for (const auto* settings : {&review, &editing}) {
    for (const auto& problem : settings->problems()) std::cerr << problem.description() << '\n';
  }
  if (const int status = run({{"review", transcoder, review.launchArguments()},
                              {"edit", transcoder, editing.launchArguments()}})) {
    return status;
  }

  const auto results = freePath("analysis.json");
  auto words = MediaAnalysisCLIArgumentFactory::buildBasicOptions(
                   {*review.outputFile(), *editing.outputFile()}, folder, results, "review", false)
                   .launchArguments();
  MediaAnalysisCLIArgumentFactory::buildImageOptions({0, 0.5F, 1}, 480, 0.9F, false).appendTo(words);
  if (const int status = run({{"analysis", analyzer, words}})) return status;
  std::cout << "results: " << results.native() << '\n';
  return 0;
}

int badUsage() {
  std::cerr << "usage: offload_app CARD TARGET... [--json] [--unverified | --verify-all]\n"
               "       offload_app TRANSCODER_TOOL ANALYSIS_TOOL OUTPUT_FOLDER [--watermark IMAGE] FILE...\n";
  return rawValue(TranscodeExitStatus::badUsage);
}

int offloadAndReview(std::vector<Path> words) {
  const bool asJson = std::erase(words, "--json") != 0;
  auto verification = Verification::ofNewFiles;
  if (std::erase(words, "--verify-all") != 0) verification = Verification::ofAll;
  if (std::erase(words, "--unverified") != 0) verification = Verification::none;
  const auto isFlag = [](const Path& word) { return word.native().starts_with("--"); };
  if (words.size() < 2 || std::ranges::any_of(words, isFlag)) return badUsage();
  const auto copied = offloadCard(words.front(), {words.begin() + 1, words.end()}, asJson, verification);
  if (!copied.isGood) return rawValue(TranscodeExitStatus::failure);
  if (copied.newVideos.empty() || asJson) return 0;
  child::watch(0);
  const auto tools = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  return run(tools / "transcoder_tool", tools / "media_analysis_tool", std::filesystem::absolute(words[1]),
             std::nullopt, copied.newVideos);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Path> words;
  for (int i = 1; i < argc; ++i) words.push_back(argv[i]);
  const bool hasCard = words.size() > 1 && std::filesystem::is_directory(words[0]);
  std::optional<Path> watermark;
  if (words.size() > 4 && words[3] == "--watermark") {
    watermark = std::filesystem::absolute(words[4]);
    words.erase(words.begin() + 3, words.begin() + 5);
  }
  if (!hasCard && words.size() < 4) return badUsage();
  try {
    if (hasCard) return offloadAndReview(std::move(words));
    // Absolute, because a path with a leading hyphen would be read as a flag.
    for (auto& word : words) word = std::filesystem::absolute(word).lexically_normal();
    child::watch(0);
    return run(words[0], words[1], words[2], watermark, {words.begin() + 3, words.end()});
  } catch (const child::Interrupted& interrupted) {
    std::cerr << "offload_app: stopped\n";
    child::endBy(interrupted.signal);
  } catch (const std::exception& error) {
    std::cerr << "offload_app: " << error.what() << '\n';
    return rawValue(TranscodeExitStatus::failure);
  }
}
