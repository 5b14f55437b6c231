/// Coded values as JSON, for hosts that have nlohmann-json. The library itself does not need it: all of this
/// is in the header.
///
///     std::string text = toJson(encode(settings)).dump();
///     auto settings = decode<TranscodeCliArguments>(fromJson(nlohmann::ordered_json::parse(text)));
///
/// A record becomes an object, a list an array, a text a string; the rest keeps its JSON name. A value that
/// JSON cannot express becomes an object with one member whose key has a leading "$", so that every coded
/// value survives:
///
/// | coded value | JSON |
/// | --- | --- |
/// | a text that is not UTF-8 | {"$bytes": "66ff"}, two hexadecimal digits per byte |
/// | a number that is not finite | {"$number": "nan"}, "inf" or "-inf" |
/// | a record with equal keys, a key not in UTF-8, or a single "$" key | {"$record": [[key, value], ...]} |
#pragma once

#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quillonic {

/// The maximum nesting depth of arrays and objects in a JSON value, including those of the table above.
/// Reading rejects deeper values, so that no external text exhausts the stack.
inline constexpr std::size_t greatestJsonDepth = greatestCodedDepth;

namespace detail {

inline constexpr std::string_view bytesTag = "$bytes";
inline constexpr std::string_view numberTag = "$number";
inline constexpr std::string_view recordTag = "$record";
inline constexpr std::string_view hexDigits = "0123456789abcdef";

inline std::string hexText(std::string_view bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text.push_back(hexDigits[byte / hexDigits.size()]);
    text.push_back(hexDigits[byte % hexDigits.size()]);
  }
  return text;
}

inline std::string hexBytes(std::string_view text) {
  if (text.size() % 2 != 0) throw DecodingError(bytesTag, "half a byte is missing");
  const auto digit = [](char c) {
    const auto value = hexDigits.find(c);
    if (value == std::string_view::npos) throw DecodingError(bytesTag, "not a lower-case hexadecimal digit");
    return value;
  };
  std::string bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i < text.size(); i += 2)
    bytes.push_back(static_cast<char>(digit(text[i]) * hexDigits.size() + digit(text[i + 1])));
  return bytes;
}

// Whether a plain record, written as an object, would be read as a tag.
inline bool looksLikeTag(std::size_t members, std::string_view firstKey) {
  return members == 1 && firstKey.starts_with('$');
}

inline bool fitsObject(const CodedRecord& record) {
  const auto& members = record.members();
  if (!members.empty() && looksLikeTag(members.size(), members.front().key)) return false;
  std::vector<std::string_view> keys;
  keys.reserve(members.size());
  for (const auto& member : members) keys.push_back(member.key);
  std::sort(keys.begin(), keys.end());
  return std::adjacent_find(keys.begin(), keys.end()) == keys.end() &&
         std::all_of(keys.begin(), keys.end(), isUtf8);
}

class JsonWriter {
 public:
  using Json = nlohmann::ordered_json;

