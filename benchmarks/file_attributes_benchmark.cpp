// The attributes of 10,000 items, and a walk over a tree of 10,000 links, compared with a bare loop of one
// system call per item over the same items. Small files, each of which may be an alias file, have a second
// loop that also reads their first bytes: the least that must be done.
#include <quillonic/filesystem.hpp>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "tree.hpp"

namespace quillonic::benchmarks {
namespace {

constexpr int itemCount = 10'000;

using Paths = std::vector<std::filesystem::path>;

// Large clips as cameras write them: too large for alias files.
const Paths& largeClips() {
  return clips(itemCount);
}

// A tree below its own folder, filled on first use.
class Filled {
 public:
  template <class Make> explicit Filled(Make make) {
    for (int i = 0; i < itemCount; ++i) {
      const auto name = "reel " + std::to_string(i / 100) + "/A001C" + std::to_string(i) + "_201112_R1AB.MXF";
      paths_.push_back(make(tree_, name));
    }
  }

  const std::filesystem::path& root() const noexcept { return tree_.root(); }
  const Paths& paths() const noexcept { return paths_; }

 private:
  Tree tree_;
  Paths paths_;
};

// Files of an alias file's size, each of which must be opened.
const Paths& smallFiles() {
  static const Filled files([](Tree& tree, const std::string& name) { return tree.add(name, 1000); });
  return files.paths();
}

const Filled& linkTree() {
  static const Filled links([isRelative = false](Tree& tree, const std::string& name) mutable {
    isRelative = !isRelative;
    auto link = tree.root() / name;
    std::filesystem::create_directories(link.parent_path());
    std::filesystem::create_symlink(isRelative ? "../reel 0/clip.mov" : "/media/CARD/clip.mov", link);
    return link;
  });
  return links;
}

const Paths& links() {
  return linkTree().paths();
}

void askBare(const std::filesystem::path& item) {
  struct statx status {};
  benchmark::DoNotOptimize(statx(AT_FDCWD, item.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                                 STATX_BASIC_STATS | STATX_BTIME, &status));
}

// Also what a file begins with.
void askLeast(const std::filesystem::path& item) {
  askBare(item);
  std::array<char, AliasFile::markSize> mark;
  const int file = open(item.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  benchmark::DoNotOptimize(read(file, mark.data(), mark.size()));
  close(file);
}

template <class Work> double secondsOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Seconds {
  double ours = 0;
  double bare = 0;
  double least = 0;
};

// A row's time is the library's; the columns after it are ratios.
void report(benchmark::State& state, const Seconds& total) {
  state.SetItemsProcessed(state.iterations() * itemCount);
  state.counters["times_bare"] = total.ours / total.bare;
  if (total.least > 0) {
    state.counters["times_least"] = total.ours / total.least;
    state.counters["least_times_bare"] = total.least / total.bare;
  }
}

// The loops take turns, so that other work on the machine slows all of them alike, and each finds the caches
// as another loop over all items leaves them.
template <const Paths& (*paths)(), class Ours>
void measure(benchmark::State& state, bool hasLeast, Ours ours) {
  const auto& items = paths();
  Seconds total;
  for (auto _ : state) {
    total.bare += secondsOf([&] { std::ranges::for_each(items, askBare); });
    if (hasLeast) total.least += secondsOf([&] { std::ranges::for_each(items, askLeast); });
    const double seconds = secondsOf(ours);
    total.ours += seconds;
    state.SetIterationTime(seconds);
  }
  report(state, total);
}

template <const Paths& (*paths)()> void expandedAttributes(benchmark::State& state) {
  measure<paths>(state, paths == smallFiles, [] {
    for (const auto& item : paths()) benchmark::DoNotOptimize(expandedAttributesOfItem(item));
  });
}

void walkLinks(benchmark::State& state) {
  measure<links>(state, false, [&] {
    int found = 0;
    enumerateLinkFileDereferencePairs(
        linkTree().root(),
        [&](const std::filesystem::path&, const std::filesystem::path&, bool&) { ++found; });
    if (found != itemCount) state.SkipWithError("links are missing");
  });
}

BENCHMARK_TEMPLATE(expandedAttributes, largeClips)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(expandedAttributes, smallFiles)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(walkLinks)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillonic::benchmarks
