// Any words, one per line, as the transcoder's arguments. A line "=" ends the words of the model; those after
// it make another model, whose details are then applied to the first.
#include <quillonic/time/timecode.hpp>
#include <quillonic/tool_cli/sanitization_options.hpp>
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Model = TranscodeCliArguments;
using Words = std::vector<std::string>;

constexpr auto trim = CLISanitizationOptions::trimWhiteSpace;
constexpr auto both = trim | CLISanitizationOptions::lowercase;

bool isKnown(std::string_view flag) {
  const auto occurs = [&](std::string_view known) { return flag.find(known) != std::string_view::npos; };
  return std::ranges::any_of(Model::allKnownCommandFlags(), occurs);
}

// What a model must contain, found in a simple way.
struct Expected {
  TextDictionary valid;
  std::set<std::string> unknown;
  Words order;

  explicit Expected(const std::vector<std::string_view>& words) {
    const std::set<std::string> paths{"-clut", "-out", "-progress_file", "-work_dir"};
    for (std::size_t i = 0; i < words.size(); ++i) {
      const auto flag = both.sanitize(words[i]);
      if (!flag.starts_with('-')) continue;
      if (!isKnown(flag)) {
        unknown.insert(flag);
        continue;
      }
      const bool isPath = paths.contains(flag) || flag.starts_with("-in");
      const auto value = i + 1 < words.size() ? (isPath ? trim : both).sanitize(words[i + 1]) : std::string();
      if (!valid.contains(flag)) order.push_back(flag);
      valid[flag] = value.starts_with('-') ? std::string() : value;
    }
  }

  Words written(bool ordered) const {
    auto flags = order;
    if (!ordered) std::ranges::sort(flags);
    Words words;
    for (const auto& flag : flags) words.insert(words.end(), {flag, valid.at(flag)});
    return words;
  }
};

// words -> model -> words -> model
void checkRoundTrip(const Model& model, bool ordered) {
  const auto words = model.commandLineArguments();
  const Model again(words, ordered);
  require(again.flagValueLookup() == model.flagValueLookup(), "the model reads back from its words");
  require(again.commandLineArguments() == words, "both lists of words agree");
  require(again.allFlagsAreValid(), "no word that is written is unknown");

  const auto coded = encode(model);
  const auto decoded = decode<Model>(coded);
  require(encode(decoded) == coded && decoded.commandLineArguments() == words, "coding keeps a model");
  require(decoded.unknownFlags() == model.unknownFlags(), "coding keeps the unknown flags");

  const auto fromLookup = Model::fromArgumentLookup(model.argumentLookup());
  require(fromLookup.flagValueLookup() == model.flagValueLookup(),
          "the model reads back from its dictionary");

  std::string joined;
  for (const auto& word : words) joined += word;
  require(model.cliString() == joined, "the text is the words");
}

void checkReading(const std::vector<std::string_view>& words) {
  const Expected expected(words);
  for (const bool ordered : {false, true}) {
    const Model model(words, ordered);
    require(model.flagValueLookup() == expected.valid, "the model holds the known flags");
    require(model.unknownFlags().value_or(Words{}) == Words(expected.unknown.begin(), expected.unknown.end()),
            "the model sets the unknown flags aside");
    require(model.commandLineArguments() == expected.written(ordered),
            "the model writes what it holds, in order");
    checkRoundTrip(model, ordered);
  }
}

void checkInputFiles(const std::vector<std::string_view>& words) {
  Model model(words, true);
  const auto groups = model.inputFileGroups();
  model.setInputFileGroups(groups);
  require(model.inputFileGroups() == groups, "input files read back");
  if (!groups) return;
  require(model.firstInputFile() == groups->begin()->second.front(),
          "the first file is the first of the first group");
  Model asRead(words);
  for (const auto& [number, files] : *groups) {
    require(asRead.inputFileGroup(number) == TranscodeInputFileGroup{number, files}, "one group reads alone");
    asRead.update(TranscodeInputFileGroup{number, {}});
    require(!asRead.inputFileGroup(number), "a group without files is none");
  }
}

