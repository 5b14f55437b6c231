// What every fuzz target defines and shares: laws that end the program, and bytes read as lines.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace quillonic::fuzz {

// Runs the library on any bytes. Returns if every law holds.
void run(std::string_view bytes);

// Ends the program and reports the broken law.
inline void require(bool holds, const char* law) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "broken law: %s\n", law));
  std::abort();
}

// The lines of a text, so that people can read and write a corpus. Other line breaks and a NUL may be within
// a line. A final line break begins no further line.
inline std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> found;
  while (!text.empty()) {
    const auto end = text.find('\n');
    found.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return found;
}

}  // namespace quillonic::fuzz
