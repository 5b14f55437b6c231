// The attributes of 10,000 items, and a tree of 10,000 links walked, beside a bare loop of the one system call
// that asks about an item, over the same items. Beside small files, each of which may be an alias file, stands a
// second loop that also looks at their first bytes: the least that must be done.
#include <quillonic/filesystem.hpp>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillonic {
namespace {

constexpr int itemCount = 10'000;

class Tree {
 public:
  Tree() {
    std::string name = std::filesystem::temp_directory_path() / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    root_ = name;
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() { std::filesystem::remove_all(root_); }

  const std::filesystem::path& root() const { return root_; }
  const std::vector<std::filesystem::path>& items() const { return items_; }

  template <class Make> void fill(Make make) {
    for (int i = 0; i < itemCount; ++i) {
      const auto folder = root_ / ("reel " + std::to_string(i / 100));
      std::filesystem::create_directories(folder);
      items_.push_back(folder / ("A001C" + std::to_string(i) + "_201112_R1AB.MXF"));
      make(items_.back());
    }
  }

 private:
  std::filesystem::path root_;
  std::vector<std::filesystem::path> items_;
};

// Clips as a camera leaves them: too great for an alias file. They hold no blocks.
const Tree& clips() {
  static Tree tree;
  if (tree.items().empty()) {
    tree.fill([](const auto& item) {
      std::ofstream(item).close();
      std::filesystem::resize_file(item, std::uintmax_t{1} << 30U);
    });
  }
  return tree;
}

// Files of the size of an alias file, each of which has to be opened.
const Tree& smallFiles() {
  static Tree tree;
  if (tree.items().empty()) {
    tree.fill([](const auto& item) { std::ofstream(item) << std::string(1000, 'x'); });
  }
  return tree;
}

const Tree& links() {
  static Tree tree;
  if (tree.items().empty()) {
    int count = 0;
    tree.fill([&](const auto& item) {
      const bool isRelative = ++count % 2 == 0;
      std::filesystem::create_symlink(isRelative ? "../reel 0/clip.mov" : "/media/CARD/clip.mov", item);
    });
  }
  return tree;
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

// The time of a row is that of the library; the columns behind it are ratios.
void report(benchmark::State& state, const Seconds& total) {
  state.SetItemsProcessed(state.iterations() * itemCount);
  state.counters["times_bare"] = total.ours / total.bare;
  if (total.least > 0) {
    state.counters["times_least"] = total.ours / total.least;
    state.counters["least_times_bare"] = total.least / total.bare;
  }
}

// The loops take turns, so that what else the machine does slows all of them alike, and each finds the caches as
// another one over all items leaves them.
template <const Tree& (*tree)(), class Ours> void measure(benchmark::State& state, bool hasLeast, Ours ours) {
  const auto& items = tree().items();
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

template <const Tree& (*tree)()> void expandedAttributes(benchmark::State& state) {
  const bool areOpened = &tree() == &smallFiles();
  measure<tree>(state, areOpened, [] {
    for (const auto& item : tree().items()) benchmark::DoNotOptimize(expandedAttributesOfItem(item));
  });
}

void walkLinks(benchmark::State& state) {
  measure<links>(state, false, [&] {
    int found = 0;
    enumerateLinkFileDereferencePairs(
        links().root(), [&](const std::filesystem::path&, const std::filesystem::path&, bool&) { ++found; });
    if (found != itemCount) state.SkipWithError("links are missing");
  });
}

BENCHMARK_TEMPLATE(expandedAttributes, clips)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(expandedAttributes, smallFiles)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(walkLinks)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillonic
