#include <getopt.h>
#include <optional>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

// Passes on what getopt finds: the flag's number and its value.
class Getopt {
 public:
  explicit Getopt(const CommandLine& line) : line_(line) {
    for (const auto& flag : line.flags) options_.push_back({flag.c_str(), required_argument, nullptr, 0});
    options_.push_back({nullptr, 0, nullptr, 0});
  }

  template <class Take> void read(Take take) const {
    // 0 restarts, whatever an earlier line left.
    optind = 0;
    opterr = 0;
    int flag = 0;
    while (getopt_long_only(line_.argc(), line_.argv.data(), "", options_.data(), &flag) == 0) {
      take(static_cast<std::size_t>(flag), optarg);
    }
  }

 private:
  const CommandLine& line_;
  std::vector<option> options_;
};

class Bare final : public WordsReader {
 public:
  explicit Bare(const CommandLine& line) : getopt_(line), values_(line.flags.size()) {}

  void parse() override {
    getopt_.read([&](std::size_t flag, const char* value) { values_[flag] = value; });
  }
  std::string value(std::size_t flag) const override { return values_[flag] ? values_[flag] : "nothing"; }
  void change(std::size_t flag, const std::string& value) override { values_[flag] = value.c_str(); }
  std::vector<std::string> emit() const override { return {}; }

 private:
  Getopt getopt_;
  std::vector<const char*> values_;
};

// What a program writes around getopt to own its values and write them back in order.
class Stored final : public WordsReader {
 public:
  using Values = std::vector<std::optional<std::string>>;

  explicit Stored(const CommandLine& line) : line_(line), getopt_(line) {}

  void parse() override {
    // Like a program that reads once.
    order_ = {};
    order_.reserve(line_.settings.size());
    values_ = Values(line_.flags.size());
    getopt_.read([&](std::size_t flag, const char* value) {
      if (!values_[flag]) order_.push_back(flag);
      values_[flag] = value;
    });
  }
  std::string value(std::size_t flag) const override { return values_[flag].value_or("nothing"); }
  void change(std::size_t flag, const std::string& value) override { values_[flag] = value; }
  std::vector<std::string> emit() const override {
    std::vector<std::string> words;
    words.reserve(2 * order_.size());
    for (const auto flag : order_) {
      words.push_back(line_.flagWords[flag]);
      words.push_back(*values_[flag]);
    }
    return words;
  }

 private:
  const CommandLine& line_;
  Getopt getopt_;
  std::vector<std::size_t> order_;
  Values values_;
};

const bool added =
    addWordsReader({.name = "getopt_long_only",
                    .parsing = "less: points at the words, stores and normalises nothing, keeps no order",
                    .writing = ""},
                   [](const CommandLine& line) { return std::make_unique<Bare>(line); }) &&
    addWordsReader({.name = "getopt_long_only, stored",
                    .parsing = "less: normalises nothing; values and order kept by code around it",
                    .writing = "written by code around it"},
                   [](const CommandLine& line) { return std::make_unique<Stored>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
