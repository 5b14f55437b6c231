/// A value of any type, for dictionaries whose values differ in kind: file attributes, disk descriptions.
///
///     std::map<std::string, AnyValue> attributes{{"size", 4096}, {"name", "clip.mov"}};
///     auto size = attributes["size"].as<std::uint64_t>();       // 4096
///     auto none = attributes["size"].as<std::string_view>();    // nothing: a number is no text
///     bool same = attributes["size"] == AnyValue(4096.0);       // true
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/date.hpp>

#include <chrono>
#include <concepts>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>

namespace quillonic {

class AnyValue;

namespace detail {

template <class T, class... Others> inline constexpr bool isOneOf = (std::same_as<T, Others> || ...);

// Characters are neither numbers nor texts, and a Boolean is no number.
template <class T>
concept IntegerOfAnyWidth = std::integral<T> && sizeof(T) <= sizeof(std::int64_t) &&
                            !isOneOf<T, bool, char, wchar_t, char8_t, char16_t, char32_t>;

template <class T>
concept NumberOfAnyWidth = IntegerOfAnyWidth<T> || isOneOf<T, float, double>;

template <class T> inline constexpr bool isTimePoint = false;
template <class Clock, class Duration>
inline constexpr bool isTimePoint<std::chrono::time_point<Clock, Duration>> = true;

template <class T>
concept TimePoint = isTimePoint<T> && std::convertible_to<T, Date>;

// A type that this header knows nothing of. Pointers are left out: what they point to may die first.
template <class T>
concept HostType =
    (std::is_class_v<T> || std::is_enum_v<T> ||
     std::is_union_v<T>)&&!isOneOf<T, AnyValue, std::string, std::string_view, std::filesystem::path> &&
    !isTimePoint<T> && std::equality_comparable<T> && std::copy_constructible<T>;

template <class T> std::string descriptionOf(const T& value) {
  if constexpr (requires { std::string(description(value)); }) {
    return std::string(description(value));
  } else if constexpr (requires { std::string(rawValue(value)); }) {
    return std::string(rawValue(value));
  } else {
    return "(value of a host type)";
  }
}

// The box in which a value of a host's own type is kept.
class QUILLONIC_EXPORT HostValue {
 public:
  HostValue() = default;
  HostValue(const HostValue&) = delete;
  HostValue& operator=(const HostValue&) = delete;
  virtual ~HostValue();

  virtual const std::type_info& type() const noexcept = 0;
  // Both are of the same type.
  virtual bool equals(const HostValue& other) const = 0;
  virtual std::string description() const = 0;
};

template <class T> class HostValueOf final : public HostValue {
 public:
  explicit HostValueOf(T value) : value_(std::move(value)) {}

  const T& value() const noexcept { return value_; }

  const std::type_info& type() const noexcept override { return typeid(T); }
  bool equals(const HostValue& other) const override {
    return value_ == static_cast<const HostValueOf&>(other).value_;
  }
  std::string description() const override { return descriptionOf(value_); }

 private:
  T value_;
};

}  // namespace detail

/// Holds nothing, a Boolean, a number, a text, a path, a date, or a value of a host's own type that can be
/// copied and has `==`. A number is read and compared by its value, whatever the width it was stored with;
/// everything else is read as the type it was stored as and equals its own kind only: a text is no path, and
/// a Boolean is no number. Copies of a host's value share it; nobody can change it.
class QUILLONIC_EXPORT AnyValue {
 public:
  /// Holds nothing: reads as no type, and equals only another one that holds nothing.
  AnyValue() noexcept = default;

  // A value stands for itself wherever a dictionary is filled.
  // NOLINTBEGIN(google-explicit-constructor)
  /// A Boolean, which is no number. Nothing but `bool` itself becomes one.
  template <std::same_as<bool> Boolean> AnyValue(Boolean value) noexcept : value_(value) {}

  /// An integer of up to 64 bits, signed or not, or a floating-point number; never rounded.
  template <detail::NumberOfAnyWidth Number>
  AnyValue(Number value) : value_(std::in_place_type<Kept<Number>>, value) {
    if constexpr (std::unsigned_integral<Kept<Number>>) {
      if (std::in_range<std::int64_t>(value))
        value_.template emplace<std::int64_t>(static_cast<std::int64_t>(value));
    }
  }

  /// A text is any bytes.
  AnyValue(std::string value) noexcept : value_(std::move(value)) {}
  /// Keeps a copy of the text.
  AnyValue(std::string_view value) : value_(std::string(value)) {}
  /// Up to the terminating NUL; a null pointer gives a value that holds nothing.
  AnyValue(const char* value) {
    if (value) value_ = std::string(value);
  }

