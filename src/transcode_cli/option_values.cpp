#include <quillonic/platform/logging.hpp>
#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/options_table.hpp>

#include <algorithm>
#include <string>
#include <utility>

#include "support/prefixed.hpp"
#include "transcode_cli/option_texts.hpp"

namespace quillonic {
namespace {

void warnOfNoText(std::string_view /*flag*/, const Color& color) {
  VantiroLogging::defaultLogger()->logWarning("QLC_TCLIA_USS-Could not get rgb components for color " +
                                              color.description());
}

// Numbers and frame sizes.
template <class Value> void warnOfNoText(std::string_view flag, const Value& /*value*/) {
  VantiroLogging::defaultLogger()->logWarning(
      std::string("QLC_TCLIA_WV-A number that is negative or not finite cannot stand behind ").append(flag));
}

std::vector<std::int64_t> inOrderAndOnce(std::vector<std::int64_t> numbers) {
  std::ranges::sort(numbers);
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

}  // namespace

double DecimalNumber::ofText(float value) {
  return number_text::read<double>(number_text::shortest(value)).value_or(value);
}

bool TranscodeOptionValues::isOn(std::string_view flag) const noexcept {
  return flagValueLookup_.contains(flag);
}

void TranscodeOptionValues::setOn(std::string_view flag, bool value) {
  if (value) {
    flagValueLookup_.insert_or_assign(std::string(flag), "");
  } else {
    flagValueLookup_.erase(std::string(flag));
  }
}

void TranscodeOptionValues::writeTimecode(std::string_view flag, std::optional<std::string_view> value) {
  auto components = value ? TimecodeComponents::fromTimecode(*value) : std::nullopt;
  if (!components || !isOn(VAVTimecodeIsDropFlag)) return write(flag, value);
  components->isDropFrame = true;
  const auto text = components->timecodeString();
  write(flag, std::optional<std::string_view>(text));
}

void TranscodeOptionValues::setDropFrame(std::string_view flag, bool value) {
  const auto timecode = flagValueLookup_.find(VAVTimecodeCustomFlag);
  auto components =
      timecode != flagValueLookup_.end() ? TimecodeComponents::fromTimecode(timecode->second) : std::nullopt;
  if (!components) return setOn(flag, value);
  components->isDropFrame = value;
  auto text = components->timecodeString();
  setOn(flag, value);
  timecode->second = std::move(text);  // cannot fail, so the switch and the text change together
}

template <class Value> std::optional<Value> TranscodeOptionValues::read(std::string_view flag) const {
  const auto entry = flagValueLookup_.find(flag);
  return entry != flagValueLookup_.end() ? option_texts::read<Value>(entry->second) : std::nullopt;
}

template <class Value>
void TranscodeOptionValues::write(std::string_view flag, const std::optional<Value>& value) {
  auto text = value ? option_texts::written(*value) : std::nullopt;
  if (text) {
    flagValueLookup_.insert_or_assign(std::string(flag), *std::move(text));
  } else {
    // The warning comes first: where it finds no memory nothing is changed.
    if (value) warnOfNoText(flag, *value);
    setOn(flag, false);
  }
}

std::vector<std::int64_t> TranscodeOptionValues::readTracks(std::string_view prefix) const {
  std::vector<std::int64_t> tracks;
  for (const auto& [flag, value] : PrefixedEntries(flagValueLookup_, prefix)) {
    if (const auto track = option_texts::read<std::int64_t>(value)) tracks.push_back(*track);
  }
  return inOrderAndOnce(std::move(tracks));
}

void TranscodeOptionValues::writeTracks(std::string_view prefix, const std::vector<std::int64_t>& tracks) {
  removePrefixed(flagValueLookup_, prefix);
  std::size_t position = 0;
  for (const auto track : inOrderAndOnce(tracks)) {
    const auto text = option_texts::written(track);
    if (text) {
      flagValueLookup_.insert_or_assign(std::string(prefix) + "_" + std::to_string(position++), *text);
    } else {
      warnOfNoText(prefix, track);
    }
  }
}

#include "transcode_cli/options_table.inc"

}  // namespace quillonic
