#include "timecode.hpp"

#include <cstring>

namespace quillonic::benchmarks::timecode {
namespace {

using Text = std::array<char, 12>;

const bool added = [] {
  addReader(
      ours, "", [](const std::string& text) { return TimecodeComponents::fromTimecode(text); },
      [](const auto& timecode) { return timecode.value(); });
  addWriter(
      ours, "", [](const TimecodeComponents& timecode) { return timecode; },
      [](const TimecodeComponents& timecode) { return timecode.timecodeString(); });
  for (const auto* work : {reading, writing}) {
    add({"timecode", work, limit("memcpy of the bytes")}, [](benchmark::State& state) {
      timeInputs(state, texts(), [](const std::string& text) {
        Text copy;
        std::memcpy(copy.data(), text.data(), copy.size());
        return copy;
      });
    });
  }
  return true;
}();

}  // namespace

const std::vector<TimecodeComponents>& values() {
  static const auto all = [] {
    std::vector<TimecodeComponents> made;
    for (std::int64_t i = 0; i < 1024; ++i) {
      const auto n = i * 7919;
      made.push_back({n % 24, n % 60, n / 60 % 60, 2 + n % 28, n % 2 == 0});
    }
    return made;
  }();
  return all;
}

const std::vector<std::string>& texts() {
  static const auto all = [] {
    std::vector<std::string> made;
    for (const auto& timecode : values()) made.push_back(timecode.timecodeString());
    return made;
  }();
  return all;
}

}  // namespace quillonic::benchmarks::timecode
