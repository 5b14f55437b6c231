#include "selection/wildcards.hpp"

#include <algorithm>
#include <cstddef>

#include "text/utf8.hpp"

namespace quillonic::selection {
namespace {

// The first character; bytes that are not UTF-8 are above all scalars, so that each equals only itself.
char32_t taken(std::string_view& text) noexcept {
  const auto [scalar, length, isValid] = utf8::decode(text);
  const auto byte = static_cast<unsigned char>(text.front());
  text.remove_prefix(length);
  return isValid ? scalar : 0x110000U + byte;
}

char32_t takenUnescaped(std::string_view& pattern) noexcept {
  if (pattern.front() == '\\' && pattern.size() > 1) pattern.remove_prefix(1);
  return taken(pattern);
}

enum class InSet { no, yes, notASet };

// Takes a set, after its "[", from a pattern; leaves what is no set.
InSet takenSet(std::string_view& pattern, char32_t wanted) noexcept {
  auto rest = pattern;
  const bool isInverted = rest.starts_with('!') || rest.starts_with('^');
  if (isInverted) rest.remove_prefix(1);
  bool isFound = false;
  // A "]" that comes first is in the set.
  for (bool isFirst = true; isFirst || !rest.starts_with(']'); isFirst = false) {
    if (rest.empty()) return InSet::notASet;
    const auto first = takenUnescaped(rest);
    auto last = first;
    if (rest.starts_with('-') && rest.size() > 1 && rest[1] != ']') {
      rest.remove_prefix(1);
      last = takenUnescaped(rest);
    }
    isFound = isFound || (first <= wanted && wanted <= last);
  }
  pattern = rest.substr(1);
  return isFound != isInverted ? InSet::yes : InSet::no;
}

// Takes one character of the name, and what matches it from a pattern that does not begin with "*". Of a
// character that means itself it takes a byte, which comes to the same.
bool isTaken(std::string_view& pattern, std::string_view& name) noexcept {
  if (pattern.empty() || name.empty()) return false;
  const char special = pattern.front();
  if (special == '?') {
    pattern.remove_prefix(1);
    taken(name);
    return true;
  }
  if (special == '[') {
    auto set = pattern.substr(1);
    auto rest = name;
    const auto answer = takenSet(set, taken(rest));
    if (answer != InSet::notASet) {
      pattern = set;
      name = rest;
      return answer == InSet::yes;
    }
  }
  if (special == '\\' && pattern.size() > 1) pattern.remove_prefix(1);
  const bool isSame = pattern.front() == name.front();
  pattern.remove_prefix(1);
  name.remove_prefix(1);
  return isSame;
}

// Whether the pattern's first character means itself.
bool isPlain(std::string_view pattern) noexcept {
  constexpr std::string_view special = "*?[\\";
  return !pattern.empty() && special.find(pattern.front()) == std::string_view::npos &&
         !utf8::isContinuation(pattern.front());
}

}  // namespace

bool matchesPattern(std::string_view pattern, std::string_view name) noexcept {
  // Only the last "*" is ever tried again: what an earlier one takes more, the last one can take too.
  bool hasStar = false;
  std::string_view afterStar;
  std::string_view nameAtStar;
  while (!name.empty() || !pattern.empty()) {
    if (pattern.starts_with('*')) {
      pattern.remove_prefix(1);
      hasStar = true;
      afterStar = pattern;
      nameAtStar = name;
      if (pattern.empty()) return true;
    } else if (!isTaken(pattern, name)) {
      if (!hasStar || nameAtStar.empty()) return false;
      taken(nameAtStar);
      // Goes on to the next place where the rest can begin.
      if (isPlain(afterStar))
        nameAtStar.remove_prefix(std::min(nameAtStar.find(afterStar.front()), nameAtStar.size()));
      name = nameAtStar;
      pattern = afterStar;
    }
  }
  return true;
}

}  // namespace quillonic::selection
