/// Encoding and decoding: values as a small tree that any archive format can carry.
///
///     CodedValue coded = encode(model);                                // a record with ordered keys
///     auto copy = decode<TranscodeCliArguments>(coded);                // throws DecodingError
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace quillonic {

class CodedValue;
struct CodedMember;

/// Reports a coded value that cannot be decoded.
class QUILLONIC_EXPORT DecodingError : public std::runtime_error {
 public:
  /// `key` is the key whose value is missing or wrong, empty when the whole value is; `reason` completes the
  /// sentence "cannot decode 'key': ...".
  DecodingError(std::string_view key, std::string_view reason);
  DecodingError(const DecodingError&);
  DecodingError& operator=(const DecodingError&);
  ~DecodingError() override;

  const std::string& key() const noexcept { return key_; }

 private:
  std::string key_;
};

/// A list of coded values.
using CodedList = std::vector<CodedValue>;

/// Coded values by key, in the order in which they were added.
class QUILLONIC_EXPORT CodedRecord {
 public:
  /// Adds a member behind the others. Keys are the caller's to keep apart: of two equal ones the first is
  /// found.
  void add(std::string_view key, CodedValue value);

  /// The value of a key, or null. Valid until the record changes.
  const CodedValue* find(std::string_view key) const noexcept;

  /// The value of a key as `T`, which is one of the alternatives of `CodedValue`. Throws a `DecodingError`
  /// that names the key when it is missing or holds something else.
  template <class T> QUILLONIC_HIDDEN const T& require(std::string_view key) const;

  /// The same, but null when the key is missing.
  template <class T> QUILLONIC_HIDDEN const T* optional(std::string_view key) const;

  const std::vector<CodedMember>& members() const noexcept { return members_; }

  friend QUILLONIC_EXPORT bool operator==(const CodedRecord&, const CodedRecord&);

 private:
  std::vector<CodedMember> members_;
};

/// What a coded value may hold: a Boolean, a 64-bit integer, a floating-point number, a text (any bytes), a list or
/// a record.
template <class T>
concept CodedAlternative =
    std::same_as<T, bool> || std::same_as<T, std::int64_t> || std::same_as<T, double> ||
    std::same_as<T, std::string> || std::same_as<T, CodedList> || std::same_as<T, CodedRecord>;

/// Nothing, or one of the alternatives.
class CodedValue {
 public:
  using Alternatives =
      std::variant<std::monostate, bool, std::int64_t, double, std::string, CodedList, CodedRecord>;

  CodedValue() = default;
  /// Takes exactly one of the alternatives; nothing converts on the way.
  template <class T>
  requires CodedAlternative<std::remove_cvref_t<T>>
  // NOLINTNEXTLINE(google-explicit-constructor): a value reads as its coded form
  CodedValue(T&& value) : value_(std::in_place_type<std::remove_cvref_t<T>>, std::forward<T>(value)) {}

  /// The value as `T`, or null when it holds something else.
  template <CodedAlternative T> const T* as() const noexcept { return std::get_if<T>(&value_); }

  /// The value as `T`; throws a `DecodingError` that names `key` when it holds something else.
  template <CodedAlternative T> const T& require(std::string_view key = {}) const {
    if (const T* value = as<T>()) return *value;
    throw DecodingError(key, "the value has another type");
  }

  /// The value for `std::visit`, as an archive needs it.
  const Alternatives& alternatives() const noexcept { return value_; }

  friend QUILLONIC_EXPORT bool operator==(const CodedValue&, const CodedValue&);

 private:
  Alternatives value_;
};

/// One key of a record and its value.
struct CodedMember {
  std::string key;
  CodedValue value;

  friend bool operator==(const CodedMember&, const CodedMember&) = default;
};

template <class T> const T* CodedRecord::optional(std::string_view key) const {
  const CodedValue* value = find(key);
  return value ? &value->require<T>(key) : nullptr;
}

template <class T> const T& CodedRecord::require(std::string_view key) const {
  if (const T* value = optional<T>(key)) return *value;
  throw DecodingError(key, "the key is missing");
}

/// A value that is encoded and decoded as its bare text.
template <class T>
concept CodableRawHashCase = RawHashCase<T>;

/// The coded form of a value: an enumeration is its bare text, a record what its own `encode` gives.
template <class T> CodedValue encode(const T& value) {
  if constexpr (RawHashCase<T>) {
    return std::string(rawValue(value));
  } else {
    return value.encode();
  }
}

/// Reads a value back. Throws `DecodingError` when the coded form does not fit: for a closed enumeration also
/// when no case has the text.
template <class T> T decode(const CodedValue& coded) {
  if constexpr (RawHashCase<T>) {
    const auto& text = coded.require<std::string>();
    if (auto value = fromRawValue<T>(text)) return *value;
    throw DecodingError({}, "no case has the text \"" + text + "\"");
  } else {
    return T::from(coded);
  }
}

}  // namespace quillonic
