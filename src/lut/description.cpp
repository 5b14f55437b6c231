#include <quillonic/lut/lut.hpp>
#include <quillonic/support/coding.hpp>

#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace quillonic::lut {
namespace {

CodedValue encoded(const Rgb& color) {
  return quillonic::encode(std::vector<double>(color.begin(), color.end()));
}

// Readers of a value, if its key is there.
template <class Value> void read(const CodedRecord& record, std::string_view key, Value& value) {
  if (const auto* coded = record.find(key)) value = Coding<Value>::decode(*coded, key);
}

template <class Number>
void read(const CodedRecord& record, std::string_view key, std::optional<Number>& value) {
  const auto* number = record.optional<std::int64_t>(key);
  if (!number) return;
  if (*number < 0 || *number > std::numeric_limits<std::int32_t>::max())
    throw DecodingError(key, "the number is out of range");
  value = static_cast<Number>(*number);
}

void read(const CodedRecord& record, std::string_view key, Rgb& color) {
  const auto* coded = record.find(key);
  if (!coded) return;
  const auto numbers = Coding<std::vector<double>>::decode(*coded, key);
  if (numbers.size() != color.size()) throw DecodingError(key, "it has not three numbers");
  for (std::size_t channel = 0; channel < color.size(); ++channel)
    color[channel] = static_cast<float>(numbers[channel]);
}

}  // namespace

CodedValue Description::encode() const {
  CodedRecord record;
  record.add("format", quillonic::encode(header.format));
  record.add("kind", quillonic::encode(kind));
  record.add("title", header.title);
  record.add("comments", header.comments);
  record.add("unknownLines", header.unknownLines);
  record.add("expectsVideoRange", header.expectsVideoRange);
  record.add("givesVideoRange", header.givesVideoRange);
  if (header.depth) record.add("depth", std::int64_t{*header.depth});
  if (size1D) record.add("size1D", static_cast<std::int64_t>(*size1D));
  if (size3D) record.add("size3D", static_cast<std::int64_t>(*size3D));
  record.add("domainMin", encoded(domain.min));
  record.add("domainMax", encoded(domain.max));
  return record;
}

Description Description::from(const CodedValue& coded) {
  const auto& record = coded.require<CodedRecord>();
  Description description;
  auto& [header, kind, size1D, size3D, domain] = description;
  read(record, "format", header.format);
  read(record, "kind", kind);
  read(record, "title", header.title);
  read(record, "comments", header.comments);
  read(record, "unknownLines", header.unknownLines);
  read(record, "expectsVideoRange", header.expectsVideoRange);
  read(record, "givesVideoRange", header.givesVideoRange);
  read(record, "depth", header.depth);
  read(record, "size1D", size1D);
  read(record, "size3D", size3D);
  read(record, "domainMin", domain.min);
  read(record, "domainMax", domain.max);
  if (!domain.isValid()) throw DecodingError("domainMax", "it is not above domainMin");
  return description;
}

}  // namespace quillonic::lut
