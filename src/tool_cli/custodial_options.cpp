#include <quillonic/tool_cli/custodial_options.hpp>
#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/tool_cli/sanitizer.hpp>

#include <utility>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

constexpr auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;

// Whether the sanitizer calls a flag valid because of this one.
bool isFlag(std::string_view sanitized, CLICustodialFlag flag) {
  return sanitized.find(form.sanitize(cliFlag(flag))) != std::string_view::npos;
}

template <class Number> bool keep(std::optional<std::string_view> value, std::optional<Number>& target) {
  target = value ? number_text::read<Number>(*value) : std::nullopt;
  return target.has_value();
}

}  // namespace

CLICustodialOptions::Read CLICustodialOptions::read(ArgumentWords cliArgs) {
  const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(form), form);
  auto split = sanitizer.splitByValidity(cliArgs);
  std::optional<std::int32_t> processId;
  std::optional<std::int64_t> appNumber;
  bool isReadable = true;
  sanitizer.enumerateSanitizedCLIEntries(
      split.valid, [](std::string_view /*flag*/) { return CLISanitizationOptions::trimWhiteSpace; },
      [&](std::string_view flag, std::optional<std::string_view> value) {
        const bool kept =
            isFlag(flag, CLICustodialFlag::parentPid) ? keep(value, processId) : keep(value, appNumber);
        isReadable = isReadable && kept;
      },
      [](std::string_view, std::optional<std::string_view>) {});
  if (isReadable && processId) return {CLICustodialOptions(*processId, appNumber), std::move(split.rest)};
  Read all;
  for (std::size_t at = 0; at < cliArgs.size(); ++at) all.rest.push_back(cliArgs[at]);
  return all;
}

std::vector<std::string> CLICustodialOptions::orderedCLITexts() const {
  std::vector<std::string> words{std::string(cliFlag(CLICustodialFlag::parentPid)),
                                 std::to_string(parentProcessId)};
  if (parentAppNumber) {
    words.emplace_back(cliFlag(CLICustodialFlag::parentAppNumber));
    words.push_back(std::to_string(*parentAppNumber));
  }
  return words;
}

TextDictionary CLICustodialOptions::argumentLookup() const {
  const auto words = orderedCLITexts();
  TextDictionary lookup;
  for (std::size_t at = 0; at < words.size(); at += 2) lookup.emplace(words[at], words[at + 1]);
  return lookup;
}

}  // namespace quillonic
