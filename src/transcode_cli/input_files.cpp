// The input files of a command line: "-in", and the numbered ones, "-in_<group>_<position>".
#include <quillonic/transcode_cli/arguments.hpp>

#include <algorithm>
#include <utility>

#include "support/prefixed.hpp"
#include "text/number_text.hpp"

namespace quillonic {
namespace {

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

}  // namespace

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

std::vector<std::filesystem::path> TranscodeCliArguments::inputFilePaths(std::int64_t group) const {
  std::vector<std::filesystem::path> files;
  for (const auto& file : numberedFiles(flagValueLookup_, group)) files.emplace_back(file.entry->second);
  return files;
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

}  // namespace quillonic
