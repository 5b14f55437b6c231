/// Encoding and decoding: values as a small tree that any archive format can carry.
///
///     CodedValue coded = encode(model);                                // a record with ordered keys
///     auto copy = decode<TranscodeCliArguments>(coded);                // throws DecodingError
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace quillonic {

class CodedValue;
struct CodedMember;

/// Whether the whole text is UTF-8, as some archives demand. The texts of coded values are any bytes.
QUILLONIC_EXPORT bool isUtf8(std::string_view text) noexcept;

/// A coded value cannot be decoded.
class QUILLONIC_EXPORT DecodingError : public std::runtime_error {
 public:
  /// `key` is the key whose value is missing or wrong, or empty when the whole value is; `reason` completes
  /// the sentence "cannot decode 'key': ...".
  DecodingError(std::string_view key, std::string_view reason);
  /// Copies key and message, for exceptions that pass between threads.
  DecodingError(const DecodingError&);
  /// Copies key and message.
  DecodingError& operator=(const DecodingError&);
  ~DecodingError() override;

  /// The key whose value is missing or wrong; empty when the whole value is.
  const std::string& key() const noexcept { return key_; }

 private:
  std::string key_;
};

/// A list of coded values.
using CodedList = std::vector<CodedValue>;

/// Coded values by key, in the order they were added.
class QUILLONIC_EXPORT CodedRecord {
 public:
  /// Adds a member after the others. Callers must keep keys unique: `find` gives the first of equal keys.
  void add(std::string_view key, CodedValue value);

  /// The value of a key, or null. Valid until the record changes.
  const CodedValue* find(std::string_view key) const noexcept;

  /// The value of a key as `T`, an alternative of `CodedValue`. Throws a `DecodingError` that names the key
  /// when it is missing or has another type.
  template <class T> QUILLONIC_HIDDEN const T& require(std::string_view key) const;

  /// Like `require`, but null when the key is missing.
  template <class T> QUILLONIC_HIDDEN const T* optional(std::string_view key) const;

  /// All members, in the order they were added. Valid until the record changes.
  const std::vector<CodedMember>& members() const noexcept { return members_; }

  friend QUILLONIC_EXPORT bool operator==(const CodedRecord&, const CodedRecord&);

 private:
  std::vector<CodedMember> members_;
};

/// What a coded value can hold: a Boolean, a 64-bit integer, a floating-point number, a text (any bytes), a
/// list or a record.
template <class T>
concept CodedAlternative =
    std::same_as<T, bool> || std::same_as<T, std::int64_t> || std::same_as<T, double> ||
    std::same_as<T, std::string> || std::same_as<T, CodedList> || std::same_as<T, CodedRecord>;

/// The maximum nesting depth of lists and records, so that no external archive exhausts the stack.
inline constexpr std::size_t greatestCodedDepth = 500;

/// A coded value: nothing, or one of the alternatives.
class CodedValue {
 public:
  /// What a value can hold; the first alternative is nothing. Archives visit it.
  using Alternatives =
      std::variant<std::monostate, bool, std::int64_t, double, std::string, CodedList, CodedRecord>;

  CodedValue() = default;
  /// Takes exactly one of the alternatives, without conversion. Throws a `DecodingError` for a list or record
  /// that is nested deeper than `greatestCodedDepth`.
  template <class T>
  requires CodedAlternative<std::remove_cvref_t<T>>
  // NOLINTNEXTLINE(google-explicit-constructor): a value reads as its coded form
  CodedValue(T&& value)
      : value_(std::in_place_type<std::remove_cvref_t<T>>, std::forward<T>(value)), depth_(depthOf(value_)) {}

  /// The value as `T`, or null when it has another type.
  template <CodedAlternative T> const T* as() const noexcept { return std::get_if<T>(&value_); }

  /// The value as `T`; throws a `DecodingError` that names `key` when it has another type.
  template <CodedAlternative T> const T& require(std::string_view key = {}) const {
    if (const T* value = as<T>()) return *value;
    throw DecodingError(key, "the value has another type");
  }

  /// The value for `std::visit`.
  const Alternatives& alternatives() const noexcept { return value_; }

  friend QUILLONIC_EXPORT bool operator==(const CodedValue&, const CodedValue&);

 private:
  QUILLONIC_EXPORT static std::size_t depthOf(const Alternatives& value);

  Alternatives value_;
  // How many lists and records its innermost value is in.
  std::size_t depth_ = 0;
};

/// One key of a record and its value.
struct CodedMember {
  /// Any bytes; may be empty.
  std::string key;
  /// The value under the key.
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

/// How a type is encoded and decoded. Defined here for Booleans, 64-bit integers, floating-point numbers,
/// texts, lists, enumerations with texts, records with a table of fields, and every type with its own
/// `encode()` and `from(coded)`; hosts can specialise it for others. `decode` throws a `DecodingError` when
/// the coded form does not fit; `key` is the key of the value, which the error names when the value itself is
/// wrong.
template <class T> struct Coding;

/// A type that can be encoded and decoded, with everything in it.
template <class T>
concept Codable = requires(const T& value, const CodedValue& coded) {
  { Coding<T>::encode(value) } -> std::same_as<CodedValue>;
  { Coding<T>::decode(coded, std::string_view{}) } -> std::same_as<T>;
};

/// A field of a record and the key it is encoded under.
template <class Record, class Value> struct Field {
  /// The key in the coded record: a literal, so that it outlives the table.
  std::string_view key;
  /// The member that holds the value. A `std::optional` without a value is not encoded.
  Value Record::*member;
};

/// Deduces both types in `Field{"key", &Record::member}`.
template <class Record, class Value> Field(std::string_view, Value Record::*) -> Field<Record, Value>;

/// The fields of a plain record, as a tuple `fields` of `Field`; specialised once next to each encoded
/// record. An absent value has no key. A missing key leaves its field as in a new record, so that earlier
/// forms can be read; keys without a field are ignored.
template <class Record> struct FieldTable;

namespace detail {
template <class Value> inline constexpr bool isCodableField = Codable<Value>;
template <class Value> inline constexpr bool isCodableField<std::optional<Value>> = Codable<Value>;

template <class Fields> inline constexpr bool areCodableFields = false;
template <class Record, class... Values>
inline constexpr bool areCodableFields<const std::tuple<Field<Record, Values>...>> =
    (isCodableField<Values> && ...);
}  // namespace detail

/// A record with a table of its fields, all of which are codable. A record that holds records of its own type
/// encodes itself instead.
template <class T>
concept RecordOfFields =
    std::default_initializable<T> && detail::areCodableFields<decltype(FieldTable<T>::fields)>;

/// A type that encodes itself.
template <class T>
concept SelfCoding = requires(const T& value, const CodedValue& coded) {
  { value.encode() } -> std::same_as<CodedValue>;
  { T::from(coded) } -> std::same_as<T>;
};

template <CodedAlternative T> struct Coding<T> {
  static CodedValue encode(const T& value) { return value; }
  static T decode(const CodedValue& coded, std::string_view key) { return coded.require<T>(key); }
};

/// Archives may turn 24.0 into 24, so integers that a double holds exactly are accepted.
template <> struct Coding<double> {
  static CodedValue encode(double value) { return value; }
  static double decode(const CodedValue& coded, std::string_view key) {
    if (const auto* integer = coded.as<std::int64_t>()) {
      constexpr std::int64_t allHeld = std::int64_t{1} << std::numeric_limits<double>::digits;
      if (-allHeld <= *integer && *integer <= allHeld) return static_cast<double>(*integer);
    }
    return coded.require<double>(key);
  }
};

template <Codable T> struct Coding<std::vector<T>> {
  static CodedValue encode(const std::vector<T>& values) {
    CodedList list;
    list.reserve(values.size());
    for (const T& value : values) list.push_back(Coding<T>::encode(value));
    return list;
  }
  static std::vector<T> decode(const CodedValue& coded, std::string_view key) {
    const auto& list = coded.require<CodedList>(key);
    std::vector<T> values;
    values.reserve(list.size());
    for (const CodedValue& value : list) values.push_back(Coding<T>::decode(value, key));
    return values;
  }
};

template <RawHashCase T> struct Coding<T> {
  static CodedValue encode(const T& value) {
    std::string text(rawValue(value));
    if (fromRawValue<T>(text) != value) throw DecodingError({}, "\"" + text + "\" would not be decoded");
    return text;
  }
  static T decode(const CodedValue& coded, std::string_view key) {
    const auto& text = coded.require<std::string>(key);
    if (auto value = fromRawValue<T>(text)) return *std::move(value);
    throw DecodingError(key, "no case has the text \"" + text + "\"");
  }
};

template <SelfCoding T> struct Coding<T> {
  static CodedValue encode(const T& value) { return value.encode(); }
  static T decode(const CodedValue& coded, std::string_view /*key*/) { return T::from(coded); }
};

template <RecordOfFields T> struct Coding<T> {
  static CodedValue encode(const T& value) {
    CodedRecord record;
    std::apply([&](const auto&... field) { (add(record, field.key, value.*field.member), ...); },
               FieldTable<T>::fields);
    return record;
  }

  static T decode(const CodedValue& coded, std::string_view key) {
    const auto& record = coded.require<CodedRecord>(key);
    T value;
    std::apply([&](const auto&... field) { (read(record, field.key, value.*field.member), ...); },
               FieldTable<T>::fields);
    return value;
  }

 private:
  template <class Value> static void add(CodedRecord& record, std::string_view key, const Value& value) {
    record.add(key, Coding<Value>::encode(value));
  }
  template <class Value>
  static void add(CodedRecord& record, std::string_view key, const std::optional<Value>& value) {
    if (value) add(record, key, *value);
  }

  template <class Value> static void read(const CodedRecord& record, std::string_view key, Value& value) {
    if (const auto* coded = record.find(key)) value = Coding<Value>::decode(*coded, key);
  }
  template <class Value>
  static void read(const CodedRecord& record, std::string_view key, std::optional<Value>& value) {
    if (const auto* coded = record.find(key)) value = Coding<Value>::decode(*coded, key);
  }
};

/// A value that compares and hashes by its text, and encodes as that bare text.
template <class T>
concept CodableRawHashCase = RawHashCase<T> && Codable<T>;

/// Encodes a value. Throws a `DecodingError` for a value that could not be decoded: a number that is no case
/// of a closed enumeration, an unlisted anchor.
template <class T> CodedValue encode(const T& value) {
  static_assert(Codable<T>, "specialise Coding for this type, or FieldTable for a plain record");
  return Coding<T>::encode(value);
}

/// Decodes a value. Throws a `DecodingError` when the coded form does not fit, including a text that is no
/// case of a closed enumeration.
template <class T> T decode(const CodedValue& coded) {
  static_assert(Codable<T>, "specialise Coding for this type, or FieldTable for a plain record");
  return Coding<T>::decode(coded, {});
}

}  // namespace quillonic
