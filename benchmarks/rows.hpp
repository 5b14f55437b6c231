// The rows of the table: one work done by the library, by a peer, or by nobody, as the least that the machine
// needs.
#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "memory.hpp"

namespace quillonic::benchmarks {

// Who does the work in the library's rows.
inline constexpr const char* ours = "quillonic";

// Who "does" it in a row with the physical limit: "limit: " and its name.
inline std::string limit(const std::string& what) {
  return "limit: " + what;
}

struct Row {
  std::string topic;
  std::string work;
  std::string who;
  // What a peer does less or more, if anything.
  std::string note = {};
  // How many words, paths, accesses ... one turn of the work handles.
  double items = 1;
  // It measures the time per item of each turn by the clock.
  bool timesItself = false;
};

void add(const Row& row, std::function<void(benchmark::State&)> run);

// Times a work; counts what one turn asks of the heap before the clock runs.
template <class Work> void timeTurns(benchmark::State& state, Work work) {
  const auto before = memory::allocations();
  work();
  state.counters["allocations"] = static_cast<double>(memory::allocations() - before);
  for (auto _ : state) {
    work();
    benchmark::ClobberMemory();
  }
}

// What a row needs before its clock runs; made on its first run and kept for its repetitions.
template <class T> class Lazily {
 public:
  explicit Lazily(std::function<T()> make) : make_(std::move(make)) {}

  T& operator*() {
    if (!made_->has_value()) made_->emplace(make_());
    return **made_;
  }

 private:
  std::function<T()> make_;
  // Copies of a row share it.
  std::shared_ptr<std::optional<T>> made_ = std::make_shared<std::optional<T>>();
};

}  // namespace quillonic::benchmarks
