/// Free names for outputs, grouping of items by drive, and removal with administrator rights.
///
///     const FileManager files;
///     auto output = files.filePathAdjustedForCollision("/out/clip.mov");   // "/out/clip 2.mov" when taken
///     auto drives = files.getUniqueDrives(items);                          // {"/", "/media/CARD"}
///
/// A name is taken when any directory entry has it, even a dangling link: writing to a free name never
/// follows a link. Another writer may take the name before the caller creates the file; creating it
/// exclusively prevents that.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/file_system.hpp>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Keeps no state: each call asks the file system again, and any thread may call any operation. The four
/// naming operations differ in their separators and first counters; each form is a fixed contract. They fail
/// only when memory runs out. A name counts as free when nobody can tell whether it is taken, as in a folder
/// that may not be searched or on a failing disk (this is logged), and when it is too long for the file
/// system. Callers must create the file exclusively, so that the creation reports the fault. Paths keep their
/// bytes: a relative path stays relative, and a trailing slash is ignored.
class QUILLONIC_EXPORT FileManager {
 public:
  /// Asks the operating system.
  FileManager();
  /// Asks `fileSystem`, or the operating system if it is null.
  explicit FileManager(std::shared_ptr<const PlatformFileSystem> fileSystem);

  /// The path unchanged if it is free; otherwise the first free one of "/out/clip 2.mov", "/out/clip 3.mov"
  /// and so on. The extension follows the last full stop of the name, unless that is the name's first or last
  /// character: ".hidden" and "name." have none. One system call per candidate.
  std::filesystem::path filePathAdjustedForCollision(const std::filesystem::path& path) const;

  /// The first name that is free in all of the folders: "stem.ext", "stem 2.ext", "stem 3.ext" and so on,
  /// without a folder. Without folders it is the stem alone, whatever the extension. An empty extension that
  /// is present adds a full stop to every candidate except the first: "stem", "stem 2." Both are fixed
  /// contracts.
  std::string lastPathComponentAdjustedForCollision(std::span<const std::filesystem::path> amongstDirectories,
                                                    std::string_view lastPathComponent,
                                                    std::optional<std::string_view> pathExtension) const;

  /// Paths by extension, in byte order of the extensions.
  using PathsByExtension = std::map<std::string, std::filesystem::path, std::less<>>;

  /// One stem for a family of files: "stem.mov" and "stem.xml" if all of them are free, else the first free
  /// set of "stem-2.mov" and "stem-2.xml", "stem-3.mov" and so on. Empty without extensions.
  PathsByExtension consistentFilePathsAdjustedForCollision(const std::filesystem::path& outputDirectory,
                                                           std::string_view fileName,
                                                           std::span<const std::string> extensions) const;

  /// One stem that is free for every extension in every folder. Gives the paths in the first folder; empty
  /// without folders.
  PathsByExtension consistentFilePathsAdjustedForCollisionAcrossDirectories(
      std::span<const std::filesystem::path> directories, std::string_view fileName,
      std::span<const std::string> extensions) const;

  /// The mount points of the items' volumes, each once, in first-seen order. Leaves out items on no known
  /// volume. A link counts for the volume that holds the link.
  std::vector<std::string> getUniqueDrives(std::span<const std::filesystem::path> forList) const;

  /// Item paths by the mount point of their volume, each list in item order. Items on no known volume, such
  /// as a pulled drive, are logged and listed under the empty text.
  using ItemsByDrive = std::map<std::string, std::vector<std::string>, std::less<>>;
  /// The items, each under its drive.
  ItemsByDrive mappingOfUniqueDrives(std::span<const std::filesystem::path> to) const;

  /// Removes a file or a link, never its target and never a folder, with administrator rights through the
  /// default `ScriptRunner`. True when nothing is left at the path; if nothing is there, at once and without
  /// running anything. False, with an error logged, when the rights are denied or the removal fails. If the
  /// path cannot be looked at, a command that reports success counts. No path is ever read as an option or as
  /// part of a command: a path that a script cannot quote fails with a runner that takes text. The command
  /// looks up the path again with its rights: callers must not pass a path whose folders another user may
  /// rename or replace meanwhile. Blocks until the command ends, which may wait for a user's answer.
  /// Throws `std::bad_alloc` when memory runs out, perhaps after the removal.
  bool removePathWithElevatedPermissions(std::string_view path) const;
  /// Takes a path instead of a text.
  bool removeItemWithElevatedPermissions(const std::filesystem::path& url) const;

 private:
  bool isTaken(const std::string& path) const;

  std::shared_ptr<const PlatformFileSystem> fileSystem_;
};

}  // namespace quillonic
