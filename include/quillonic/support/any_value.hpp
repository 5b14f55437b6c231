/// A value of any type, for dictionaries whose values differ in kind: file attributes, disk descriptions.
///
///     std::map<std::string, AnyValue> attributes{{"size", 4096}, {"name", "clip.mov"}};
///     auto size = attributes["size"].as<std::uint64_t>();       // 4096
///     auto none = attributes["size"].as<std::string_view>();    // nothing: a number is not a text
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

// A character is neither a number nor a text, and a Boolean is not a number.
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

// A type unknown to this header. No pointers: what they point to may die first.
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

// Holds a value of a host's own type.
class QUILLONIC_EXPORT HostValue {
 public:
  HostValue() = default;
  HostValue(const HostValue&) = delete;
  HostValue& operator=(const HostValue&) = delete;
  virtual ~HostValue();

  virtual const std::type_info& type() const noexcept = 0;
  // `other` has the same type.
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

/// Holds nothing, a Boolean, a number, a text, a path, a date, or a value of a host type that can be copied
/// and has `==`. Numbers are read and compared by value, whatever the stored width. Every other value reads
/// as the type it was stored as and equals only its own kind: a text is not a path, a Boolean is not a
/// number. Copies share a host's value, which never changes.
class QUILLONIC_EXPORT AnyValue {
 public:
  /// Holds nothing: reads as no type and equals only another empty value.
  AnyValue() noexcept = default;

  // Implicit, so that dictionaries can be filled with plain values.
  // NOLINTBEGIN(google-explicit-constructor)
  /// A Boolean, not a number. Only `bool` itself converts.
  template <std::same_as<bool> Boolean> AnyValue(Boolean value) noexcept : value_(value) {}

  /// An integer of up to 64 bits, signed or unsigned, or a floating-point number; never rounded.
  template <detail::NumberOfAnyWidth Number>
  AnyValue(Number value) : value_(std::in_place_type<Kept<Number>>, value) {
    if constexpr (std::unsigned_integral<Kept<Number>>) {
      if (std::in_range<std::int64_t>(value))
        value_.template emplace<std::int64_t>(static_cast<std::int64_t>(value));
    }
  }

  /// A text of any bytes.
  AnyValue(std::string value) noexcept : value_(std::move(value)) {}
  /// Copies the text.
  AnyValue(std::string_view value) : value_(std::string(value)) {}
  /// Reads up to the terminating NUL; a null pointer gives an empty value.
  AnyValue(const char* value) {
    if (value) value_ = std::string(value);
  }

  /// A path; reads back only as a path.
  AnyValue(std::filesystem::path value) : value_(std::move(value)) {}

  /// A date of any precision down to the nanosecond. A date outside the range of 64-bit nanoseconds (1677 to
  /// 2262) becomes the nearest one in it.
  template <detail::TimePoint T> AnyValue(T value) noexcept : value_(clamped(value)) {}

  /// A value of a host type.
  template <class T>
  requires detail::HostType<std::remove_cvref_t<T>>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): constrained to other types
  AnyValue(T&& value)
      : value_(std::make_shared<const detail::HostValueOf<std::remove_cvref_t<T>>>(std::forward<T>(value))) {}
  // NOLINTEND(google-explicit-constructor)

  /// The value as `T`; nothing when it is of another kind. A number reads as every number type that holds it
  /// exactly: 4096.0 as an `int`, but 300 not as an 8-bit integer and 2^53 + 1 not as a `double`. A text
  /// reads as `std::string` or, without a copy, as a `std::string_view` that lives as long as this value.
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

  /// The value as a text for people, the same in every locale: "true", "1.5", a text or path unchanged, a
  /// date as "2024-05-06T07:08:09.5Z". A host's value gives its `description`, or else its `rawValue`, where
  /// argument-dependent look-up finds one.
  std::string description() const;

  /// Compares by value. Numbers compare exactly, without rounding; NaN equals NaN, so that every value equals
  /// its copies. A member, so that comparing containers of values never converts the containers to values.
  bool operator==(const AnyValue& other) const;

 private:
  using Host = std::shared_ptr<const detail::HostValue>;

  // The widest type for a kind of number.
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

  // Unsigned only for integers too large for a signed one, so that equal integers have one form. A moved-from
  // host value is null.
  std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string, std::filesystem::path,
               Date, Host>
      value_;
};

}  // namespace quillonic
