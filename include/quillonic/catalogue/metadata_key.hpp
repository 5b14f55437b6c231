/// What pieces of metadata are called, by us and in each container.
///
///     displayName(catalogue::MetadataKey::shutterAngle);      // "Shutter angle", in the user's language
///     unit(catalogue::MetadataKey::shutterAngle);             // "degrees"
///     catalogue::metadataKeysFor(catalogue::MetadataContainer::exif, "0x829a").front();   // shutterTime
#pragma once

#include <quillonic/catalogue/metadata_keys_table.hpp>
#include <quillonic/export.hpp>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::catalogue {

/// Where a piece of metadata lives in a container.
struct MetadataPlace {
  /// The container.
  MetadataContainer container{};
  /// The container's own key: a name, a path of elements, a tag number ("0x829A"), or a byte offset.
  std::string_view key;
  /// A number there is so many times as large as the value in the key's unit.
  std::uint32_t divisor = 1;
  /// Whether more than common knowledge says so.
  bool isVerified = true;

  friend bool operator==(const MetadataPlace&, const MetadataPlace&) = default;
};

/// What values a key has.
QUILLONIC_EXPORT MetadataType type(MetadataKey key) noexcept;

/// The unit of the values, in English: "degrees". Empty where there is none, or several.
QUILLONIC_EXPORT std::string_view unit(MetadataKey key) noexcept;

/// The name of the key in the user's language.
QUILLONIC_EXPORT std::string displayName(MetadataKey key);

/// Where the key lives, container by container; none for an unlisted value. Lives as long as the program.
QUILLONIC_EXPORT std::span<const MetadataPlace> places(MetadataKey key) noexcept;

/// The keys that a container's own key stands for, the main one first: usually one, none for an unknown key.
/// Numbers compare as numbers, item keys of QuickTime files without regard to ASCII case, all others exactly.
QUILLONIC_EXPORT std::vector<MetadataKey> metadataKeysFor(MetadataContainer container, std::string_view key);

}  // namespace quillonic::catalogue
