#include <glib.h>
#include <stdexcept>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

class OptionContext final : public WordsReader {
 public:
  explicit OptionContext(const CommandLine& line) : line_(line), values_(line.flags.size()) {
    for (std::size_t i = 0; i < line.flags.size(); ++i) {
      entries_.push_back(
          {line.flags[i].c_str(), 0, 0, G_OPTION_ARG_STRING, static_cast<void*>(&values_[i]), "", nullptr});
    }
    entries_.push_back({});
  }
  ~OptionContext() override { forget(); }

  void parse() override {
    forget();
    // It removes what it reads from the list.
    auto words = line_.argv;
    int count = line_.argc();
    char** list = words.data();
    auto* const context = g_option_context_new(nullptr);
    g_option_context_set_help_enabled(context, FALSE);
    g_option_context_add_main_entries(context, entries_.data(), nullptr);
    const bool isRead = g_option_context_parse(context, &count, &list, nullptr) != FALSE;
    g_option_context_free(context);
    if (!isRead) throw std::runtime_error("cannot read the words");
  }
  std::string value(std::size_t flag) const override { return values_[flag] ? values_[flag] : "nothing"; }
  void change(std::size_t flag, const std::string& value) override {
    g_free(values_[flag]);
    values_[flag] = g_strdup(value.c_str());
  }
  std::vector<std::string> emit() const override {
    std::vector<std::string> words;
    words.reserve(2 * line_.settings.size());
    for (std::size_t i = 0; i < values_.size(); ++i) {
      if (!values_[i]) continue;
      words.push_back(line_.flagWords[i]);
      words.emplace_back(values_[i]);
    }
    return words;
  }

 private:
  void forget() {
    for (auto& value : values_) g_clear_pointer(&value, g_free);
  }

  const CommandLine& line_;
  std::vector<char*> values_;
  std::vector<GOptionEntry> entries_;
};

const bool added = addWordsReader(
    {.name = "GLib GOptionContext",
     .parsing = "less: normalises nothing, keeps no order; two hyphens before a flag; a context reads once, "
                "so it is told of the flags each time",
     .writing = "written in the order of its table by code around it",
     .hyphens = "--",
     .keepsOrder = false},
    [](const CommandLine& line) { return std::make_unique<OptionContext>(line); });

}  // namespace
}  // namespace quillonic::benchmarks
