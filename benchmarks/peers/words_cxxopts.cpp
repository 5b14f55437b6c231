#include <cxxopts.hpp>
#include <optional>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

class Cxxopts final : public WordsReader {
 public:
  explicit Cxxopts(const CommandLine& line) : line_(line) {
    auto add = options_.add_options();
    for (const auto& flag : line.flags) add(flag, "", cxxopts::value<std::string>());
  }

  void parse() override {
    changed_.reset();
    result_ = options_.parse(line_.argc(), line_.argv.data());
  }
  std::string value(std::size_t flag) const override { return result_[line_.flags[flag]].as<std::string>(); }
  void change(std::size_t flag, const std::string& value) override {
    changed_.emplace(line_.flags[flag], value);
  }
  std::vector<std::string> emit() const override {
    std::vector<std::string> words;
    words.reserve(2 * result_.arguments().size());
    for (const auto& argument : result_.arguments()) {
      words.push_back("--" + argument.key());
      words.push_back(changed_ && changed_->first == argument.key() ? changed_->second : argument.value());
    }
    return words;
  }

 private:
  const CommandLine& line_;
  cxxopts::Options options_{"program"};
  cxxopts::ParseResult result_;
  // What it has read cannot be changed.
  std::optional<std::pair<std::string, std::string>> changed_;
};

const bool added = addWordsReader({.name = "cxxopts",
                                   .parsing = "less: normalises nothing; two hyphens before a flag",
                                   .writing = "changes nothing; written by code around its list",
                                   .hyphens = "--",
                                   .longestOfDistinct = anyLength},
                                  [](const CommandLine& line) { return std::make_unique<Cxxopts>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
