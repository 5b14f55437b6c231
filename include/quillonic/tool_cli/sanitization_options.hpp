/// How flags and values are normalised before they are compared.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/option_set.hpp>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillonic {

/// A set of normalisations. The empty set leaves a text unchanged.
class QUILLONIC_EXPORT CLISanitizationOptions : public OptionSet<CLISanitizationOptions, std::int64_t> {
 public:
  using OptionSet::OptionSet;

  /// Lower-cases by Unicode's simple mapping, in every locale. Keeps bytes that are not UTF-8.
  QUILLONIC_HIDDEN static const CLISanitizationOptions lowercase;
  /// Removes leading and trailing Unicode white space and line breaks.
  QUILLONIC_HIDDEN static const CLISanitizationOptions trimWhiteSpace;

  /// Applies the options to the text, lower-casing before trimming.
  std::string sanitize(std::string_view text) const;
};

inline constexpr CLISanitizationOptions CLISanitizationOptions::lowercase{1};
inline constexpr CLISanitizationOptions CLISanitizationOptions::trimWhiteSpace{2};

}  // namespace quillonic
