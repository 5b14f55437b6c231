/// Sets of Unicode scalars.
///
///     constexpr auto separators = CharacterSet::of("/:");
///     static_assert(separators.contains(U':') && separators.inverted().contains(U'a'));
#pragma once

#include <quillonic/export.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace quillonic {

/// The scalars of a text, or all but those. Tells a scalar of ASCII with one look-up.
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
      if (byte < 0x80) {
        set.bytes_[byte] = true;
      } else {
        isAscii = false;
      }
    }
    if (!isAscii) set.addBeyondAscii(text);
    return set;
  }

  /// Whether a scalar is in the set. Takes logarithmic time beyond ASCII.
  constexpr bool contains(char32_t scalar) const noexcept {
    if (scalar < 0x80) return bytes_[scalar];
    return std::ranges::binary_search(beyondAscii_, scalar) != isInverted_;
  }

  /// Every scalar that this set does not hold. A byte that is not UTF-8 is in no set made of scalars, and so
  /// it is in every inverted one.
  constexpr CharacterSet inverted() const {
    CharacterSet set = *this;
    for (bool& holds : set.bytes_) holds = !holds;
    set.isInverted_ = !isInverted_;
    return set;
  }

  /// Whether a byte of a text is in the set: a scalar of ASCII, or else a byte that is not UTF-8. Where
  /// `isDecidedByBytes()` holds, the same goes for each byte of a longer scalar.
  constexpr bool containsByte(unsigned char byte) const noexcept { return bytes_[byte]; }
  /// Whether the set holds either all scalars beyond ASCII or none of them.
  constexpr bool isDecidedByBytes() const noexcept { return beyondAscii_.empty(); }

  friend constexpr bool operator==(const CharacterSet&, const CharacterSet&) = default;

 private:
  void addBeyondAscii(std::string_view text);

  // By byte: the scalars of ASCII, then what holds for a byte that is no scalar.
  std::array<bool, 256> bytes_{};
  bool isInverted_ = false;
  // Ascending, each once: scalars whose membership differs from that of all other ones beyond ASCII.
  std::vector<char32_t> beyondAscii_;
};

}  // namespace quillonic
