/// The keys of file attributes.
#pragma once

#include <quillonic/support/text_backed.hpp>

namespace quillonic {

/// A key of an attribute dictionary: a listed one or any other text. The text is stored and serialised.
class FileAttributeKey : public TextBacked<FileAttributeKey> {
 public:
  using TextBacked::TextBacked;

  /// The item's name, a text of any bytes.
  static const FileAttributeKey filePathName;
  /// The kind of the item as a resource, a `FileType`. The key's text differs from its name, a fixed
  /// contract.
  static const FileAttributeKey fileResourceType;
  /// Whether the item is a symbolic link or an alias file.
  static const FileAttributeKey isLinkFilePath;
  /// Whether the item is a folder; false for a link to a folder.
  static const FileAttributeKey isDirectoryPath;
  /// The total size of a folder's contents in bytes, unsigned 64 bits. Set by hosts.
  static const FileAttributeKey aggregateDirectorySize;
  /// The attributes of the items below a folder. Set by hosts.
  static const FileAttributeKey directoryStructureAttributes;
  /// The kind of reference link that the item is, a `ReferenceLinkType`.
  static const FileAttributeKey referenceLinkType;
  /// The location that a link refers to, one step away: a path.
  static const FileAttributeKey referencedFileSystemURL;
  /// Whether a symbolic link's target is relative.
  static const FileAttributeKey isRelativeSymbolicReference;
  /// The type that an index of metadata reports. Set by hosts.
  static const FileAttributeKey spotlightFileType;
  /// The uniform type identifier. Set by hosts. The key's text differs from its name, a fixed contract.
  static const FileAttributeKey utType;
  /// The entity tag of an object in cloud storage. Set by hosts.
  static const FileAttributeKey s3Etag;
  /// Whether the location is on no local volume. Set by hosts.
  static const FileAttributeKey isRemoteFileURL;
  /// The MIME type. Set by hosts.
  static const FileAttributeKey mimeType;
  /// Whether the stored size is an estimate. Set by hosts.
  static const FileAttributeKey fileSizeIsEstimated;

  /// The size in bytes, unsigned 64 bits; for a symbolic link, the length of its target's text.
  static const FileAttributeKey NSFileSize;
  /// The kind of the item, a `FileType`.
  static const FileAttributeKey NSFileType;
  /// When the item was created, a date; absent if the file system does not record it.
  static const FileAttributeKey NSFileCreationDate;
  /// When the contents last changed, a date.
  static const FileAttributeKey NSFileModificationDate;
  /// The permission bits, from 0 to 07777.
  static const FileAttributeKey NSFilePosixPermissions;
  /// The owner's number.
  static const FileAttributeKey NSFileOwnerAccountID;
  /// The group's number.
  static const FileAttributeKey NSFileGroupOwnerAccountID;
  /// The number of the item's names (hard links), without the short name that NTFS keeps for old
  /// programs.
  static const FileAttributeKey NSFileReferenceCount;
  /// The number of the device that holds the item.
  static const FileAttributeKey NSFileSystemNumber;
  /// The inode: the number of the item on its device.
  static const FileAttributeKey NSFileSystemFileNumber;
};

inline constexpr FileAttributeKey FileAttributeKey::filePathName{"filePathName"};
inline constexpr FileAttributeKey FileAttributeKey::fileResourceType{"urlFileResourceType"};
inline constexpr FileAttributeKey FileAttributeKey::isLinkFilePath{"isLinkFilePath"};
inline constexpr FileAttributeKey FileAttributeKey::isDirectoryPath{"isDirectoryPath"};
inline constexpr FileAttributeKey FileAttributeKey::aggregateDirectorySize{"aggregateDirectorySize"};
inline constexpr FileAttributeKey FileAttributeKey::directoryStructureAttributes{
    "directoryStructureAttributes"};
inline constexpr FileAttributeKey FileAttributeKey::referenceLinkType{"referenceLinkType"};
inline constexpr FileAttributeKey FileAttributeKey::referencedFileSystemURL{"referencedFileSystemURL"};
inline constexpr FileAttributeKey FileAttributeKey::isRelativeSymbolicReference{
    "isRelativeSymbolicReference"};
inline constexpr FileAttributeKey FileAttributeKey::spotlightFileType{"spotlightFileType"};
inline constexpr FileAttributeKey FileAttributeKey::utType{"utFileType"};
inline constexpr FileAttributeKey FileAttributeKey::s3Etag{"s3Etag"};
inline constexpr FileAttributeKey FileAttributeKey::isRemoteFileURL{"isRemoteFileURL"};
inline constexpr FileAttributeKey FileAttributeKey::mimeType{"mimeType"};
inline constexpr FileAttributeKey FileAttributeKey::fileSizeIsEstimated{"fileSizeIsEstimated"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileSize{"NSFileSize"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileType{"NSFileType"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileCreationDate{"NSFileCreationDate"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileModificationDate{"NSFileModificationDate"};
inline constexpr FileAttributeKey FileAttributeKey::NSFilePosixPermissions{"NSFilePosixPermissions"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileOwnerAccountID{"NSFileOwnerAccountID"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileGroupOwnerAccountID{"NSFileGroupOwnerAccountID"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileReferenceCount{"NSFileReferenceCount"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileSystemNumber{"NSFileSystemNumber"};
inline constexpr FileAttributeKey FileAttributeKey::NSFileSystemFileNumber{"NSFileSystemFileNumber"};

/// The library's keys, then those of the platform.
template <> struct CaseTable<FileAttributeKey> {
  static constexpr CaseList cases{
      FileAttributeKey::filePathName,
      FileAttributeKey::fileResourceType,
      FileAttributeKey::isLinkFilePath,
      FileAttributeKey::isDirectoryPath,
      FileAttributeKey::aggregateDirectorySize,
      FileAttributeKey::directoryStructureAttributes,
      FileAttributeKey::referenceLinkType,
      FileAttributeKey::referencedFileSystemURL,
      FileAttributeKey::isRelativeSymbolicReference,
      FileAttributeKey::spotlightFileType,
      FileAttributeKey::utType,
      FileAttributeKey::s3Etag,
      FileAttributeKey::isRemoteFileURL,
      FileAttributeKey::mimeType,
      FileAttributeKey::fileSizeIsEstimated,
      FileAttributeKey::NSFileSize,
      FileAttributeKey::NSFileType,
      FileAttributeKey::NSFileCreationDate,
      FileAttributeKey::NSFileModificationDate,
      FileAttributeKey::NSFilePosixPermissions,
      FileAttributeKey::NSFileOwnerAccountID,
      FileAttributeKey::NSFileGroupOwnerAccountID,
      FileAttributeKey::NSFileReferenceCount,
      FileAttributeKey::NSFileSystemNumber,
      FileAttributeKey::NSFileSystemFileNumber,
  };
};

}  // namespace quillonic
