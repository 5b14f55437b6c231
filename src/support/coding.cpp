#include <quillonic/support/coding.hpp>

#include <algorithm>

#include "text/utf8.hpp"

namespace quillonic {
namespace {

std::string message(std::string_view key, std::string_view reason) {
  std::string text = "cannot decode ";
  if (key.empty()) {
    text += "the value";
  } else {
    text.append("'").append(key).append("'");
  }
  return text.append(": ").append(reason);
}

}  // namespace

bool isUtf8(std::string_view text) noexcept {
  while (!text.empty()) {
    const auto [scalar, length, valid] = utf8::decode(text);
    if (!valid) return false;
    text.remove_prefix(length);
  }
  return true;
}

DecodingError::DecodingError(std::string_view key, std::string_view reason)
    : std::runtime_error(message(key, reason)), key_(key) {}

DecodingError::DecodingError(const DecodingError&) = default;
DecodingError& DecodingError::operator=(const DecodingError&) = default;
DecodingError::~DecodingError() = default;

void CodedRecord::add(std::string_view key, CodedValue value) {
  members_.push_back({std::string(key), std::move(value)});
}

const CodedValue* CodedRecord::find(std::string_view key) const noexcept {
  const auto found = std::ranges::find(members_, key, &CodedMember::key);
  return found != members_.end() ? &found->value : nullptr;
}

bool operator==(const CodedRecord& a, const CodedRecord& b) {
  return a.members_ == b.members_;
}

std::size_t CodedValue::depthOf(const Alternatives& value) {
  std::size_t depth = 0;
  const auto add = [&](const CodedValue& inner) { depth = std::max(depth, inner.depth_ + 1); };
  if (const auto* list = std::get_if<CodedList>(&value)) std::ranges::for_each(*list, add);
  if (const auto* record = std::get_if<CodedRecord>(&value))
    std::ranges::for_each(record->members(), add, &CodedMember::value);
  if (depth > greatestCodedDepth) throw DecodingError({}, "lists and records are nested too deep");
  return depth;
}

bool operator==(const CodedValue& a, const CodedValue& b) {
  return a.value_ == b.value_;
}

}  // namespace quillonic
