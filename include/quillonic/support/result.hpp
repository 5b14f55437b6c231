/// A value, or the error that explains its absence.
///
///     const auto list = offload::HashList::fromText(text);
///     if (!list) std::cerr << list.error().description();
#pragma once

#include <concepts>
#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>
#include <variant>

namespace quillonic {

/// What an operation gives that may fail: `std::expected` of later standards, as far as it is needed here.
template <class T, std::default_initializable E = std::error_code> class [[nodiscard]] Result {
 public:
  // Implicit, so that operations can return either.
  // NOLINTBEGIN(google-explicit-constructor)
  /// A value.
  Result(T value) : outcome_(std::in_place_index<0>, std::move(value)) {}
  /// An error.
  Result(E error) noexcept : outcome_(std::in_place_index<1>, std::move(error)) {}
  /// An error code's enumerator.
  template <class Code>
  requires std::is_error_code_enum_v<Code> Result(Code code)
  noexcept : Result(make_error_code(code)) {}
  // NOLINTEND(google-explicit-constructor)

  /// Whether there is a value.
  bool has_value() const noexcept { return outcome_.index() == 0; }
  /// The same.
  explicit operator bool() const noexcept { return has_value(); }

  /// The value. Callers must know that there is one.
  const T& operator*() const& noexcept { return *std::get_if<0>(&outcome_); }
  /// The value, to be moved; likewise.
  T&& operator*() && noexcept { return std::move(*std::get_if<0>(&outcome_)); }
  /// A member of the value; likewise.
  const T* operator->() const noexcept { return std::get_if<0>(&outcome_); }

  /// The value. Throws a `std::bad_variant_access` if there is none.
  const T& value() const& { return std::get<0>(outcome_); }
  /// The value, to be moved; likewise.
  T&& value() && { return std::get<0>(std::move(outcome_)); }
  /// The value, or another if there is none.
  T value_or(T other) && { return *this ? *std::move(*this) : std::move(other); }
  /// The value, without the error.
  std::optional<T> asOptional() && { return *this ? std::optional<T>(*std::move(*this)) : std::nullopt; }

  /// The error; if there is a value, `E()`, which is no error for a `std::error_code`.
  E error() const { return *this ? E() : *std::get_if<1>(&outcome_); }

  friend bool operator==(const Result&, const Result&) = default;

 private:
  std::variant<T, E> outcome_;
};

}  // namespace quillonic
