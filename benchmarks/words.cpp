// Command lines read and written: one as parents write it for a clip, long lists of input files, and lines
// made to slow a reader down.
#include "words.hpp"

#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <unordered_set>

namespace quillonic::benchmarks {
namespace {

// Flags without hyphens, and their values.
using Pairs = std::vector<std::pair<std::string, std::string>>;

// With the tool's name 25 words.
Pairs usualLine() {
  return {{"in_0_0", "/media/CARD A/CLIPS001/A001C001_201112_R1AB.mov"},
          {"in_0_1", "/media/CARD A/CLIPS001/A001C002_201112_R1AB.mov"},
          {"in_1_0", "/media/REEL 7/sound/T001.wav"},
          {"out", "/media/REEL 7/review/A001C001_201112_R1AB.mov"},
          {"file_format", "mov"},
          {"vcodec", "h264"},
          {"dims", "1920x1080"},
          {"vbr", "12.5"},
          {"acodec", "aac"},
          {"wmt_text", "for review only"},
          {"tc_custom", "01:00:00:00"},
          {"overwrite", ""}};
}

// The known flags, but those of one letter, which not every peer reads after as many hyphens as the others.
Words knownFlags() {
  Words flags;
  for (const auto flag : TranscodeCliArguments::allKnownCommandFlags()) {
    if (flag.size() > 2) flags.emplace_back(flag.substr(1));
  }
  return flags;
}

template <std::size_t words> Pairs inputFiles() {
  Pairs pairs;
  for (std::size_t i = 0; i < words / 2; ++i) {
    const auto number = std::to_string(i);
    pairs.emplace_back("in_0_" + number, "/media/CARD/A001_C" + number + ".mov");
  }
  return pairs;
}

// Here and there in the list of known flags, over and over.
Pairs repeatedFlags() {
  const auto known = knownFlags();
  Pairs pairs;
  for (std::size_t i = 0; i < 5'000; ++i) {
    pairs.emplace_back(known[i * 41 % known.size()], std::to_string(960 + i % 64) + "x540");
  }
  return pairs;
}

CommandLine lineOf(const Pairs& pairs, const std::string& hyphens) {
  CommandLine line;
  line.flags = knownFlags();
  std::unordered_set<std::string> known(line.flags.begin(), line.flags.end());
  for (const auto& [flag, value] : pairs) {
    append(line.words, hyphens + flag, value);
    if (known.insert(flag).second) line.flags.push_back(flag);
  }
  for (const auto& flag : line.flags) line.flagWords.push_back(hyphens + flag);
  static char program[] = "program";
  line.argv.push_back(program);
  for (auto& word : line.words) line.argv.push_back(word.data());
  line.argv.push_back(nullptr);
  return line;
}

std::map<std::string, std::string> valuesOf(const Words& words) {
  std::map<std::string, std::string> values;
  for (std::size_t i = 0; i + 1 < words.size(); i += 2) values[words[i]] = words[i + 1];
  return values;
}

WordsReader model(const CommandLine& line) {
  const auto model = std::make_shared<TranscodeCliArguments>();
  return {[=, &line] {
            *model = TranscodeCliArguments(ArgumentWords::fromMain(line.argc(), line.argv.data()), true);
          },
          [=] { return model->commandLineArguments(); }};
}

// What no reader does without: a probe of a hash table and a copy for each word.
WordsReader leastReader(const CommandLine& line) {
  const std::unordered_set<std::string_view> known(line.flagWords.begin(), line.flagWords.end());
  const auto copy = std::make_shared<Words>();
  const auto parse = [=, &line] {
    for (auto at = line.argv.begin() + 1; *at; ++at) use(known.count(*at));
    *copy = Words(line.argv.begin() + 1, line.argv.end() - 1);
  };
  return {parse, [=] { return *copy; }};
}

// Flags of 24 bytes that have one std::hash as long as they begin with "-in_0000", and none with another
// beginning: it takes in eight bytes at a time, and each step can be undone.
Words craftedWords(const std::string& beginning) {
  constexpr std::uint64_t factor = 0xC6A4A7935BD1E995U;
  constexpr std::uint64_t inverse = 0x5F7A0EA7E59B19BDU;
  static_assert(factor * inverse == 1);
  const auto folded = [](std::uint64_t number) { return number ^ number >> 47U; };
  const auto mixed = [&](const char* bytes) {
    std::uint64_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    return folded(number * factor) * factor;
  };
  // Bytes that reading leaves as they are.
  const auto isPlain = [](unsigned char c) {
    return (c > ' ' && c < 'A' && c != '-') || (c >= 'a' && c <= 'z') || (c >= 0x80 && c < 0xC0);
  };
  Words words;
  for (std::uint64_t i = 10'000'000; words.size() < 80'000; ++i) {
    auto word = "-in_0000" + std::to_string(i);
    const auto begun = (0xC70F6907U ^ 24 * factor ^ mixed(word.data())) * factor;
    const auto last = folded((begun ^ mixed(word.data() + 8)) * factor * inverse) * inverse;
    word.append(reinterpret_cast<const char*>(&last), sizeof last);
    if (!std::all_of(word.begin() + 16, word.end(), isPlain)) continue;
    append(words, word.replace(0, 8, beginning), "/media/CARD/clip.mov");
  }
  const std::hash<std::string> hash;
  if ((hash(words[0]) == hash(words[2])) != (beginning == "-in_0000"))
    throw std::runtime_error("not what it says");
  return words;
}

Words longFlags(char letter) {
  Words words;
  for (std::size_t i = 1; i <= 1'000; ++i) words.emplace_back(i, letter).front() = '-';
  return words;
}

Work reading(Words words) {
  return [words = std::move(words)] { use(TranscodeCliArguments(words, true).allFlagsAreValid()); };
}

const bool added = [] {
  addWordsReader({.name = ours, .readsLongest = true}, model);
  addWordsReader({.name = least("a hash probe per word, a copy each way"), .readsLongest = true},
                 leastReader);
  addBuilder(ours, "", [] {
    auto settings =
        TranscodeCliArguments::fromArgumentLookup(presetArguments(TranscodeCliPreset::vantiroCloud));
    for (const auto& [flag, value] : changes) settings.setArgumentFlagValue(flag, value);
    return settings.commandLineArguments();
  });
  constexpr auto ordinary = "ours, other words of that length";
  constexpr auto colliding = "read 80,000 words that collide in std::hash, each";
  add({colliding, ours, "", 80'000}, [] { return reading(craftedWords("-in_0000")); });
  add({colliding, ordinary, "", 80'000}, [] { return reading(craftedWords("-in_1111")); });
  constexpr auto hyphens = "read 1,000 flags of up to 1,000 hyphens, each";
  add({hyphens, ours, "looks for a known flag at every hyphen", 1'000},
      [] { return reading(longFlags('-')); });
  add({hyphens, ordinary, "", 1'000}, [] { return reading(longFlags('a')); });
  addGrowth("read a word of distinct ones", allItems, [](std::size_t size) {
    auto words = lineOf(inputFiles<100'000>(), "-").words;
    words.resize(size);
    return reading(std::move(words));
  });
  return true;
}();

}  // namespace

bool addWordsReader(const WordsPeer& peer, std::function<WordsReader(const CommandLine&)> make) {
  const auto addRow = [&](const char* work, double items, Pairs (*pairs)(), bool emits) {
    add({work, peer.name, peer.note, items}, [=, hyphens = peer.hyphens]() -> Work {
      const auto line = std::make_shared<const CommandLine>(lineOf(pairs(), hyphens));
      const auto reader = make(*line);
      // Twice, since what it read before must not count.
      reader.parse();
      reader.parse();
      if (valuesOf(reader.emit()) != valuesOf(line->words)) throw std::runtime_error("reads something else");
      return [=] {
        static_cast<void>(line);  // which the reader reads
        reader.parse();
        if (emits) use(reader.emit());
      };
    });
  };
  addRow("a line of 25 words: read and write", 1, usualLine, true);
  addRow("a line of 25 words: read", 1, usualLine, false);
  addRow("read 1,000 distinct words, each", 1'000, inputFiles<1'000>, false);
  if (peer.readsLongest) addRow("read 100,000 distinct words, each", 100'000, inputFiles<100'000>, false);
  addRow("read 10,000 words of repeated flags, each", 10'000, repeatedFlags, false);
  return true;
}

bool addBuilder(const std::string& who, const std::string& note, std::function<Words()> build) {
  return add({"a preset with five changes: build and write", who, note}, [=] {
    const auto preset = orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud);
    auto expected = valuesOf(Words(preset.begin(), preset.end()));
    for (const auto& [flag, value] : changes) expected[std::string(flag)] = value;
    if (valuesOf(build()) != expected) throw std::runtime_error("writes something else");
    return [=] { use(build()); };
  });
}

}  // namespace quillonic::benchmarks
