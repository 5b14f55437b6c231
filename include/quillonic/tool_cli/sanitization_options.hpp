/// How flag texts and values are normalised before they are compared.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/option_set.hpp>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillonic {

/// A set of normalisations. The empty set leaves a text as it is.
class QUILLONIC_EXPORT CLISanitizationOptions : public OptionSet<CLISanitizationOptions, std::int64_t> {
 public:
  using OptionSet::OptionSet;

  /// Lower-cases by Unicode's simple mapping, whatever the locale. Bytes that are not UTF-8 stay.
  QUILLONIC_HIDDEN static const CLISanitizationOptions lowercase;
  /// Removes Unicode white space and line breaks from both ends.
  QUILLONIC_HIDDEN static const CLISanitizationOptions trimWhiteSpace;

  /// The text with the options applied, lower-casing before trimming.
  std::string sanitize(std::string_view text) const;
};

inline constexpr CLISanitizationOptions CLISanitizationOptions::lowercase{1};
inline constexpr CLISanitizationOptions CLISanitizationOptions::trimWhiteSpace{2};

}  // namespace quillonic
