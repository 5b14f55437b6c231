// A value, or the error that explains its absence. Operations without a value return a plain
// `std::error_code`.
#pragma once

#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>
#include <variant>

namespace quillonic {

template <class T> class [[nodiscard]] Result {
 public:
  // Implicit, so that operations can return either.
  // NOLINTBEGIN(google-explicit-constructor)
  Result(T value) : outcome_(std::in_place_index<0>, std::move(value)) {}
  Result(std::error_code error) noexcept : outcome_(std::in_place_index<1>, error) {}
  template <class E>
  requires std::is_error_code_enum_v<E> Result(E error)
  noexcept : Result(make_error_code(error)) {}
  // NOLINTEND(google-explicit-constructor)

  explicit operator bool() const noexcept { return outcome_.index() == 0; }

  const T& operator*() const& noexcept { return *std::get_if<0>(&outcome_); }
  T&& operator*() && noexcept { return std::move(*std::get_if<0>(&outcome_)); }
  const T* operator->() const noexcept { return std::get_if<0>(&outcome_); }
  T value_or(T other) && { return *this ? *std::move(*this) : std::move(other); }
  std::optional<T> asOptional() && { return *this ? std::optional<T>(*std::move(*this)) : std::nullopt; }

  // No error when there is a value.
  std::error_code error() const noexcept { return *this ? std::error_code() : *std::get_if<1>(&outcome_); }

 private:
  std::variant<T, std::error_code> outcome_;
};

}  // namespace quillonic
