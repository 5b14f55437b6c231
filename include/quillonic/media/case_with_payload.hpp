/// What the values have in common that are one of a closed set of cases, of which one or two carry a number.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <span>
#include <vector>

namespace quillonic {

/// Base of these values. A `switch` over `kind()` reads like one over an enumeration, and the compiler says
/// when it leaves a case out:
///
///     switch (rate.kind()) {
///       case FrameRate::Kind::match: return keepRate();
///       case FrameRate::Kind::custom: return askFor(rate.value());
///       ...
///
/// Values are equal when the case and the number are: a number that a fixed case stands for does not make a
/// custom value equal to it, -0.0 equals 0.0, and a value that carries NaN equals nothing, itself included.
template <class KindType, class PayloadType> class CaseWithPayload {
 public:
  /// The enumeration of the cases, payload cases included.
  using Kind = KindType;
  /// The number that a payload case carries, or the pair of them.
  using Payload = PayloadType;

  /// Which case the value is, whatever number it carries.
  constexpr Kind kind() const noexcept { return kind_; }

  friend constexpr bool operator==(const CaseWithPayload&, const CaseWithPayload&) = default;

 protected:
  /// A fixed case; its payload is zero and nothing reads it.
  constexpr explicit CaseWithPayload(Kind kind) noexcept : CaseWithPayload(kind, {}) {}
  /// A case that carries a number, kept as it is given.
  constexpr CaseWithPayload(Kind kind, Payload payload) noexcept : kind_(kind), payload_(payload) {}

  /// The number of a payload case; zero for a fixed case, which takes its number from its table.
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

// The members of a list that are among the options, in the order of the list.
template <PayloadCases T>
constexpr std::vector<T> membersAmong(std::span<const T> list, std::span<const T> options) {
  std::vector<T> members;
  std::ranges::copy_if(list, std::back_inserter(members),
                       [=](const T& value) { return std::ranges::find(options, value) != options.end(); });
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
