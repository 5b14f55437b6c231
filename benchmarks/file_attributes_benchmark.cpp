// The attributes of 10,000 items, and a tree of 10,000 links walked, beside a bare loop of the one system call
// that asks about an item, over the same items.
#include <quillonic/filesystem.hpp>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
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

template <const Tree& (*tree)()> void bareLoop(benchmark::State& state) {
  const auto& items = tree().items();
  for (auto _ : state) {
    for (const auto& item : items) {
      struct statx status {};
      benchmark::DoNotOptimize(statx(AT_FDCWD, item.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                                     STATX_BASIC_STATS | STATX_BTIME, &status));
    }
  }
  state.SetItemsProcessed(state.iterations() * itemCount);
}

template <const Tree& (*tree)()> void expandedAttributes(benchmark::State& state) {
  const auto& items = tree().items();
  for (auto _ : state) {
    for (const auto& item : items) benchmark::DoNotOptimize(expandedAttributesOfItem(item));
  }
  state.SetItemsProcessed(state.iterations() * itemCount);
}

void walkLinks(benchmark::State& state) {
  const auto& root = links().root();
  for (auto _ : state) {
    int found = 0;
    enumerateLinkFileDereferencePairs(
        root, [&](const std::filesystem::path&, const std::filesystem::path&, bool&) { ++found; });
    if (found != itemCount) state.SkipWithError("links are missing");
  }
  state.SetItemsProcessed(state.iterations() * itemCount);
}

BENCHMARK_TEMPLATE(bareLoop, clips)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(expandedAttributes, clips)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(bareLoop, smallFiles)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(expandedAttributes, smallFiles)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(bareLoop, links)->Unit(benchmark::kMillisecond);
BENCHMARK(walkLinks)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillonic
