#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <set>
#include <utility>

#include "support/prefixed.hpp"
#include "text/number_text.hpp"
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

struct NumberedFile {
  std::int64_t group;
  std::int64_t position;
  TextDictionary::const_iterator entry;
};

// Reads "-in_<group>_<position>".
std::optional<NumberedFile> numberedFile(TextDictionary::const_iterator entry) noexcept {
  std::string_view rest = entry->first;
  rest.remove_prefix(VAVInputPrefixFlag.rawValue().size());
  if (!rest.starts_with('_')) return std::nullopt;
  rest.remove_prefix(1);
  const auto divide = rest.find('_');
  if (divide == std::string_view::npos) return std::nullopt;
  const auto group = number_text::read<std::int64_t>(rest.substr(0, divide));
  const auto position = number_text::read<std::int64_t>(rest.substr(divide + 1));
  if (!group || !position) return std::nullopt;
  return NumberedFile{*group, *position, entry};
}

// By group and position; two spellings of one place ("-in_1_0", "-in_01_0") stay in key order.
void sort(std::vector<NumberedFile>& files) {
  std::ranges::stable_sort(files, {},
                           [](const NumberedFile& file) { return std::pair(file.group, file.position); });
}

std::vector<NumberedFile> numberedFiles(const TextDictionary& lookup) {
  std::vector<NumberedFile> files;
  const auto inputs = PrefixedEntries(lookup, VAVInputPrefixFlag);
  for (auto entry = inputs.begin(); entry != inputs.end(); ++entry) {
    if (const auto file = numberedFile(entry)) files.push_back(*file);
  }
  sort(files);
  return files;
}

std::string prefixOf(std::int64_t group) {
  return std::string(VAVInputPrefixFlag).append("_").append(std::to_string(group)).append("_");
}

// The files of one group. Looks at other groups only if their numbers have leading zeros.
std::vector<NumberedFile> numberedFiles(const TextDictionary& lookup, std::int64_t group) {
  std::vector<NumberedFile> files;
  const auto add = [&](auto entry, auto end) {
    for (; entry != end; ++entry) {
      const auto file = numberedFile(entry);
      if (file && file->group == group) files.push_back(*file);
    }
  };
  const std::string input(VAVInputPrefixFlag);
  const auto usual = PrefixedEntries(lookup, prefixOf(group));
  add(lookup.lower_bound(input + "_-0"), lookup.lower_bound(input + "_-1"));
  add(lookup.lower_bound(input + "_00"), lookup.lower_bound(input + "_0:"));
  add(usual.begin(), usual.end());
  sort(files);
  return files;
}

