// The rows of the table: a work done by the library, by a peer, or by nobody: the least that the work needs.
#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <optional>
#include <string>

namespace quillonic::benchmarks {

// Who does the work in a row of the library's own.
inline constexpr const char* ours = "quillonic";

// Who "does" it in a row that shows the least that the work needs: what that is.
inline std::string least(const std::string& what) {
  return "least: " + what;
}

struct Row {
  std::string work;
  std::string who;
  // Where a peer does less or more than the library: what.
  std::string note = {};
  // How many words, paths, edits ... one turn of the work handles.
  double items = 1;
  // Whether the page keeps the work; all are printed.
  bool isKept = true;
};

using Work = std::function<void()>;

// `prepare` makes the work that is timed. It is called when the row first runs, before the clock does; what
// it throws is told instead of a time. Always true, so that a source can add rows before `main`.
bool add(const Row& row, std::function<Work()> prepare, int times = 0);

// A row that finds by itself, `times` times, how many seconds an item takes; nothing where none was done.
bool addMeasured(const Row& row, std::function<std::optional<double>()> seconds, int times);

// The library's time for an item among a hundred to a hundred thousand; a turn handles all, or `items`.
void addGrowth(const std::string& what, double items, std::function<Work(std::size_t size)> prepare);
inline constexpr double allItems = 0;

// Keeps the compiler from leaving out what nobody looks at.
template <class Result> void use(Result&& result) {
  benchmark::DoNotOptimize(result);
}

}  // namespace quillonic::benchmarks
