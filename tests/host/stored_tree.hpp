// Trees of files as the system shows them, written as text: "path = contents", in which "\n", "\t" and "\0" stand
// for themselves, or "path -> path" for a link; both paths count from the root.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic {

inline std::string storedContents(const std::string& text) {
  std::string contents;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto code = text[at] == '\\' && at + 1 < text.size() ? std::string("nt0").find(text[++at]) : 3;
    contents.push_back(code < 3 ? "\n\t\0"[code] : text[at]);
  }
  return contents;
}

// Passes over lines of another form.
inline void storeTree(const TemporaryFolder& root, std::span<const std::string> lines) {
  for (const auto& line : lines) {
    const auto words = split(line);
    if (words.size() < 2 || words[0] == "#") continue;
    if (words[1] == "=")
      root.file(words[0], storedContents(line.substr(std::min(words[0].size() + 3, line.size()))));
    if (words[1] == "->") root.link(words[0], root.folder(words[2]));
  }
}

// The lines of a file of trees.
inline std::vector<std::string> storedLines(const char* name) {
  return split(contentOf(std::filesystem::path(HOST_DATA) / name), '\n');
}

}  // namespace quillonic
