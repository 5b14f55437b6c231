// Timecodes read and written, and names made legal for a tape.
#include <quillonic/filesystem/legal_names.hpp>
#include <quillonic/time.hpp>

#include <array>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {
namespace {

// A spread, so that no branch is learnt by heart.
const std::vector<TimecodeComponents> timecodes = [] {
  std::vector<TimecodeComponents> made;
  for (std::int64_t i = 0; i < 1024; ++i) {
    const auto n = i * 7919;
    made.push_back({n % 24, n % 60, n / 60 % 60, 2 + n % 28, n % 2 == 0});
  }
  return made;
}();

const std::vector<std::string> timecodeTexts = [] {
  std::vector<std::string> made;
  for (const auto& timecode : timecodes) made.push_back(timecode.timecodeString());
  return made;
}();

std::optional<TimecodeComponents> readByHand(const std::string& text) {
  TimecodeComponents read;
  const char* at = text.data();
  const char* const end = at + text.size();
  // Two digits at least.
  const auto number = [&](std::int64_t& field) {
    const char* const begin = at;
    at = std::from_chars(at, end, field).ptr;
    return at - begin >= 2 && *begin != '-';
  };
  const auto skip = [&](char separator) { return at != end && *at == separator && ++at; };
  if (!number(read.hours) || !skip(':') || !number(read.minutes) || !skip(':') || !number(read.seconds))
    return {};
  read.isDropFrame = skip(';');
  if (!read.isDropFrame && !skip(':')) return {};
  if (!number(read.frames) || at != end || read.minutes > 60 || read.seconds > 60) return {};
  return read;
}

std::string writtenByHand(const TimecodeComponents& timecode) {
  std::string text;
  const auto add = [&](std::int64_t number, std::string_view after) {
    std::array<char, 20> digits;
    if (number < 10) text += '0';
    text.append(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr).append(after);
  };
  add(timecode.hours, ":");
  add(timecode.minutes, ":");
  add(timecode.seconds, timecode.isDropFrame ? ";" : ":");
  add(timecode.frames, "");
  return text;
}

std::optional<TimecodeComponents> scanned(const std::string& text) {
  TimecodeComponents read;
  char separator = 0;
  int end = 0;
  const int found = std::sscanf(text.c_str(), "%" SCNd64 ":%" SCNd64 ":%" SCNd64 "%c%" SCNd64 "%n",
                                &read.hours, &read.minutes, &read.seconds, &separator, &read.frames, &end);
  if (found != 5 || static_cast<std::size_t>(end) != text.size()) return {};
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

std::string erased(const std::string& name) {
  std::string legal = name;
  std::erase_if(legal, [](char c) { return legalLtfsCharacters.find(c) == std::string_view::npos; });
  return legal;
}

// `does` gives the expected result of each input. Both lists stay.
template <class Input, class Result, class Do>
void addEach(const char* work, const std::string& who, const std::vector<Input>& inputs,
             const std::vector<Result>& expected, Do does, const std::string& note = {}) {
  add({work, who, note, static_cast<double>(inputs.size())}, [=, &inputs, &expected] {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      if (does(inputs[i]) != expected[i]) throw std::runtime_error("gives something else");
    }
    return [=, &inputs] {
      for (const auto& input : inputs) use(does(input));
    };
  });
}

// One character in nineteen is not legal.
const std::vector<std::string> names(100, [] {
  std::string name;
  while (name.size() < 255) name += "A001_C001 take?2 interview: caf\u00E9.mov ";
  return name.substr(0, 255);
}());
const std::vector<std::string> legalNames(names.size(), removingInvalidLtfsCharacters(names.front()));

const bool added = [] {
  const auto same = [](const std::string& text) { return text; };
  constexpr auto reading = "read a timecode";
  addEach(reading, ours, timecodeTexts, timecodes, TimecodeComponents::fromTimecode);
  addEach(reading, "std::from_chars by hand", timecodeTexts, timecodes, readByHand,
          "less: three separators only");
  addEach(reading, "sscanf", timecodeTexts, timecodes, scanned,
          "less: takes one digit and more than 60 minutes");
  addEach(reading, least("a copy"), timecodeTexts, timecodeTexts, same);
  constexpr auto writing = "write a timecode";
  const auto written = [](const TimecodeComponents& timecode) { return timecode.timecodeString(); };
  addEach(writing, ours, timecodes, timecodeTexts, written);
  addEach(writing, "std::to_chars by hand", timecodes, timecodeTexts, writtenByHand);
  addEach(writing, "snprintf", timecodes, timecodeTexts, printed);
  addEach(writing, least("a copy"), timecodeTexts, timecodeTexts, same);
  constexpr auto cleaning = "legal name of 255 bytes";
  addEach(cleaning, ours, names, legalNames, removingInvalidLtfsCharacters);
  addEach(cleaning, "a copy and std::erase_if", names, legalNames, erased);
  addEach(cleaning, least("a copy"), names, names, same);
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
