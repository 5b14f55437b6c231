// The number of an option set on the first line, the valid flags up to an empty line, then the words.
#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/sanitizer.hpp>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Words = std::vector<std::string_view>;

std::string lowered(std::string_view text) {
  return CLISanitizationOptions::lowercase.sanitize(text);
}

// The words that follow a flag, and what the flag is.
struct Group {
  std::string flag;
  bool isValid;
  Words words;
};

// Splits the list in the simplest way.
std::vector<Group> groupsOf(const Words& words, const std::vector<std::string>& valid,
                            CLISanitizationOptions options) {
  std::vector<Group> groups;
  for (const auto word : words) {
    auto flag = options.sanitize(word);
    if (flag.starts_with('-')) {
      const auto low = lowered(flag);
      const bool isValid = std::ranges::any_of(valid, [&](const std::string& text) {
        return !text.empty() && low.find(lowered(text)) != std::string::npos;
      });
      groups.push_back({std::move(flag), isValid, {word}});
    } else if (!groups.empty()) {
      groups.back().words.push_back(word);
    }
  }
  return groups;
}

class Lists final : public CliArgumentStore {
 public:
  std::vector<std::string> orderedCLITexts() const override { return {}; }
  TextDictionary argumentLookup() const override { return {}; }
};

void checkList(const Words& words) {
  const Lists lists;
  const auto isPlain = [&](std::string_view word) {
    return word.find_first_of("[ ") == std::string_view::npos;
  };
  Words plain;
  std::ranges::copy_if(words, std::back_inserter(plain), isPlain);
  if (plain.empty()) return;
  Words read;
  const auto list = lists.buildCLIList(plain);
  lists.enumerateListValues(list, [&](std::string_view value) { read.push_back(value); });
  require(read == plain, "a list reads back");
}

}  // namespace

void run(std::string_view bytes) {
  const auto all = lines(bytes);
  auto line = all.begin();
  std::int64_t number = 0;
  if (line != all.end()) {
    for (const char c : *line++) number = (number * 10 + c) % 8;
  }
  const CLISanitizationOptions options(number);
  // Each flag's values have options of their own.
  const auto valueOptions = [&](std::string_view flag) {
    return CLISanitizationOptions(number + static_cast<std::int64_t>(flag.size()));
  };
  std::vector<std::string> valid;
  for (; line != all.end() && !line->empty(); ++line) valid.emplace_back(*line);
  if (line != all.end()) ++line;
  const Words words(line, all.end());

  for (const auto word : words) {
    const auto sanitized = options.sanitize(word);
    require(options.sanitize(sanitized) == sanitized, "a sanitized text stays as it is");
  }

  struct Report {
    std::string flag;
    std::optional<std::string> value;
    bool isValid;

    bool operator==(const Report&) const = default;
  };
  const auto groups = groupsOf(words, valid, options);
  std::vector<Report> expected;
  CLIArgumentSanitizer::Split split;
  auto rest = words.begin();
  for (; rest != words.end() && !options.sanitize(*rest).starts_with('-'); ++rest)
    split.rest.push_back(*rest);
  for (const auto& [flag, isValid, parts] : groups) {
    if (parts.size() == 1) expected.push_back({flag, std::nullopt, isValid});
    for (std::size_t i = 1; i < parts.size(); ++i) {
      expected.push_back({flag, valueOptions(flag).sanitize(parts[i]), isValid});
    }
    auto& side = isValid ? split.valid : split.rest;
    side.insert(side.end(), parts.begin(), parts.end());
  }

  std::vector<Report> reports;
  std::size_t asked = 0;
  const auto report = [&](bool isValid) {
    return [&reports, isValid](std::string_view flag, std::optional<std::string_view> value) {
      reports.push_back(
          {std::string(flag), value ? std::optional<std::string>(*value) : std::nullopt, isValid});
    };
  };
  const CLIArgumentSanitizer sanitizer(valid, options);
  sanitizer.enumerateSanitizedCLIEntries(
      words,
      [&](std::string_view flag) {
        ++asked;
        return valueOptions(flag);
      },
      report(true), report(false));
  require(reports == expected, "the walk reports each flag with each of its values");
  require(asked == groups.size(), "the walk asks once per flag");
  const auto [validWords, otherWords] = sanitizer.splitByValidity(words);
  require(validWords == split.valid && otherWords == split.rest, "each word goes to one side, in order");
  checkList(words);
}

}  // namespace quillonic::fuzz
