#include <quillonic/filesystem/legal_names.hpp>
#include <quillonic/offload/written_names.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "platform/file_system_kinds.hpp"
#include "platform/path_text.hpp"
#include "text/ascii.hpp"
#include "text/name_folding.hpp"
#include "text/utf8.hpp"

namespace quillonic::offload {
namespace {

NameRules rulesOf(std::string_view volumeKind) {
  const auto* kind = kindNamed(volumeKind, FileSystemServer::either);
  return kind && kind->names ? *kind->names : NameRules{};
}

// The length of one decoded character in the units of the rules.
std::size_t unitsOf(const NameRules& rules, const utf8::Decoded& character) {
  if (rules.characters != NameCharacters::unicode) return character.length;
  return character.valid && character.scalar > 0xFFFF ? 2 : 1;
}

bool isLegal(const NameRules& rules, const utf8::Decoded& character) {
  const auto scalar = character.scalar;
  if (scalar == U'/' || scalar == 0) return false;
  if (rules.characters == NameCharacters::tape) return validLtfsCharacters.contains(scalar);
  if (!character.valid) return rules.characters == NameCharacters::bytes;
  if (!rules.allowsControls && (scalar < 0x20 || scalar == 0x7F)) return false;
  return scalar >= 0x80 || rules.illegalCharacters.find(static_cast<char>(scalar)) == std::string_view::npos;
}

std::string withLegalCharacters(const NameRules& rules, std::string_view name) {
  std::string result;
  for (; !name.empty();) {
    const auto character = utf8::decode(name);
    if (isLegal(rules, character)) {
      result.append(name.substr(0, character.length));
    } else {
      result.push_back('_');
    }
    name.remove_prefix(character.length);
  }
  return result;
}

// The longest beginning of a name with this many units.
std::string_view beginningOf(const NameRules& rules, std::string_view name, std::size_t units) {
  std::size_t size = 0;
  while (size < name.size()) {
    const auto character = utf8::decode(name.substr(size));
    const auto needed = unitsOf(rules, character);
    if (needed > units) break;
    units -= needed;
    size += character.length;
  }
  return name.substr(0, size);
}

std::size_t lengthOf(const NameRules& rules, std::string_view name) {
  std::size_t units = 0;
  for (; !name.empty(); name.remove_prefix(utf8::decode(name).length)) {
    units += unitsOf(rules, utf8::decode(name));
  }
  return units;
}

// A name of at most the greatest length, with a text after its stem.
std::string fitted(const NameRules& rules, std::string_view name, std::string_view afterStem = {}) {
  auto extension = name.substr(path_text::extensionStart(name));
  auto stem = name.substr(0, name.size() - extension.size());
  const auto room = rules.greatestLength - lengthOf(rules, afterStem);
  // An extension as long as a name is none that anybody needs.
  if (lengthOf(rules, extension) > room / 2) extension = {};
  if (extension.empty()) stem = name.substr(0, path_text::extensionStart(name));
  stem = beginningOf(rules, stem, room - lengthOf(rules, extension));
  return std::string(stem).append(afterStem).append(extension);
}

bool isDeviceName(std::string_view name) {
  auto stem = name.substr(0, name.find('.'));
  while (stem.ends_with(' ')) stem.remove_suffix(1);
  const auto folded = text::foldedName(stem);
  constexpr std::string_view devices[] = {"con", "prn", "aux", "nul", "conin$", "conout$", "clock$"};
  if (std::ranges::find(devices, folded) != std::end(devices)) return true;
  if (!folded.starts_with("com") && !folded.starts_with("lpt")) return false;
  const std::string_view number = std::string_view(folded).substr(3);
  constexpr std::string_view superscripts[] = {"\u00b9", "\u00b2", "\u00b3"};
  return (number.size() == 1 && ascii::isDigit(number[0])) ||
         std::ranges::find(superscripts, number) != std::end(superscripts);
}

std::string withLegalEnd(const NameRules& rules, std::string name) {
  if (rules.allowsTrailingStopOrSpace) return name;
  const auto end = name.find_last_not_of(". ");
  std::fill(name.begin() + static_cast<std::ptrdiff_t>(end == std::string::npos ? 0 : end + 1), name.end(),
            '_');
  return name;
}

std::string written(const NameRules& rules, std::string_view name) {
  auto result = withLegalEnd(rules, withLegalCharacters(rules, name));
  if (result.empty() || result == "." || result == "..")
    result.assign(std::max<std::size_t>(1, result.size()), '_');
  if (!rules.allowsDeviceNames && isDeviceName(result)) {
    const auto stem = std::min(result.find('.'), result.size());
    result.insert(stem, "_");
  }
  if (lengthOf(rules, result) <= rules.greatestLength) return result;
  return withLegalEnd(rules, fitted(rules, result));
}

}  // namespace

std::string writtenName(std::string_view name, std::string_view volumeKind) {
  return written(rulesOf(volumeKind), name);
}

std::vector<std::string> writtenNames(std::span<const std::string> names, std::string_view volumeKind) {
  const auto rules = rulesOf(volumeKind);
  std::unordered_set<std::string> taken;
  const auto take = [&](const std::string& name) {
    return taken.insert(rules.ignoresCase ? text::foldedName(name) : name).second;
  };
  std::vector<std::string> results;
  results.reserve(names.size());
  // First those that stay.
  std::vector<bool> isSettled;
  for (const auto& name : names) {
    results.push_back(written(rules, name));
    isSettled.push_back(results.back() == name && take(name));
  }
  // Where many names meet, each goes on counting where the last one ended.
  std::unordered_map<std::string, std::uint64_t> counters;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (isSettled[i] || take(results[i])) continue;
    const auto wanted = results[i];
    auto& counter =
        counters.try_emplace(rules.ignoresCase ? text::foldedName(wanted) : wanted, 2).first->second;
    do {
      results[i] = withLegalEnd(rules, fitted(rules, wanted, " " + std::to_string(counter++)));
    } while (!take(results[i]));
  }
  return results;
}

}  // namespace quillonic::offload
