#include <quillonic/tool_cli.hpp>

#include <gtest/gtest.h>
#include <sstream>
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
  std::vector<std::string> received;
  std::istringstream output(result.output);
  for (std::string word; std::getline(output, word, '\0');) received.push_back(word);
  EXPECT_EQ(received, words) << result.errors;
  EXPECT_EQ(shellQuoted({"-in_0_0", "/card/take 3.mov", "-web", "", std::string_view("a\0b", 3)}),
            "-in_0_0 '/card/take 3.mov' -web '' a");
  EXPECT_EQ(shellQuoted({}), "");
}

TEST(CLICustodialOptions, AreTakenOutOfAnyToolsList) {
  for (const auto& parent : {CLICustodialOptions(4711), CLICustodialOptions(-1, INT64_MIN)}) {
    std::vector<std::string> words{"stray", "-vn", "-1", "x"};
    parent.appendTo(words);
    words.insert(words.end(), {"-out", " /A"});
    const auto [read, rest] = CLICustodialOptions::read(words);
    EXPECT_EQ(read, parent.parentProcessId > 0 ? std::optional(parent) : std::nullopt)
        << "a word with a hyphen is a flag";
    EXPECT_EQ(joined(rest, '|'), read ? "stray|-vn|-1|x|-out| /A" : joined(words, '|'));
  }
  const auto parentOf = [](std::string_view words) {
    return CLICustodialOptions::read(split(words, '|')).parent;
  };
  EXPECT_EQ(parentOf("-PARENTAPPNUMBER| 7 | -parentpid |1|-parentPid|2"), CLICustodialOptions(2, 7));
  for (const auto* words :
       {"", "-parentAppNumber|7", "-parentPid", "-parentPid|1x", "-parentPid|1|-parentAppNumber"}) {
    EXPECT_EQ(parentOf(words), std::nullopt) << words;
  }
}

}  // namespace
}  // namespace quillonic
