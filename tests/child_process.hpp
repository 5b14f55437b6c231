// Runs a program as a child process, without a shell, and collects what it prints.
#pragma once

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
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

inline ChildResult runChild(const std::filesystem::path& program, std::vector<std::string> words) {
  const TemporaryFolder folder;
  const auto output = folder / "output";
  const auto errors = folder / "errors";

  auto name = program.native();
  std::vector<char*> argv{name.data()};
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const int flags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), flags, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), flags, 0600);
  ChildResult result;
  const int error = posix_spawn(&result.process, name.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), name);

  int status = 0;
  if (waitpid(result.process, &status, 0) == result.process && WIFEXITED(status)) {
    result.exitStatus = WEXITSTATUS(status);
  }
  result.output = contentOf(output);
  result.errors = contentOf(errors);
  return result;
}

}  // namespace quillonic
