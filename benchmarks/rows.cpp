#include "rows.hpp"

#include <exception>

namespace quillonic::benchmarks {
namespace {

auto* registered(const Row& row, std::function<void(benchmark::State&)> run) {
  const auto name = row.work + "|" + row.who;
  return benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    state.SetLabel(row.note);
    state.counters["items"] = row.items;
    state.counters["kept"] = row.isKept ? 1 : 0;
    try {
      run(state);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  });
}

}  // namespace

bool add(const Row& row, std::function<Work()> prepare, int times) {
  auto* rows = registered(row, [=, work = Work()](benchmark::State& state) mutable {
    if (!work) work = prepare();
    for (auto _ : state) {
      work();
      benchmark::ClobberMemory();
    }
  });
  if (times > 0) rows->Repetitions(times);
  return true;
}

bool addMeasured(const Row& row, std::function<std::optional<double>()> seconds, int times) {
  registered(row,
             [=](benchmark::State& state) {
               for (auto _ : state) {
                 const auto found = seconds();
                 if (!found) return state.SkipWithError("none was done in the time given");
                 state.SetIterationTime(*found);
               }
             })
      ->UseManualTime()
      ->Iterations(1)
      ->Repetitions(times);
  return true;
}

void addGrowth(const std::string& what, double items, std::function<Work(std::size_t size)> prepare) {
  for (const std::size_t size : {100U, 1'000U, 10'000U, 100'000U}) {
    const auto handled = items == allItems ? static_cast<double>(size) : items;
    add(
        {"growth: " + what, std::to_string(size), "", handled}, [=] { return prepare(size); }, 3);
  }
}

}  // namespace quillonic::benchmarks

// All rows are in one program, so that a ratio is one of times from the same run.
int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::AddCustomContext("compiler", QUILLONIC_COMPILER);
  benchmark::AddCustomContext("left out", QUILLONIC_LEFT_OUT);
  benchmark::RunSpecifiedBenchmarks();
}
