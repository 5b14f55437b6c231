/// Classifies and follows links.
///
///     if (filePathAppearsToBeNonHardReference(item)) target = deeplyDereferencedFilePath(item);
///
/// Operations keep no state and ask the file system on every call. None follows a link in the last path
/// component, even with a trailing slash; relative paths count from the working folder. Operations that
/// throw, throw a `std::system_error`: the platform's error unchanged, or a
/// `FilePathAttributeGenerationError` if the platform reports none. Returned locations are absolute and
/// standardized: no ".", no "..", no doubled slash, and no link in the existing folders. So each item has one
/// spelling, and callers can test whether it is inside a folder by the folder's canonical path. A ".." means
/// the real parent folder, even after a link to a folder; after an item that is not a folder it names
/// nothing, as for the platform.
///
/// A dangling link is not an unreadable link: the first is an answer, the second an error. A link is dangling
/// when the platform's look-up says ENOENT or ENOTDIR, or when no item exists at any place that an alias file
/// records. If a look-up ends otherwise, for example at a folder without permission (EACCES), nobody knows
/// what is there, and that error is reported.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/alias_resolution_options.hpp>
#include <quillonic/filesystem/reference_link_type.hpp>

#include <filesystem>
#include <optional>

namespace quillonic {

/// The kind of link that an item is; nothing when it cannot be determined. An alias file is an alias even if
/// it has several names.
QUILLONIC_EXPORT std::optional<ReferenceLinkType> referenceLinkTypeOfItem(const std::filesystem::path& atURL);

/// The kind of link that an item is. Throws when it is missing or cannot be read.
QUILLONIC_EXPORT ReferenceLinkType filePathLinkType(const std::filesystem::path& fileAt);

/// Whether an item is a symbolic link or an alias file. Throws when it is missing or cannot be read.
QUILLONIC_EXPORT bool filePathAppearsToBeNonHardReference(const std::filesystem::path& path);

/// Whether a symbolic link's stored target is relative. Throws when the item is not a symbolic link or cannot
/// be read.
QUILLONIC_EXPORT bool symbolicLinkIsRelative(const std::filesystem::path& atPath);

/// The target of a symbolic link, one step away; it need not exist. Throws when the item is not a symbolic
/// link or cannot be read, and when its target names no location, with a ".." or a trailing slash after an
/// item that is not a folder. A trailing "/" or "/." of the stored text is left out: if the item there is
/// another link, this link is the target, and the location that it refers to is the next step.
QUILLONIC_EXPORT std::filesystem::path standardizedDestinationOfSymbolicLink(
    const std::filesystem::path& atPath);

/// The target of an alias file. Throws when the file cannot be read or is not an alias file, and when nothing
/// is found: `aliasTargetNotFound`, or the platform's error if one of the places could not be looked at. A
/// file whose target is not found within 10,000 look-ups counts as malformed: files written by desktops need
/// less than a hundredth of that.
///
/// Takes the first that exists of: the recorded path, if the recorded volume is mounted where it was; the
/// recorded place relative to the alias file, or if that is not recorded, the longest trailing part of the
/// recorded path in the nearest folder from the alias file upwards; the recorded place on a mounted volume
/// with the recorded identifier, or else with the recorded name as its label or the name of its mount point;
/// the recorded place in the user's home folder; the recorded path. A name that is not found byte for byte is
/// looked up ignoring case and Unicode composition. The alias file itself is never its target.
QUILLONIC_EXPORT std::filesystem::path standardizedResolvedAliasReference(
    const std::filesystem::path& aliasFileAt, AliasResolutionOptions options = {});

/// The final target after following symbolic links and alias files, at most 40 steps; an item that is not a
/// link is its own target. Nothing when a link of either kind is dangling. Throws when an item cannot be
/// read, including a damaged alias file and a missing first item, and when there are more steps: a loop is
/// ELOOP, as in the platform.
QUILLONIC_EXPORT std::optional<std::filesystem::path> deeplyDereferencedFilePath(
    const std::filesystem::path& forLinkFile, AliasResolutionOptions resolutionOptions = {});

/// The location one step away from a link of the given kind. For an ordinary item and a hard link, the item's
/// own location, absolute and standardized, without looking at the item. The target of a symbolic link need
/// not exist. Throws when the link cannot be read, names no location or is of another kind.
QUILLONIC_EXPORT std::filesystem::path dereferencedFilePathURL(ReferenceLinkType type,
                                                               const std::filesystem::path& forURL);

/// The final location after following links from a link of the given kind to an item that is not a link, at
/// most 40 steps. Throws when a link cannot be read, when there are more steps (ELOOP) and when a link is
/// dangling (ENOENT, ENOTDIR, or `aliasTargetNotFound` for an alias file).
QUILLONIC_EXPORT std::filesystem::path deeplyDereferencedFilePathURL(ReferenceLinkType type,
                                                                     const std::filesystem::path& forURL);

}  // namespace quillonic
