/// When a copy is good.
///
///     const auto volume = VolumeTraits::at(copy);
///     auto match = offload::matchOfCopy(attributesOfClip, attributesOfCopy, {.volume = volume});
///     if (match.level != MatchLevel::full && !match.isExpected()) report(match.differences);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attributes.hpp>
#include <quillonic/filesystem/match_level.hpp>
#include <quillonic/platform/volume_traits.hpp>
#include <quillonic/support/date.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillonic::offload {

/// Why an attribute of a copy differs.
enum class DifferenceReason : std::uint8_t {
  /// Nothing explains it.
  unexpected,
  /// The copy's volume cannot hold the name, and the copy has the name that is written for it.
  writtenName,
  /// The copy's volume holds no such attribute, or not as exactly.
  volume,
  /// One side does not have the attribute.
  absent,
};

/// One attribute that differs.
struct Difference {
  /// The attribute.
  FileAttributeKey key;
  /// Why it does.
  DifferenceReason reason;

  friend bool operator==(const Difference&, const Difference&) = default;
};

/// The result of a comparison.
struct CopyMatch {
  /// `unmatched` if the contents differ, by size or checksum; `partial` if only attributes do.
  MatchLevel level = MatchLevel::full;
  /// In the order of the compared keys.
  std::vector<Difference> differences;

  /// Whether the contents match and the volume explains every difference.
  QUILLONIC_EXPORT bool isExpected() const noexcept;
};

/// The attributes that a copy shares with its source: name, size and modification date. Not the creation
/// date, which is the copy's own.
QUILLONIC_EXPORT std::span<const FileAttributeKey> copiedAttributeKeys() noexcept;

/// How a copy is compared.
struct CopyMatchOptions {
  /// The volume of the copy.
  VolumeTraits volume = {};
  /// What is compared besides the checksums.
  std::span<const FileAttributeKey> keys = copiedAttributeKeys();
  /// The name that the copy was given, if not that of its source.
  std::optional<std::string> writtenName = std::nullopt;
  /// Of both contents; compared as texts if both are present. Without them, equal sizes count as equal
  /// contents.
  std::optional<std::string> checksumOfSource = std::nullopt;
  /// See above.
  std::optional<std::string> checksumOfCopy = std::nullopt;
};

/// Compares a copy with its source. An attribute that neither has is no difference. Modification dates match
/// if they are nearer than the grain of the volume's dates.
QUILLONIC_EXPORT CopyMatch matchOfCopy(const FileAttributes& source, const FileAttributes& copy,
                                       const CopyMatchOptions& options = {});

/// Whether two modification dates are the same on a volume: nearer than its grain, or than two seconds, the
/// coarsest of all, where that is unknown.
QUILLONIC_EXPORT bool areSameDates(Date a, Date b, const VolumeTraits& volume) noexcept;

}  // namespace quillonic::offload

/// The reasons and their texts.
template <> struct quillonic::CaseTable<quillonic::offload::DifferenceReason> {
  static constexpr auto rows = std::to_array<CaseRow<offload::DifferenceReason>>({
      {offload::DifferenceReason::unexpected, "unexpected"},
      {offload::DifferenceReason::writtenName, "writtenName"},
      {offload::DifferenceReason::volume, "volume"},
      {offload::DifferenceReason::absent, "absent"},
  });
};
