/// Enumerations with a text per case, and the few functions that all of them have.
///
///     static_assert(rawValue(FileExtension::mov) == "mov");
///     static_assert(fromRawValue<FileExtension>("mov") == FileExtension::mov);
///     for (FileExtension extension : allCases<FileExtension>()) { ... }
///
/// A closed enumeration is an `enum class` with one table of its texts; an open one is a class over a text
/// (see text_backed.hpp). Generic code uses both in the same way.
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

/// The table of an enumeration's cases, specialised once next to each enumeration. A closed enumeration has
/// `rows`, an array of `CaseRow` in case order; an open one has `cases`, its listed values.
template <class Enumeration> struct CaseTable;

/// One case of a closed enumeration and its raw value, a text or a number.
template <class Enumeration, class RawValue = std::string_view> struct CaseRow {
  /// The case of the row.
  Enumeration value;
  /// What is stored and compared; unique within the table.
  RawValue rawValue;
};

/// An `enum class` with a table of its cases.
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

// The first row whose `member`, a field or getter, equals `value`; or null.
template <class Rows, class Member, class Value>
constexpr auto rowWhere(const Rows& rows, Member member, const Value& value) noexcept
    -> decltype(std::data(rows)) {
  for (const auto& row : rows) {
    if constexpr (std::is_member_function_pointer_v<Member>) {
      if ((row.*member)() == value) return &row;
    } else {
      if (row.*member == value) return &row;
    }
  }
  return nullptr;
}

// The row of a case; null for an unlisted value.
template <ClosedEnumeration E> constexpr const auto* rowOf(E value) noexcept {
  constexpr auto& rows = CaseTable<E>::rows;
  // Most tables have the row of each case at its number.
  const auto number = static_cast<std::size_t>(value);
  if (number < rows.size() && rows[number].value == value) return &rows[number];
  return rowWhere(rows, &std::remove_cvref_t<decltype(rows[0])>::value, value);
}

template <class E> struct RawValueOf { using Type = std::string_view; };
template <ClosedEnumeration E> struct RawValueOf<E> {
  using Type = decltype(std::remove_cvref_t<decltype(CaseTable<E>::rows[0])>::rawValue);
};

}  // namespace detail

/// Every case, in case order. The span stays valid for the life of the program.
template <class E>
requires ClosedEnumeration<E> || requires {
  { E::allCases() } -> std::convertible_to<std::span<const E>>;
}
constexpr std::span<const E> allCases() noexcept {
  if constexpr (ClosedEnumeration<E>) {
    return detail::casesOf<E>;
  } else {
    return E::allCases();
  }
}

/// The raw value of a case; the empty text or 0 for an unlisted value.
template <ClosedEnumeration E> constexpr typename detail::RawValueOf<E>::Type rawValue(E value) noexcept {
  const auto* row = detail::rowOf(value);
  return row ? row->rawValue : typename detail::RawValueOf<E>::Type{};
}

/// The value with exactly this raw value, case included. A closed enumeration gives nothing for an unlisted
/// raw value; an open one wraps any text.
template <class E>
requires ClosedEnumeration<E> || requires(std::string_view raw) {
  { E::fromRawValue(raw) } -> std::same_as<std::optional<E>>;
}
constexpr std::optional<E> fromRawValue(typename detail::RawValueOf<E>::Type raw) {
  if constexpr (ClosedEnumeration<E>) {
    using Row = std::remove_cvref_t<decltype(CaseTable<E>::rows[0])>;
    const auto* row = detail::rowWhere(CaseTable<E>::rows, &Row::rawValue, raw);
    return row ? std::optional(row->value) : std::nullopt;
  } else {
    return E::fromRawValue(raw);
  }
}

/// A value that compares and hashes by its text.
template <class T>
concept RawHashCase = std::equality_comparable<T> && requires(const T& value) {
  { rawValue(value) } -> std::convertible_to<std::string_view>;
  { fromRawValue<T>(std::string_view{}) } -> std::same_as<std::optional<T>>;
  { std::hash<T>{}(value) } -> std::same_as<std::size_t>;
};

}  // namespace quillonic
