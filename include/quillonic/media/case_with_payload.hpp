/// Base of values with a closed set of cases, one or two of which carry a number.
#pragma once

#include <quillonic/requirements.hpp>

#include <concepts>
#include <cstddef>
#include <span>
#include <vector>

namespace quillonic {

/// A `switch` over `kind()` reads like one over an enumeration, and the compiler reports a missing case:
///
///     switch (rate.kind()) {
///       case FrameRate::Kind::match: return keepRate();
///       case FrameRate::Kind::custom: return askFor(rate.value());
///       ...
///
/// Values are equal when case and number are. So a custom value never equals a fixed case, -0.0 equals 0.0,
/// and a value with NaN equals nothing, not even itself.
template <class KindType, class PayloadType> class CaseWithPayload {
 public:
  /// The enumeration of the cases, payload cases included.
  using Kind = KindType;
  /// The number or pair of numbers that a payload case carries.
  using Payload = PayloadType;

  /// The case, whatever its number.
  constexpr Kind kind() const noexcept { return kind_; }

  friend constexpr bool operator==(const CaseWithPayload&, const CaseWithPayload&) = default;

 protected:
  /// A fixed case; its payload is zero and unused.
  constexpr explicit CaseWithPayload(Kind kind) noexcept : CaseWithPayload(kind, {}) {}
  /// A case with a number, kept as given.
  constexpr CaseWithPayload(Kind kind, Payload payload) noexcept : kind_(kind), payload_(payload) {}

  /// The number of a payload case; zero for a fixed case, whose number is in its table.
  constexpr const Payload& payload() const noexcept { return payload_; }

 private:
  friend struct std::hash<CaseWithPayload>;

  Kind kind_;
  Payload payload_;
};

/// A type built on `CaseWithPayload`.
template <class T>
concept PayloadCases = requires {
  typename T::Kind;
  typename T::Payload;
}
&&std::derived_from<T, CaseWithPayload<typename T::Kind, typename T::Payload>>;

namespace detail {

// The members of a list that are in the options, in the list's order.
template <PayloadCases T> std::vector<T> membersAmong(std::span<const T> list, std::span<const T> options) {
  std::vector<T> members;
  for (const T& value : list) {
    bool isOption = false;
    for (const T& option : options) isOption = isOption || option == value;
    if (isOption) members.push_back(value);
  }
  return members;
}

}  // namespace detail

}  // namespace quillonic

template <class Kind, class Payload> struct std::hash<quillonic::CaseWithPayload<Kind, Payload>> {
  std::size_t operator()(const quillonic::CaseWithPayload<Kind, Payload>& value) const noexcept {
    constexpr std::size_t oddFactor = 31;
    return std::hash<Payload>{}(value.payload_) * oddFactor + static_cast<std::size_t>(value.kind_);
  }
};

template <quillonic::PayloadCases T>
struct std::hash<T> : std::hash<quillonic::CaseWithPayload<typename T::Kind, typename T::Payload>> {};
