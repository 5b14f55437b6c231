#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/number_text.hpp"
#include "platform/text.hpp"
#include "support/scratch.hpp"
#include "transcode_cli/intake.hpp"
#include "transcode_cli/known_flags.hpp"

namespace quillonic {
namespace {

constexpr std::string_view lookupKey = "flagValueLookup";
constexpr std::string_view orderKey = "orderedFlags";
constexpr std::string_view invalidKey = "invalidKeyValueLookup";

// A word is a flag when it begins with a hyphen once it is trimmed; lower-casing does not change that.
constexpr bool isFlag(std::string_view trimmed) noexcept {
  return trimmed.starts_with('-');
}

struct NumberedFile {
  std::int64_t group;
  std::int64_t position;
  std::string_view path;

  auto place() const noexcept { return std::pair(group, position); }
};

// Reads "-in_<group>_<position>".
std::optional<NumberedFile> numberedFile(const TextDictionary::Entry& entry) noexcept {
  std::string_view rest = entry.key;
  rest.remove_prefix(VAVInputPrefixFlag.rawValue().size());
  if (!rest.starts_with('_')) return std::nullopt;
  rest.remove_prefix(1);
  const auto divide = rest.find('_');
  if (divide == std::string_view::npos) return std::nullopt;
  const auto group = number_text::read<std::int64_t>(rest.substr(0, divide));
  const auto position = number_text::read<std::int64_t>(rest.substr(divide + 1));
  if (!group || !position) return std::nullopt;
  return NumberedFile{*group, *position, entry.value};
}

TextDictionary numberedEntries(const InputFileGroups& groups) {
  std::vector<TextDictionary::Entry> entries;
  for (const auto& [group, files] : groups) {
    const auto prefix = std::string(VAVInputPrefixFlag) + "_" + std::to_string(group) + "_";
    for (std::size_t position = 0; position < files.size(); ++position) {
      entries.emplace_back(prefix + std::to_string(position), files[position]);
    }
  }
  return TextDictionary(std::move(entries));
}

// The file of an "-in" without numbers; null when there is none.
const std::string* plainInputFile(const TextDictionary& lookup) noexcept {
  const auto* plain = lookup.find(VAVInputPrefixFlag);
  return plain && !plain->value.empty() ? &plain->value : nullptr;
}

// Copies a text that is as long as a number, or up to twice as long: as two numbers, which may overlap.
template <class Number> void copyAsTwo(char* to, std::string_view text) noexcept {
  Number first;
  Number last;
  std::memcpy(&first, text.data(), sizeof first);
  std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
  std::memcpy(to, &first, sizeof first);
  std::memcpy(to + text.size() - sizeof last, &last, sizeof last);
}

// Adds a copy, for which there must be room. Most words are so short that a call would take longer than the copying.
void append(std::vector<std::string>& words, std::string_view text) {
  if (words.size() == words.capacity()) __builtin_unreachable();
  constexpr std::size_t shortText = 15;  // what strings hold without an allocation
  if (text.size() > shortText) {
    words.emplace_back(text);
    return;
  }
  auto& word = words.emplace_back(shortText, '\0');
  if (text.size() >= sizeof(std::uint64_t)) {
    copyAsTwo<std::uint64_t>(word.data(), text);
  } else if (text.size() >= sizeof(std::uint32_t)) {
    copyAsTwo<std::uint32_t>(word.data(), text);
  } else if (!text.empty()) {
    copyAsTwo<char>(word.data(), text);
    word[text.size() / 2] = text[text.size() / 2];
  }
  word.resize(text.size());
}

CodedRecord coded(const TextDictionary& lookup) {
  CodedRecord record;
  for (const auto& [key, value] : lookup) record.add(key, value);
  return record;
}

TextDictionary decoded(const CodedRecord& record) {
  std::vector<TextDictionary::Entry> entries;
  entries.reserve(record.members().size());
  // Backwards, since a record gives the first of equal keys and a dictionary keeps the last.
  const auto& members = record.members();
  std::for_each(members.rbegin(), members.rend(), [&](const CodedMember& member) {
    entries.emplace_back(member.key, member.value.require<std::string>(member.key));
  });
  return TextDictionary(std::move(entries));
}

}  // namespace

void TranscodeCliArguments::FlagOrder::reserve(std::size_t flags) {
  constexpr std::size_t usualLength = 12;
  flags_.reserve(flags * usualLength);
  marks_.reserve(flags);
}

void TranscodeCliArguments::FlagOrder::append(std::string_view flag) {
  flags_.append(flag);
  marks_.push_back({flags_.size(), 0});
}

void TranscodeCliArguments::FlagOrder::setEntryPosition(std::size_t position,
                                                        std::size_t entryPosition) noexcept {
  marks_[position].entryPosition = entryPosition;
}

TranscodeCliArguments::TranscodeCliArguments() = default;
TranscodeCliArguments::TranscodeCliArguments(TranscodeCliArguments&&) noexcept = default;
TranscodeCliArguments& TranscodeCliArguments::operator=(TranscodeCliArguments&&) noexcept = default;
TranscodeCliArguments::~TranscodeCliArguments() = default;

TranscodeCliArguments::TranscodeCliArguments(ArgumentWords cliArgs, bool maintainOriginalOrdering) {
  Intake intake(cliArgs.size(), maintainOriginalOrdering);
  auto next = cliArgs.empty() ? std::string_view{} : text::trimmed(cliArgs[0]);
  for (std::size_t at = 0; at < cliArgs.size(); ++at) {
    const auto word = next;
    next = at + 1 < cliArgs.size() ? text::trimmed(cliArgs[at + 1]) : std::string_view{};
    if (isFlag(word)) intake.add(word, isFlag(next) ? std::string_view{} : next);
  }
  *this = std::move(intake).model();
}

TranscodeCliArguments TranscodeCliArguments::fromArgumentLookup(const TextDictionary& argumentLookup) {
  Intake intake(2 * argumentLookup.size(), false);
  for (const auto& [flag, value] : argumentLookup) intake.add(text::trimmed(flag), text::trimmed(value));
  return std::move(intake).model();
}

TranscodeCliArguments TranscodeCliArguments::from(const TextDictionary& argumentLookup) {
  return fromArgumentLookup(argumentLookup);
}

TranscodeCliArguments TranscodeCliArguments::from(const CodedValue& coded) {
  const auto& record = coded.require<CodedRecord>();
  TranscodeCliArguments model;
  model.flagValueLookup_ = decoded(record.require<CodedRecord>(lookupKey));
  if (const auto* flags = record.optional<CodedList>(orderKey)) {
    model.orderedFlags_.emplace();
    for (const auto& flag : *flags) model.orderedFlags_->append(flag.require<std::string>(orderKey));
  }
  if (const auto* invalid = record.optional<CodedRecord>(invalidKey)) {
    model.invalidKeyValueLookup_ = decoded(*invalid);
  }
  return model;
}

CodedValue TranscodeCliArguments::encode() const {
  CodedRecord record;
  record.add(lookupKey, coded(flagValueLookup_));
  if (orderedFlags_) {
    CodedList flags;
    for (std::size_t i = 0; i < orderedFlags_->size(); ++i)
      flags.emplace_back(std::string((*orderedFlags_)[i]));
    record.add(orderKey, std::move(flags));
  }
  if (!invalidKeyValueLookup_.empty()) record.add(invalidKey, coded(invalidKeyValueLookup_));
  return record;
}

std::optional<std::vector<std::string>> TranscodeCliArguments::unknownFlags() const {
  if (allFlagsAreValid()) return std::nullopt;
  std::vector<std::string> flags;
  flags.reserve(invalidKeyValueLookup_.size());
  for (const auto& entry : invalidKeyValueLookup_) flags.push_back(entry.key);
  return flags;
}

bool TranscodeCliArguments::hasArgumentFlag(std::string_view flag) const noexcept {
  return flagValueLookup_.contains(text::trimmed(flag));
}

std::optional<std::string_view> TranscodeCliArguments::argumentFlagValue(
    std::string_view flag) const noexcept {
  const auto* entry = flagValueLookup_.find(text::trimmed(flag));
  return entry ? std::optional<std::string_view>(entry->value) : std::nullopt;
}

bool TranscodeCliArguments::setArgumentFlagValue(std::string_view flag,
                                                 std::optional<std::string_view> value) {
  const auto key = text::lowerCased(text::trimmed(flag));
  if (!known_flags::isValid(key, known_flags::indexOf(key))) return false;
  if (value) {
    flagValueLookup_.set(key, *value);
  } else {
    flagValueLookup_.remove(key);
  }
  return true;
}

void TranscodeCliArguments::enumerateInputFileGroups(
    FunctionRef<void(std::span<const std::string_view> files, std::int64_t group)> didFindGroup) const {
  std::vector<NumberedFile> files;
  for (const auto& entry : flagValueLookup_.prefixed(VAVInputPrefixFlag)) {
    if (const auto file = numberedFile(entry)) files.push_back(*file);
  }
  // Stable: two spellings of one place ("-in_1_0", "-in_01_0") stay in key order.
  std::ranges::stable_sort(files, {}, &NumberedFile::place);
  std::vector<std::string_view> paths;
  for (auto file = files.begin(); file != files.end();) {
    const auto group = file->group;
    paths.clear();
    for (; file != files.end() && file->group == group; ++file) paths.push_back(file->path);
    didFindGroup(paths, group);
  }
}

std::optional<InputFileGroups> TranscodeCliArguments::inputFileGroups() const {
  InputFileGroups groups;
  enumerateInputFileGroups([&](std::span<const std::string_view> files, std::int64_t group) {
    groups.emplace_hint(groups.end(), group, std::vector<std::string>(files.begin(), files.end()));
  });
  return groups.empty() ? std::nullopt : std::optional(std::move(groups));
}

void TranscodeCliArguments::setInputFileGroups(const std::optional<InputFileGroups>& groups) {
  if (groups) return setInputFileGroups(*groups);
  flagValueLookup_.removePrefixed(VAVInputPrefixFlag);
}

void TranscodeCliArguments::setInputFileGroups(const InputFileGroups& groups) {
  flagValueLookup_.removePrefixed(VAVInputPrefixFlag);
  flagValueLookup_.merge(numberedEntries(groups));
}

std::optional<std::vector<std::string>> TranscodeCliArguments::inputFiles() const {
  std::vector<std::string> all;
  if (const auto* plain = plainInputFile(flagValueLookup_)) all.push_back(*plain);
  enumerateInputFileGroups([&](std::span<const std::string_view> files, std::int64_t /*group*/) {
    all.insert(all.end(), files.begin(), files.end());
  });
  return all.empty() ? std::nullopt : std::optional(std::move(all));
}

std::optional<std::string> TranscodeCliArguments::firstInputFile() const {
  if (const auto* plain = plainInputFile(flagValueLookup_)) return *plain;
  std::optional<std::string> first;
  enumerateInputFileGroups([&](std::span<const std::string_view> files, std::int64_t /*group*/) {
    if (!first) first.emplace(files.front());
  });
  return first;
}

std::optional<TranscodeInputFileGroup> TranscodeCliArguments::inputFileGroup(std::int64_t group) const {
  std::optional<TranscodeInputFileGroup> found;
  enumerateInputFileGroups([&](std::span<const std::string_view> files, std::int64_t number) {
    if (number == group) found = {group, {files.begin(), files.end()}};
  });
  return found;
}

void TranscodeCliArguments::update(const TranscodeInputFileGroup& fromInputFileGroup) {
  const auto& [group, files] = fromInputFileGroup;
  if (inputFileGroup(group) == fromInputFileGroup) return;
  std::vector<std::string> superseded;
  for (const auto& entry : flagValueLookup_.prefixed(VAVInputPrefixFlag)) {
    const auto file = numberedFile(entry);
    if (file && file->group == group) superseded.push_back(entry.key);
  }
  for (const auto& flag : superseded) flagValueLookup_.remove(flag);
  flagValueLookup_.merge(numberedEntries({{group, files}}));
}

TranscodeWatermarkDetail TranscodeCliArguments::watermarkDetail() const {
  return {watermarkImageFileDetail(), watermarkTextDetail()};
}

void TranscodeCliArguments::update(const TranscodeWatermarkDetail& fromWatermarkDetail) {
  update(fromWatermarkDetail.imageFile);
  update(fromWatermarkDetail.text);
}

std::optional<TimecodeSource> TranscodeCliArguments::timecodeSource() const noexcept {
  for (const auto source : allCases<TimecodeSource>()) {
    if (flagValueLookup_.contains(cliFlag(source))) return source;
  }
  return std::nullopt;
}

void TranscodeCliArguments::setTimecodeSource(std::optional<TimecodeSource> source) {
  // What can run out of memory comes first.
  if (source && *source != TimecodeSource::custom) {
    flagValueLookup_.set(cliFlag(*source), {});
  } else if (source && timecode().value_or("").empty()) {
    setTimecode(timecodeIsDropFrame() ? TimecodeComponents::defaultDropFrameTimecode
                                      : TimecodeComponents::defaultNonDropTimecode);
  }
  for (const auto other : allCases<TimecodeSource>()) {
    if (other != source) flagValueLookup_.remove(cliFlag(other));
  }
}

// The one order in which settings are written.
template <class Visit> void TranscodeCliArguments::visitArguments(Visit visit) const {
  const std::span<const TextDictionary::Entry> entries(flagValueLookup_.begin(), flagValueLookup_.end());
  if (!orderedFlags_) {
    for (const auto& entry : entries) visit(entry);
    return;
  }
  if (orderedFlags_->isLocatedIn(flagValueLookup_)) {
    // Entries lie in the order of their keys, so those of a long line are fetched from here and there: ahead of time.
    constexpr std::size_t ahead = 8;
    const auto marks = orderedFlags_->marks();
    for (std::size_t i = 0; i < marks.size(); ++i) {
      if (i + ahead < marks.size()) __builtin_prefetch(&entries[marks[i + ahead].entryPosition]);
      visit(entries[marks[i].entryPosition]);
    }
    return;
  }
  visitSearching(visit);
}

// Kept out of the way of the other two, which are most of what is asked for.
template <class Visit> [[gnu::noinline]] void TranscodeCliArguments::visitSearching(Visit visit) const {
  const std::span<const TextDictionary::Entry> entries(flagValueLookup_.begin(), flagValueLookup_.end());
  // Most entries stand where they stood when the flags were read, or as far from there as the one that was last
  // searched for, since what was added or removed before them moves them together.
  std::size_t shift = 0;
  const auto positionOf = [&](std::size_t ordered) {
    const auto flag = (*orderedFlags_)[ordered];
    const auto before = orderedFlags_->marks()[ordered].entryPosition;
    for (const auto likely : {before, before + shift}) {
      if (likely < entries.size() && entries[likely].key == flag) return likely;
    }
    const auto* entry = flagValueLookup_.find(flag);
    if (!entry) return entries.size();
    const auto position = static_cast<std::size_t>(entry - entries.data());
    shift = position - before;
    return position;
  };

  constexpr std::size_t fewFlags = 256;
  Scratch<bool, fewFlags> scratch(entries.size());
  const auto written = scratch.elements();
  std::ranges::fill(written, false);
  for (std::size_t i = 0; i < orderedFlags_->size(); ++i) {
    const auto position = positionOf(i);
    if (position == entries.size() || written[position]) continue;
    written[position] = true;
    visit(entries[position]);
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!written[i]) visit(entries[i]);
  }
}

// Made of one piece, since it does little but copy short texts.
[[gnu::flatten]] std::vector<std::string> TranscodeCliArguments::commandLineArguments() const {
  std::vector<std::string> words;
  words.reserve(2 * flagValueLookup_.size());
  visitArguments([&](const TextDictionary::Entry& entry) {
    append(words, entry.key);
    append(words, entry.value);
  });
  return words;
}

std::string TranscodeCliArguments::cliString() const {
  std::string joined;
  visitArguments([&](const TextDictionary::Entry& entry) { joined.append(entry.key).append(entry.value); });
  return joined;
}

}  // namespace quillonic
