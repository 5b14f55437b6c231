// A parent application: builds a transcoder command line from a preset, starts the transcoder tool as a child
// process with exactly that list, and shows the child's progress.
//
//     offload_app TOOL OUTPUT_FOLDER FILE...

#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

using namespace quillonic;

namespace {

constexpr std::string_view progressPrefix = "progress:";

TranscodeCliArguments settingsFor(const std::vector<std::string>& files,
                                  const std::filesystem::path& folder) {
  TranscodeCliArguments settings(orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud), true);

  // Say, the first half was shot in the morning and the rest after lunch.
  const auto middle = files.begin() + static_cast<std::ptrdiff_t>((files.size() + 1) / 2);
  settings.setInputFileGroups(InputFileGroups{{0, {files.begin(), middle}}, {1, {middle, files.end()}}});

  settings.setArgumentFlagValue(VAVOutputFileFlag, (folder / "review.mov").native());
  settings.setArgumentFlagValue(VAVProgressFileFlag, (folder / "review.progress").native());
  settings.setArgumentFlagValue(VAVProgressOutputPrefixFlag, progressPrefix);
  settings.setArgumentFlagValue(VAVOverwriteExistingFlag, "");
  return settings;
}

void appendCustodialFlags(std::vector<std::string>& words) {
  constexpr int thisApplication = 7;
  words.emplace_back(cliFlag(CLICustodialFlag::parentPid));
  words.push_back(std::to_string(getpid()));
  words.emplace_back(cliFlag(CLICustodialFlag::parentAppNumber));
  words.push_back(std::to_string(thisApplication));
}

struct Child {
  pid_t process;
  std::FILE* output;
};

void check(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

// Starts a program without a shell, so each word arrives as it is.
Child start(std::string program, std::vector<std::string> words) {
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
  return {process, fdopen(ends[0], "r")};
}

// Passes the child's lines on; on a terminal its progress becomes a bar.
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
  std::fclose(output);
}

int run(const std::string& tool, const std::filesystem::path& folder, const std::vector<std::string>& files) {
  auto words = settingsFor(files, folder).commandLineArguments();
  appendCustodialFlags(words);
  const auto child = start(tool, words);
  showOutput(child.output);
  int status = 0;
  check(waitpid(child.process, &status, 0) == child.process ? 0 : errno, "waitpid");
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::cerr << "usage: offload_app TOOL OUTPUT_FOLDER FILE...\n";
    return 64;
  }
  try {
    return run(argv[1], std::filesystem::absolute(argv[2]), {argv + 3, argv + argc});
  } catch (const std::exception& error) {
    std::cerr << "offload_app: " << error.what() << '\n';
    return 1;
  }
}
