#include <quillonic/host/machine.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <span>
#include <sstream>
#include <string>

#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic::host {
namespace {

// Replaces "\n", "\t", "\0" and "\\".
std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto code = text[at] == '\\' && at + 1 < text.size() ? std::string("nt0").find(text[++at]) : 4;
    result.push_back(code < 3 ? "\n\t\0"[code] : text[at]);
  }
  return result;
}

using Told = std::map<std::string, std::string>;

// The table for people, by the names of its rows.
Told rowsOf(const Machine& machine) {
  Told rows;
  for (const auto& row : split(machine.table(), '\n')) {
    const auto gap = row.find("  ");
    if (gap != std::string::npos) rows[row.substr(0, gap)] = row.substr(row.find_first_not_of(' ', gap));
  }
  return rows;
}

TEST(Machine, IsDescribedAsFarAsItsFilesTell) {
  const auto cases = contentOf(std::filesystem::path(HOST_DATA) / "machines.txt");
  int count = 0;
  for (auto at = cases.find("== "); at < cases.size(); ++count) {
    const auto end = std::min(cases.find("\n== ", at), cases.size());
    const auto lines = split(std::string_view(cases).substr(at, end - at), '\n');
    at = end + 1;
    const TemporaryFolder root;
    Told expected;
    for (const auto& line : std::span(lines).subspan(1)) {
      const auto equals = line.find(" =");
      if (equals == std::string::npos) continue;
      const auto value = line.substr(std::min(equals + 3, line.size()));
      if (line.starts_with("> ")) {
        expected[line.substr(2, equals - 2)] = value;
      } else {
        root.file(line.substr(0, equals), unescaped(value));
      }
    }
    const auto machine = describeMachine(root.path());
    expected["program architecture"] = Architecture::ofThisProgram().rawValue();
    if (machine.architecture) {
      expected["is translated"] = *machine.architecture == Architecture::ofThisProgram() ? "no" : "yes";
    }
    EXPECT_EQ(rowsOf(machine), expected) << lines[0];
    EXPECT_EQ(decode<Machine>(encode(machine)), machine);
    EXPECT_EQ(machine.line().find('\n'), std::string::npos);
  }
  EXPECT_EQ(count, 5);
}

TEST(Machine, KnowsTheNamesOfArchitectures) {
  const std::map<std::string, std::string> rows{{"x86_64", "x86-64"}, {"aarch64", "arm64"},   {"i586", "x86"},
                                                {"armv7l", "arm"},    {"riscv64", "riscv64"}, {"vax", "vax"}};
  for (const auto& [name, text] : rows) EXPECT_EQ(Architecture::fromSystemName(name).rawValue(), text);
  const auto own = describeMachine();
  EXPECT_EQ(own.programArchitecture, Architecture::ofThisProgram());
  EXPECT_TRUE(own.line().starts_with(own.system.value_or("")));
}

struct Chosen final : UserDefaults {
  AnyValue value(std::string_view key) const override {
    return key == user_default_keys::kExplicitNumberOfConcurrentTranscodes ? number : AnyValue();
  }
  AnyValue number;
};

TEST(Machine, RecommendsTranscodes) {
  // Logical and physical processors, memory and its limit in GiB, whether translated, the setting: "-" for
  // none.
  std::istringstream rows(
      "- - - - 0 - 1  8 - - - 0 - 1  64 - - - 0 - 8  64 16 - - 0 - 4  64 64 64 - 0 - 16  64 64 64 24 0 - 6 "
      "64 64 256 - 1 - 8  256 128 1024 - 0 - 16  64 64 1 - 0 - 1  2 1 1 - 0 5 5  64 16 - - 0 0 4 "
      "2 1 1 - 0 5000 64  64 16 - - 0 -3 4");
  const auto next = [&](std::int64_t unit = 1) {
    std::string word;
    rows >> word;
    return word == "-" || word.empty() ? std::nullopt : std::optional(std::stoll(word) * unit);
  };
  int count = 0;
  for (; rows.good(); ++count) {
    Machine machine{.logicalProcessors = next(), .physicalCores = next()};
    constexpr std::int64_t gibibyte = 1 << 30;
    machine.memory = next(gibibyte);
    machine.memoryLimit = next(gibibyte);
    machine.isTranslated = next() == 1;
    Chosen defaults;
    if (const auto chosen = next()) defaults.number = *chosen;
    EXPECT_EQ(recommendedConcurrentTranscodes(machine, defaults), next()) << "row " << count;
  }
  EXPECT_EQ(count, 13);
  Chosen text;
  text.number = "7";
  EXPECT_EQ(recommendedConcurrentTranscodes({}, text), 1);
}

TEST(Settings, AreThoseOfTheHost) {
  EXPECT_TRUE(settings::useGPUAcceleration.read());
  EXPECT_FALSE(settings::permitAutoReattemptOfFailedTranscodes.read());
  EXPECT_EQ(settings::numberOfReattemptsPerFailedTranscode.read(), 1);
  const auto chosen = std::make_shared<Chosen>();
  chosen->number = 3.0;
  UserDefaults::replace(chosen);
  EXPECT_EQ(settings::explicitNumberOfConcurrentTranscodes.read(), 3);
  UserDefaults::replace(nullptr);
  EXPECT_EQ(settings::explicitNumberOfConcurrentTranscodes.read(), 0);
}

}  // namespace
}  // namespace quillonic::host
