#include <cxxopts.hpp>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

WordsReader reader(const CommandLine& line) {
  const auto options = std::make_shared<cxxopts::Options>("program");
  const auto result = std::make_shared<cxxopts::ParseResult>();
  for (const auto& flag : line.flags) options->add_options()(flag, "", cxxopts::value<std::string>());
  return {[=, &line] { *result = options->parse(line.argc(), line.argv.data()); },
          [=] {
            Words words;
            words.reserve(2 * result->arguments().size());
            for (const auto& argument : result->arguments())
              append(words, "--" + argument.key(), argument.value());
            return words;
          }};
}

const bool added = addWordsReader({"cxxopts", "less: normalises nothing; two hyphens", "--", true}, reader);

}  // namespace
}  // namespace quillonic::benchmarks
