#include <quillonic/host/machine.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <span>
#include <sstream>
#include <string>

#include "host/stored_tree.hpp"

namespace quillonic::host {
namespace {

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
  const auto lines = storedLines("machines.txt");
  const auto isTitle = [](const std::string& line) { return line.starts_with("== "); };
  auto title = std::ranges::find_if(lines, isTitle);
  while (title != lines.end()) {
    const auto end = std::find_if(title + 1, lines.end(), isTitle);
    const TemporaryFolder root;
    storeTree(root, {title + 1, end});
    const auto machine = describeMachine(root.path());
    Told expected{{"program architecture", std::string(Architecture::ofThisProgram().rawValue())}};
    if (machine.architecture) {
      expected["is translated"] = *machine.architecture == Architecture::ofThisProgram() ? "no" : "yes";
    }
    for (const auto& line : std::span(title + 1, end)) {
      if (line.starts_with("> "))
        expected[line.substr(2, line.find(" = ") - 2)] = line.substr(line.find(" = ") + 3);
    }
    EXPECT_EQ(rowsOf(machine), expected) << *title;
    EXPECT_EQ(decode<Machine>(encode(machine)), machine);
    EXPECT_EQ(machine.line().find('\n'), std::string::npos);
    title = end;
  }
  EXPECT_EQ((Machine{.logicalProcessors = 1, .physicalCores = 1}.line()), "1 processor on 1 core");
  EXPECT_EQ(describeMachine().programArchitecture, Architecture::ofThisProgram());
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
