// Readers of command lines, each behind the same few operations.
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
  // With as many hyphens as its reader asks for.
  std::vector<std::string> words;
  // Every flag that the reader has to know, without hyphens: many more than stand on a short line.
  std::vector<std::string> flags;
  // The same with hyphens, for readers whose writing is code around them.
  std::vector<std::string> flagWords;
  // A flag of the line, by its place among all, and the value that holds in the end. Each once, in the order in which
  // they first stand.
  struct Setting {
    std::size_t flag;
    std::string value;
  };
  std::vector<Setting> settings;
  // As `main` receives the words: the program's name before them, a null pointer behind.
  mutable std::vector<char*> argv;

  int argc() const noexcept { return static_cast<int>(argv.size()) - 1; }
};

// A reader that knows the flags of one command line; they are declared when it is made.
class WordsReader {
 public:
  WordsReader() = default;
  WordsReader(const WordsReader&) = delete;
  WordsReader& operator=(const WordsReader&) = delete;
  virtual ~WordsReader() = default;

  // Reads the words and forgets what it read before.
  virtual void parse() = 0;
  // The value of the n-th of all flags, which stands on the line.
  virtual std::string value(std::size_t flag) const = 0;
  virtual void change(std::size_t flag, const std::string& value) = 0;
  // The words that hold what was read, in its order where the reader knows it.
  virtual std::vector<std::string> emit() const = 0;
};

inline constexpr std::size_t anyLength = 100'000;

struct WordsPeer {
  std::string name;
  // What it does less or more than the library, when it reads and when it writes.
  std::string parsing;
  // Empty where it cannot write words.
  std::string writing;
  std::string hyphens = "-";
  bool keepsOrder = true;
  // The longest lines that it is given, of flags that differ and of flags repeated, where its time for a word grows
  // with what it knows or has read.
  std::size_t longestOfDistinct = 1'000;
  std::size_t longestOfRepeated = anyLength;
};

using MakeReader = std::function<std::unique_ptr<WordsReader>(const CommandLine&)>;

// Always true, so that a peer's source can call it before `main`.
bool addWordsReader(const WordsPeer& peer, MakeReader make);

}  // namespace quillonic::benchmarks
