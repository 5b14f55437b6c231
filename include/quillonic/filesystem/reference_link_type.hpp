/// Kinds of links, and what replication can put in their place.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <string_view>

namespace quillonic {

/// The kind of link that an item is. The raw values are stored.
enum class QUILLONIC_EXPORT ReferenceLinkType : std::int64_t {
  notAReferenceLink,
  /// A symbolic link.
  softSymbolicReference,
  /// An item that has further names. Each of its names is a hard link, the first one too.
  hardSymbolicReference,
  /// A desktop's alias file: a regular file that refers to another item.
  aliasReference,
};

/// One case of an enumeration of numbers, with its text for logs.
template <class Enumeration> struct LoggedCaseRow : CaseRow<Enumeration, std::int64_t> {
  /// What logs show: a fixed text, never translated.
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

/// What replication puts at the destination for a link. The library names the choices; hosts choose.
enum class ReplicatedReferenceLinkResolution : std::int64_t {
  /// A link at the destination to the source item itself.
  relinkToOriginalSource,
  /// A link at the destination to the replicated copy of the link's target.
  relinkToReplicatedSource,
  /// A copy of the item that the link refers to, as an ordinary item.
  copyOriginalSource,
  /// A copy of the link file itself, unchanged.
  copyOriginalLinkFile,
};

/// The choices in the order of their numbers. The first one's text is shorter than its name, a fixed
/// contract.
template <> struct CaseTable<ReplicatedReferenceLinkResolution> {
  static constexpr auto rows = std::to_array<LoggedCaseRow<ReplicatedReferenceLinkResolution>>({
      {{ReplicatedReferenceLinkResolution::relinkToOriginalSource, 0}, "relinkToSource"},
      {{ReplicatedReferenceLinkResolution::relinkToReplicatedSource, 1}, "relinkToReplicatedSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalSource, 2}, "copyOriginalSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalLinkFile, 3}, "copyOriginalLinkFile"},
  });
};

/// The choice when the caller sets none: links stay links, and the copy needs nothing of the source.
inline constexpr auto defaultReplicatedReferenceLinkResolution =
    ReplicatedReferenceLinkResolution::relinkToReplicatedSource;

/// The text that logs show for a case; empty for an unlisted value.
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

/// The text for logs of attributes.
constexpr std::string_view description(ReferenceLinkType type) noexcept {
  return loggingDescription(type);
}

}  // namespace quillonic
