#include <quillonic/transcode_cli/option_changes.hpp>

#include <algorithm>

#include "support/prefixed.hpp"
#include "text/pieces.hpp"
#include "transcode_cli/known_flags.hpp"
#include "transcode_cli/option_texts.hpp"

namespace quillonic {
namespace {

// Flags that stand for those numbered under them.
constexpr std::string_view prefixFlags[] = {VAVInputPrefixFlag, VAVAudioIgnoreTracksPrefixFlag};

bool isNumbered(std::string_view flag) noexcept {
  return std::ranges::any_of(prefixFlags, [&](auto prefix) { return flag.starts_with(prefix); });
}

bool equal(const TextDictionary& a, const TextDictionary& b, std::string_view prefix) {
  const PrefixedEntries inA(a, prefix);
  const PrefixedEntries inB(b, prefix);
  return std::equal(inA.begin(), inA.end(), inB.begin(), inB.end());
}

void removePrefixed(TranscodeCliArguments& arguments, std::string_view prefix) {
  if (prefix == VAVInputPrefixFlag) arguments.setInputFileGroups(InputFileGroups());
  if (prefix == VAVAudioIgnoreTracksPrefixFlag) arguments.setIgnoredAudioTracks({});
}

std::optional<std::string> textOf(const TextDictionary& lookup, std::string_view flag) {
  const auto entry = lookup.find(flag);
  return entry != lookup.end() ? std::optional(entry->second) : std::nullopt;
}

}  // namespace

TranscodeOptionChanges TranscodeOptionChanges::between(const TranscodeCliArguments& before,
                                                       const TranscodeCliArguments& after) {
  const auto& was = before.flagValueLookup();
  const auto& is = after.flagValueLookup();
  TranscodeOptionChanges changes;
  for (const auto prefix : prefixFlags) {
    if (equal(was, is, prefix)) continue;
    changes.change(prefix, textOf(is, prefix));
    for (const auto& [flag, value] : PrefixedEntries(is, prefix)) {
      if (flag != prefix) changes.set(flag, value);
    }
  }
  for (const auto& [flag, value] : is) {
    if (!isNumbered(flag) && textOf(was, flag) != value) changes.set(flag, value);
  }
  for (const auto& [flag, value] : was) {
    if (!isNumbered(flag) && !is.contains(flag)) changes.remove(flag);
  }
  return changes;
}

bool TranscodeOptionChanges::change(std::string_view flag, std::optional<std::string> value) {
  auto key = text::lowerCased(text::trimmed(flag));
  if (!known_flags::isValid(key)) return false;
  if (std::ranges::find(prefixFlags, key) != std::end(prefixFlags)) {
    std::erase_if(byFlag_, [&](const auto& entry) { return entry.first.starts_with(key); });
  }
  byFlag_.insert_or_assign(std::move(key), std::move(value));
  return true;
}

bool TranscodeOptionChanges::set(std::string_view flag, std::string_view value) {
  return change(flag, std::string(value));
}

bool TranscodeOptionChanges::set(std::string_view flag, DecimalNumber value) {
  auto text = option_texts::written(static_cast<double>(value));
  return text && change(flag, std::move(text));
}

bool TranscodeOptionChanges::set(std::string_view flag, const FrameSize& value) {
  auto text = option_texts::written(value);
  return text && change(flag, std::move(text));
}

bool TranscodeOptionChanges::set(std::string_view flag, const Color& value) {
  auto text = option_texts::written(value);
  return text && change(flag, std::move(text));
}

bool TranscodeOptionChanges::setInteger(std::string_view flag, std::int64_t value) {
  auto text = option_texts::written(value);
  return text && change(flag, std::move(text));
}

bool TranscodeOptionChanges::setIgnoredAudioTracks(const std::vector<std::int64_t>& tracks) {
  if (std::ranges::any_of(tracks, [](auto track) { return track < 0; })) return false;
  TranscodeCliArguments model;
  model.setIgnoredAudioTracks(tracks);
  remove(VAVAudioIgnoreTracksPrefixFlag);
  for (const auto& [flag, value] : model.flagValueLookup()) set(flag, value);
  return true;
}

bool TranscodeOptionChanges::remove(std::string_view flag) {
  return change(flag, std::nullopt);
}

void TranscodeOptionChanges::forget(std::string_view flag) {
  byFlag_.erase(text::lowerCased(text::trimmed(flag)));
}

void TranscodeOptionChanges::add(const TranscodeOptionChanges& later) {
  if (&later == this) return;
  for (const auto& [flag, value] : later.byFlag_) change(flag, value);
}

void TranscodeOptionChanges::apply(TranscodeCliArguments& arguments) const {
  for (const auto& [flag, value] : byFlag_) {
    removePrefixed(arguments, flag);  // a prefix is ordered before its numbers
    arguments.setArgumentFlagValue(flag, value);
  }
  if (!byFlag_.contains(VAVTimecodeCustomFlag) && !byFlag_.contains(VAVTimecodeIsDropFlag)) return;
  const auto drop = textOf(arguments.flagValueLookup(), VAVTimecodeIsDropFlag);
  arguments.setTimecodeIsDropFrame(drop.has_value());
  arguments.setArgumentFlagValue(VAVTimecodeIsDropFlag, drop);  // the setter empties a switch's text
}

std::string TranscodeOptionChanges::description() const {
  std::string line;
  for (const auto& [flag, value] : byFlag_) {
    line.append(line.empty() ? "" : ", ").append(value ? "set " : "remove ").append(flag);
    if (value && !value->empty()) line.append(" ").append(*value);
  }
  return text::printable(line);
}

CodedValue TranscodeOptionChanges::encode() const {
  CodedRecord record;
  for (const auto& [flag, value] : byFlag_) record.add(flag, value ? CodedValue(*value) : CodedValue());
  return record;
}

TranscodeOptionChanges TranscodeOptionChanges::from(const CodedValue& coded) {
  // In order of the flags, because an archive may have another one.
  ByFlag found;
  for (const auto& [flag, value] : coded.require<CodedRecord>().members()) {
    const bool isRemoved = std::holds_alternative<std::monostate>(value.alternatives());
    found.emplace(flag, isRemoved ? std::nullopt : std::optional(value.require<std::string>(flag)));
  }
  TranscodeOptionChanges changes;
  for (auto& [flag, value] : found) {
    if (!changes.change(flag, std::move(value))) throw DecodingError(flag, "the flag is not valid");
  }
  return changes;
}

}  // namespace quillonic
