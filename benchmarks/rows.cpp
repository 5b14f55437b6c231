#include "rows.hpp"

#include <exception>
#include <utility>

namespace quillonic::benchmarks {

void add(const Row& row, std::function<void(benchmark::State&)> run) {
  const auto name = row.topic + "|" + row.work + "|" + row.who;
  auto* family = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    if (state.thread_index() == 0) {
      state.SetLabel(row.note);
      state.counters["items"] = row.items;
    }
    try {
      run(state);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  });
  // Time on the processor, which other programs on the machine do not lengthen. Threads that sleep for one another
  // are timed by the clock.
  if (row.topic == "switches") family->Threads(row.threads)->UseRealTime();
}

}  // namespace quillonic::benchmarks
