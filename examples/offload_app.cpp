// A parent application. It builds a transcoder command line from a preset, starts the transcoder tool as a
// child process with exactly that list and shows its progress. Then it compares the output with its source,
// and starts the media-analysis tool on it.
//
//     offload_app TRANSCODER_TOOL ANALYSIS_TOOL OUTPUT_FOLDER FILE...

#include <quillonic/filesystem.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

using namespace quillonic;

namespace {

constexpr std::string_view progressPrefix = "progress:";

TranscodeCliArguments settingsFor(const std::vector<std::filesystem::path>& files,
                                  const std::filesystem::path& output) {
  TranscodeCliArguments settings;

  // For example, the first half was shot in the morning and the rest after lunch.
  const auto middle = files.begin() + static_cast<std::ptrdiff_t>((files.size() + 1) / 2);
  settings.setInputFileGroup(0, {files.begin(), middle});
  settings.setInputFileGroup(1, {middle, files.end()});

  settings.setOutputFile(output);
  settings.setProgressFile(std::filesystem::path(output).replace_extension("progress"));
  settings.setProgressOutputPrefix(progressPrefix);

  settings.setTimecodeIsDropFrame(true);
  settings.setTimecode(TimecodeComponents{.hours = 1});
  settings.setTimecodeAddBurn(true);
  settings.setTimecodeBurnFontColor(Color::rgb(0.9, 0.9, 0.9));
  settings.setTimecodeBurnBoxColor(Color::grey(0.1));
  settings.setWatermarkTextAddBurn(true);
  settings.setWatermarkTextBurnText("for review only");
  settings.setWatermarkTextBurnAnchor(VAVAnchorBottomRight);
  settings.setWatermarkTextBurnFontColor(Color::cmyk(0, 0.2, 0.8, 0));

  settings.apply(TranscodeCliPreset::vantiroCloud, ApplyLayer::belowWhatIsSet);
  for (const auto& problem : settings.problems()) throw std::invalid_argument(problem.description());
  return settings;
}

// The child's words: the settings, and then its parent.
std::vector<std::string> wordsOf(const CliArgumentStore& settings) {
  constexpr int thisApplication = 7;
  auto words = settings.launchArguments();
  CLICustodialOptions(getpid(), thisApplication).appendTo(words);
  return words;
}

void check(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

// Prints a child's lines; on a terminal, its progress becomes a bar.
void showOutput(std::FILE* output) {
  const bool terminal = isatty(STDOUT_FILENO) == 1;
  char* line = nullptr;
  std::size_t size = 0;
  for (ssize_t length = 0; (length = getline(&line, &size, output)) > 0;) {
    const std::string_view text(line, static_cast<std::size_t>(length));
    if (terminal && text.starts_with(progressPrefix)) {
      const int percent = std::clamp(std::atoi(line + progressPrefix.size()), 0, 100);
      const auto done = static_cast<std::size_t>(percent / 5);
      std::cout << "\r[" << std::string(done, '#') << std::string(20 - done, '.') << "] " << percent << '%'
                << (percent == 100 ? "\n" : "") << std::flush;
    } else {
      std::cout << text << std::flush;
    }
  }
  std::free(line);
}

//! [run a child]
// Runs a program without a shell, so that each word arrives unchanged. Returns its exit status.
int runTool(std::string program, std::vector<std::string> words) {
  std::vector<char*> argv{program.data()};
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  int ends[2];
  check(pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno, "pipe2");
  posix_spawn_file_actions_t actions;
  check(posix_spawn_file_actions_init(&actions), "posix_spawn_file_actions_init");
  check(posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO),
        "posix_spawn_file_actions_adddup2");
  pid_t process = 0;
  const int error = posix_spawn(&process, program.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  check(error, program.c_str());

  std::FILE* output = fdopen(ends[0], "r");
  showOutput(output);
  std::fclose(output);
  int status = 0;
  check(waitpid(process, &status, 0) == process ? 0 : errno, "waitpid");
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
//! [run a child]

class Item : public AttributeBasedStore {
 public:
  explicit Item(const std::filesystem::path& path)
      : attributes_(expandedAttributesOfItem(path).value_or(FileAttributes())) {}
  FileAttributes attributes() const override { return attributes_.intersection(attributeKeys()); }

 private:
  FileAttributes attributes_;
};

// This application's rule: another size means another file; any other missing or different attribute means a
// partial match.
MatchLevel matchLevel(const Item& source, const Item& copy) {
  const auto keys = FileSystemAttributesStore::attributeKeys();
  const auto original = source.attributes();
  const auto other = copy.attributes();
  auto level = MatchLevel::full;
  if (original.missingEqualityAttributes(keys) || other.missingEqualityAttributes(keys))
    level = MatchLevel::partial;
  original.compare(
      other, [](const FileAttributeKey&, const AnyValue&, bool&) {},
      [&](const FileAttributeKey&, const AnyValue&, const AnyValue&, bool& /*stop*/) {
        level = MatchLevel::partial;
      });
  return source.fileSize() == copy.fileSize() ? level : MatchLevel::unmatched;
}

int run(const std::string& transcoder, const std::string& analyzer, const std::filesystem::path& folder,
        const std::vector<std::filesystem::path>& files) {
  const FileManager fileManager;
  const auto output = fileManager.filePathAdjustedForCollision(folder / "review.mov");

  if (const int status = runTool(transcoder, wordsOf(settingsFor(files, output))); status != 0) return status;

  std::cout << "output beside its first source: " << rawValue(matchLevel(Item(files.front()), Item(output)))
            << '\n';

  const auto results = std::filesystem::path(output).replace_extension("analysis");
  const auto analysis =
      MediaAnalysisCLIArgumentFactory::buildBasicOptions({output}, folder, results, "review", false);
  if (const int status = runTool(analyzer, wordsOf(analysis)); status != 0) return status;
  std::cout << std::ifstream(results).rdbuf();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 5) {
    std::cerr << "usage: offload_app TRANSCODER_TOOL ANALYSIS_TOOL OUTPUT_FOLDER FILE...\n";
    return 64;
  }
  try {
    // Absolute, because a path with a leading hyphen would be read as a flag.
    std::vector<std::filesystem::path> files;
    for (int i = 4; i < argc; ++i) files.push_back(std::filesystem::absolute(argv[i]));
    return run(argv[1], argv[2], std::filesystem::absolute(argv[3]), files);
  } catch (const std::exception& error) {
    std::cerr << "offload_app: " << error.what() << '\n';
    return 1;
  }
}
