// Readers of command lines with the same few operations.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic::benchmarks {

// A list of words in which a value follows every flag.
struct CommandLine {
  // With as many hyphens as the reader requires.
  std::vector<std::string> words;
  // Every flag that the reader must know, without hyphens: many more than a short line has.
  std::vector<std::string> flags;
  // With hyphens, for readers whose writing is code around them.
  std::vector<std::string> flagWords;
  // A flag of the line, by its position among all, and its final value. Each once, in order of first
  // appearance.
  struct Setting {
    std::size_t flag;
    std::string value;
  };
  std::vector<Setting> settings;
  // As `main` receives the words: after the program's name, with a trailing null pointer.
  mutable std::vector<char*> argv;

  int argc() const noexcept { return static_cast<int>(argv.size()) - 1; }
};

// A reader that knows the flags of one command line; they are declared on construction.
class WordsReader {
 public:
  WordsReader() = default;
  WordsReader(const WordsReader&) = delete;
  WordsReader& operator=(const WordsReader&) = delete;
  virtual ~WordsReader() = default;

  // Reads the words and forgets earlier ones.
  virtual void parse() = 0;
  // The value of the n-th of all flags, which is on the line.
  virtual std::string value(std::size_t flag) const = 0;
  virtual void change(std::size_t flag, const std::string& value) = 0;
  // The words that were read, in order if the reader keeps it.
  virtual std::vector<std::string> emit() const = 0;
};

inline constexpr std::size_t anyLength = 100'000;

struct WordsPeer {
  std::string name;
  // What it does less or more than the library when reading and writing.
  std::string parsing;
  // Empty if it cannot write words.
  std::string writing;
  std::string hyphens = "-";
  bool keepsOrder = true;
  // The longest lines it is given, of different flags and of repeated flags, if its time per word grows with
  // what it knows or has read.
  std::size_t longestOfDistinct = 1'000;
  std::size_t longestOfRepeated = anyLength;
};

using MakeReader = std::function<std::unique_ptr<WordsReader>(const CommandLine&)>;

// Always true, so that a peer's source can call it before `main`.
bool addWordsReader(const WordsPeer& peer, MakeReader make);

}  // namespace quillonic::benchmarks
