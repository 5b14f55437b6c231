/// How flag texts and values are normalised before they are compared.
#pragma once

#include <quillonic/export.hpp>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillonic {

/// A set of normalisations. The empty set leaves a text as it is. Bits that name no option are kept and do
/// nothing.
class QUILLONIC_EXPORT CLISanitizationOptions {
 public:
  constexpr CLISanitizationOptions() noexcept = default;
  /// The set of those options whose bits are set.
  constexpr explicit CLISanitizationOptions(std::int64_t rawValue) noexcept : rawValue_(rawValue) {}

  /// Lower-cases by Unicode's simple mapping, whatever the locale. Bytes that are not UTF-8 stay.
  QUILLONIC_HIDDEN static const CLISanitizationOptions lowercase;
  /// Removes Unicode white space and line breaks from both ends.
  QUILLONIC_HIDDEN static const CLISanitizationOptions trimWhiteSpace;

  /// The bits, those included that name no option.
  constexpr std::int64_t rawValue() const noexcept { return rawValue_; }
  /// Whether every option of the other set is in this one.
  constexpr bool contains(CLISanitizationOptions other) const noexcept {
    return (rawValue_ & other.rawValue_) == other.rawValue_;
  }

  /// The text with the options applied, lower-casing before trimming.
  std::string sanitize(std::string_view text) const;

  friend constexpr CLISanitizationOptions operator|(CLISanitizationOptions a,
                                                    CLISanitizationOptions b) noexcept {
    return CLISanitizationOptions(a.rawValue_ | b.rawValue_);
  }
  friend constexpr bool operator==(CLISanitizationOptions, CLISanitizationOptions) = default;

 private:
  std::int64_t rawValue_ = 0;
};

inline constexpr CLISanitizationOptions CLISanitizationOptions::lowercase{1};
inline constexpr CLISanitizationOptions CLISanitizationOptions::trimWhiteSpace{2};

}  // namespace quillonic