  Json operator()(std::monostate /*nothing*/) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(std::int64_t value) const { return value; }
  Json operator()(double value) const {
    if (std::isfinite(value)) return value;
    return tagged(numberTag, std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf");
  }
  Json operator()(const std::string& text) const {
    return isUtf8(text) ? Json(text) : tagged(bytesTag, hexText(text));
  }
  Json operator()(const CodedList& list) const {
    Json::array_t array;
    array.reserve(list.size());
    for (const auto& value : list) array.push_back(write(value));
    return array;
  }
  Json operator()(const CodedRecord& record) const {
    if (!fitsObject(record)) {
      Json::array_t pairs;
      for (const auto& [key, value] : record.members())
        pairs.push_back(Json::array_t{(*this)(key), write(value)});
      return tagged(recordTag, std::move(pairs));
    }
    Json::object_t object;
    object.reserve(record.members().size());
    // The container's own emplace would compare with every existing key; these are known to be unique.
    for (const auto& [key, value] : record.members()) object.emplace_back(key, write(value));
    return object;
  }

  Json write(const CodedValue& value) const { return std::visit(*this, value.alternatives()); }

 private:
  static Json tagged(std::string_view tag, Json value) {
    Json::object_t object;
    object.emplace_back(std::string(tag), std::move(value));
    return object;
  }
};

template <class Json> class JsonReader {
 public:
  CodedValue read(const Json& json, std::size_t depth = 0) const {
    if (depth > greatestJsonDepth) throw DecodingError({}, "lists and records are nested too deep");
    switch (json.type()) {
      case Json::value_t::null:
        return {};
      case Json::value_t::boolean:
        return json.template get<bool>();
      case Json::value_t::number_integer:
        return json.template get<std::int64_t>();
      case Json::value_t::number_unsigned:
        if (!std::in_range<std::int64_t>(json.template get<std::uint64_t>()))
          throw DecodingError({}, "an integer is too great for 64 bits with a sign");
        return json.template get<std::int64_t>();
      case Json::value_t::number_float:
        return static_cast<double>(json.template get<typename Json::number_float_t>());
      case Json::value_t::string:
        return std::string(json.template get_ref<const typename Json::string_t&>());
      case Json::value_t::binary: {
        const auto& bytes = json.get_binary();
        return std::string(bytes.begin(), bytes.end());
      }
      case Json::value_t::array: {
        CodedList list;
        list.reserve(json.size());
        for (const auto& item : json) list.push_back(read(item, depth + 1));
        return list;
      }
      case Json::value_t::object:
        return readObject(json, depth);
      case Json::value_t::discarded:
        break;
    }
    throw DecodingError({}, "the text was no JSON");
  }

 private:
  CodedValue readObject(const Json& json, std::size_t depth) const {
    if (!json.empty() && looksLikeTag(json.size(), json.begin().key()))
      return readTagged(json.begin().key(), json.begin().value(), depth);
    CodedRecord record;
    for (auto member = json.begin(); member != json.end(); ++member)
      record.add(member.key(), read(member.value(), depth + 1));
    return record;
  }

  CodedValue readTagged(std::string_view tag, const Json& json, std::size_t depth) const {
    const CodedValue value = read(json, depth + 1);
    if (tag == bytesTag) return hexBytes(value.require<std::string>(tag));
    if (tag == numberTag) {
      const auto& number = value.require<std::string>(tag);
      if (number == "nan") return std::numeric_limits<double>::quiet_NaN();
      if (number == "inf") return std::numeric_limits<double>::infinity();
      if (number == "-inf") return -std::numeric_limits<double>::infinity();
    } else if (tag == recordTag) {
      CodedRecord record;
      for (const auto& item : value.require<CodedList>(tag)) {
        const auto& pair = item.require<CodedList>(tag);
        if (pair.size() != 2) throw DecodingError(tag, "a member is not a key and a value");
        record.add(pair[0].require<std::string>(tag), pair[1]);
      }
      return record;
    }
    throw DecodingError(tag, "no value is written so");
  }
};

}  // namespace detail

/// Converts a coded value to JSON; never fails. The text of the result (`dump()`) is UTF-8 and keeps the
/// order of all keys; floating-point numbers read back to the same value.
inline nlohmann::ordered_json toJson(const CodedValue& value) {
  return detail::JsonWriter().write(value);
}

/// Reads what `toJson` wrote, or the same form written by hand. Throws a `DecodingError` for an integer that
/// needs all 64 bits without a sign, an unknown tag, and values nested too deeply; the parser turns larger
/// integers into floating-point numbers. Parse the text as `nlohmann::ordered_json`: `nlohmann::json` sorts
/// the keys and so the members of records. The parser throws its own exceptions for invalid JSON.
template <class Json> CodedValue fromJson(const Json& json) {
  return detail::JsonReader<Json>().read(json);
}

}  // namespace quillonic
