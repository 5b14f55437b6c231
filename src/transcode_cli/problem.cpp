#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/problem.hpp>

#include <algorithm>
#include <utility>

#include "text/number_text.hpp"
#include "text/pieces.hpp"
#include "text/unicode.hpp"
#include "transcode_cli/known_flags.hpp"
#include "transcode_cli/option_texts.hpp"

namespace quillonic {
namespace {

using Kind = TranscodeProblemKind;

// Whether the flag is a prefix with numbers after it, "-in_0_2".
bool isNumbered(std::string_view flag, std::string_view prefix, int numbers) noexcept {
  if (!flag.starts_with(prefix)) return false;
  auto pieces = text::split(flag.substr(prefix.size()), '_');
  if (!pieces.next().value_or("-").empty()) return false;
  int found = 0;
  while (const auto piece = pieces.next()) {
    if (!number_text::read<std::int64_t>(*piece)) return false;
    ++found;
  }
  return found == numbers;
}

// The row of a flag, also of a numbered one; null for a flag that only contains a known one.
const TranscodeFlagRow* rowOf(std::string_view flag) noexcept {
  if (isNumbered(flag, VAVInputPrefixFlag, 2)) return transcodeFlagRow(VAVInputPrefixFlag);
  if (isNumbered(flag, VAVAudioIgnoreTracksPrefixFlag, 1)) {
    return transcodeFlagRow(VAVAudioIgnoreTracksPrefixFlag);
  }
  return transcodeFlagRow(flag);
}

bool isFixedValue(const TranscodeFlagRow& row, std::string_view value) {
  const auto wanted = text::lowerCased(text::trimmed(value));
  return std::ranges::any_of(row.fixedValues, [&](auto known) { return text::lowerCased(known) == wanted; });
}

// What the flag takes, for people.
std::string expectedBy(const TranscodeFlagRow& row) {
  if (!row.fixedValues.empty()) {
    std::string list;
    for (const auto value : row.fixedValues) list.append(list.empty() ? "one of " : ", ").append(value);
    return list;
  }
  switch (row.valueKind) {
    case FlagValueKind::none:
      return "nothing after a switch";
    case FlagValueKind::path:
      return "a path";
    case FlagValueKind::text:
    case FlagValueKind::listed:
      return "a text";
    case FlagValueKind::timecode:
      return "a timecode, as in 01:00:00:00";
    case FlagValueKind::integer:
      return "a whole number";
    case FlagValueKind::decimal:
      return "a decimal number";
    case FlagValueKind::size:
      return "a frame size, as in 960x540";
    case FlagValueKind::color:
      return "a colour, as in 255,0,0";
  }
  return {};
}

bool isReadable(const TranscodeFlagRow& row, const std::string& value) {
  if (!row.fixedValues.empty()) return isFixedValue(row, value);
  switch (row.valueKind) {
    case FlagValueKind::none:
      return value.empty();
    case FlagValueKind::path:
      return !value.empty();
    case FlagValueKind::text:
    case FlagValueKind::listed:
      return true;
    case FlagValueKind::timecode:
      return TimecodeComponents::fromTimecode(text::trimmed(value)).has_value();
    case FlagValueKind::integer:
      return option_texts::read<std::int64_t>(value).has_value();
    case FlagValueKind::decimal:
      return option_texts::read<double>(value).has_value();
    case FlagValueKind::size:
      return option_texts::read<FrameSize>(value).has_value();
    case FlagValueKind::color:
      return option_texts::read<Color>(value).has_value();
  }
  return true;
}

// What a tool reads when it is started with the words. The system ends each at its first NUL.
TextDictionary readByTool(const std::vector<std::string>& words) {
  std::vector<const char*> texts;
  texts.reserve(words.size());
  for (const auto& word : words) texts.push_back(word.c_str());
  return TranscodeCliArguments(texts).flagValueLookup();
}

// A text in quotation marks, on one line.
std::string inMarks(std::string_view text) {
  return '"' + text::printable(text) + '"';
}

}  // namespace

std::vector<TranscodeProblem> TranscodeCliArguments::problems() const {
  std::vector<TranscodeProblem> problems;
  const auto arrived = readByTool(launchArguments());
  for (const auto& [flag, value] : flagValueLookup_) {
    const auto* row = rowOf(flag);
    if (!row) {
      problems.push_back({Kind::containedFlag, flag, value, std::string(known_flags::containedIn(flag)), {}});
    } else if (!isReadable(*row, value)) {
      problems.push_back({Kind::unreadableValue, flag, value, expectedBy(*row), {}});
    }
    const auto there = arrived.find(flag);
    if (there == arrived.end()) {
      problems.push_back({Kind::changedOnArrival, flag, value, {}, std::nullopt});
    } else if (there->second != value &&
               !(row && text::lowerCased(value) == there->second && isFixedValue(*row, value))) {
      problems.push_back({Kind::changedOnArrival, flag, value, {}, there->second});
    }
  }
  for (const auto& [flag, value] : invalidKeyValueLookup_) {
    problems.push_back({Kind::unknownFlag, flag, value, {}, {}});
  }
  return problems;
}

std::string TranscodeProblem::description() const {
  auto line = text::printable(flag) + ": ";
  switch (kind) {
    case Kind::unknownFlag:
      return line + "no flag of the transcoder";
    case Kind::containedFlag:
      return line + "no flag of the transcoder, although it contains " + expected;
    case Kind::unreadableValue:
      return line + "found " + inMarks(value) + ", expected " + expected;
    case Kind::changedOnArrival:
      return arrivesAs ? line + inMarks(value) + " arrives as " + inMarks(*arrivesAs)
                       : line + "does not arrive";
  }
  return line;
}

}  // namespace quillonic
