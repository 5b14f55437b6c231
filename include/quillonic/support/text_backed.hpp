/// Open enumerations: values that are a text, of which only some are listed.
///
///     VAVTranscodeArgumentVideoCodecValue codec = VAVAvcH264Codec;   // a listed constant, at no cost
///     VAVTranscodeArgumentVideoCodecValue other(userText);           // any std::string can be wrapped
///     if (codec == other) ...                                        // by text
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace quillonic {

/// A string literal. Only a literal converts to it, at compile time, so the text it names never dies.
class TextLiteral {
 public:
  /// The characters up to the terminating NUL, which is left out.
  template <std::size_t size>
  // NOLINTNEXTLINE(google-explicit-constructor): a literal stands for itself
  consteval TextLiteral(const char (&literal)[size]) : text_(literal, size - 1) {}

  /// The literal, valid for the life of the program.
  constexpr std::string_view text() const noexcept { return text_; }

 private:
  std::string_view text_;
};

namespace detail {
/// What tells an open enumeration from any other type, without naming its base template.
class TextBackedMark {};
}  // namespace detail

/// Base of the open enumerations. A listed constant refers to its literal; a text wrapped at run time is
/// owned. Values are copied freely, compare and hash by text, and a value read as `std::string_view` is that
/// text.
template <class Self> class TextBacked : public detail::TextBackedMark {
 public:
  /// A value over a literal: `constexpr`, never allocates.
  constexpr explicit TextBacked(TextLiteral literal) noexcept : text_(literal.text()) {}

  /// Wraps any text, listed or not, and owns a copy of it.
  template <class Text>
  requires std::same_as<std::remove_cvref_t<Text>, std::string> ||
      std::same_as<std::remove_cvref_t<Text>, std::string_view>
  constexpr explicit TextBacked(Text&& text)
      : text_(std::in_place_type<std::string>, std::forward<Text>(text)) {}

  /// The value's text, valid as long as the value.
  constexpr std::string_view rawValue() const noexcept {
    return text_.index() == 0 ? std::get<0>(text_) : std::string_view(std::get<1>(text_));
  }

  /// Reads as its text wherever a text is wanted, such as a look-up in a dictionary of flags.
  // NOLINTNEXTLINE(google-explicit-constructor): the value is its text
  constexpr operator std::string_view() const noexcept { return rawValue(); }

  /// Wraps any text; never absent, since the enumeration is open.
  static constexpr std::optional<Self> fromRawValue(std::string_view text) { return Self(text); }

  /// The listed values, in their fixed order. The span stays valid for the life of the program.
  static constexpr std::span<const Self> allCases() noexcept { return CaseTable<Self>::cases; }

  friend constexpr bool operator==(const Self& a, const Self& b) noexcept {
    return a.rawValue() == b.rawValue();
  }
  /// Values are ordered by their texts, also beside a text: a constant finds its entry in a `TextDictionary`.
  friend constexpr std::strong_ordering operator<=>(const Self& a, const Self& b) noexcept {
    return a.rawValue() <=> b.rawValue();
  }
  friend constexpr std::strong_ordering operator<=>(const Self& a, std::string_view b) noexcept {
    return a.rawValue() <=> b;
  }
  friend constexpr std::string_view rawValue(const Self& value) noexcept { return value.rawValue(); }

 protected:
  /// The listed value with exactly this text.
  static constexpr std::optional<Self> listed(std::string_view text) {
    for (const Self& value : allCases()) {
      if (value.rawValue() == text) return value;
    }
    return std::nullopt;
  }

 private:
  std::variant<std::string_view, std::string> text_;
};

/// The listed values of an open enumeration. They are literals and own nothing, so they are never destroyed: to
/// destroy them one by one is no constant expression for every compiler under its sanitisers.
template <class Value, std::size_t count> class CaseList {
 public:
  /// Copies the values, of which there is at least one.
  template <class... Rest>
  constexpr explicit CaseList(const Value& first, const Rest&... rest) noexcept : values_{first, rest...} {}
  CaseList(const CaseList&) = delete;
  CaseList& operator=(const CaseList&) = delete;
  // NOLINTNEXTLINE(modernize-use-equals-default): the default is deleted
  constexpr ~CaseList() {}

  // NOLINTNEXTLINE(google-explicit-constructor): a list reads as its values
  /// All values in their order, valid as long as the list.
  constexpr operator std::span<const Value>() const noexcept { return values_; }

 private:
  union {
    Value values_[count];
  };
};

/// Lets `CaseList{first, ...}` name neither type nor number.
template <class First, class... Rest>
CaseList(const First&, const Rest&...) -> CaseList<First, 1 + sizeof...(Rest)>;

/// An open enumeration: a class over `TextBacked`.
template <class T>
concept OpenEnumeration = std::derived_from<T, detail::TextBackedMark>;

}  // namespace quillonic

template <quillonic::OpenEnumeration T> struct std::hash<T> {
  std::size_t operator()(const T& value) const noexcept {
    return std::hash<std::string_view>{}(value.rawValue());
  }
};
