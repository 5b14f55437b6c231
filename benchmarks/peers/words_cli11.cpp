#include <CLI/CLI.hpp>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

WordsReader reader(const CommandLine& line) {
  const auto app = std::make_shared<CLI::App>();
  const auto values = std::make_shared<Words>(line.flags.size());
  std::vector<CLI::Option*> options;
  app->set_help_flag();
  for (auto& value : *values) {
    options.push_back(app->add_option("--" + line.flags[options.size()], value)->take_last());
  }
  return {[=, &line] { app->parse(line.argc(), line.argv.data()); },
          [=, &line] {
            Words words;
            for (std::size_t i = 0; i < options.size(); ++i) {
              if (!options[i]->empty()) append(words, line.flagWords[i], (*values)[i]);
            }
            return words;
          }};
}

const bool added =
    addWordsReader({"CLI11", "less: normalises nothing, keeps no order; two hyphens", "--"}, reader);

}  // namespace
}  // namespace quillonic::benchmarks
