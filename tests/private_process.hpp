// Runs a part of a test in a child process that may mount, change its user and remove as root without
// touching anything outside.
#pragma once

#include <quillonic/support/function_ref.hpp>

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillonic {

enum class PrivateRun { passed, failed, notAllowed };

// The exit status with which a body says so itself.
inline constexpr int privateRunNotAllowed = 77;

// Becomes root of a namespace of its own where it is not root already, with mounts of its own.
inline bool enterPrivateNamespace() {
  const auto user = std::to_string(getuid());
  const auto group = std::to_string(getgid());
  const bool isRoot = geteuid() == 0;
  if (unshare(isRoot ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (!isRoot) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    if (geteuid() != 0) return false;
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

inline PrivateRun runPrivately(FunctionRef<void()> body) {
  std::fflush(nullptr);
  const auto child = fork();
  if (child == 0) {
    if (!enterPrivateNamespace()) _exit(privateRunNotAllowed);
    body();
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == privateRunNotAllowed) return PrivateRun::notAllowed;
  return status == 0 ? PrivateRun::passed : PrivateRun::failed;
}

}  // namespace quillonic
