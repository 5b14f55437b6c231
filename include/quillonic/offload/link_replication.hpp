/// Links of a source, made anew in its copy.
///
///     const offload::LinkReplication how{.source = "/card", .copy = "/raid/A001"};
///     const auto replica = offload::linkReplica("/card/latest", how);
///     if (replica.refusal) report(replica.refusal); else offload::makeLink(replica);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/reference_link_type.hpp>
#include <quillonic/platform/volume_traits.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

namespace quillonic::offload {

/// What is made of a link whose target is not below the source.
enum class OutsideTargets : std::uint8_t {
  /// A link to the same place.
  keep,
  /// Nothing.
  refuse,
};

/// What is made in the copy for an item of the source.
enum class LinkForm : std::uint8_t {
  /// A symbolic link.
  symbolicLink,
  /// An alias file.
  aliasFile,
  /// One more name of a file.
  hardName,
  /// An ordinary copy of a file or folder.
  copy,
};

/// What to make for one link.
struct LinkReplica {
  /// What is made.
  LinkForm form = LinkForm::copy;
  /// Where, in the copy.
  std::filesystem::path place;
  /// The text of the symbolic link, relative or absolute; the target of the alias file; the file that gets
  /// one more name; or the item to copy, which may be the link's file itself.
  std::filesystem::path target;
  /// Why it cannot or shall not be made; no error if it can.
  std::error_code refusal;
};

/// The two ends of a replication, and the choices.
struct LinkReplication {
  /// The source's folder: canonical, since targets are compared with it.
  std::filesystem::path source;
  /// The folder of the copy, absolute.
  std::filesystem::path copy;
  /// What replaces a link.
  ReplicatedReferenceLinkResolution resolution = defaultReplicatedReferenceLinkResolution;
  /// What replaces a link to the outside, unless links refer to their original targets anyway.
  OutsideTargets outside = OutsideTargets::keep;
  /// The paths of items in the copy by their paths in the source, both relative, where they differ; may be
  /// null. As in `PlannedTarget`.
  const TextDictionary* writtenPaths = nullptr;
  /// The volume of the copy. A link that it does not hold is refused with `OffloadError::notHeld`.
  VolumeTraits volume = {};
};

/// What to make for an item below the source. An ordinary item is copied.
///
/// - `relinkToOriginalSource`: a link of the same kind to the target in the source; for a hard link, one more
/// name of the source's own file, which only works on the same volume.
/// - `relinkToReplicatedSource`: a link of the same kind to the copy of the target. A relative symbolic link
/// stays relative if its target is inside. A target outside is kept, then by its absolute path, or refused. A
/// hard link becomes one more name of the copy of `firstName`, the file's name that was copied first; without
/// one it is copied.
/// - `copyOriginalSource`: a copy of the final target.
/// - `copyOriginalLinkFile`: the same symbolic link, or a copy of the alias file.
///
/// A dangling symbolic link is relinked like any other; one whose text names no location, and an alias file
/// whose target is not found, are kept as they are. Throws a `std::system_error` when the item cannot be
/// read. Touches nothing.
QUILLONIC_EXPORT LinkReplica
linkReplica(const std::filesystem::path& item, const LinkReplication& how,
            const std::optional<std::filesystem::path>& firstName = std::nullopt);

/// Makes it; replaces nothing. The folder must exist, and the target of an alias file or a hard name too.
/// Throws a `std::system_error`: the replica's refusal, or why it cannot be made;
/// `std::errc::invalid_argument` for a copy of a folder. The bytes of a copy are not verified: `copyFile` and
/// `checksumOfFile` do that.
QUILLONIC_EXPORT void makeLink(const LinkReplica& replica);

}  // namespace quillonic::offload
