// Properties of the transcoder's known flags: which flags are valid, and which take a path. All flags here
// are lower-cased and trimmed.
#pragma once

#include <quillonic/transcode_cli/vocabulary_table.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace quillonic::known_flags {

// The known flags by the letter after their hyphen, without those that begin with another one: where the
// longer flag occurs, the shorter one does too.
struct ByLetter {
  static constexpr std::size_t letters = 'z' - 'a' + 1;

  consteval ByLetter() {
    std::ranges::sort(flags);
    std::size_t kept = 0;
    for (const auto flag : flags) {
      if (kept > 0 && flag.starts_with(flags[kept - 1])) continue;
      flags[kept++] = flag;
      for (auto letter = static_cast<std::size_t>(flag.at(1) - 'a'); letter < letters; ++letter)
        end.at(letter) = kept;
    }
  }

  constexpr std::span<const std::string_view> of(char letter) const noexcept {
    if (letter < 'a' || letter > 'z') return {};
    const auto at = static_cast<std::size_t>(letter - 'a');
    const auto begin = at == 0 ? 0 : end[at - 1];
    return std::span(flags).subspan(begin, end[at] - begin);
  }

  std::array<std::string_view, detail::knownCommandFlags.size()> flags = detail::knownCommandFlags;
  std::array<std::size_t, letters> end{};
};

inline constexpr ByLetter byLetter;

constexpr bool beginsWithKnownFlag(std::string_view text) noexcept {
  return text.size() > 1 &&
         std::ranges::any_of(byLetter.of(text[1]), [&](auto flag) { return text.starts_with(flag); });
}

// Only where a hyphen is can a known flag begin.
static_assert(std::ranges::all_of(detail::knownCommandFlags,
                                  [](auto flag) { return flag.starts_with('-'); }));

// Whether the flag contains a known flag.
constexpr bool isValid(std::string_view flag) noexcept {
  for (std::size_t at = 0; at < flag.size(); ++at) {
    if (flag[at] == '-' && beginsWithKnownFlag(flag.substr(at))) return true;
  }
  return false;
}

// The longest known flag that the flag contains; empty when there is none.
constexpr std::string_view containedIn(std::string_view flag) noexcept {
  std::string_view longest;
  for (const auto known : detail::knownCommandFlags) {
    if (known.size() > longest.size() && flag.find(known) != std::string_view::npos) longest = known;
  }
  return longest;
}

// Whether the flag's value keeps its letter case.
constexpr bool takesPath(std::string_view flag) noexcept {
  return flag.starts_with(VAVInputPrefixFlag.rawValue()) ||
         std::ranges::find(detail::pathFlags, flag) != detail::pathFlags.end();
}

}  // namespace quillonic::known_flags
