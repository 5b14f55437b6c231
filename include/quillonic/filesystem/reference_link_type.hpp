/// Kinds of links, and what replication can replace them with.
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
  /// An item with several names. Each of its names is a hard link, including the first.
  hardSymbolicReference,
  /// A desktop's alias file: a regular file that refers to another item.
  aliasReference,
};

/// One case of an enumeration with numbers, and its text for logs.
template <class Enumeration> struct LoggedCaseRow : CaseRow<Enumeration, std::int64_t> {
  /// The text in logs: fixed, never translated.
  std::string_view loggingDescription;
};

/// The kinds in order of their numbers.
template <> struct CaseTable<ReferenceLinkType> {
  static constexpr auto rows = std::to_array<LoggedCaseRow<ReferenceLinkType>>({
      {{ReferenceLinkType::notAReferenceLink, 0}, "not a link"},
      {{ReferenceLinkType::softSymbolicReference, 1}, "symbolic link"},
      {{ReferenceLinkType::hardSymbolicReference, 2}, "hard link"},
      {{ReferenceLinkType::aliasReference, 3}, "alias"},
  });
};

/// What replication creates at the destination for a link. The library names the choices; hosts choose.
enum class ReplicatedReferenceLinkResolution : std::int64_t {
  /// A link to the source item itself.
  relinkToOriginalSource,
  /// A link to the replicated copy of the link's target.
  relinkToReplicatedSource,
  /// A copy of the link's target, as an ordinary item.
  copyOriginalSource,
  /// An unchanged copy of the link file itself.
  copyOriginalLinkFile,
};

/// The choices in order of their numbers. The first one's text is shorter than its name, a fixed contract.
template <> struct CaseTable<ReplicatedReferenceLinkResolution> {
  static constexpr auto rows = std::to_array<LoggedCaseRow<ReplicatedReferenceLinkResolution>>({
      {{ReplicatedReferenceLinkResolution::relinkToOriginalSource, 0}, "relinkToSource"},
      {{ReplicatedReferenceLinkResolution::relinkToReplicatedSource, 1}, "relinkToReplicatedSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalSource, 2}, "copyOriginalSource"},
      {{ReplicatedReferenceLinkResolution::copyOriginalLinkFile, 3}, "copyOriginalLinkFile"},
  });
};

/// The default choice: links stay links, and the copy does not depend on the source.
inline constexpr auto defaultReplicatedReferenceLinkResolution =
    ReplicatedReferenceLinkResolution::relinkToReplicatedSource;

/// The text of a case for logs; empty for an unlisted value.
template <ClosedEnumeration E>
requires requires {
  CaseTable<E>::rows[0].loggingDescription;
}
constexpr std::string_view loggingDescription(E value) noexcept {
  const auto* row = detail::rowOf(value);
  return row ? row->loggingDescription : std::string_view{};
}

/// The text in logs of attributes.
constexpr std::string_view description(ReferenceLinkType type) noexcept {
  return loggingDescription(type);
}

}  // namespace quillonic
