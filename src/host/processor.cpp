#include "host/processor.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "text/pieces.hpp"
#include "text/unicode.hpp"

namespace quillonic::host {
namespace {

// The values of a key, each once, in the order of the processors.
std::vector<std::string> valuesOf(std::string_view table, std::string_view key) {
  std::vector<std::string> values;
  for (auto lines = text::lines(table); const auto line = lines.next();) {
    const auto colon = line->find(':');
    if (colon == std::string_view::npos || text::trimmed(line->substr(0, colon)) != key) continue;
    std::string value(text::trimmed(line->substr(colon + 1)));
    if (!value.empty() && std::ranges::find(values, value) == values.end())
      values.push_back(std::move(value));
  }
  return values;
}

std::string firstOf(std::string_view table, std::string_view key) {
  auto values = valuesOf(table, key);
  return values.empty() ? std::string() : std::move(values.front());
}

// Arm processors name themselves by numbers.
struct ArmName {
  std::string_view maker;
  // Empty for the maker's name.
  std::string_view part;
  std::string_view name;
};

constexpr auto armNames = std::to_array<ArmName>({
    {"0x41", "", "Arm"},
    {"0x41", "0xd03", "Cortex-A53"},
    {"0x41", "0xd04", "Cortex-A35"},
    {"0x41", "0xd05", "Cortex-A55"},
    {"0x41", "0xd07", "Cortex-A57"},
    {"0x41", "0xd08", "Cortex-A72"},
    {"0x41", "0xd09", "Cortex-A73"},
    {"0x41", "0xd0a", "Cortex-A75"},
    {"0x41", "0xd0b", "Cortex-A76"},
    {"0x41", "0xd0c", "Neoverse-N1"},
    {"0x41", "0xd40", "Neoverse-V1"},
    {"0x41", "0xd41", "Cortex-A78"},
    {"0x41", "0xd44", "Cortex-X1"},
    {"0x41", "0xd49", "Neoverse-N2"},
    {"0x41", "0xd4f", "Neoverse-V2"},
    {"0x42", "", "Broadcom"},
    {"0x43", "", "Cavium"},
    {"0x46", "", "Fujitsu"},
    {"0x48", "", "HiSilicon"},
    {"0x4e", "", "NVIDIA"},
    {"0x50", "", "APM"},
    {"0x51", "", "Qualcomm"},
    {"0x53", "", "Samsung"},
    {"0x61", "", "Apple"},
    {"0xc0", "", "Ampere"},
});

std::string armName(const std::string& maker, const std::string& part) {
  const auto named = [&](std::string_view wanted, std::string other) {
    const auto* row = std::ranges::find_if(
        armNames, [&](const ArmName& name) { return name.maker == maker && name.part == wanted; });
    return row != armNames.end() ? std::string(row->name) : std::move(other);
  };
  return named("", maker) + " " + named(part, part);
}

// The lines of a processor name its maker before its part.
std::vector<std::string> armNamesIn(std::string_view table) {
  std::vector<std::string> names;
  for (const auto& maker : valuesOf(table, "CPU implementer")) {
    for (const auto& part : valuesOf(table, "CPU part")) names.push_back(armName(maker, part));
  }
  return names;
}

}  // namespace

std::optional<std::string> processorBrand(std::string_view table) {
  std::vector<std::string> names;
  for (const auto* key : {"model name", "Model Name", "cpu model", "uarch"}) {
    if (names.empty()) names = valuesOf(table, key);
  }
  // Some kernels tell an Arm processor's numbers beside a name that says less.
  if (auto numbered = armNamesIn(table); !numbered.empty()) names = std::move(numbered);
  if (names.empty()) names = valuesOf(table, "cpu");
  if (names.empty()) return std::nullopt;
  std::string brand;
  for (const auto& name : names) brand += (brand.empty() ? "" : " + ") + name;
  return brand;
}

std::optional<Architecture> architectureByTable(std::string_view table) {
  if (hasProcessorFlag(table, "lm")) return Architecture::x86_64;
  if (hasProcessorFlag(table, "fpu")) return Architecture::x86;
  if (firstOf(table, "CPU architecture") == "8") return Architecture::arm64;
  if (firstOf(table, "isa").starts_with("rv64")) return Architecture::riscv64;
  return std::nullopt;
}

bool hasProcessorFlag(std::string_view table, std::string_view flag) {
  return text::hasPiece(firstOf(table, "flags"), ' ', flag);
}

}  // namespace quillonic::host
