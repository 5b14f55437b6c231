// The naming and grouping operations beside bare loops of the system calls that they cannot do without, and the
// cleaning of names beside a plain copy.

#include <quillonic/filesystem.hpp>

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

using namespace quillonic;

class Files {
 public:
  Files() {
    std::string name = std::filesystem::temp_directory_path() / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    folder_ = name;
  }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  ~Files() { std::filesystem::remove_all(folder_); }

  std::filesystem::path add(const std::string& name) {
    auto path = folder_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path).put('x');
    return path;
  }

 private:
  std::filesystem::path folder_;
};

struct Collisions {
  Files files;
  std::vector<std::filesystem::path> taken;

  explicit Collisions(int count) {
    taken.push_back(files.add("A001_C001.mov"));
    for (int i = 2; i <= count; ++i) taken.push_back(files.add("A001_C001 " + std::to_string(i) + ".mov"));
  }
};

void existenceLoop(benchmark::State& state) {
  const Collisions collisions(1000);
  for (auto _ : state) {
    for (const auto& path : collisions.taken) {
      struct stat item {};
      benchmark::DoNotOptimize(lstat(path.c_str(), &item));
    }
  }
}
BENCHMARK(existenceLoop)->Unit(benchmark::kMicrosecond);

void nameAmong1000(benchmark::State& state) {
  const Collisions collisions(1000);
  const FileManager files;
  for (auto _ : state) {
    benchmark::DoNotOptimize(files.filePathAdjustedForCollision(collisions.taken.front()));
  }
}
BENCHMARK(nameAmong1000)->Unit(benchmark::kMicrosecond);

void nameAmong1000InFolders(benchmark::State& state) {
  const Collisions collisions(1000);
  const FileManager files;
  const std::vector folders{collisions.taken.front().parent_path()};
  for (auto _ : state) {
    benchmark::DoNotOptimize(files.lastPathComponentAdjustedForCollision(folders, "A001_C001", "mov"));
  }
}
BENCHMARK(nameAmong1000InFolders)->Unit(benchmark::kMicrosecond);

struct Tree {
  Files files;
  std::vector<std::filesystem::path> items;

  Tree() {
    for (int i = 0; i < 100'000; ++i) {
      items.push_back(files.add("card " + std::to_string(i / 1000) + "/clip " + std::to_string(i)));
    }
  }
  static const std::vector<std::filesystem::path>& paths() {
    static const Tree tree;
    return tree.items;
  }
};

void statxLoop100000(benchmark::State& state) {
  const auto& items = Tree::paths();
  for (auto _ : state) {
    for (const auto& path : items) {
      struct statx item {};
      benchmark::DoNotOptimize(
          statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_MNT_ID, &item));
    }
  }
}
BENCHMARK(statxLoop100000)->Unit(benchmark::kMillisecond);

void uniqueDrives100000(benchmark::State& state) {
  const auto& items = Tree::paths();
  for (auto _ : state) benchmark::DoNotOptimize(FileManager().getUniqueDrives(items));
}
BENCHMARK(uniqueDrives100000)->Unit(benchmark::kMillisecond);

void mappingOfDrives100000(benchmark::State& state) {
  const auto& items = Tree::paths();
  for (auto _ : state) benchmark::DoNotOptimize(FileManager().mappingOfUniqueDrives(items));
}
BENCHMARK(mappingOfDrives100000)->Unit(benchmark::kMillisecond);

std::string nameOf(std::int64_t size) {
  std::string name;
  while (name.size() < static_cast<std::size_t>(size)) name += "A001_C001 take?2 interview: caf\u00E9.mov ";
  name.resize(static_cast<std::size_t>(size));
  return name;
}

void copyText(benchmark::State& state) {
  const auto name = nameOf(state.range(0));
  for (auto _ : state) {
    std::string copy(name.size(), '\0');
    std::memcpy(copy.data(), name.data(), name.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(copyText)->Arg(40)->Arg(255)->Arg(1 << 20);

void cleanForLtfs(benchmark::State& state) {
  const auto name = nameOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(removingInvalidLtfsCharacters(name));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(cleanForLtfs)->Arg(40)->Arg(255)->Arg(1 << 20);

}  // namespace
