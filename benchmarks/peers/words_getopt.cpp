#include <getopt.h>
#include <optional>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

// What a program writes around getopt to have values of its own and to write them back in their order.
WordsReader reader(const CommandLine& line) {
  struct State {
    std::vector<option> options;
    std::vector<std::size_t> order;
    std::vector<std::optional<std::string>> values;
  };
  const auto state = std::make_shared<State>();
  for (const auto& flag : line.flags) state->options.push_back({flag.c_str(), required_argument, nullptr, 0});
  state->options.push_back({nullptr, 0, nullptr, 0});
  const auto parse = [=, &line] {
    state->order.clear();
    state->values = std::vector<std::optional<std::string>>(line.flags.size());
    // 0 starts afresh, whatever an earlier line left.
    optind = 0;
    opterr = 0;
    int found = 0;
    while (getopt_long_only(line.argc(), line.argv.data(), "", state->options.data(), &found) == 0) {
      const auto flag = static_cast<std::size_t>(found);
      if (!state->values[flag]) state->order.push_back(flag);
      state->values[flag] = optarg;
    }
  };
  return {parse, [=, &line] {
            Words words;
            words.reserve(2 * state->order.size());
            for (const auto flag : state->order) append(words, line.flagWords[flag], *state->values[flag]);
            return words;
          }};
}

const bool added = addWordsReader({"getopt_long_only, stored", "less: normalises nothing"}, reader);

}  // namespace
}  // namespace quillonic::benchmarks
