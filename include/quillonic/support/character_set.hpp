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

/// The scalars of a text, or all but those.
class QUILLONIC_EXPORT CharacterSet {
 public:
  /// Holds nothing.
  constexpr CharacterSet() noexcept = default;

  /// The scalars of a text in UTF-8, in any order and number. Bytes that are not UTF-8 add nothing. At
  /// compile time for a text in ASCII.
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

  /// Whether a scalar is in the set: one look-up for ASCII, logarithmic time beyond.
  constexpr bool contains(char32_t scalar) const noexcept {
    const bool isListed = scalar < ascii_.size()
                              ? ascii_[scalar]
                              : beyondAscii_ && std::ranges::binary_search(*beyondAscii_, scalar);
    return isListed != isInverted_;
  }

  /// Every scalar that this set does not hold. A byte that is not UTF-8 is in no set made of scalars, and so
  /// it is in every inverted one.
  constexpr CharacterSet inverted() const {
    CharacterSet set = *this;
    set.isInverted_ = !isInverted_;
    return set;
  }

  friend constexpr bool operator==(const CharacterSet&, const CharacterSet&) = default;

 private:
  void addBeyondAscii(std::string_view text);

  // A constant can hold a table, but no list that is allocated.
  std::array<bool, 0x80> ascii_{};
  // Ascending, each once; absent where the text has none.
  std::optional<std::u32string> beyondAscii_;
  bool isInverted_ = false;
};

}  // namespace quillonic
