// Runs a program as a child process, without a shell, and collects what it prints.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "temporary_folder.hpp"

namespace quillonic {

struct ChildResult {
  pid_t process = 0;
  int exitStatus = -1;  // -1 if the child did not exit by itself
  std::string output;
  std::string errors;
};

// Starts a program that writes to these files.
inline pid_t startChild(const std::filesystem::path& program, std::vector<std::string> words,
                        const char* output = "/dev/null", const char* errors = "/dev/null") {
  auto name = program.native();
  std::vector<char*> argv{name.data()};
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  std::fflush(nullptr);
  const auto process = fork();
  if (process != 0) return process;
  if (std::freopen(output, "w", stdout) && std::freopen(errors, "w", stderr))
    execv(name.c_str(), argv.data());
  _exit(127);
}

inline ChildResult runChild(const std::filesystem::path& program, const std::vector<std::string>& words) {
  const TemporaryFolder folder;
  const auto output = folder / "output";
  const auto errors = folder / "errors";
  ChildResult result;
  result.process = startChild(program, words, output.c_str(), errors.c_str());
  int status = 0;
  if (waitpid(result.process, &status, 0) == result.process && WIFEXITED(status)) {
    result.exitStatus = WEXITSTATUS(status);
  }
  result.output = contentOf(output);
  result.errors = contentOf(errors);
  return result;
}

}  // namespace quillonic
