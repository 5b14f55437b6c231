/// Kinds of links, and what replication can put in their place.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

namespace quillonic {

/// The kind of link that an item is. The raw values are stored.
enum class QUILLONIC_EXPORT ReferenceLinkType : std::int64_t {
  notAReferenceLink,
  /// A symbolic link.
  softSymbolicReference,
  /// An item that has further names. No name is the first one: each of them is a hard link.
  hardSymbolicReference,
  /// A desktop's alias file: a regular file that leads to another item.
  aliasReference,
};

/// One case of an enumeration of numbers, with its text for logs.
template <class Enumeration> struct LoggedCaseRow : CaseRow<Enumeration, std::int64_t> {
  /// What logs show; a fixed text, the same in every language.
  std::string_view loggingDescription;
};

/// The kinds in the order of their numbers.
template <> struct CaseTable<ReferenceLinkType> {
  static constexpr auto rows = std::to_array<LoggedCaseRow<ReferenceLinkType>>({
      {{ReferenceLinkType::notAReferenceLink, 0}, "not a link"},
      {{ReferenceLinkType::softSymbolicReference, 1}, "symbolic link"},
      {{ReferenceLinkType::hardSymbolicReference, 2}, "hard link"},
      {{ReferenceLinkType::aliasReference, 3}, "alias"},
  });
};

/// What replication puts at the destination for a link. The library names the choices; which one is taken is
/// the host's policy.
enum class ReplicatedReferenceLinkResolution : std::int64_t {
  /// A link at the destination that leads to the source item itself.
  relinkToOriginalSource,
  /// A link at the destination that leads to the replicated copy of the link's target.
  relinkToReplicatedSource,
  /// A copy of the item that the link refers to, as an ordinary item.
  copyOriginalSource,
  /// A copy of the link file itself, unchanged.
  copyOriginalLinkFile,
};

/// The choices in the order of their numbers. The first one's text is shorter than its name, a fixed contract.
template <> struct CaseTable<ReplicatedReferenceLinkResolution> {
  static constexpr auto rows = std::to_array<LoggedCaseRow<ReplicatedReferenceLinkResolution>>({
      {{ReplicatedReferenceLinkResolution::relinkToOriginalSource, 0}, "relinkToSource"},
      {{ReplicatedReferenceLinkResolution::relinkToReplicatedSource, 1}, "relinkToReplicatedSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalSource, 2}, "copyOriginalSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalLinkFile, 3}, "copyOriginalLinkFile"},
  });
};

/// The choice for a caller that makes none: the copy is complete in itself, and links stay links.
inline constexpr auto defaultReplicatedReferenceLinkResolution =
    ReplicatedReferenceLinkResolution::relinkToReplicatedSource;

/// The text that logs show for a case; empty for a number that no case bears.
template <ClosedEnumeration E>
requires requires {
  CaseTable<E>::rows[0].loggingDescription;
}
constexpr std::string_view loggingDescription(E value) noexcept {
  for (const auto& row : CaseTable<E>::rows) {
    if (row.value == value) return row.loggingDescription;
  }
  return {};
}

/// The same, for logs of attributes.
constexpr std::string_view description(ReferenceLinkType type) noexcept {
  return loggingDescription(type);
}

/// The location one link step away from a link of the given kind; the location itself, absolute and
/// standardized, for an ordinary item and a hard link, where nothing is asked of the item. The target of a
/// symbolic link need not exist. Throws a `std::system_error` when the link cannot be read, leads nowhere or is
/// of another kind.
QUILLONIC_EXPORT std::filesystem::path dereferencedFilePathURL(ReferenceLinkType type,
                                                               const std::filesystem::path& forURL);

/// The final location after following links from a link of the given kind until an item that is none, at most
/// 40 steps. Throws a `std::system_error` when a link cannot be read, when there are more steps (ELOOP) and
/// when a link leads to nothing (ENOENT, ENOTDIR, or `aliasTargetNotFound` for an alias file).
QUILLONIC_EXPORT std::filesystem::path deeplyDereferencedFilePathURL(ReferenceLinkType type,
                                                                     const std::filesystem::path& forURL);

}  // namespace quillonic
