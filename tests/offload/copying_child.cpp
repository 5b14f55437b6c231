// Copies a folder to targets, and fails where it is told to: at the call with a number, counted over all
// calls below, in a way ("KILL", "SHORT" or the number of an error). Prints how many calls there were and whether
// everything is good.
//
//     copying_child nameless|named WAY NUMBER SOURCE TARGET...
//
// The volumes have files without names, or not.

#include <quillonic/offload.hpp>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "sum.hpp"

namespace {

long callCount = 0;
long failingCall = 0;
std::string way;
bool hasNameless = true;

// Whether this call is the one that fails. Every later one does too on a full or broken volume.
bool fails() {
  ++callCount;
  const bool isNow = failingCall != 0 && callCount >= failingCall;
  if (!isNow || way == "SHORT") return false;
  if (way == "KILL") std::raise(SIGKILL);
  const int error = std::atoi(way.c_str());
  if (error == EINTR && callCount % 2 == 0) return false;
  errno = error;
  return true;
}

std::size_t shortened(std::size_t count) {
  return way == "SHORT" && count > 1 ? 1 + count / 3 : count;
}

template <class Function> Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// The library's calls find these first. The system's headers mark some as throwing nothing.
extern "C" {
ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
  static auto* const system = next<decltype(pwrite)>("pwrite");
  return fails() ? -1 : system(file, bytes, shortened(count), offset);
}
ssize_t pread(int file, void* bytes, size_t count, off_t offset) {
  static auto* const system = next<decltype(pread)>("pread");
  return fails() ? -1 : system(file, bytes, shortened(count), offset);
}
int fsync(int file) {
  static auto* const system = next<decltype(fsync)>("fsync");
  return fails() ? -1 : system(file);
}
int syncfs(int file) noexcept {
  static auto* const system = next<decltype(syncfs)>("syncfs");
  return fails() ? -1 : system(file);
}
int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) noexcept {
  static auto* const system = next<decltype(renameat2)>("renameat2");
  return fails() ? -1 : system(from, name, to, newName, flags);
}
int linkat(int from, const char* name, int to, const char* newName, int flags) noexcept {
  static auto* const system = next<decltype(linkat)>("linkat");
  return fails() ? -1 : system(from, name, to, newName, flags);
}
int openat(int folder, const char* name, int flags, ...) {
  static auto* const system = next<decltype(openat)>("openat");
  const bool isNameless = (flags & O_TMPFILE) == O_TMPFILE;
  if ((flags & O_CREAT) == 0 && !isNameless) return system(folder, name, flags);
  if (isNameless && !hasNameless) {
    errno = EOPNOTSUPP;
    return -1;
  }
  return fails() ? -1 : system(folder, name, flags, 0600);
}
int mkdirat(int folder, const char* name, mode_t mode) noexcept {
  static auto* const system = next<decltype(mkdirat)>("mkdirat");
  return fails() ? -1 : system(folder, name, mode);
}
int symlinkat(const char* text, int folder, const char* name) noexcept {
  static auto* const system = next<decltype(symlinkat)>("symlinkat");
  return fails() ? -1 : system(text, folder, name);
}
}

using namespace quillonic;

int main(int argc, char** argv) {
  if (argc < 6) return 64;
  const auto plan = offload::planOffload(argv[4], std::vector<std::filesystem::path>(argv + 5, argv + argc));
  hasNameless = std::string(argv[1]) == "nameless";
  way = argv[2];
  failingCall = std::atol(argv[3]);
  offload::OffloadRun run(plan, {.checksum = &sum, .verified = {}, .progress = {}});
  for (std::size_t step = 0; step < run.stepCount(); ++step) run.run(step);
  std::printf("%d %ld\n", run.finish().isGood() ? 1 : 0, callCount);
}
