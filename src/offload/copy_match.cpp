#include <quillonic/offload/copy_match.hpp>
#include <quillonic/offload/written_names.hpp>

#include <algorithm>
#include <cstdint>

namespace quillonic::offload {
namespace {

DifferenceReason reasonFor(const FileAttributeKey& key, const AnyValue& source, const AnyValue& copy,
                           const CopyMatchOptions& options) {
  const auto& volume = options.volume;
  if (key == FileAttributeKey::filePathName) {
    const auto name = source.as<std::string>();
    const auto other = copy.as<std::string>();
    const bool isWritten =
        name && other && options.writtenName.value_or(writtenName(*name, volume.kind)) == *other;
    return isWritten ? DifferenceReason::writtenName : DifferenceReason::unexpected;
  }
  const bool isRight = key == FileAttributeKey::NSFilePosixPermissions ||
                       key == FileAttributeKey::NSFileOwnerAccountID ||
                       key == FileAttributeKey::NSFileGroupOwnerAccountID;
  const bool isNumberOfNames = key == FileAttributeKey::NSFileReferenceCount;
  const bool isExplained = (isRight && !volume.holdsOwners) || (isNumberOfNames && !volume.holdsHardLinks);
  return isExplained ? DifferenceReason::volume : DifferenceReason::unexpected;
}

// Of all kinds of volumes, for one of an unknown kind.
constexpr std::int64_t coarsestGrain = 2'000'000'000;

bool areSame(const FileAttributeKey& key, const AnyValue& a, const AnyValue& b, const VolumeTraits& volume) {
  if (key != FileAttributeKey::NSFileModificationDate) return a == b;
  const auto date = a.as<Date>();
  const auto other = b.as<Date>();
  return date && other ? areSameDates(*date, *other, volume) : a == b;
}

}  // namespace

bool CopyMatch::isExpected() const noexcept {
  return level != MatchLevel::unmatched && std::ranges::all_of(differences, [](const Difference& difference) {
           return difference.reason == DifferenceReason::writtenName ||
                  difference.reason == DifferenceReason::volume;
         });
}

std::span<const FileAttributeKey> copiedAttributeKeys() noexcept {
  static constexpr std::array keys{FileAttributeKey::filePathName, FileAttributeKey::NSFileSize,
                                   FileAttributeKey::NSFileModificationDate};
  return keys;
}

bool areSameDates(Date a, Date b, const VolumeTraits& volume) noexcept {
  // Unsigned, because the greatest distance does not fit into a duration.
  const auto count = [](Date date) { return static_cast<std::uint64_t>(date.time_since_epoch().count()); };
  const auto between = a > b ? count(a) - count(b) : count(b) - count(a);
  return between < static_cast<std::uint64_t>(volume.dateGrain > 0 ? volume.dateGrain : coarsestGrain);
}

CopyMatch matchOfCopy(const FileAttributes& source, const FileAttributes& copy,
                      const CopyMatchOptions& options) {
  CopyMatch match;
  for (const auto& key : options.keys) {
    const auto* value = source.find(key);
    const auto* other = copy.find(key);
    if (!value && !other) continue;
    const bool isAbsent = !value || !other;
    if (!isAbsent && areSame(key, *value, *other, options.volume)) continue;
    const auto reason = isAbsent ? DifferenceReason::absent : reasonFor(key, *value, *other, options);
    match.differences.push_back({key, reason});
    match.level = MatchLevel::partial;
  }
  const auto size = source.value<std::uint64_t>(FileAttributeKey::NSFileSize);
  const bool hasChecksums = options.checksumOfSource && options.checksumOfCopy;
  const bool differs = size != copy.value<std::uint64_t>(FileAttributeKey::NSFileSize) ||
                       (hasChecksums && *options.checksumOfSource != *options.checksumOfCopy) ||
                       (!size && !hasChecksums);
  if (differs) match.level = MatchLevel::unmatched;
  return match;
}

}  // namespace quillonic::offload
