// The cost of a word, a path or an item in time and memory, from a hundred to a million of them.
#include <quillonic/filesystem.hpp>
#include <quillonic/transcode_cli.hpp>

#include <array>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "rows.hpp"
#include "tree.hpp"

namespace quillonic::benchmarks {
namespace {

constexpr std::array<std::size_t, 5> sizes{100, 1'000, 10'000, 100'000, 1'000'000};

// The peak memory of a turn counts as well.
template <class Work> void timeAndWeigh(benchmark::State& state, Work work) {
  {
    const memory::Peak peak;
    work();
    state.counters["peak"] = static_cast<double>(peak.bytes());
  }
  for (auto _ : state) work();
}

constexpr auto bareCopy = "a bare copy, per word (all flags differ)";
constexpr auto bareCall = "a bare system call, per path";

// `bare` is the row with the minimum of work.
template <class Prepare, class Work>
void addGrowth(const std::string& what, const std::string& bare, Prepare prepare, Work work) {
  for (const auto size : sizes) {
    add({"growth", what, std::to_string(size), bare, static_cast<double>(size)},
        [=](benchmark::State& state) {
          const auto& input = prepare(size);
          timeAndWeigh(state, [&] { work(input); });
        });
  }
}

// The known flags, repeated.
std::vector<std::string> repeatedFlags(std::size_t size) {
  const auto known = TranscodeCliArguments::allKnownCommandFlags();
  std::vector<std::string> words;
  for (std::size_t i = 0; i < size / 2; ++i) {
    words.emplace_back(known[i % known.size()]);
    words.emplace_back("960x540");
  }
  return words;
}

std::vector<std::string> inputFiles(std::size_t size) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < size / 2; ++i) {
    words.push_back("-in_0_" + std::to_string(i));
    words.push_back("/media/CARD/A001_C" + std::to_string(i) + ".mov");
  }
  return words;
}

void parse(const std::vector<std::string>& words) {
  const TranscodeCliArguments model(words, true);
  benchmark::DoNotOptimize(model.flagValueLookup().size());
}

const bool added = [] {
  addGrowth("parse, per word (flags repeated)", "", repeatedFlags, parse);
  addGrowth("parse, per word (all flags differ)", bareCopy, inputFiles, parse);
  addGrowth(
      "emit, per word (all flags differ)", bareCopy,
      [](std::size_t size) { return TranscodeCliArguments(inputFiles(size), true); },
      [](const TranscodeCliArguments& model) {
        benchmark::DoNotOptimize(model.commandLineArguments().data());
      });
  addGrowth(bareCopy, "", inputFiles, [](const std::vector<std::string>& words) {
    auto copy = words;
    benchmark::DoNotOptimize(copy.data());
  });
  const auto paths = [](std::size_t size) -> const auto& {
    return clips(size);
  };
  addGrowth("volume roots, per path", bareCall, paths, [](const std::vector<std::filesystem::path>& items) {
    benchmark::DoNotOptimize(FileManager().getUniqueDrives(items).data());
  });
  addGrowth(bareCall, "", paths, [](const std::vector<std::filesystem::path>& items) {
    for (const auto& item : items) {
      struct statx status {};
      benchmark::DoNotOptimize(
          statx(AT_FDCWD, item.c_str(), AT_SYMLINK_NOFOLLOW, STATX_TYPE | STATX_MNT_ID, &status));
    }
  });
  addGrowth("items by volume, per item", bareCall, paths,
            [](const std::vector<std::filesystem::path>& items) {
              benchmark::DoNotOptimize(FileManager().mappingOfUniqueDrives(items).size());
            });
  addGrowth("attributes, per item", bareCall, paths, [](const std::vector<std::filesystem::path>& items) {
    for (const auto& item : items) {
      auto attributes = expandedAttributesOfItem(item);
      benchmark::DoNotOptimize(attributes);
    }
  });
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
