/// Enumerations with a text per case, and the few names that all of them answer.
///
///     static_assert(rawValue(FileExtension::mov) == "mov");
///     static_assert(fromRawValue<FileExtension>("mov") == FileExtension::mov);
///     for (FileExtension extension : allCases<FileExtension>()) { ... }
///
/// There are two kinds. A closed enumeration is an `enum class` whose texts stand in one table; an open one
/// is a class over a text (see text_backed.hpp). Generic code asks either of them the same way.
#pragma once

#include <quillonic/export.hpp>

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

namespace quillonic {

/// The table of an enumeration's cases, specialised once beside each enumeration. A closed enumeration
/// supplies `rows`, an array of `CaseRow` in case order; an open one supplies `cases`, an array of its listed
/// values.
template <class Enumeration> struct CaseTable;

/// One case of a closed enumeration and its raw value: a text, or a number where the enumeration stands for
/// numbers.
template <class Enumeration, class RawValue = std::string_view> struct CaseRow {
  /// The case that the row is for.
  Enumeration value;
  /// What is stored and compared; each row has another one.
  RawValue rawValue;
};

/// An `enum class` that has a table of its cases.
template <class T>
concept ClosedEnumeration = std::is_enum_v<T> && requires {
  CaseTable<T>::rows.size();
};

namespace detail {

template <ClosedEnumeration E>
QUILLONIC_HIDDEN inline constexpr auto casesOf = [] {
  std::array<E, CaseTable<E>::rows.size()> cases{};
  for (std::size_t i = 0; i < cases.size(); ++i) cases[i] = CaseTable<E>::rows[i].value;
  return cases;
}();

template <class E> struct RawValueOf { using Type = std::string_view; };
template <ClosedEnumeration E> struct RawValueOf<E> {
  using Type = decltype(std::remove_cvref_t<decltype(CaseTable<E>::rows[0])>::rawValue);
};

}  // namespace detail

/// Every case, in the enumeration's own order. The span stays valid for the life of the program.
template <class E> constexpr std::span<const E> allCases() noexcept {
  if constexpr (ClosedEnumeration<E>) {
    return detail::casesOf<E>;
  } else {
    return E::allCases();
  }
}

/// The raw value of a case; the empty text, or 0, for a number that no case bears.
template <ClosedEnumeration E> constexpr typename detail::RawValueOf<E>::Type rawValue(E value) noexcept {
  for (const auto& row : CaseTable<E>::rows) {
    if (row.value == value) return row.rawValue;
  }
  return {};
}

/// The value whose raw value is exactly the given one, case included. A closed enumeration gives nothing for
/// one outside its table; an open one wraps any text and so always gives a value.
template <class E> constexpr std::optional<E> fromRawValue(typename detail::RawValueOf<E>::Type raw) {
  if constexpr (ClosedEnumeration<E>) {
    for (const auto& row : CaseTable<E>::rows) {
      if (row.rawValue == raw) return row.value;
    }
    return std::nullopt;
  } else {
    return E::fromRawValue(raw);
  }
}

/// A value that is equal and hashed by its text.
template <class T>
concept RawHashCase = std::equality_comparable<T> && requires(const T& value) {
  { rawValue(value) } -> std::convertible_to<std::string_view>;
  { fromRawValue<T>(std::string_view{}) } -> std::same_as<std::optional<T>>;
};

}  // namespace quillonic
