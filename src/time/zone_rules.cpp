#include "time/zone_rules.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quillonic {
namespace {

using std::chrono::sys_seconds;

// Takes numbers, the highest byte first, from the front of a file. What is missing is zero.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) noexcept : rest_(bytes) {}

  std::string_view take(std::size_t count) noexcept {
    isShort_ = isShort_ || count > rest_.size();
    const auto taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }
  template <class Number> Number number(std::size_t size = sizeof(Number)) noexcept {
    std::uint64_t bits = 0;
    const auto bytes = take(size);
    for (const char c : bytes) bits = bits << 8 | static_cast<unsigned char>(c);
    // A shorter number keeps its sign.
    const auto above = 64 - 8 * size;
    return static_cast<Number>(static_cast<std::int64_t>(bits << above) >> above);
  }

  std::string_view rest() const noexcept { return rest_; }
  bool isShort() const noexcept { return isShort_; }

 private:
  std::string_view rest_;
  bool isShort_ = false;
};

struct Header {
  char version = 0;
  std::uint32_t utcMarks = 0, standardMarks = 0, leapSeconds = 0, changes = 0, types = 0, letters = 0;

  static std::optional<Header> from(Bytes& bytes) noexcept {
    if (bytes.take(4) != "TZif") return std::nullopt;
    Header header;
    header.version = bytes.number<char>();
    bytes.take(15);
    for (auto* count : {&header.utcMarks, &header.standardMarks, &header.leapSeconds, &header.changes,
                        &header.types, &header.letters}) {
      *count = bytes.number<std::uint32_t>();
    }
    return bytes.isShort() ? std::nullopt : std::optional(header);
  }

  std::size_t sizeOfChanges(std::size_t timeSize) const noexcept { return changes * (timeSize + 1); }
  std::size_t size(std::size_t timeSize) const noexcept {
    return sizeOfChanges(timeSize) + types * std::size_t{6} + sizeAfterTypes(timeSize);
  }
  std::size_t sizeAfterTypes(std::size_t timeSize) const noexcept {
    return letters + leapSeconds * (timeSize + 4) + standardMarks + utcMarks;
  }
};

}  // namespace

std::optional<ZoneRules> ZoneRules::fromFile(std::string_view file) {
  Bytes bytes(file);
  auto header = Header::from(bytes);
  if (!header) return std::nullopt;
  // Later versions repeat everything with longer times.
  const bool isLong = header->version != 0;
  const std::size_t timeSize = isLong ? 8 : 4;
  if (isLong) {
    bytes.take(header->size(4));
    header = Header::from(bytes);
  }
  if (!header || header->types == 0 || header->leapSeconds != 0 ||
      bytes.rest().size() < header->size(timeSize)) {
    return std::nullopt;
  }

  Bytes times(bytes.take(header->changes * timeSize));
  const auto types = bytes.take(header->changes);
  std::vector<std::chrono::seconds> offsets(header->types);
  std::optional<std::chrono::seconds> standard;
  for (auto& offset : offsets) {
    offset = std::chrono::seconds(bytes.number<std::int32_t>());
    const bool isSummer = bytes.number<std::uint8_t>() != 0;
    bytes.take(1);
    if (offset > greatestOffset || offset < -greatestOffset) return std::nullopt;
    if (!isSummer && !standard) standard = offset;
  }
  bytes.take(header->sizeAfterTypes(timeSize));

  std::vector<Change> changes(header->changes);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const auto type = static_cast<unsigned char>(types[i]);
    changes[i].instant = sys_seconds(std::chrono::seconds(times.number<std::int64_t>(timeSize)));
    if (type >= offsets.size() || (i > 0 && changes[i].instant <= changes[i - 1].instant))
      return std::nullopt;
    changes[i].offset = offsets[type];
  }

  std::optional<YearlyRule> rule;
  if (isLong) {
    const auto start = bytes.take(1);
    const auto text = bytes.take(bytes.rest().find('\n'));
    if (start != "\n" || bytes.take(1) != "\n") return std::nullopt;
    if (!text.empty() && !(rule = YearlyRule::fromText(text))) return std::nullopt;
  }
  return ZoneRules(standard.value_or(offsets.front()), std::move(changes), rule);
}

OffsetSpan ZoneRules::spanAt(sys_seconds instant) const noexcept {
  const auto next = std::ranges::upper_bound(changes_, instant, {}, &Change::instant);
  OffsetSpan span{sys_seconds::min(), sys_seconds::max(), firstOffset_};
  if (next == changes_.end() && rule_) span = rule_->spanAt(instant);
  if (next != changes_.end()) span.end = next->instant;
  if (next == changes_.begin()) return span;
  const auto& last = *std::prev(next);
  span.begin = std::max(span.begin, last.instant);
  if (next != changes_.end() || !rule_) span.offset = last.offset;
  return span;
}

}  // namespace quillonic
