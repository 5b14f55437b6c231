#include <boost/program_options.hpp>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

namespace options = boost::program_options;
using Values = std::vector<std::string>;

class ProgramOptions final : public WordsReader {
 public:
  explicit ProgramOptions(const CommandLine& line) : line_(line) {
    auto add = known_.add_options();
    for (const auto& flag : line.flags) add(flag.c_str(), options::value<Values>(), "");
  }

  void parse() override {
    namespace style = options::command_line_style;
    constexpr int oneHyphen = (style::unix_style | style::allow_long_disguise) & ~style::allow_guessing;
    parsed_ =
        options::command_line_parser(line_.argc(), line_.argv.data()).options(known_).style(oneHyphen).run();
    values_.clear();
    options::store(parsed_, values_);
  }
  std::string value(std::size_t flag) const override {
    return values_[line_.flags[flag]].as<Values>().back();
  }
  void change(std::size_t flag, const std::string& value) override {
    for (auto& option : parsed_.options) {
      if (option.string_key == line_.flags[flag]) option.value.front() = value;
    }
  }
  std::vector<std::string> emit() const override {
    std::vector<std::string> words;
    words.reserve(2 * parsed_.options.size());
    for (const auto& option : parsed_.options) {
      words.push_back("-" + option.string_key);
      words.push_back(option.value.front());
    }
    return words;
  }

 private:
  const CommandLine& line_;
  options::options_description known_;
  options::parsed_options parsed_{&known_};
  options::variables_map values_;
};

const bool added =
    addWordsReader({.name = "Boost.Program_options",
                    .parsing = "less: normalises nothing",
                    .writing = "written by code around its list",
                    .longestOfRepeated = 1'000},
                   [](const CommandLine& line) { return std::make_unique<ProgramOptions>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
