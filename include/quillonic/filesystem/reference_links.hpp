/// Classifying, following and making links, and the attributes of items.
///
///     if (filePathAppearsToBeNonHardReference(item)) target = deeplyDereferencedFilePath(item);
///     auto attributes = expandedAttributesOfItem("/card/clip.mov");
///     createAliasForFilePath("/project/media/clip.mov", "/project/clip alias");
///
/// Operations keep no state and ask the file system on every call. But for the walk below a folder none
/// follows a link that is the last component of its path, even where a slash stands behind it; relative paths
/// count from the working folder. Operations that throw throw a `std::system_error`: the platform's error
/// unchanged, or a `FilePathAttributeGenerationError` where the platform reports none. A location that is
/// returned is absolute and standardized: no ".", no "..", no doubled slash. A ".." is taken from the folder
/// that is really meant, also behind a link to a folder; behind what is no folder it leads nowhere, as it
/// does for the platform.
///
/// A link that leads to nothing is not a link that cannot be read: the first is an answer, the second an
/// error. It leads to nothing where the platform's lookup says ENOENT or ENOTDIR, and where nothing is found
/// at any place that an alias file leads to. Where a lookup ends otherwise, at a folder without permission
/// (EACCES) for example, nobody knows what is there, and that error is reported.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/alias_resolution_options.hpp>
#include <quillonic/filesystem/file_attributes.hpp>
#include <quillonic/filesystem/reference_link_type.hpp>
#include <quillonic/support/function_ref.hpp>

#include <filesystem>
#include <optional>

namespace quillonic {

/// The kind of link that an item is; nothing when it cannot be found out. An alias file is an alias also when
/// it has further names.
QUILLONIC_EXPORT std::optional<ReferenceLinkType> referenceLinkTypeOfItem(const std::filesystem::path& atURL);

/// The attributes of an item; nothing when it is missing or cannot be looked at. They are the platform's
/// (size, kind, dates to the nanosecond, permissions, owner, group, device, inode, number of names) and of
/// the library's own `filePathName`, `fileResourceType`, `isLinkFilePath`, `isDirectoryPath` and
/// `referenceLinkType`; for a link also `referencedFileSystemURL`, and for a symbolic link
/// `isRelativeSymbolicReference`. A detail of a link that cannot be read is logged and left out, and so are
/// `referenceLinkType` and `isLinkFilePath` of a small file that may not be opened. No dates can be set on a
/// copy but the modification date, so a copy has a creation date of its own. That a symbolic link leads
/// nowhere is logged too, but where it leads is told where its target names a location. One system call per
/// item; for a symbolic link three, and more where its target goes back by ".." behind a link; a regular file
/// of 16 bytes to 1 MiB is opened to see whether it is an alias.
QUILLONIC_EXPORT std::optional<FileAttributes> expandedAttributesOfItem(const std::filesystem::path& atURL);

/// The kind of link that an item is. Throws when it is missing or cannot be read.
QUILLONIC_EXPORT ReferenceLinkType filePathLinkType(const std::filesystem::path& fileAt);

/// Whether an item is a symbolic link or an alias file. Throws when it is missing or cannot be read.
QUILLONIC_EXPORT bool filePathAppearsToBeNonHardReference(const std::filesystem::path& path);

/// Whether a symbolic link's stored target is relative. Throws when the item is no symbolic link or cannot be
/// read.
QUILLONIC_EXPORT bool symbolicLinkIsRelative(const std::filesystem::path& atPath);

/// The location that a symbolic link leads to, one step away; whether something is there is not asked. Throws
/// when the item is no symbolic link or cannot be read, and when its target names no location: a ".." or a
/// slash at the end behind something that is no folder.
QUILLONIC_EXPORT std::filesystem::path standardizedDestinationOfSymbolicLink(
    const std::filesystem::path& atPath);

/// The location of the item that an alias file leads to. Throws when the file cannot be read or is no alias
/// file, and when nothing is found: `aliasTargetNotFound`, or the platform's error where one of the places
/// could not be looked at. A file that leads to nothing within 10,000 looks counts as malformed: none that a
/// desktop writes needs a hundredth of them. Looked for, in this order, are: the recorded path, when the
/// recorded volume is mounted where it was; the recorded place relative to the alias file, or else, where
/// that is not recorded, the longest end of the recorded path in the nearest of the folders from the alias
/// file upwards; the recorded place on a mounted volume with the recorded identifier, or else with the
/// recorded name as its label or as the name of its mount point; the recorded place in the user's home; the
/// recorded path. A name that is not found byte for byte is looked for without regard to case and Unicode
/// composition. The alias file itself is never its target.
QUILLONIC_EXPORT std::filesystem::path standardizedResolvedAliasReference(
    const std::filesystem::path& aliasFileAt, AliasResolutionOptions options = {});

/// The final target after following symbolic links and alias files, at most 40 steps; an item that is no link
/// is its own target. Nothing when a link, of either kind, leads to nothing. Throws when an item cannot be
/// read, a damaged alias file and a missing first item included, and when there are more steps: a loop is
/// ELOOP, the platform's own answer.
QUILLONIC_EXPORT std::optional<std::filesystem::path> deeplyDereferencedFilePath(
    const std::filesystem::path& forLinkFile, AliasResolutionOptions resolutionOptions = {});

/// Calls the block with each symbolic link and alias file below a folder and with the location one step away,
/// which need not exist. Setting `stop` ends the walk after the call. Folders behind links are not entered;
/// volumes mounted below are. The items of a folder come in the byte order of their names, then its folders
/// in the same order. A link that cannot be read, one whose target names no location, an alias file whose
/// target is not found and a folder that cannot be read are logged and passed over. False when a folder,
/// `inDirectory` included, or a file that may be an alias could not be read, so that links may have been
/// missed; else true, also after a stop. A link to a folder may be given as `inDirectory`.
QUILLONIC_EXPORT bool enumerateLinkFileDereferencePairs(
    const std::filesystem::path& inDirectory,
    FunctionRef<void(const std::filesystem::path& link, const std::filesystem::path& target, bool& stop)>
        didFindPair);

/// Writes an alias file that leads to an existing item, in the form that desktop Macs write and read. Throws
/// when the item is missing, and when something, even a dangling link, is at the location already: nothing is
/// ever replaced. An alias file that cannot be written whole is removed again. The identifier and the label
/// of the item's volume are recorded where the system lists them.
QUILLONIC_EXPORT void createAliasForFilePath(const std::filesystem::path& path,
                                             const std::filesystem::path& atLocation);

/// Whether symbolic links can be made on the volume that holds an item. For an item still to be written,
/// whose folders may be missing too, this is the volume of the nearest folder above it that is there. Throws
/// when the volume cannot be asked. Goes by the kind of file system; a share of the kind cifs has them when
/// it was mounted with an option for them. A file system that a program serves counts as having them unless
/// its kind is told by its name, its device or the device database and has none. Where the volume is
/// read-only the answer is what its kind can hold.
QUILLONIC_EXPORT bool fileSystemSupportsSymbolicLinks(const std::filesystem::path& url);

/// The same for hard links. A network share counts as having them, although its server may refuse.
QUILLONIC_EXPORT bool fileSystemSupportsHardLinks(const std::filesystem::path& url);

}  // namespace quillonic