// Writing may change a colour: a component of 1 or more counts as a value out of 255.
TranscodeTimecodeDetail withoutColors(TranscodeTimecodeDetail detail) {
  detail.timecodeBurnFontColor.reset();
  detail.timecodeBurnBoxColor.reset();
  return detail;
}
TranscodeWatermarkDetail withoutColors(TranscodeWatermarkDetail detail) {
  detail.text.watermarkTextBurnFontColor.reset();
  detail.text.watermarkTextBurnBoxColor.reset();
  return detail;
}

void checkDetails(const std::vector<std::string_view>& words,
                  const std::vector<std::string_view>& otherWords) {
  Model model(words, true);
  const auto before = model.commandLineArguments();
  TranscodeDetailModifier{
      {model.videoDetail(), model.audioDetail(), model.timecodeDetail(), model.watermarkDetail()}}
      .apply(model);
  require(model.commandLineArguments() == before, "updating with what is there changes nothing");

  const Model other(otherWords);
  const TranscodeDetailModifier change{
      {other.videoDetail(), other.audioDetail(), other.timecodeDetail(), other.watermarkDetail()}};
  change.apply(model);
  require(model.videoDetail() == other.videoDetail() && model.audioDetail() == other.audioDetail(),
          "video and audio take the other model's details");
  require(withoutColors(model.watermarkDetail()) == withoutColors(other.watermarkDetail()),
          "watermarks take the other model's details");
  // The separator of a timecode matches the switch.
  auto timecode = withoutColors(other.timecodeDetail());
  if (timecode.timecode) {
    if (auto components = TimecodeComponents::fromTimecode(*timecode.timecode)) {
      components->isDropFrame = timecode.timecodeIsDropFrame;
      const auto changed = withoutColors(model.timecodeDetail()).timecode;
      require(changed == timecode.timecode || changed == components->timecodeString(),
              "the timecode is the other model's");
      timecode.timecode = changed;
    }
  }
  require(withoutColors(model.timecodeDetail()) == timecode, "the timecode takes the other model's details");

  // A fixed value is stored with its capitals, which reading removes: the details stay, but not every text.
  const Model again(model.commandLineArguments(), true);
  require(again.videoDetail() == model.videoDetail() && again.audioDetail() == model.audioDetail() &&
              again.timecodeDetail() == model.timecodeDetail() &&
              again.watermarkDetail() == model.watermarkDetail(),
          "changed details read back from the words");
  checkRoundTrip(again, true);

  const auto once = model.commandLineArguments();
  change.apply(model);
  require(model.commandLineArguments() == once, "a change that was made changes nothing");
}

// Without a problem, a model reads back equal; the capitals of fixed values may be lost.
void checkProblems(const Model& model) {
  const auto problems = model.problems();
  for (const auto& problem : problems) {
    require(problem.description().find('\n') == std::string::npos, "a problem is told in a line");
  }
  auto words = model.launchArguments();
  for (auto& word : words)
    word.resize(std::min(word.find('\0'), word.size()));  // as the system passes them on
  const Model arrival(words);
  auto changed = model.flagValueLookup();
  for (const auto& [flag, before, after] : arrival.differencesFrom(model)) {
    changed.erase(flag);
    if (after) changed.emplace(flag, *after);
    const auto* row = transcodeFlagRow(flag);
    require(!problems.empty() || (row && !row->fixedValues.empty() &&
                                  CLISanitizationOptions::lowercase.sanitize(*before) == after),
            "what does not arrive is a problem");
  }
  auto arrived = arrival.flagValueLookup();
  for (const auto& [flag, value] : arrival.unknownFlagLookup()) arrived.emplace(flag, value);
  require(changed == arrived, "the differences are all there are");
  for (const auto& problem : problems) {
    if (problem.kind != TranscodeProblemKind::changedOnArrival) continue;
    const auto found = changed.find(problem.flag);
    require(problem.arrivesAs ? found != changed.end() && found->second == *problem.arrivesAs
                              : found == changed.end(),
            "a problem tells what arrives");
  }
}

