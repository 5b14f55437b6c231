// Properties of the transcoder's known flags: which flags are valid, and which take a path. All flags here
// are lower-cased and trimmed.
#pragma once

#include <quillonic/transcode_cli/vocabulary_table.hpp>

#include <algorithm>
#include <string_view>

namespace quillonic::known_flags {

inline constexpr auto sorted = [] {
  auto flags = detail::knownCommandFlags;
  std::ranges::sort(flags);
  return flags;
}();

static_assert(std::ranges::all_of(sorted, [](auto flag) { return flag.size() > 1 && flag[0] == '-'; }));

constexpr bool beginsWithKnownFlag(std::string_view text) noexcept {
  // Only flags with the same letter after the hyphen can.
  const auto letter = text.substr(0, 2);
  auto flag = std::ranges::lower_bound(sorted, letter);
  for (; flag != sorted.end() && flag->starts_with(letter); ++flag) {
    if (text.starts_with(*flag)) return true;
  }
  return false;
}

// Whether the flag contains a known flag.
constexpr bool isValid(std::string_view flag) noexcept {
  for (auto at = flag.find('-'); at != std::string_view::npos; at = flag.find('-', at + 1)) {
    if (beginsWithKnownFlag(flag.substr(at))) return true;
  }
  return false;
}

// Whether the flag's value keeps its letter case.
constexpr bool takesPath(std::string_view flag) noexcept {
  return flag.starts_with(VAVInputPrefixFlag.rawValue()) ||
         std::ranges::find(detail::pathFlags, flag) != detail::pathFlags.end();
}

}  // namespace quillonic::known_flags
