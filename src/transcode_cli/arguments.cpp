#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <set>
#include <utility>

#include "text/unicode.hpp"
#include "transcode_cli/known_flags.hpp"

namespace quillonic {
namespace {

constexpr std::string_view lookupKey = "flagValueLookup";
constexpr std::string_view orderKey = "orderedFlags";
constexpr std::string_view invalidKey = "invalidKeyValueLookup";

// A word is a flag when its trimmed form begins with a hyphen; lower-casing does not change that.
constexpr bool isFlag(std::string_view trimmed) noexcept {
  return trimmed.starts_with('-');
}

CodedRecord coded(const TextDictionary& lookup) {
  CodedRecord record;
  for (const auto& [key, value] : lookup) record.add(key, value);
  return record;
}

// The first of equal keys counts, as in every record.
TextDictionary decoded(const CodedRecord& record) {
  TextDictionary lookup;
  for (const auto& [key, value] : record.members()) lookup.emplace(key, value.require<std::string>(key));
  return lookup;
}

}  // namespace

TranscodeCliArguments::TranscodeCliArguments() = default;
TranscodeCliArguments::TranscodeCliArguments(TranscodeCliArguments&&) noexcept = default;
TranscodeCliArguments& TranscodeCliArguments::operator=(TranscodeCliArguments&&) noexcept = default;
TranscodeCliArguments::~TranscodeCliArguments() = default;

TranscodeCliArguments::TranscodeCliArguments(ArgumentWords cliArgs, bool maintainOriginalOrdering) {
  std::vector<std::string> order;
  if (maintainOriginalOrdering) order.reserve(cliArgs.size() / 2);
  for (std::size_t at = 0; at < cliArgs.size(); ++at) {
    const auto word = text::trimmed(cliArgs[at]);
    if (!isFlag(word)) continue;
    const auto next = at + 1 < cliArgs.size() ? text::trimmed(cliArgs[at + 1]) : std::string_view{};
    const auto* newFlag = store(word, isFlag(next) ? std::string_view{} : next);
    if (newFlag && maintainOriginalOrdering) order.push_back(*newFlag);
  }
  if (!order.empty()) orderedFlags_ = std::move(order);
}

TranscodeCliArguments TranscodeCliArguments::fromArgumentLookup(const TextDictionary& argumentLookup) {
  TranscodeCliArguments model;
  for (const auto& [flag, value] : argumentLookup) model.store(text::trimmed(flag), text::trimmed(value));
  return model;
}

TranscodeCliArguments TranscodeCliArguments::from(const TextDictionary& argumentLookup) {
  return fromArgumentLookup(argumentLookup);
}

const std::string* TranscodeCliArguments::store(std::string_view flag, std::string_view value) {
  auto key = text::lowerCased(flag);
  auto stored = known_flags::takesPath(key) ? std::string(value) : text::lowerCased(value);
  auto& lookup = known_flags::isValid(key) ? flagValueLookup_ : invalidKeyValueLookup_;
  const auto [entry, isNew] = lookup.insert_or_assign(std::move(key), std::move(stored));
  return isNew ? &entry->first : nullptr;
}

TranscodeCliArguments TranscodeCliArguments::from(const CodedValue& coded) {
  const auto& record = coded.require<CodedRecord>();
  TranscodeCliArguments model;
  model.flagValueLookup_ = decoded(record.require<CodedRecord>(lookupKey));
  if (const auto* flags = record.optional<CodedList>(orderKey)) {
    auto& order = model.orderedFlags_.emplace();
    std::set<std::string_view> seen;
    for (const auto& flag : *flags) {
      const auto& text = flag.require<std::string>(orderKey);
      if (seen.insert(text).second) order.push_back(text);
    }
  }
  if (const auto* invalid = record.optional<CodedRecord>(invalidKey)) {
    model.invalidKeyValueLookup_ = decoded(*invalid);
  }
  return model;
}

CodedValue TranscodeCliArguments::encode() const {
  CodedRecord record;
  record.add(lookupKey, coded(flagValueLookup_));
  if (orderedFlags_) record.add(orderKey, CodedList(orderedFlags_->begin(), orderedFlags_->end()));
  if (!invalidKeyValueLookup_.empty()) record.add(invalidKey, coded(invalidKeyValueLookup_));
  return record;
}

std::optional<std::vector<std::string>> TranscodeCliArguments::unknownFlags() const {
  if (allFlagsAreValid()) return std::nullopt;
  std::vector<std::string> flags;
  flags.reserve(invalidKeyValueLookup_.size());
  for (const auto& [flag, value] : invalidKeyValueLookup_) flags.push_back(flag);
  return flags;
}

bool TranscodeCliArguments::hasArgumentFlag(std::string_view flag) const noexcept {
  return flagValueLookup_.contains(text::trimmed(flag));
}

std::optional<std::string_view> TranscodeCliArguments::argumentFlagValue(
    std::string_view flag) const noexcept {
  const auto entry = flagValueLookup_.find(text::trimmed(flag));
  return entry != flagValueLookup_.end() ? std::optional<std::string_view>(entry->second) : std::nullopt;
}

bool TranscodeCliArguments::setArgumentFlagValue(std::string_view flag,
                                                 std::optional<std::string_view> value) {
  flag = text::trimmed(flag);
  const auto entry = flagValueLookup_.find(flag);
  if (entry == flagValueLookup_.end()) {
    auto key = text::lowerCased(flag);
    if (!known_flags::isValid(key)) return false;
    if (value) {
      flagValueLookup_.insert_or_assign(std::move(key), std::string(*value));
    } else {
      flagValueLookup_.erase(key);
    }
  } else if (value) {
    entry->second = *value;
  } else {
    flagValueLookup_.erase(entry);
  }
  return true;
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

std::optional<TimecodeComponents> TranscodeCliArguments::timecodeComponents() const noexcept {
  const auto entry = flagValueLookup_.find(VAVTimecodeCustomFlag.rawValue());
  return entry != flagValueLookup_.end() ? TimecodeComponents::fromTimecode(entry->second) : std::nullopt;
}

void TranscodeCliArguments::setTimecodeSource(std::optional<TimecodeSource> source) {
  // Begins with what may run out of memory.
  if (source && *source != TimecodeSource::custom) {
    flagValueLookup_.insert_or_assign(std::string(cliFlag(*source)), "");
  } else if (source && timecode().value_or("").empty()) {
    setTimecode(timecodeIsDropFrame() ? TimecodeComponents::defaultDropFrameTimecode
                                      : TimecodeComponents::defaultNonDropTimecode);
  }
  for (const auto other : allCases<TimecodeSource>()) {
    if (other != source) setOn(cliFlag(other), false);
  }
}

std::vector<std::string> TranscodeCliArguments::commandLineArguments() const {
  std::vector<std::string> words;
  words.reserve(2 * flagValueLookup_.size());
  const auto write = [&](const TextDictionary::value_type& entry) {
    words.push_back(entry.first);
    words.push_back(entry.second);
  };
  std::vector<std::string_view> written;
  if (orderedFlags_) {
    written.reserve(orderedFlags_->size());
    for (const auto& flag : *orderedFlags_) {
      const auto entry = flagValueLookup_.find(flag);
      if (entry == flagValueLookup_.end()) continue;
      write(*entry);
      written.push_back(entry->first);
    }
  }
  if (written.size() == flagValueLookup_.size()) return words;
  std::ranges::sort(written);
  for (const auto& entry : flagValueLookup_) {
    if (!std::ranges::binary_search(written, std::string_view(entry.first))) write(entry);
  }
  return words;
}

}  // namespace quillonic
