#include <algorithm>
#include <llvm/Option/Arg.h>
#include <llvm/Option/ArgList.h>
#include <llvm/Option/OptTable.h>
#include <llvm/Option/Option.h>
#include <numeric>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

using llvm::opt::InputArgList;
using llvm::opt::Option;
using llvm::opt::OptTable;

constexpr unsigned inputId = 1;
constexpr unsigned unknownId = 2;
constexpr unsigned firstId = 3;

// The table's own order: a name precedes its prefixes.
bool standsBefore(std::string_view a, std::string_view b) {
  const auto common = std::min(a.size(), b.size());
  const int order = a.substr(0, common).compare(b.substr(0, common));
  return order != 0 ? order < 0 : a.size() > b.size();
}

class Table final : public OptTable {
 public:
  explicit Table(const std::vector<Info>& rows) : OptTable(rows) {}
};

std::vector<std::size_t> sortedFlags(const CommandLine& line) {
  std::vector<std::size_t> flags(line.flags.size());
  std::iota(flags.begin(), flags.end(), std::size_t{0});
  std::ranges::sort(flags, standsBefore,
                    [&](std::size_t flag) { return std::string_view(line.flags[flag]); });
  return flags;
}

std::vector<OptTable::Info> rowsOf(const CommandLine& line, const std::vector<std::size_t>& flags) {
  static constexpr const char* hyphen[] = {"-", nullptr};
  static constexpr const char* nothing[] = {nullptr};
  const auto row = [](const char* const* prefixes, const char* name, unsigned id, unsigned kind) {
    return OptTable::Info{prefixes, name, nullptr, nullptr, id,      static_cast<unsigned char>(kind),
                          0,        0,    0,       0,       nullptr, nullptr};
  };
  std::vector<OptTable::Info> rows{row(nothing, "<input>", inputId, Option::InputClass),
                                   row(nothing, "<unknown>", unknownId, Option::UnknownClass)};
  for (const auto flag : flags) {
    rows.push_back(
        row(hyphen, line.flags[flag].c_str(), static_cast<unsigned>(rows.size()) + 1, Option::SeparateClass));
  }
  return rows;
}

class Llvm final : public WordsReader {
 public:
  explicit Llvm(const CommandLine& line) : line_(line), table_(rowsOf(line, sortedFlags(line))) {
    const auto flags = sortedFlags(line);
    ids_.resize(flags.size());
    for (std::size_t i = 0; i < flags.size(); ++i) ids_[flags[i]] = firstId + static_cast<unsigned>(i);
  }

  void parse() override {
    unsigned missing = 0;
    unsigned count = 0;
    read_ = table_.ParseArgs({line_.argv.data() + 1, line_.words.size()}, missing, count);
  }
  std::string value(std::size_t flag) const override {
    return read_.getLastArgValue(ids_[flag], "nothing").str();
  }
  void change(std::size_t flag, const std::string& value) override {
    read_.getLastArg(ids_[flag])->getValues().front() = read_.MakeArgString(value);
  }
  std::vector<std::string> emit() const override {
    llvm::opt::ArgStringList rendered;
    for (const auto* argument : read_) argument->render(read_, rendered);
    return {rendered.begin(), rendered.end()};
  }

 private:
  const CommandLine& line_;
  Table table_;
  std::vector<unsigned> ids_;
  InputArgList read_;
};

const bool added = addWordsReader({.name = "LLVM OptTable",
                                   .parsing = "less: points at the words, normalises nothing",
                                   .writing = "renders the words it points at",
                                   .longestOfDistinct = anyLength},
                                  [](const CommandLine& line) { return std::make_unique<Llvm>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
