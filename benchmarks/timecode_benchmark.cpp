// Reading and writing a timecode beside sscanf and snprintf doing the same. "allocations" counts what one
// reading or one text asks for.

#include <quillonic/time.hpp>

#include <array>
#include <benchmark/benchmark.h>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>

namespace {
std::size_t allocations = 0;
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

using quillonic::TimecodeComponents;

// A spread of timecodes, so that no branch is learnt by heart.
constexpr std::size_t spread = 1024;

TimecodeComponents numbered(std::size_t i) {
  const auto n = static_cast<std::int64_t>(i * 7919);
  return {n % 24, n % 60, n / 60 % 60, n % 30, n % 2 == 0};
}

const std::array<std::string, spread>& texts() {
  static const auto all = [] {
    std::array<std::string, spread> made;
    for (std::size_t i = 0; i < spread; ++i) made[i] = numbered(i).timecodeString();
    return made;
  }();
  return all;
}

// The same demands: two digits each, in bounds, nothing before or behind.
std::optional<TimecodeComponents> scanned(const char* text) {
  TimecodeComponents read;
  std::array<int, 5> ends{};
  char separator = 0;
  const int found =
      std::sscanf(text, "%" SCNd64 "%n:%" SCNd64 "%n:%" SCNd64 "%n%c%" SCNd64 "%n", &read.hours, &ends[1],
                  &read.minutes, &ends[2], &read.seconds, &ends[3], &separator, &read.frames, &ends[4]);
  if (found != 5 || text[ends[4]] != '\0' || (separator != ':' && separator != ';')) return std::nullopt;
  ends[0] = -1;
  for (std::size_t i = 0; i < 4; ++i) {
    if (ends[i + 1] - ends[i] < 3) return std::nullopt;
  }
  if (read.minutes > 60 || read.seconds > 60) return std::nullopt;
  read.isDropFrame = separator == ';';
  return read;
}

std::string printed(const TimecodeComponents& timecode) {
  std::array<char, 96> text;
  const int length = std::snprintf(
      text.data(), text.size(), "%02" PRId64 ":%02" PRId64 ":%02" PRId64 "%c%02" PRId64, timecode.hours,
      timecode.minutes, timecode.seconds, timecode.isDropFrame ? ';' : ':', timecode.frames);
  return {text.data(), static_cast<std::size_t>(length)};
}

template <class Input, class Work>
void measure(benchmark::State& state, const std::array<Input, spread>& inputs, Work work) {
  std::size_t at = 0;
  std::size_t asked = 0;
  for (auto _ : state) {
    const std::size_t before = allocations;
    auto result = work(inputs[at++ % spread]);
    benchmark::DoNotOptimize(result);
    asked += allocations - before;
  }
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(asked), benchmark::Counter::kAvgIterations);
}

std::array<TimecodeComponents, spread> values() {
  std::array<TimecodeComponents, spread> made;
  for (std::size_t i = 0; i < spread; ++i) made[i] = numbered(i);
  return made;
}

void StrictParse(benchmark::State& state) {
  measure(state, texts(), [](const std::string& text) { return TimecodeComponents::fromTimecode(text); });
}
void Sscanf(benchmark::State& state) {
  for (const auto& text : texts()) {
    if (scanned(text.c_str()) != TimecodeComponents::fromTimecode(text)) {
      state.SkipWithError("the two do not read the same");
      return;
    }
  }
  measure(state, texts(), [](const std::string& text) { return scanned(text.c_str()); });
}
void Text(benchmark::State& state) {
  measure(state, values(), [](const TimecodeComponents& timecode) { return timecode.timecodeString(); });
}
void Snprintf(benchmark::State& state) {
  for (const auto& timecode : values()) {
    if (printed(timecode) != timecode.timecodeString()) {
      state.SkipWithError("the two do not write the same");
      return;
    }
  }
  measure(state, values(), printed);
}
// Longer than the text that a string holds without asking for memory.
void LongText(benchmark::State& state) {
  auto long_ = values();
  for (auto& timecode : long_) timecode.hours += 1'000'000'000'000;
  measure(state, long_, [](const TimecodeComponents& timecode) { return timecode.timecodeString(); });
}

BENCHMARK(StrictParse);
BENCHMARK(Sscanf);
BENCHMARK(Text);
BENCHMARK(Snprintf);
BENCHMARK(LongText);

}  // namespace
