#include <quillonic/host/machine.hpp>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

#include "support/overloaded.hpp"
#include "text/ascii.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic::host {
namespace {

std::string memoryText(std::int64_t bytes) {
  constexpr double gibibyte = 1U << 30U;
  return number_text::rounded(static_cast<double>(bytes) / gibibyte, 1) + " GiB";
}

std::string countText(std::int64_t count, std::string_view thing) {
  return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

// "hostName" as "host name".
std::string inWords(std::string_view key) {
  std::string words;
  for (const char c : key) {
    if (ascii::isUpper(c)) words.push_back(' ');
    words.push_back(ascii::lowered(c));
  }
  return words;
}

std::string valueText(std::string_view key, const CodedValue& value) {
  return std::visit(Overloaded{[](bool is) { return std::string(is ? "yes" : "no"); },
                               [&](std::int64_t number) {
                                 return key.starts_with("memory") ? memoryText(number)
                                                                  : std::to_string(number);
                               },
                               [](double number) { return number_text::shortest(number); },
                               [](const std::string& text) { return text::printable(text); },
                               [](const auto& /*not in this record*/) { return std::string(); }},
                    value.alternatives());
}

}  // namespace

std::string Machine::table() const {
  const auto coded = encode(*this);
  const auto& members = coded.require<CodedRecord>().members();
  std::vector<std::pair<std::string, std::string>> rows;
  std::size_t width = 0;
  for (const auto& [key, value] : members) {
    rows.emplace_back(inWords(key), valueText(key, value));
    width = std::max(width, rows.back().first.size());
  }
  std::string table;
  for (const auto& [name, value] : rows) {
    table.append(name).append(width + 2 - name.size(), ' ').append(value).append("\n");
  }
  return table;
}

std::string Machine::line() const {
  std::string line;
  const auto add = [&](const std::string& text) {
    if (!text.empty()) line.append(line.empty() ? "" : ", ").append(text);
  };
  const auto following = [](const std::optional<std::string>& text) { return text ? " " + *text : ""; };
  add(system ? *system + following(systemVersion) : "");
  add(kernel.value_or(""));
  add(maker ? *maker + following(model) : model.value_or(""));
  add(processor.value_or(""));
  if (architecture) add(std::string(architecture->rawValue()));
  if (isTranslated.value_or(false)) {
    add("translated from " + std::string(programArchitecture ? programArchitecture->rawValue() : "another"));
  }
  if (logicalProcessors) {
    const auto cores = physicalCores ? " on " + countText(*physicalCores, "core") : "";
    add(countText(*logicalProcessors, "processor") + cores);
  }
  if (memory) add(memoryText(*memory) + " of memory");
  if (memoryLimit) add("limited to " + memoryText(*memoryLimit));
  if (virtualMachine) add("virtual machine: " + *virtualMachine);
  if (container) add("container: " + *container);
  return text::printable(line);
}

}  // namespace quillonic::host
