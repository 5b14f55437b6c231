// Readers of command lines, each made of the same two operations.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {

using Words = std::vector<std::string>;

// A list of words in which a value, or an empty text, follows every flag.
struct CommandLine {
  Words words;
  // Every flag that the reader has to know, without hyphens and with as many as it asks for: more than are on
  // the line.
  Words flags;
  Words flagWords;
  // As `main` receives the words: the program's name before them, a null pointer after.
  mutable std::vector<char*> argv;

  int argc() const noexcept { return static_cast<int>(argv.size()) - 1; }
};

// Knows the flags of one command line, which are declared when it is made.
struct WordsReader {
  // Reads the words and forgets what it read before.
  Work parse;
  // The words that hold what was read, in any order.
  std::function<Words()> emit;
};

struct WordsPeer {
  std::string name;
  std::string note = {};
  std::string hyphens = "-";
  // Whether it reads long lines too, since its time for a word does not grow with the flags that it knows.
  bool readsLongest = false;
};

bool addWordsReader(const WordsPeer& peer, std::function<WordsReader(const CommandLine&)> make);

// Writes the words of the cloud preset after these changes, in the order of the flags.
bool addBuilder(const std::string& who, const std::string& note, std::function<Words()> build);
inline constexpr std::string_view changes[5][2] = {{"-out", "/media/REEL 7/review/A001C001_201112_R1AB.mov"},
                                                   {"-dims", "1920x1080"},
                                                   {"-vbr", "12.5"},
                                                   {"-wmt_text", "for review only"},
                                                   {"-tc_custom", "01:00:00:00"}};

// Each text is copied once.
inline void append(Words& words, std::string flag, std::string value) {
  words.push_back(std::move(flag));
  words.push_back(std::move(value));
}

}  // namespace quillonic::benchmarks
