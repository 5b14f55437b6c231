#include <CLI/CLI.hpp>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

class Cli11 final : public WordsReader {
 public:
  explicit Cli11(const CommandLine& line) : line_(line), values_(line.flags.size()) {
    app_.set_help_flag();
    for (std::size_t i = 0; i < line.flags.size(); ++i) {
      options_.push_back(app_.add_option("--" + line.flags[i], values_[i])->take_last());
    }
  }

  void parse() override { app_.parse(line_.argc(), line_.argv.data()); }
  std::string value(std::size_t flag) const override { return values_[flag]; }
  void change(std::size_t flag, const std::string& value) override {
    options_[flag]->clear();
    options_[flag]->add_result(value);
  }
  std::vector<std::string> emit() const override {
    std::vector<std::string> words;
    words.reserve(2 * line_.settings.size());
    for (std::size_t i = 0; i < options_.size(); ++i) {
      if (options_[i]->empty()) continue;
      words.push_back(line_.flagWords[i]);
      words.push_back(options_[i]->results().back());
    }
    return words;
  }

 private:
  const CommandLine& line_;
  CLI::App app_;
  std::vector<std::string> values_;
  std::vector<CLI::Option*> options_;
};

const bool added = addWordsReader({.name = "CLI11",
                                   .parsing = "less: normalises nothing; two hyphens before a flag",
                                   .writing = "written in the order of its table by code around it",
                                   .hyphens = "--",
                                   .keepsOrder = false},
                                  [](const CommandLine& line) { return std::make_unique<Cli11>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
