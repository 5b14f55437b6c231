/// What an offload will do: looked at, stored, and run later.
///
///     const std::filesystem::path targets[] = {"/raid/A001", "/shuttle/A001"};
///     const auto plan = offload::planOffload("/card", targets);
///     for (const auto& target : plan.targets) if (!target.fits()) warn(target.root);
///     auto stored = encode(plan);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/reference_link_type.hpp>
#include <quillonic/offload/link_replication.hpp>
#include <quillonic/platform/volume_traits.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::offload {

/// What is done with an item.
enum class PlannedKind : std::uint8_t {
  /// A folder is made.
  folder,
  /// A file is copied.
  file,
  /// A symbolic link, an alias file, or one more name of a file of the source is made; or nothing, with the
  /// reason, if what should replace a link is missing or refused.
  link,
  /// A file that has an earlier name in the source gets one more name in the copy.
  hardName,
  /// Nothing: the item could not be read, or its kind is not copied.
  none,
};

/// One item of the source.
struct PlannedItem {
  /// Below the source's folder.
  std::string path;
  /// What is done.
  PlannedKind kind = PlannedKind::none;
  /// In bytes; 0 for what is no file.
  std::int64_t size = 0;
  /// The modification date in nanoseconds since 1970.
  std::int64_t modified = 0;
  /// For what replaces a link, or is in a folder that does: where it is, absolute. For a hard name: the path
  /// of the file's first name. Else empty.
  std::string origin;
  /// The system's number of the error that reading the item gave; 0 without one.
  std::int64_t error = 0;

  friend bool operator==(const PlannedItem&, const PlannedItem&) = default;
};

/// One target.
struct PlannedTarget {
  /// The folder of the copy, absolute.
  std::string root;
  /// Where its volume is mounted. A run writes nothing while a volume is mounted elsewhere, or another kind
  /// is mounted here.
  std::string mountPoint;
  /// What its volume holds.
  VolumeTraits volume;
  /// What may be written there, in bytes.
  std::int64_t freeBytes = 0;
  /// What will be written there, in bytes: the sizes of the files that are missing.
  std::int64_t missingBytes = 0;
  /// Files that are missing.
  std::int64_t missingFiles = 0;
  /// The paths of items that get another name, or are in a folder that does: those in the copy by those in
  /// the source.
  TextDictionary writtenPaths;
  /// The paths of items that the volume cannot hold: files that are too large, and links.
  std::vector<std::string> unheld;

  /// Whether the missing files fit, with nothing else written to the volume: targets on one volume share it.
  bool fits() const noexcept { return missingBytes <= freeBytes; }
  /// Where an item is written, below the root.
  QUILLONIC_EXPORT std::string_view writtenPath(std::string_view path) const noexcept;

  friend bool operator==(const PlannedTarget&, const PlannedTarget&) = default;
};

/// What was found so far.
struct PlanProgress {
  /// Items of the source.
  std::uint64_t items = 0;
  /// The sizes of its files, each counted once.
  std::uint64_t bytes = 0;
};

/// How a plan is made.
struct PlanOptions {
  /// What replaces links.
  ReplicatedReferenceLinkResolution links = defaultReplicatedReferenceLinkResolution;
  /// What replaces links to the outside.
  OutsideTargets outside = OutsideTargets::keep;
  /// Called after each item; false stops.
  std::function<bool(const PlanProgress&)> progress = {};
};

/// An offload.
struct OffloadPlan {
  /// The folder that is copied, canonical.
  std::string source;
  /// In the order they were given.
  std::vector<PlannedTarget> targets;
  /// A folder before its items, which are in byte order.
  std::vector<PlannedItem> items;
  /// What replaces links.
  ReplicatedReferenceLinkResolution links = defaultReplicatedReferenceLinkResolution;
  /// What replaces links to the outside.
  OutsideTargets outside = OutsideTargets::keep;

  friend bool operator==(const OffloadPlan&, const OffloadPlan&) = default;
};

