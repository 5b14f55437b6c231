// Runs part of a test in a child process that may mount, change its user and remove as root without touching
// anything outside.
#pragma once

#include <quillonic/support/function_ref.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillonic {

// Ends a body that lacks the rights for its work, unless something failed before.
inline constexpr int notAllowed = 77;
[[noreturn]] inline void endAsNotAllowed() {
  _exit(testing::Test::HasFailure() ? 1 : notAllowed);
}

// Becomes root of its own namespace, unless it is root already, with its own mounts.
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
  return mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0;
}

// Becomes a user without rights.
inline void becomeNobody() {
  if (setgid(65534) != 0 || setuid(65534) != 0) endAsNotAllowed();
}

inline void mountAt(const std::filesystem::path& point, const char* source = "card",
                    const char* kind = "tmpfs", unsigned long flags = 0, const std::string& options = "") {
  if (mount(source, point.c_str(), kind, flags, options.c_str()) != 0) endAsNotAllowed();
}

// The layers of an overlay, with folders for its changes.
inline std::string overlayOptions(const std::filesystem::path& lower, const std::filesystem::path& changes) {
  for (const auto* name : {"upper", "work"}) std::filesystem::create_directories(changes / name);
  const auto upper = (changes / "upper").native();
  return "lowerdir=" + lower.native() + ",upperdir=" + upper + ",workdir=" + (changes / "work").native();
}

// Where that is not allowed the test is skipped, visibly.
inline void runPrivately(FunctionRef<void()> body) {
  std::fflush(nullptr);
  const auto child = fork();
  if (child == 0) {
    if (!enterPrivateNamespace()) endAsNotAllowed();
    body();
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const bool isAllowed = !WIFEXITED(status) || WEXITSTATUS(status) != notAllowed;
  if (!isAllowed) GTEST_SKIP() << "needs a namespace of its own, to mount there or to become another user";
  EXPECT_EQ(status, 0);
}

}  // namespace quillonic
