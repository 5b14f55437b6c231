// What every fuzz target defines, and what the targets share: laws that end the program, and bytes read as lines.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace quillonic::fuzz {

// Tries the library on any bytes. Returns when every law holds.
void run(std::string_view bytes);

// Ends the program with the law that does not hold.
inline void require(bool holds, const char* law) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "broken law: %s\n", law));
  std::abort();
}

// The lines of a text, so that a corpus can be read and written by hand. All other line breaks and a NUL may stand
// within a line. A line break at the very end begins no further line.
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