// Changes make one model of another, and add up.
void checkChanges(const std::vector<std::string_view>& words,
                  const std::vector<std::string_view>& otherWords) {
  using Changes = TranscodeOptionChanges;
  const auto modelOf = [](const std::vector<std::string_view>& all) {
    Model model(all);
    model.setTimecodeIsDropFrame(model.timecodeIsDropFrame());  // gives the timecode its separator
    return model;
  };
  const auto applied = [](std::initializer_list<const Changes*> changes, const Model& model) {
    auto changed = model.clone();
    for (const auto* change : changes) change->apply(changed);
    return changed.flagValueLookup();
  };
  const auto a = modelOf(words);
  const auto b = modelOf(otherWords);
  const auto half = modelOf({words.begin(), words.begin() + static_cast<std::ptrdiff_t>(words.size() / 2)});
  const auto toB = Changes::between(a, b);
  require(applied({&toB}, a) == b.flagValueLookup(), "changes make one model of another");
  require(Changes::between(a, a) == Changes(), "equal models have no changes");
  for (const auto& later :
       {Changes::between(half, a), Changes::between(b, half), Changes::between(half, b)}) {
    auto sum = toB;
    sum.add(later);
    for (const auto* other : {&a, &half}) {
      require(applied({&sum}, *other) == applied({&toB, &later}, *other), "changes add up");
    }
    require(decode<Changes>(encode(sum)) == sum, "coding keeps changes");
  }
}

void checkSetting(const std::vector<std::string_view>& words) {
  Model model;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto flag = both.sanitize(words[i]);
    const auto value = words[(i + 1) % words.size()];
    require(model.setArgumentFlagValue(words[i], value) == isKnown(flag), "a known flag can be set");
    if (!isKnown(flag)) continue;
    require(model.argumentFlagValue(flag) == value, "a value is kept as it is given");
    if (i % 3 == 0) model.setArgumentFlagValue(flag, std::nullopt);
    require(model.hasArgumentFlag(flag) == (i % 3 != 0), "no value removes the flag");
  }
  checkProblems(model);
  for (const auto source : allCases<TimecodeSource>()) {
    model.setTimecodeSource(source);
    require(model.timecodeSource() == source, "a source of the timecode reads back");
  }
}

// The flags of a line keep their order, whatever is removed and comes back; others follow in the order of
// their texts.
void checkOrder(const std::vector<std::string_view>& words, const std::vector<std::string_view>& changes) {
  Model model(words, true);
  const auto order = Expected(words).order;
  std::set<std::string> flags(order.begin(), order.end());
  auto all = changes;
  all.insert(all.end(), words.begin(), words.end());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto flag = both.sanitize(all[i]);
    if (!isKnown(flag)) continue;
    const bool removes = flags.erase(flag) > 0 || i % 3 == 0;
    if (!removes) flags.insert(flag);
    model.setArgumentFlagValue(flag, removes ? std::nullopt : std::optional<std::string_view>(""));
    auto rest = flags;
    Words expected;
    for (const auto& first : order) {
      if (rest.erase(first) > 0) expected.push_back(first);
    }
    expected.insert(expected.end(), rest.begin(), rest.end());
    const auto written = model.commandLineArguments();
    Words found;
    for (std::size_t at = 0; at < written.size(); at += 2) found.push_back(written[at]);
    require(found == expected, "flags keep the order in which they first stood");
  }
}

}  // namespace

void run(std::string_view bytes) {
  const auto all = lines(bytes);
  const auto divide = std::ranges::find(all, "=");
  const std::vector words(all.begin(), divide);
  const std::vector otherWords(divide == all.end() ? divide : divide + 1, all.end());
  checkReading(words);
  checkInputFiles(words);
  checkDetails(words, otherWords);
  checkChanges(words, otherWords);
  checkChanges(otherWords, words);
  checkSetting(otherWords);
  checkOrder(words, otherWords);
  checkOrder(otherWords, words);
}

}  // namespace quillonic::fuzz
