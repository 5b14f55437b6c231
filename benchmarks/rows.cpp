#include "rows.hpp"

#include <exception>
#include <utility>

namespace quillonic::benchmarks {

void add(const Row& row, std::function<void(benchmark::State&)> run) {
  const auto name = row.topic + "|" + row.work + "|" + row.who;
  auto* family = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    state.SetLabel(row.note);
    state.counters["items"] = row.items;
    try {
      run(state);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  });
  // Otherwise processor time counts, which other programs on the machine do not lengthen.
  if (row.timesItself) family->UseManualTime()->Iterations(1);
}

}  // namespace quillonic::benchmarks
