/// How well two items match.
///
///     MatchLevel level = everyKeyMatched ? MatchLevel::full : MatchLevel::partial;
///     log(rawValue(level));                                                  // "full"
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// The result of comparing two items. The library compares attributes; hosts choose the result.
enum class MatchLevel : std::uint8_t { full, partial, unmatched };

/// The results from best to worst.
template <> struct CaseTable<MatchLevel> {
  static constexpr auto rows = std::to_array<CaseRow<MatchLevel>>({
      {MatchLevel::full, "full"},
      {MatchLevel::partial, "partial"},
      {MatchLevel::unmatched, "unmatched"},
  });
};

static_assert(RawHashCase<MatchLevel>);

}  // namespace quillonic
