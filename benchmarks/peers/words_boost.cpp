#include <boost/program_options.hpp>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

namespace options = boost::program_options;

WordsReader reader(const CommandLine& line) {
  struct State {
    options::options_description known;
    options::parsed_options parsed{&known};
    options::variables_map values;
  };
  const auto state = std::make_shared<State>();
  for (const auto& flag : line.flags) state->known.add_options()(flag.c_str(), options::value<Words>(), "");
  const auto parse = [=, &line] {
    namespace style = options::command_line_style;
    constexpr int oneHyphen = (style::unix_style | style::allow_long_disguise) & ~style::allow_guessing;
    options::command_line_parser parser(line.argc(), line.argv.data());
    state->parsed = parser.options(state->known).style(oneHyphen).run();
    state->values.clear();
    options::store(state->parsed, state->values);
  };
  return {parse, [=] {
            Words words;
            words.reserve(2 * state->parsed.options.size());
            for (const auto& option : state->parsed.options) {
              append(words, "-" + option.string_key, option.value.front());
            }
            return words;
          }};
}

const bool added = addWordsReader({"Boost.Program_options", "less: normalises nothing"}, reader);

}  // namespace
}  // namespace quillonic::benchmarks
