#include <quillonic/tool_cli.hpp>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "child_process.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

TEST(ShellQuoted, IsSplitIntoTheSameWordsByTheShell) {
  std::vector<std::string> words{"",      "-n",  "a b", "it's", "''", "~", "*",
                                 "$HOME", "`x`", "a=b", "\\",   "!",  "\n"};
  for (int byte = 1; byte < 256; ++byte) {
    words.emplace_back(1, static_cast<char>(byte));
    words.push_back("a" + words.back() + "'" + words.back());
  }
  const auto result = runChild("/bin/sh", {"-c", "printf '%s\\0' " + shellQuoted(words)});
  EXPECT_EQ(result.output, joined(words, '\0') + '\0') << result.errors;
  EXPECT_EQ(shellQuoted({"-in_0_0", "/card/take 3.mov", "-web", "", std::string_view("a\0b", 3)}),
            "-in_0_0 '/card/take 3.mov' -web '' a");
  EXPECT_EQ(shellQuoted({}), "");
}

// The words, the parent's words in them, and the rest; without a parent all words stay.
TEST(CLICustodialOptions, AreTakenOutOfAnyToolsList) {
  const std::pair<std::string, std::string> rows[] = {
      {"stray|-vn|-1|-parentPid|47|-out| /A", "-parentPid 47"},
      {"-PARENTAPPNUMBER| 7 | -parentpid |1|-parentPid|2", "-parentPid 2 -parentAppNumber 7"},
      {"-parentAppNumber|7", ""},
      {"-parentPid|1x", ""},
      {"-parentPid|1|-parentAppNumber", ""}};
  for (const auto& [text, expected] : rows) {
    const auto words = split(text, '|');
    const auto [parent, rest] = CLICustodialOptions::read(words);
    EXPECT_EQ(parent ? joined(parent->launchArguments()) : "", expected);
    EXPECT_EQ(joined(rest, '|'), !parent ? text : &text == &rows[0].first ? "stray|-vn|-1|-out| /A" : "");
  }
}

}  // namespace
}  // namespace quillonic
