#include <llvm/Option/Arg.h>
#include <llvm/Option/ArgList.h>
#include <llvm/Option/OptTable.h>
#include <llvm/Option/Option.h>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

using llvm::opt::Option;

struct Table final : llvm::opt::OptTable {
  explicit Table(const std::vector<Info>& rows) : OptTable(rows) {}
};

std::vector<Table::Info> rowsOf(const CommandLine& line) {
  static constexpr const char* hyphen[] = {"-", nullptr};
  static constexpr const char* nothing[] = {nullptr};
  std::vector<Table::Info> rows;
  const auto add = [&](const char* const* prefixes, const char* name, unsigned char kind) {
    const auto id = static_cast<unsigned>(rows.size()) + 1;
    rows.push_back({prefixes, name, nullptr, nullptr, id, kind, 0, 0, 0, 0, nullptr, nullptr});
  };
  add(nothing, "<input>", Option::InputClass);
  add(nothing, "<unknown>", Option::UnknownClass);
  // In the table's own order: a name is before the ones that it begins with.
  std::map<std::string, const char*> names;
  for (const auto& flag : line.flags) names[flag + '\xFF'] = flag.c_str();
  for (const auto& [order, name] : names) add(hyphen, name, Option::SeparateClass);
  return rows;
}

WordsReader reader(const CommandLine& line) {
  const auto table = std::make_shared<const Table>(rowsOf(line));
  const auto read = std::make_shared<llvm::opt::InputArgList>();
  const auto parse = [=, &line] {
    unsigned missing = 0;
    unsigned count = 0;
    *read = table->ParseArgs({line.argv.data() + 1, line.words.size()}, missing, count);
  };
  return {parse, [=] {
            llvm::opt::ArgStringList rendered;
            for (const auto* argument : *read) argument->render(*read, rendered);
            return Words(rendered.begin(), rendered.end());
          }};
}

const bool added =
    addWordsReader({"LLVM OptTable", "less: points at the words, normalises nothing", "-", true}, reader);

}  // namespace
}  // namespace quillonic::benchmarks
