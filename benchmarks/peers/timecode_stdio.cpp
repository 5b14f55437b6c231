#include <cinttypes>
#include <cstdio>
#include <optional>

#include "../timecode.hpp"

namespace quillonic::benchmarks::timecode {
namespace {

// Also requires two digits each, in bounds, with nothing before or after.
std::optional<TimecodeComponents> scanned(const std::string& text) {
  TimecodeComponents read;
  std::array<int, 5> ends{};
  char separator = 0;
  const int found = std::sscanf(text.c_str(), "%" SCNd64 "%n:%" SCNd64 "%n:%" SCNd64 "%n%c%" SCNd64 "%n",
                                &read.hours, &ends[1], &read.minutes, &ends[2], &read.seconds, &ends[3],
                                &separator, &read.frames, &ends[4]);
  if (found != 5 || static_cast<std::size_t>(ends[4]) != text.size()) return std::nullopt;
  if (separator != ':' && separator != ';') return std::nullopt;
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

const bool added = addReader("sscanf", "", scanned, [](const auto& timecode) { return timecode.value(); }) &&
                   addWriter(
                       "snprintf", "", [](const TimecodeComponents& timecode) { return timecode; }, printed);

}  // namespace
}  // namespace quillonic::benchmarks::timecode
