// What a programmer writes in an hour: the library's rules for words in ASCII, over standard containers.
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <cctype>

#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view space = " \t\n\v\f\r";
  const auto begin = text.find_first_not_of(space);
  return begin == text.npos ? "" : text.substr(begin, text.find_last_not_of(space) + 1 - begin);
}

std::string lowerCased(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lowered;
}

bool isValid(std::string_view flag) {
  static const auto known = [] {
    const auto all = TranscodeCliArguments::allKnownCommandFlags();
    std::vector<std::string_view> sorted(all.begin(), all.end());
    std::ranges::sort(sorted);
    return sorted;
  }();
  return std::ranges::binary_search(known, flag) ||
         std::ranges::any_of(known, [=](auto text) { return flag.find(text) != flag.npos; });
}

struct Settings {
  std::map<std::string, std::string, std::less<>> values, invalid;
  std::vector<std::string> order;

  void take(std::string_view flag, std::string_view value) {
    auto key = lowerCased(flag);
    const bool isPath = key.starts_with("-in") || key == "-out" || key == "-clut" ||
                        key == "-progress_file" || key == "-work_dir";
    auto text = isPath ? std::string(value) : lowerCased(value);
    if (!isValid(key)) {
      invalid[std::move(key)] = std::move(text);
    } else if (values.insert_or_assign(key, std::move(text)).second) {
      order.push_back(std::move(key));
    }
  }
};

WordsReader reader(const CommandLine& line) {
  const auto settings = std::make_shared<Settings>();
  const auto parse = [=, &line] {
    *settings = {};
    for (auto at = line.argv.begin() + 1; *at; ++at) {
      const auto word = trimmed(*at);
      const auto next = at[1] ? trimmed(at[1]) : "";
      if (word.starts_with('-')) settings->take(word, next.starts_with('-') ? "" : next);
    }
  };
  return {parse, [=] {
            Words words;
            words.reserve(2 * settings->order.size());
            for (const auto& flag : settings->order) append(words, flag, settings->values.at(flag));
            return words;
          }};
}

Words built() {
  Settings settings;
  const auto preset = orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud);
  for (std::size_t i = 0; i < preset.size(); i += 2) settings.take(preset[i], preset[i + 1]);
  for (const auto& [flag, value] : changes) settings.take(flag, value);
  Words words;
  words.reserve(2 * settings.values.size());
  for (const auto& [flag, value] : settings.values) append(words, flag, value);
  return words;
}

constexpr auto name = "standard containers by hand";
constexpr auto note = "less: ASCII only";
const bool added = addWordsReader({name, note, "-", true}, reader) && addBuilder(name, note, built);

}  // namespace
}  // namespace quillonic::benchmarks
