#include <quillonic/tool_cli/shell_quoting.hpp>

#include <string_view>

namespace quillonic {
namespace {

// No shell gives these a meaning of their own, wherever they are in a word.
constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789@%+:,./_-";

void append(std::string& line, std::string_view word) {
  if (!word.empty() && word.find_first_not_of(plain) == std::string_view::npos) {
    line += word;
    return;
  }
  line += '\'';
  for (const char c : word) {
    // A quotation mark ends the quoted text, is written with a backslash, and begins the next quoted text.
    if (c == '\'') {
      line += "'\\''";
    } else {
      line += c;
    }
  }
  line += '\'';
}

}  // namespace

std::string shellQuoted(ArgumentWords words) {
  std::string line;
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (at > 0) line += ' ';
    append(line, words[at].substr(0, words[at].find('\0')));
  }
  return line;
}

}  // namespace quillonic