  /// A path, which is no text: it reads back as a path only.
  AnyValue(std::filesystem::path value) : value_(std::move(value)) {}

  /// A date of any precision down to the nanosecond. One that a count of nanoseconds in 64 bits cannot reach,
  /// before 1677 or after 2262, becomes the nearest that it can.
  template <detail::TimePoint T> AnyValue(T value) noexcept : value_(clamped(value)) {}

  /// A value of a host's own type.
  template <class T>
  requires detail::HostType<std::remove_cvref_t<T>>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): constrained to other types
  AnyValue(T&& value)
      : value_(std::make_shared<const detail::HostValueOf<std::remove_cvref_t<T>>>(std::forward<T>(value))) {}
  // NOLINTEND(google-explicit-constructor)

  /// The value as `T`, or nothing when it is of another kind. A number reads as every number type that holds
  /// it exactly: 4096.0 as an `int`, 300 not as an 8-bit one, 2^53 + 1 not as a `double`. A text reads as
  /// `std::string` or, without a copy, as a `std::string_view` that lives as long as this value.
  template <class T> std::optional<T> as() const {
    static_assert(isReadable<T>, "no value can be read as this type");
    if constexpr (detail::IntegerOfAnyWidth<T>) {
      if constexpr (std::signed_integral<T>) {
        return narrowed<T>(asSigned());
      } else {
        return narrowed<T>(asUnsigned());
      }
    } else if constexpr (std::same_as<T, double>) {
      return asDouble();
    } else if constexpr (std::same_as<T, float>) {
      return asFloat();
    } else if constexpr (std::same_as<T, std::string_view>) {
      return held<std::string, std::string_view>();
    } else if constexpr (detail::HostType<T>) {
      const auto* host = std::get_if<Host>(&value_);
      if (!host || !*host || (*host)->type() != typeid(T)) return std::nullopt;
      return static_cast<const detail::HostValueOf<T>&>(**host).value();
    } else {
      return held<T, T>();
    }
  }

  /// Whether the value holds nothing.
  bool empty() const noexcept { return value_.index() == 0; }

  /// The value as a text for people, the same in every locale: "true", "1.5", a text or a path as it is, a
  /// date as "2024-05-06T07:08:09.5Z". A host's value gives what its `description` or else its `rawValue`
  /// says, where such a function is found beside its type.
  std::string description() const;

  /// Equal by value. Numbers compare exactly, without rounding; a NaN equals a NaN, so that every value
  /// equals its copies. A member, so that comparing containers of values never turns the containers into
  /// values.
  bool operator==(const AnyValue& other) const;

 private:
  using Host = std::shared_ptr<const detail::HostValue>;

  // The widest type of a number's kind.
  template <class Number>
  using Kept =
      std::conditional_t<std::floating_point<Number>, double,
                         std::conditional_t<std::unsigned_integral<Number>, std::uint64_t, std::int64_t>>;

  template <class T>
  static constexpr bool isReadable =
      detail::NumberOfAnyWidth<T> || detail::HostType<T> ||
      detail::isOneOf<T, bool, std::string, std::string_view, std::filesystem::path, Date>;

  template <class T> static constexpr Date clamped(T value) noexcept {
    using Duration = std::chrono::duration<std::int64_t, typename T::duration::period>;
    if (value > std::chrono::time_point_cast<Duration>(Date::max())) return Date::max();
    if (value < std::chrono::time_point_cast<Duration>(Date::min())) return Date::min();
    return value;
  }

  template <class T, class Wide> static constexpr std::optional<T> narrowed(std::optional<Wide> wide) {
    if (!wide || !std::in_range<T>(*wide)) return std::nullopt;
    return static_cast<T>(*wide);
  }

  template <class Alternative, class T> std::optional<T> held() const {
    const auto* value = std::get_if<Alternative>(&value_);
    return value ? std::optional<T>(*value) : std::nullopt;
  }

  std::optional<std::int64_t> asSigned() const noexcept;
  std::optional<std::uint64_t> asUnsigned() const noexcept;
  std::optional<double> asDouble() const noexcept;
  std::optional<float> asFloat() const noexcept;

  // An integer is unsigned only when it is too great for a signed one, so that equal ones lie alike. A host's
  // value is null where it was moved away.
  std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string, std::filesystem::path,
               Date, Host>
      value_;
};

}  // namespace quillonic
