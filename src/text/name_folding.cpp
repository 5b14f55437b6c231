#include "text/name_folding.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <vector>

#include "text/find_sorted.hpp"
#include "text/unicode.hpp"
#include "text/utf8.hpp"

namespace quillonic::text {
namespace {

// A scalar and its one or two parts; the second is 0 when absent.
struct Decomposition {
  char32_t scalar;
  char32_t first;
  char32_t second;
};

constexpr auto decompositions = std::to_array<Decomposition>({
#include "text/decomposition_table.inc"
});

// A small letter, and the small letter of its capital.
struct LetterVariant {
  char32_t scalar;
  char32_t letter;
};

constexpr auto letterVariants = std::to_array<LetterVariant>({
#include "text/letter_variant_table.inc"
});

char32_t withoutVariant(char32_t scalar) noexcept {
  const auto* variant = findSorted(letterVariants, scalar, &LetterVariant::scalar);
  return variant ? variant->letter : scalar;
}

struct CombiningRange {
  char32_t first;
  char32_t last;
  std::uint8_t combiningClass;
};

constexpr auto combiningRanges = std::to_array<CombiningRange>({
#include "text/combining_class_table.inc"
});

std::uint8_t combiningClass(char32_t scalar) noexcept {
  const auto range = std::ranges::lower_bound(combiningRanges, scalar, {}, &CombiningRange::last);
  return range != combiningRanges.end() && range->first <= scalar ? range->combiningClass : std::uint8_t{0};
}

// Appends the parts of a scalar. Hangul syllables follow a rule instead of a table.
void appendDecomposed(std::u32string& text, char32_t scalar) {
  constexpr char32_t firstSyllable = 0xAC00;
  constexpr char32_t syllables = 11172;
  constexpr char32_t vowels = 21;
  constexpr char32_t trails = 28;
  if (scalar - firstSyllable < syllables && scalar >= firstSyllable) {
    const auto index = scalar - firstSyllable;
    text.push_back(0x1100 + index / (vowels * trails));
    text.push_back(0x1161 + index / trails % vowels);
    if (index % trails != 0) text.push_back(0x11A7 + index % trails);
    return;
  }
  const auto* found = findSorted(decompositions, scalar, &Decomposition::scalar);
  if (!found) {
    text.push_back(withoutVariant(scalar));
    return;
  }
  appendDecomposed(text, found->first);
  if (found->second != 0) appendDecomposed(text, found->second);
}

// Sorts the marks after each letter by class.
void order(std::u32string& text) {
  for (auto at = text.begin(); at != text.end();) {
    const auto isMark = [](char32_t scalar) { return combiningClass(scalar) != 0; };
    const auto first = std::find_if(at, text.end(), isMark);
    at = std::find_if_not(first, text.end(), isMark);
    std::stable_sort(first, at, [](char32_t a, char32_t b) { return combiningClass(a) < combiningClass(b); });
  }
}

// Maps a byte that is not UTF-8 outside the range of scalars.
constexpr char32_t foreignByte = 0x200000;

std::string decomposed(std::string_view text) {
  // Whole folders are folded, and most of their names are ASCII.
  if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
    return std::string(text);
  std::u32string scalars;
  for (std::size_t at = 0; at < text.size();) {
    const auto [scalar, length, valid] = utf8::decode(text.substr(at));
    if (valid) {
      appendDecomposed(scalars, scalar);
    } else {
      scalars.push_back(foreignByte + static_cast<unsigned char>(text[at]));
    }
    at += length;
  }
  order(scalars);
  std::string result;
  for (const char32_t scalar : scalars) {
    if (scalar >= foreignByte) {
      result.push_back(static_cast<char>(static_cast<unsigned char>(scalar - foreignByte)));
    } else {
      utf8::append(result, scalar);
    }
  }
  return result;
}

}  // namespace

std::string foldedName(std::string_view name) {
  // Lower-casing composes one letter again, so its result is decomposed once more.
  return decomposed(lowerCased(decomposed(name)));
}

}  // namespace quillonic::text
