/// Open enumerations: any text is a value, and some values are listed.
///
///     VAVTranscodeArgumentVideoCodecValue codec = VAVAvcH264Codec;   // a listed constant, at no cost
///     VAVTranscodeArgumentVideoCodecValue other(userText);           // any std::string can be wrapped
///     if (codec == other || codec == "h265") ...                     // by text
///     std::cout << codec << ' ' << std::string(codec);
///
///     using Listed = CaseOf<VAVTranscodeArgumentVideoCodecValue>;    // an `enum class` of the listed values
///     if (const auto listed = codec.listedCase()) {
///       switch (*listed) { case Listed::dnxhdCodec: ... }            // a compiler warns of a missing case
///     }
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <compare>
#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace quillonic {

/// A string literal. Only literals convert to it, at compile time, so its text never dies.
class TextLiteral {
 public:
  /// Takes the characters before the terminating NUL.
  template <std::size_t size>
  // NOLINTNEXTLINE(google-explicit-constructor): a literal converts to its text
  consteval TextLiteral(const char (&literal)[size]) : text_(literal, size - 1) {}

  /// The literal, valid for the life of the program.
  constexpr std::string_view text() const noexcept { return text_; }

 private:
  std::string_view text_;
};

/// The listed values of an open enumeration as a closed one, in the same order, for a `switch`. An enumerator
/// has the name of its constant, without "VAV" and with a small first letter.
template <class Open> using CaseOf = typename CaseTable<Open>::Case;

/// Base of the open enumerations. A listed constant refers to its literal; a text wrapped at run time is
/// owned. Values compare, hash and print by text, and convert to `std::string_view`.
template <class Self> class TextBacked {
 public:
  /// Wraps a literal: `constexpr`, never allocates.
  constexpr explicit TextBacked(TextLiteral literal) noexcept : text_(literal.text()) {}

  /// Wraps a copy of any text, listed or not.
  template <class Text>
  requires std::same_as<std::remove_cvref_t<Text>, std::string> ||
      std::same_as<std::remove_cvref_t<Text>, std::string_view>
  constexpr explicit TextBacked(Text&& text)
      : text_(std::in_place_type<std::string>, std::forward<Text>(text)) {}

  /// Wraps a copy of a text that ends with NUL; a null pointer gives the empty text.
  template <class Text>
  requires std::same_as < std::remove_cvref_t<Text>,
  const char* > || std::convertible_to<Text, char*>
      // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): constrained to characters
      constexpr explicit TextBacked(Text&& text) : text_(std::in_place_type<std::string>, orEmpty(text)) {}

  /// The text, valid as long as the value.
  constexpr std::string_view rawValue() const noexcept {
    return text_.index() == 0 ? std::get<0>(text_) : std::string_view(std::get<1>(text_));
  }

  /// Converts to the text, for example to look up a flag in a dictionary.
  // NOLINTNEXTLINE(google-explicit-constructor): the value is its text
  constexpr operator std::string_view() const noexcept { return rawValue(); }

  /// Wraps any text; never absent, because the enumeration is open.
  static constexpr std::optional<Self> fromRawValue(std::string_view text) { return Self(text); }

  /// The listed values in their fixed order. The span stays valid for the life of the program.
  static constexpr std::span<const Self> allCases() noexcept { return CaseTable<Self>::cases; }

  /// The listed value with exactly this text, case included; nothing for other texts.
  static constexpr std::optional<Self> fromStringValue(std::string_view text) {
    const auto* value = detail::rowWhere(allCases(), &TextBacked::rawValue, text);
    return value ? std::optional(*value) : std::nullopt;
  }

  /// Which listed value this is, as a `CaseOf` its type; nothing for other texts. Its number is the position
  /// in `allCases`.
  constexpr auto listedCase() const noexcept {
    using Case = CaseOf<Self>;
    const auto* value = detail::rowWhere(allCases(), &TextBacked::rawValue, rawValue());
    return value ? std::optional(static_cast<Case>(value - allCases().data())) : std::nullopt;
  }

  friend constexpr bool operator==(const Self& a, const Self& b) noexcept {
    return a.rawValue() == b.rawValue();
  }
  /// Orders by text, also against a plain text, so that a constant finds its entry in a `TextDictionary`.
  friend constexpr std::strong_ordering operator<=>(const Self& a, const Self& b) noexcept {
    return a.rawValue() <=> b.rawValue();
  }
  friend constexpr bool operator==(const Self& a, std::string_view b) noexcept { return a.rawValue() == b; }
  friend constexpr std::strong_ordering operator<=>(const Self& a, std::string_view b) noexcept {
    return a.rawValue() <=> b;
  }
  friend constexpr std::string_view rawValue(const Self& value) noexcept { return value.rawValue(); }
  /// Prints the text.
  template <class Traits>
  friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                                      const Self& value) {
    return out << value.rawValue();
  }

 private:
  static constexpr const char* orEmpty(const char* text) noexcept { return text ? text : ""; }

  std::variant<std::string_view, std::string> text_;
};

/// The listed values of an open enumeration. Literals own nothing, so they are never destroyed: under
/// sanitisers, not every compiler accepts their destruction as a constant expression.
template <class Value, std::size_t count> class CaseList {
 public:
  /// Copies one value or more.
  template <class... Rest>
  constexpr explicit CaseList(const Value& first, const Rest&... rest) noexcept : values_{first, rest...} {}
  CaseList(const CaseList&) = delete;
  CaseList& operator=(const CaseList&) = delete;
  // NOLINTNEXTLINE(modernize-use-equals-default): the default is deleted
  constexpr ~CaseList() {}

  /// All values in order, valid as long as the list.
  // NOLINTNEXTLINE(google-explicit-constructor): a list reads as its values
  constexpr operator std::span<const Value>() const noexcept { return values_; }

 private:
  union {
    Value values_[count];
  };
};

/// Deduces the type and the count in `CaseList{first, ...}`.
template <class First, class... Rest>
CaseList(const First&, const Rest&...) -> CaseList<First, 1 + sizeof...(Rest)>;

/// An open enumeration: a class over `TextBacked`.
template <class T>
concept OpenEnumeration = std::derived_from<T, TextBacked<T>>;

}  // namespace quillonic

template <quillonic::OpenEnumeration T> struct std::hash<T> {
  std::size_t operator()(const T& value) const noexcept {
    return std::hash<std::string_view>{}(value.rawValue());
  }
};
