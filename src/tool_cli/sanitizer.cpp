#include <quillonic/tool_cli/sanitizer.hpp>

#include <algorithm>
#include <utility>

#include "text/unicode.hpp"

namespace quillonic {

CLIArgumentSanitizer::CLIArgumentSanitizer(std::vector<std::string> validCommandFlags,
                                           std::optional<CLISanitizationOptions> flagSanitizationOptions)
    : validCommandFlags_(std::move(validCommandFlags)), options_(flagSanitizationOptions) {
  for (const auto& flag : validCommandFlags_) {
    if (!flag.empty()) lowered_.push_back(text::lowerCased(flag));
  }
}

// Calls `visit` for each flag with its sanitized text, its validity, its position, and the position after its
// last value. Skips words before the first flag.
template <class Visit> void CLIArgumentSanitizer::walk(ArgumentWords cliArgs, Visit visit) const {
  const auto options = options_.value_or(CLISanitizationOptions{});
  const auto isFlag = [&](std::size_t position) {
    auto word = cliArgs[position];
    if (options.contains(CLISanitizationOptions::trimWhiteSpace)) word = text::trimmed(word);
    return word.starts_with('-');
  };
  const auto nextFlag = [&](std::size_t position) {
    while (position < cliArgs.size() && !isFlag(position)) ++position;
    return position;
  };
  const auto isValid = [&](std::string_view flag) {
    const auto lowered = text::lowerCased(flag);
    const auto occurs = [&](const std::string& known) { return lowered.find(known) != std::string::npos; };
    return std::ranges::any_of(lowered_, occurs);
  };
  for (std::size_t at = nextFlag(0); at < cliArgs.size();) {
    const auto end = nextFlag(at + 1);
    const auto flag = options.sanitize(cliArgs[at]);
    visit(std::string_view(flag), isValid(flag), at, end);
    at = end;
  }
}

void CLIArgumentSanitizer::enumerateSanitizedCLIEntries(
    ArgumentWords cliArgs,
    FunctionRef<CLISanitizationOptions(std::string_view flag)> sanitizationOptionsCallback,
    PairBlock validPairBlock, PairBlock invalidPairBlock) const {
  walk(cliArgs, [&](std::string_view flag, bool valid, std::size_t position, std::size_t end) {
    const auto& block = valid ? validPairBlock : invalidPairBlock;
    const auto options = sanitizationOptionsCallback(flag);
    if (position + 1 == end) block(flag, std::nullopt);
    for (auto at = position + 1; at < end; ++at) {
      const auto value = options.sanitize(cliArgs[at]);
      block(flag, std::string_view(value));
    }
  });
}

CLIArgumentSanitizer::Split CLIArgumentSanitizer::splitByValidity(ArgumentWords cliArgs) const {
  Split split;
  std::size_t done = 0;
  const auto move = [&](std::vector<std::string_view>& target, std::size_t end) {
    for (; done < end; ++done) target.push_back(cliArgs[done]);
  };
  walk(cliArgs, [&](std::string_view /*flag*/, bool valid, std::size_t position, std::size_t end) {
    move(split.rest, position);
    move(valid ? split.valid : split.rest, end);
  });
  move(split.rest, cliArgs.size());
  return split;
}

}  // namespace quillonic
