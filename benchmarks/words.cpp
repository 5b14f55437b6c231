// Command lines of 10 to 100,000 words, read, written, and read, changed and written.
//
// "parse" and the works after it take a line with every flag once: known flags, then the numbered input files
// of a long job. "parse, flags repeated" repeats the known flags.
#include "words.hpp"

#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <map>
#include <numeric>
#include <stdexcept>
#include <tuple>

#include "rows.hpp"

namespace quillonic::benchmarks {
namespace {

constexpr auto topic = "words";
constexpr std::array<std::size_t, 4> sizes{10, 100, 1'000, anyLength};

constexpr std::size_t stride = 41;

enum class Kind { distinct, repeated };

CommandLine lineOf(Kind kind, std::size_t size, const std::string& hyphens) {
  CommandLine line;
  // Not every peer reads a one-letter flag after as many hyphens as the others.
  std::vector<std::string_view> known;
  std::ranges::copy_if(TranscodeCliArguments::allKnownCommandFlags(), std::back_inserter(known),
                       [](std::string_view flag) { return flag.size() > 2; });
  if (std::gcd(known.size(), stride) != 1) throw std::logic_error("the stride leaves flags out");
  for (const auto flag : known) line.flags.emplace_back(flag.substr(1));
  for (std::size_t i = 0; i < size / 2; ++i) {
    const bool isNew = kind == Kind::distinct || i < known.size();
    const bool isFile = kind == Kind::distinct && i >= known.size();
    const auto number = std::to_string(i);
    // Spread over the table, as on a line written by a person or a program.
    const auto flag = isFile ? line.flags.size() : i * stride % known.size();
    auto value = isFile ? "/media/CARD/A001_C" + number + ".mov" : std::to_string(960 + i % 64) + "x540";
    if (isFile) line.flags.push_back("in_0_" + number);
    line.words.push_back(hyphens + line.flags[flag]);
    line.words.push_back(value);
    if (isNew) {
      line.settings.push_back({flag, std::move(value)});
    } else {
      line.settings[i % known.size()].value = std::move(value);
    }
  }
  for (const auto& flag : line.flags) line.flagWords.push_back(hyphens + flag);
  static char program[] = "program";
  line.argv.push_back(program);
  for (auto& word : line.words) line.argv.push_back(word.data());
  line.argv.push_back(nullptr);
  return line;
}

// Every reader of a line gets the same one.
const CommandLine& line(Kind kind, std::size_t size, const std::string& hyphens) {
  static std::map<std::tuple<Kind, std::size_t, std::string>, CommandLine> lines;
  const auto [found, isNew] = lines.try_emplace({kind, size, hyphens});
  if (isNew) found->second = lineOf(kind, size, hyphens);
  return found->second;
}

struct Prepared {
  const CommandLine* line;
  std::unique_ptr<WordsReader> reader;
};

// The words, as pairs in any order if the reader does not keep it.
std::vector<std::pair<std::string, std::string>> settingsIn(const std::vector<std::string>& words,
                                                            bool keepsOrder) {
  std::vector<std::pair<std::string, std::string>> settings;
  for (std::size_t i = 0; i + 1 < words.size(); i += 2) settings.emplace_back(words[i], words[i + 1]);
  if (!keepsOrder) std::ranges::sort(settings);
  return settings;
}

// A reader that has shown that it reads the line correctly.
Prepared prepare(Kind kind, std::size_t size, const WordsPeer& peer, const MakeReader& make, bool writes) {
  const auto& words = line(kind, size, peer.hyphens);
  Prepared prepared{&words, make(words)};
  auto& reader = *prepared.reader;
  // Twice, since earlier readings must not count.
  reader.parse();
  reader.parse();
  for (const auto& [flag, value] : words.settings) {
    if (reader.value(flag) != value) throw std::runtime_error("reads another value for " + words.flags[flag]);
  }
  if (!writes) return prepared;
  auto expected = words.words;
  const auto writesExpected = [&] {
    return settingsIn(reader.emit(), peer.keepsOrder) == settingsIn(expected, peer.keepsOrder);
  };
  if (!writesExpected()) throw std::runtime_error("writes other words");
  reader.change(words.settings.front().flag, "changed");
  expected[1] = "changed";
  if (!writesExpected()) throw std::runtime_error("does not write what was changed");
  reader.parse();
  return prepared;
}

std::string named(const char* work, std::size_t size) {
  auto name = std::string(work) + " ";
  if (size >= 1000) name += std::to_string(size / 1000) + ",000";
  if (size < 1000) name += std::to_string(size);
  return name + " words";
}

void addParsing(const WordsPeer& peer, const MakeReader& make, Kind kind, std::size_t size) {
  const auto* work = kind == Kind::distinct ? "parse" : "parse, flags repeated,";
  Lazily<Prepared> prepared([=] { return prepare(kind, size, peer, make, false); });
  add({topic, named(work, size), peer.name, peer.parsing, static_cast<double>(size)},
      [=](benchmark::State& state) mutable {
        auto& reader = *(*prepared).reader;
        timeTurns(state, [&] { reader.parse(); });
      });
}

void addWriting(const WordsPeer& peer, const MakeReader& make, std::size_t size) {
  Lazily<Prepared> prepared([=] { return prepare(Kind::distinct, size, peer, make, true); });
  add({topic, named("emit", size), peer.name, peer.writing, static_cast<double>(size)},
      [=](benchmark::State& state) mutable {
        const auto& reader = *(*prepared).reader;
        timeTurns(state, [&] { benchmark::DoNotOptimize(reader.emit().data()); });
      });
  add({topic, named("parse, change one and emit", size), peer.name, peer.parsing + "; " + peer.writing,
       static_cast<double>(size)},
      [=](benchmark::State& state) mutable {
        auto& reader = *(*prepared).reader;
        const auto changed = (*prepared).line->settings.front().flag;
        timeTurns(state, [&] {
          reader.parse();
          reader.change(changed, "changed");
          benchmark::DoNotOptimize(reader.emit().data());
        });
      });
}

class Model final : public WordsReader {
 public:
  explicit Model(const CommandLine& line) : line_(line) {}

  void parse() override { model_.emplace(ArgumentWords::fromMain(line_.argc(), line_.argv.data()), true); }
  std::string value(std::size_t flag) const override {
    return std::string(model_->argumentFlagValue("-" + line_.flags[flag]).value_or("nothing"));
  }
  void change(std::size_t flag, const std::string& value) override {
    model_->setArgumentFlagValue("-" + line_.flags[flag], value);
  }
  std::vector<std::string> emit() const override { return model_->commandLineArguments(); }

 private:
  const CommandLine& line_;
  std::optional<TranscodeCliArguments> model_;
};

// The minimum for any reader: one look-up per word, and one copy of what is written.
class Limit final {
 public:
  explicit Limit(const CommandLine& line) : line_(line), slots_(std::size_t{1} << slotBits(line)) {
    for (const auto& word : line.words) bytes_ += word.size();
    copy_.resize(bytes_);
    text_.reserve(bytes_);
    for (const auto& word : line.words) text_ += word;
    for (const auto& flag : line.flagWords) slots_[slotOf(flag)] = flag;
  }

  void probe() const {
    std::size_t found = 0;
    for (int i = 1; i < line_.argc(); ++i) {
      const std::string_view word = line_.argv[static_cast<std::size_t>(i)];
      found += slots_[slotOf(word)] == word ? 1U : 0U;
    }
    benchmark::DoNotOptimize(found);
  }
  void copy() {
    std::memcpy(copy_.data(), text_.data(), bytes_);
    benchmark::DoNotOptimize(copy_.data());
  }

 private:
  static unsigned slotBits(const CommandLine& line) noexcept {
    unsigned bits = 3;
    while ((std::size_t{1} << bits) < 2 * line.flags.size()) ++bits;
    return bits;
  }
  std::size_t slotOf(std::string_view word) const noexcept {
    return std::hash<std::string_view>{}(word) & (slots_.size() - 1);
  }

  const CommandLine& line_;
  std::vector<std::string> slots_;
  std::string text_;
  std::string copy_;
  std::size_t bytes_ = 0;
};

void addLimit(const char* work, const std::string& what, Kind kind, std::size_t size, bool probes,
              bool copies) {
  Lazily<Limit> prepared([=] { return Limit(line(kind, size, "-")); });
  add({topic, named(work, size), limit(what), "", static_cast<double>(size)},
      [=](benchmark::State& state) mutable {
        auto& least = *prepared;
        timeTurns(state, [&] {
          if (probes) least.probe();
          if (copies) least.copy();
        });
      });
}

const bool added = [] {
  addWordsReader({.name = ours, .parsing = "", .writing = "ours", .longestOfDistinct = anyLength},
                 [](const CommandLine& words) { return std::make_unique<Model>(words); });
  const std::string probe = "one hash probe per word";
  const std::string copy = "memcpy of the bytes";
  for (const auto size : sizes) {
    addLimit("parse", probe, Kind::distinct, size, true, false);
    addLimit("parse, flags repeated,", probe, Kind::repeated, size, true, false);
    addLimit("emit", copy, Kind::distinct, size, false, true);
    addLimit("parse, change one and emit", probe + " and " + copy, Kind::distinct, size, true, true);
  }
  return true;
}();

}  // namespace

bool addWordsReader(const WordsPeer& peer, MakeReader make) {
  for (const auto size : sizes) {
    if (size <= peer.longestOfRepeated) addParsing(peer, make, Kind::repeated, size);
    if (size > peer.longestOfDistinct) continue;
    addParsing(peer, make, Kind::distinct, size);
    if (!peer.writing.empty()) addWriting(peer, make, size);
  }
  return true;
}

}  // namespace quillonic::benchmarks