/// Plans to copy all below a folder. Follows no link unless links are replaced by what they refer to; enters
/// volumes that are mounted below. Looks at each item and at its place in each target, and opens small files
/// to see whether they are aliases; about 300 bytes of memory per item. An item that cannot be read is
/// planned as `none`. Changes nothing. Throws a `std::system_error` when the source or a target is not a
/// folder that can be read, `std::errc::invalid_argument` when one is inside another, and
/// `std::errc::operation_canceled` for a stop.
QUILLONIC_EXPORT OffloadPlan planOffload(const std::filesystem::path& source,
                                         std::span<const std::filesystem::path> targets,
                                         const PlanOptions& options = {});

}  // namespace quillonic::offload

namespace quillonic {

/// The kinds and their texts in stored plans.
template <> struct CaseTable<offload::PlannedKind> {
  static constexpr auto rows = std::to_array<CaseRow<offload::PlannedKind>>({
      {offload::PlannedKind::folder, "folder"},
      {offload::PlannedKind::file, "file"},
      {offload::PlannedKind::link, "link"},
      {offload::PlannedKind::hardName, "hardName"},
      {offload::PlannedKind::none, "none"},
  });
};

/// The choices and their texts in stored plans.
template <> struct CaseTable<offload::OutsideTargets> {
  static constexpr auto rows = std::to_array<CaseRow<offload::OutsideTargets>>({
      {offload::OutsideTargets::keep, "keep"},
      {offload::OutsideTargets::refuse, "refuse"},
  });
};

/// How items are stored.
template <> struct FieldTable<offload::PlannedItem> {
  using Item = offload::PlannedItem;
  static constexpr auto fields = std::tuple(Field{"path", &Item::path}, Field{"kind", &Item::kind},
                                            Field{"size", &Item::size}, Field{"modified", &Item::modified},
                                            Field{"origin", &Item::origin}, Field{"error", &Item::error});
};

/// Texts by text are stored as a record.
template <> struct Coding<TextDictionary> {
  static CodedValue encode(const TextDictionary& value) {
    CodedRecord record;
    for (const auto& [key, text] : value) record.add(key, text);
    return record;
  }
  static TextDictionary decode(const CodedValue& coded, std::string_view key) {
    TextDictionary dictionary;
    for (const auto& member : coded.require<CodedRecord>(key).members()) {
      dictionary.emplace(member.key, member.value.require<std::string>(member.key));
    }
    return dictionary;
  }
};

/// A choice is stored by its number.
template <> struct Coding<ReplicatedReferenceLinkResolution> {
  static CodedValue encode(ReplicatedReferenceLinkResolution value) { return std::int64_t{rawValue(value)}; }
  static ReplicatedReferenceLinkResolution decode(const CodedValue& coded, std::string_view key) {
    const auto value = fromRawValue<ReplicatedReferenceLinkResolution>(coded.require<std::int64_t>(key));
    if (!value) throw DecodingError(key, "no choice has this number");
    return *value;
  }
};

/// How targets are stored.
template <> struct FieldTable<offload::PlannedTarget> {
  using Target = offload::PlannedTarget;
  static constexpr auto fields =
      std::tuple(Field{"root", &Target::root}, Field{"mountPoint", &Target::mountPoint},
                 Field{"volume", &Target::volume}, Field{"freeBytes", &Target::freeBytes},
                 Field{"missingBytes", &Target::missingBytes}, Field{"missingFiles", &Target::missingFiles},
                 Field{"writtenPaths", &Target::writtenPaths}, Field{"unheld", &Target::unheld});
};

/// How plans are stored.
template <> struct FieldTable<offload::OffloadPlan> {
  using Plan = offload::OffloadPlan;
  static constexpr auto fields = std::tuple(Field{"source", &Plan::source}, Field{"targets", &Plan::targets},
                                            Field{"items", &Plan::items}, Field{"links", &Plan::links},
                                            Field{"outside", &Plan::outside});
};

}  // namespace quillonic
