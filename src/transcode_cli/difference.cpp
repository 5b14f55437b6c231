// How one command line is compared with another and changed by it.
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/difference.hpp>

#include <algorithm>
#include <utility>

namespace quillonic {
namespace {

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

void TranscodeCliArguments::apply(TranscodeCliPreset preset, ApplyLayer layer) {
  apply(presetArguments(preset), layer);
}

void TranscodeCliArguments::apply(const TextDictionary& arguments, ApplyLayer layer) {
  auto added = fromArgumentLookup(arguments);
  add(flagValueLookup_, added.flagValueLookup_, layer);
  add(invalidKeyValueLookup_, added.invalidKeyValueLookup_, layer);
}

}  // namespace quillonic
