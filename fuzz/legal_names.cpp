// A set of characters on the first line, then a name. The cleaned name is legal, no longer, and in order.
#include <quillonic/filesystem/legal_names.hpp>
#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

bool isPartOf(std::string_view part, std::string_view whole) {
  for (const char c : whole) {
    if (!part.empty() && part.front() == c) part.remove_prefix(1);
  }
  return part.empty();
}

}  // namespace

void run(std::string_view bytes) {
  const auto divide = std::min(bytes.find('\n'), bytes.size());
  const auto listed = bytes.substr(0, divide);
  const auto set = CharacterSet::of(listed);
  const auto name = bytes.substr(std::min(divide + 1, bytes.size()));

  const auto tape = removingInvalidLtfsCharacters(name);
  require(tape.find_first_not_of(legalLtfsCharacters) == std::string::npos, "a tape's name is legal");
  require(isPartOf(tape, name), "cleaning for a tape only removes");
  require(removingInvalidLtfsCharacters(tape) == tape, "a tape's name stays as it is");
  require(
      static_cast<std::size_t>(std::ranges::count_if(
          name, [](char c) { return legalLtfsCharacters.find(c) != std::string_view::npos; })) == tape.size(),
      "a tape's name keeps all that is legal");

  const auto desktop = removingDisallowedMacOSFilesystemCharacters(name);
  require(desktop.find_first_of(disallowedMacOSFilesystemCharacters) == std::string::npos,
          "a desktop's name is legal");
  require(isPartOf(desktop, name), "cleaning for a desktop only removes");
  require(removingDisallowedMacOSFilesystemCharacters(desktop) == desktop, "a desktop's name stays as it is");

  const auto outside = removingDisallowedCharacters(name, set);
  const auto inside = removingAllExcept(name, set);
  // Loose bytes next to each other may become a character beyond ASCII, which is then removed too.
  const auto parts = outside.size() + inside.size();
  const bool isAscii = std::ranges::all_of(listed, [](unsigned char c) { return c < 0x80; });
  require(isAscii || isUtf8(name) ? parts == name.size() : parts <= name.size(),
          "each character is in a set or not");
  require(isPartOf(outside, name) && isPartOf(inside, name), "filtering only removes");
  require(isUtf8(inside), "what is in a set is characters");
  require((removingAllExcept(listed, set) == listed) == isUtf8(listed),
          "a set has all characters of its text");
  require(removingDisallowedCharacters(name, set.inverted()) == inside, "an inverted set removes the others");
  require(removingAllExcept(name, set.inverted()) == outside, "an inverted set keeps the others");
  require(removingAllExcept(inside, set) == inside, "what is in a set stays as it is");
  require(set.inverted().inverted() == set, "a set inverted twice is the set");
  require(removingDisallowedCharacters(outside, set) == outside, "what is not in a set stays as it is");
}

}  // namespace quillonic::fuzz