void store(TextDictionary& lookup, std::int64_t group, const std::vector<std::string>& files) {
  const auto prefix = prefixOf(group);
  for (std::size_t position = 0; position < files.size(); ++position) {
    lookup.insert_or_assign(prefix + std::to_string(position), files[position]);
  }
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

// Adds what differs between two dictionaries.
void addDifferences(const TextDictionary& before, const TextDictionary& after,
                    std::vector<TranscodeDifference>& differences) {
  for (const auto& [flag, value] : before) {
    const auto entry = after.find(flag);
    if (entry == after.end()) {
      differences.push_back({flag, value, std::nullopt});
    } else if (entry->second != value) {
      differences.push_back({flag, value, entry->second});
    }
  }
  for (const auto& [flag, value] : after) {
    if (!before.contains(flag)) differences.push_back({flag, std::nullopt, value});
  }
}

void add(TextDictionary& target, TextDictionary& added, ApplyLayer layer) noexcept {
  if (layer == ApplyLayer::aboveWhatIsSet) target.swap(added);
  target.merge(added);
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

TranscodeCliArguments TranscodeCliArguments::clone() const {
  TranscodeCliArguments copy;
  copy.flagValueLookup_ = flagValueLookup_;
  copy.orderedFlags_ = orderedFlags_;
  copy.invalidKeyValueLookup_ = invalidKeyValueLookup_;
  return copy;
}

bool TranscodeCliArguments::operator==(const TranscodeCliArguments& other) const noexcept {
  return flagValueLookup_ == other.flagValueLookup_ && invalidKeyValueLookup_ == other.invalidKeyValueLookup_;
}

std::vector<TranscodeDifference> TranscodeCliArguments::differencesFrom(
    const TranscodeCliArguments& earlier) const {
  std::vector<TranscodeDifference> differences;
  addDifferences(earlier.flagValueLookup_, flagValueLookup_, differences);
  addDifferences(earlier.invalidKeyValueLookup_, invalidKeyValueLookup_, differences);
  std::ranges::stable_sort(differences, {}, &TranscodeDifference::flag);
  return differences;
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

void TranscodeCliArguments::apply(TranscodeCliPreset preset, ApplyLayer layer) {
  apply(presetArguments(preset), layer);
}

void TranscodeCliArguments::apply(const TextDictionary& arguments, ApplyLayer layer) {
  auto added = fromArgumentLookup(arguments);
  add(flagValueLookup_, added.flagValueLookup_, layer);
  add(invalidKeyValueLookup_, added.invalidKeyValueLookup_, layer);
}

void TranscodeCliArguments::setInputFiles(const std::vector<std::filesystem::path>& files) {
  setInputFileGroups(InputFileGroups{{0, {files.begin(), files.end()}}});
}

void TranscodeCliArguments::setInputFileGroup(std::int64_t group,
                                              const std::vector<std::filesystem::path>& files) {
  update(TranscodeInputFileGroup{group, {files.begin(), files.end()}});
}

std::vector<std::filesystem::path> TranscodeCliArguments::inputFilePaths() const {
  const auto files = inputFiles().value_or(std::vector<std::string>());
  return {files.begin(), files.end()};
}

std::optional<InputFileGroups> TranscodeCliArguments::inputFileGroups() const {
  InputFileGroups groups;
  for (const auto& file : numberedFiles(flagValueLookup_)) groups[file.group].push_back(file.entry->second);
  return groups.empty() ? std::nullopt : std::optional(std::move(groups));
}

void TranscodeCliArguments::enumerateInputFileGroups(
    FunctionRef<void(std::span<const std::string_view> files, std::int64_t group)> didFindGroup) const {
  // A copy, because the block may change the model.
  const auto groups = inputFileGroups().value_or(InputFileGroups{});
  for (const auto& [group, files] : groups) {
    didFindGroup(std::vector<std::string_view>(files.begin(), files.end()), group);
  }
}

void TranscodeCliArguments::setInputFileGroups(const InputFileGroups& groups) {
  removePrefixed(flagValueLookup_, VAVInputPrefixFlag);
  for (const auto& [group, files] : groups) quillonic::store(flagValueLookup_, group, files);
}

std::optional<std::vector<std::string>> TranscodeCliArguments::inputFiles() const {
  std::vector<std::string> all;
  const auto plain = argumentFlagValue(VAVInputPrefixFlag).value_or("");
  if (!plain.empty()) all.emplace_back(plain);
  for (const auto& file : numberedFiles(flagValueLookup_)) all.push_back(file.entry->second);
  return all.empty() ? std::nullopt : std::optional(std::move(all));
}

std::optional<std::string> TranscodeCliArguments::firstInputFile() const {
  auto files = inputFiles();
  return files ? std::optional(std::move(files->front())) : std::nullopt;
}

std::optional<TranscodeInputFileGroup> TranscodeCliArguments::inputFileGroup(std::int64_t group) const {
  std::vector<std::string> files;
  for (const auto& file : numberedFiles(flagValueLookup_, group)) files.push_back(file.entry->second);
  if (files.empty()) return std::nullopt;
  return TranscodeInputFileGroup{group, std::move(files)};
}

void TranscodeCliArguments::update(const TranscodeInputFileGroup& fromInputFileGroup) {
  const auto& [group, files] = fromInputFileGroup;
  if (inputFileGroup(group) == fromInputFileGroup) return;
  for (const auto& superseded : numberedFiles(flagValueLookup_, group)) {
    flagValueLookup_.erase(superseded.entry);
  }
  quillonic::store(flagValueLookup_, group, files);
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
