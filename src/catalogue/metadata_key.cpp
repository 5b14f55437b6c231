#include <quillonic/catalogue/metadata_key.hpp>
#include <quillonic/platform/localization.hpp>

#include <charconv>
#include <cstddef>
#include <optional>

#include "catalogue/name_pattern.hpp"

namespace quillonic::catalogue {
namespace {

struct KeyRow {
  MetadataType type;
  std::string_view unit;
  std::string_view name;
  std::span<const MetadataPlace> places;
};

#include "catalogue/metadata_keys_table.inc"

const KeyRow* rowAt(MetadataKey key) noexcept {
  const auto number = static_cast<std::size_t>(key);
  return number < std::size(keyRows) ? &keyRows[number] : nullptr;
}

// A tag or an offset.
std::optional<std::uint32_t> number(std::string_view text) noexcept {
  const bool isTag = text.starts_with("0x") || text.starts_with("0X");
  if (isTag) text.remove_prefix(2);
  std::uint32_t found = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), found, isTag ? 16 : 10);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  return isWhole ? std::optional(found) : std::nullopt;
}

bool isAt(const MetadataPlace& place, std::string_view key) {
  if (place.key == key) return true;
  if (place.container == MetadataContainer::mdta) return capitals(place.key) == capitals(key);
  const auto own = number(place.key);
  return own && own == number(key);
}

}  // namespace

MetadataType type(MetadataKey key) noexcept {
  const auto* row = rowAt(key);
  return row ? row->type : MetadataType::text;
}

std::string_view unit(MetadataKey key) noexcept {
  const auto* row = rowAt(key);
  return row ? row->unit : std::string_view();
}

std::string displayName(MetadataKey key) {
  const auto* row = rowAt(key);
  return row ? Localization::localized(row->name) : std::string();
}

std::span<const MetadataPlace> places(MetadataKey key) noexcept {
  const auto* row = rowAt(key);
  return row ? row->places : std::span<const MetadataPlace>();
}

std::vector<MetadataKey> metadataKeysFor(MetadataContainer container, std::string_view key) {
  std::vector<MetadataKey> found;
  for (const auto candidate : allCases<MetadataKey>()) {
    for (const auto& place : places(candidate)) {
      if (place.container != container || !isAt(place, key)) continue;
      found.push_back(candidate);
      break;
    }
  }
  return found;
}

}  // namespace quillonic::catalogue
