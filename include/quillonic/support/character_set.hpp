/// Sets of Unicode scalars.
///
///     constexpr auto separators = CharacterSet::of("/:");
///     static_assert(separators.contains(U':') && separators.inverted().contains(U'a'));
#pragma once

#include <quillonic/export.hpp>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic {

/// The scalars of a text, or all others.
class QUILLONIC_EXPORT CharacterSet {
 public:
  /// The empty set.
  constexpr CharacterSet() noexcept = default;

  /// The scalars of a UTF-8 text, in any order; repeats do no harm. Bytes that are not UTF-8 add nothing.
  /// Works at compile time for ASCII.
  static constexpr CharacterSet of(std::string_view text) {
    CharacterSet set;
    bool isAscii = true;
    for (const char c : text) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte < set.ascii_.size()) {
        set.ascii_[byte] = true;
      } else {
        isAscii = false;
      }
    }
    if (!isAscii) set.addBeyondAscii(text);
    return set;
  }

  /// Whether a scalar is in the set: one look-up for ASCII, logarithmic time for others.
  constexpr bool contains(char32_t scalar) const noexcept {
    const bool isListed = scalar < ascii_.size()
                              ? ascii_[scalar]
                              : beyondAscii_ && std::ranges::binary_search(*beyondAscii_, scalar);
    return isListed != isInverted_;
  }

  /// Every scalar that is not in this set. A byte that is not UTF-8 is in no set made from scalars, and so in
  /// every inverted one.
  constexpr CharacterSet inverted() const {
    CharacterSet set = *this;
    set.isInverted_ = !isInverted_;
    return set;
  }

  friend constexpr bool operator==(const CharacterSet&, const CharacterSet&) = default;

 private:
  void addBeyondAscii(std::string_view text);

  // A constant can hold a table, but not an allocated list.
  std::array<bool, 0x80> ascii_{};
  // Ascending and unique; absent when the text has none.
  std::optional<std::u32string> beyondAscii_;
  bool isInverted_ = false;
};

}  // namespace quillonic
