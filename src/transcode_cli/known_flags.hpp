// The transcoder's known flags, recognised by one probe of a table made at compile time.
#pragma once

#include <quillonic/transcode_cli/vocabulary_table.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "tool_cli/contained_texts.hpp"
#include "transcode_cli/text_hash.hpp"

namespace quillonic::known_flags {

inline constexpr std::size_t count = detail::knownCommandFlags.size();
inline constexpr std::size_t none = count;

namespace table {

inline constexpr std::size_t longest =
    std::ranges::max(detail::knownCommandFlags, {}, &std::string_view::size).size();

inline constexpr unsigned slotBits = 9;

constexpr std::size_t slotOf(std::uint64_t hash, std::uint64_t seed) noexcept {
  return text_hash::spread(hash ^ seed) >> (64U - slotBits);
}

struct Slots {
  std::uint64_t seed = 0;
  std::array<std::uint8_t, 1U << slotBits> flag{};
};

// Tries seeds until no two flags share a slot.
consteval Slots withoutCollision() {
  static_assert(none < 256);
  std::array<std::uint64_t, count> hashes{};
  std::ranges::transform(detail::knownCommandFlags, hashes.begin(), text_hash::of);
  Slots slots;
  slots.flag.fill(static_cast<std::uint8_t>(none));
  for (;; ++slots.seed) {
    std::size_t placed = 0;
    for (; placed < count; ++placed) {
      auto& slot = slots.flag[slotOf(hashes[placed], slots.seed)];
      if (slot != none) break;
      slot = static_cast<std::uint8_t>(placed);
    }
    if (placed == count) return slots;
    while (placed > 0) slots.flag[slotOf(hashes[--placed], slots.seed)] = static_cast<std::uint8_t>(none);
  }
}

inline constexpr Slots slots = withoutCollision();

inline constexpr auto isPath = [] {
  std::array<bool, count> result{};
  for (std::size_t i = 0; i < count; ++i) {
    result[i] = std::ranges::find(detail::pathFlags, detail::knownCommandFlags[i]) != detail::pathFlags.end();
  }
  return result;
}();

inline constexpr auto shortest = [] {
  auto texts = detail::knownCommandFlags;
  const auto kept = withoutExtensions(texts).size();
  return std::pair(texts, kept);
}();

inline constexpr ContainedTexts contained{std::span(shortest.first).first(shortest.second)};

}  // namespace table

// The position of a flag in the list of known flags, or `none`. `flag` must be lower-cased and trimmed.
constexpr std::size_t indexOf(std::string_view flag) noexcept {
  if (flag.size() > table::longest) return none;
  const std::size_t found = table::slots.flag[table::slotOf(text_hash::of(flag), table::slots.seed)];
  return found != none && detail::knownCommandFlags[found] == flag ? found : none;
}

// Whether a flag is valid: it is known, or a known one occurs within it.
constexpr bool isValid(std::string_view flag, std::size_t index) noexcept {
  return index != none || table::contained.anyOccursIn(flag);
}

// Whether the flag's value keeps the case of its letters.
constexpr bool takesPath(std::string_view flag, std::size_t index) noexcept {
  return index != none ? table::isPath[index] : flag.starts_with(VAVInputPrefixFlag.rawValue());
}

}  // namespace quillonic::known_flags
