// Timecodes read and written, by the library and by peers.
#pragma once

#include <quillonic/time.hpp>

#include <array>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks::timecode {

// A spread of timecodes, so that branch prediction learns no pattern. All exist in drop frame too.
const std::vector<TimecodeComponents>& values();
const std::vector<std::string>& texts();

inline constexpr const char* reading = "read a timecode";
inline constexpr const char* writing = "write a timecode";

// One turn of the work per input, in a cycle.
template <class Input, class Work>
void timeInputs(benchmark::State& state, const std::vector<Input>& inputs, Work work) {
  std::size_t at = 0;
  timeTurns(state, [&] {
    auto result = work(inputs[at]);
    benchmark::DoNotOptimize(result);
    at = at + 1 < inputs.size() ? at + 1 : 0;
  });
}

// `read` makes the peer's form of a timecode, and `fieldsOf` converts that to the library's.
template <class Read, class FieldsOf>
bool addReader(const std::string& who, const std::string& note, Read read, FieldsOf fieldsOf) {
  add({"timecode", reading, who, note}, [=](benchmark::State& state) {
    for (std::size_t i = 0; i < texts().size(); ++i) {
      if (fieldsOf(read(texts()[i])) != values()[i]) throw std::runtime_error("reads another timecode");
    }
    timeInputs(state, texts(), read);
  });
  return true;
}

// `held` makes the peer's form of a timecode before the clock runs.
template <class Held, class Write>
bool addWriter(const std::string& who, const std::string& note, Held held, Write write) {
  add({"timecode", writing, who, note}, [=](benchmark::State& state) {
    std::vector<decltype(held(values().front()))> inputs;
    inputs.reserve(values().size());
    for (const auto& value : values()) inputs.push_back(held(value));
    for (std::size_t i = 0; i < texts().size(); ++i) {
      if (std::string(write(inputs[i]).data()) != texts()[i])
        throw std::runtime_error("writes another timecode");
    }
    timeInputs(state, inputs, write);
  });
  return true;
}

}  // namespace quillonic::benchmarks::timecode
