// Time per word of the main trip beside getopt_long_only on the same words.
//
// getopt_long_only does less: it recognises the flags and points at their values, but it normalises and
// stores nothing.

#include <quillonic/transcode_cli.hpp>

#include <benchmark/benchmark.h>
#include <cstddef>
#include <getopt.h>
#include <string>
#include <vector>

namespace {

using namespace quillonic;

// Every known flag in turn, with a value behind those that take one, and the numbered input files of a long
// job.
std::vector<std::string> words(std::size_t count, bool inputFiles) {
  std::vector<std::string> list;
  const auto flags = TranscodeCliArguments::allKnownCommandFlags();
  for (std::size_t i = 0; list.size() + 1 < count; ++i) {
    list.push_back(inputFiles ? "-in_0_" + std::to_string(i) : std::string(flags[i % flags.size()]));
    list.push_back(inputFiles ? "/media/card/A001_C" + std::to_string(i) + ".mov" : "960x540");
  }
  return list;
}

void perWord(benchmark::State& state, std::size_t count) {
  state.counters["per_word"] =
      benchmark::Counter(static_cast<double>(count),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void parse(benchmark::State& state, bool inputFiles) {
  const auto list = words(static_cast<std::size_t>(state.range(0)), inputFiles);
  for (auto _ : state) {
    const TranscodeCliArguments model(list, true);
    benchmark::DoNotOptimize(model.flagValueLookup().size());
  }
  perWord(state, list.size());
}

void emit(benchmark::State& state) {
  const TranscodeCliArguments model(words(static_cast<std::size_t>(state.range(0)), true), true);
  std::size_t count = 0;
  for (auto _ : state) {
    const auto list = model.commandLineArguments();
    count = list.size();
    benchmark::DoNotOptimize(list.data());
  }
  perWord(state, count);
}

void getopt(benchmark::State& state, bool inputFiles) {
  auto list = words(static_cast<std::size_t>(state.range(0)), inputFiles);
  std::vector<char*> original{list.front().data()};
  for (auto& word : list) original.push_back(word.data());
  original.push_back(nullptr);

  std::vector<std::string> names;
  for (const auto flag : TranscodeCliArguments::allKnownCommandFlags()) names.emplace_back(flag.substr(1));
  std::vector<option> options;
  for (const auto& name : names) options.push_back({name.c_str(), required_argument, nullptr, 0});
  options.push_back({nullptr, 0, nullptr, 0});

  opterr = 0;
  for (auto _ : state) {
    auto argv = original;
    optind = 0;
    std::size_t found = 0;
    while (getopt_long_only(static_cast<int>(argv.size()) - 1, argv.data(), "", options.data(), nullptr) !=
           -1)
      ++found;
    benchmark::DoNotOptimize(found);
  }
  perWord(state, list.size());
}

void ParseFlags(benchmark::State& state) {
  parse(state, false);
}
void GetoptFlags(benchmark::State& state) {
  getopt(state, false);
}
void ParseInputFiles(benchmark::State& state) {
  parse(state, true);
}
void GetoptInputFiles(benchmark::State& state) {
  getopt(state, true);
}

BENCHMARK(ParseFlags)->Arg(10)->Arg(1000)->Arg(100'000);
BENCHMARK(GetoptFlags)->Arg(10)->Arg(1000)->Arg(100'000);
BENCHMARK(ParseInputFiles)->Arg(10)->Arg(1000)->Arg(100'000);
BENCHMARK(GetoptInputFiles)->Arg(10)->Arg(1000)->Arg(100'000);
BENCHMARK(emit)->Name("Emit")->Arg(10)->Arg(1000)->Arg(100'000);

}  // namespace
