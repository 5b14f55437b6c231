#include <quillonic/tool_cli/argument_store.hpp>

#include <iterator>
#include <utility>

#include "text/utf8.hpp"

namespace quillonic {
namespace {

// The first character: one scalar, or one byte that is not UTF-8.
std::string_view firstCharacter(std::string_view text) noexcept {
  return text.substr(0, utf8::decode(text).length);
}

bool holds(std::string_view characters, std::string_view wanted) noexcept {
  while (!characters.empty()) {
    const auto character = firstCharacter(characters);
    if (character == wanted) return true;
    characters.remove_prefix(character.size());
  }
  return false;
}

// Removes leading and trailing characters that are in a set.
std::string_view stripped(std::string_view text, std::string_view characters) noexcept {
  while (!text.empty() && holds(characters, firstCharacter(text))) {
    text.remove_prefix(firstCharacter(text).size());
  }
  std::size_t kept = 0;
  for (std::size_t at = 0; at < text.size();) {
    const auto character = firstCharacter(text.substr(at));
    at += character.size();
    if (!holds(characters, character)) kept = at;
  }
  return text.substr(0, kept);
}

}  // namespace

CliArgumentStore::~CliArgumentStore() = default;

std::string_view CliArgumentStore::listPrefix() const {
  return "[";
}

std::string_view CliArgumentStore::listValueSeparator() const {
  return " ";
}

std::vector<std::string> CliArgumentStore::launchArguments() const {
  return commandLineArguments();
}

void CliArgumentStore::appendTo(std::vector<std::string>& words) const {
  auto own = launchArguments();
  words.insert(words.end(), std::move_iterator(own.begin()), std::move_iterator(own.end()));
}

std::string CliArgumentStore::cliString() const {
  std::string joined;
  for (const auto& text : orderedCLITexts()) joined += text;
  return joined;
}

std::vector<std::string> CliArgumentStore::commandLineArguments() const {
  const auto lookup = argumentLookup();
  std::vector<std::string> words;
  words.reserve(2 * lookup.size());
  for (const auto& [flag, value] : lookup) {
    words.push_back(flag);
    words.push_back(value);
  }
  return words;
}

void CliArgumentStore::enumerateListValues(std::string_view list,
                                           FunctionRef<void(std::string_view value)> block) const {
  const auto separators = listValueSeparator();
  auto rest = stripped(list, listPrefix());
  std::size_t at = 0;
  while (at < rest.size()) {
    const auto character = firstCharacter(rest.substr(at));
    if (holds(separators, character)) {
      block(rest.substr(0, at));
      rest.remove_prefix(at + character.size());
      at = 0;
    } else {
      at += character.size();
    }
  }
  block(rest);
}

}  // namespace quillonic
