/// Free names for outputs, grouping of items by drive, and removal with administrator rights.
///
///     const FileManager files;
///     auto output = files.filePathAdjustedForCollision("/out/clip.mov");   // "/out/clip 2.mov" when taken
///     auto drives = files.getUniqueDrives(items);                          // {"/", "/media/CARD"}
///
/// A name is taken when any directory entry has it, a link with a missing target included: writing to a free
/// name never follows somebody's link. Between the answer and the caller's creation of the file another
/// writer may take the name; creating it exclusively closes that gap.
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

/// Keeps no state: each call asks the file system afresh, and any thread may call any operation. The four
/// naming operations differ in their separators and first counters; each form is a fixed contract. They never
/// fail. A name counts as free when it cannot be found out whether it is taken, as in a folder that may not
/// be searched or on a failing disk, which is logged; and when it grows too long for the file system. Callers
/// must create the file exclusively, so that the creation reports what is wrong. Paths keep their bytes: a
/// relative path stays relative, and a trailing slash is ignored.
class QUILLONIC_EXPORT FileManager {
 public:
  /// Asks the operating system.
  FileManager();
  /// Asks `fileSystem`, or the operating system when that is null.
  explicit FileManager(std::shared_ptr<const PlatformFileSystem> fileSystem);

  /// The path itself, unchanged, when it is free; otherwise the first free one of "/out/clip 2.mov",
  /// "/out/clip 3.mov" and so on. The extension is what follows the last full stop of the name, unless that
  /// is the name's first or last character: ".hidden" and "name." have none. One system call per candidate.
  std::filesystem::path filePathAdjustedForCollision(const std::filesystem::path& path) const;

  /// The first name that is free in every one of the folders: "stem.ext", "stem 2.ext", "stem 3.ext" and so
  /// on, without a folder before it. Without folders it is the stem alone, whatever the extension. An
  /// extension that is present but empty adds a full stop to every candidate except the first: "stem", "stem
  /// 2." Both are fixed contracts.
  std::string lastPathComponentAdjustedForCollision(std::span<const std::filesystem::path> amongstDirectories,
                                                    std::string_view lastPathComponent,
                                                    std::optional<std::string_view> pathExtension) const;

  /// Paths by extension. Iterates in the extensions' byte order.
  using PathsByExtension = std::map<std::string, std::filesystem::path, std::less<>>;

  /// One stem for a family of files: "stem.mov" and "stem.xml" when all of them are free, else the first of
  /// "stem-2.mov" and "stem-2.xml", "stem-3.mov" and so on of which none is taken. Empty without extensions.
  PathsByExtension consistentFilePathsAdjustedForCollision(const std::filesystem::path& outputDirectory,
                                                           std::string_view fileName,
                                                           std::span<const std::string> extensions) const;

  /// One stem that is free for every extension in every folder. The paths are those in the first folder;
  /// empty without folders.
  PathsByExtension consistentFilePathsAdjustedForCollisionAcrossDirectories(
      std::span<const std::filesystem::path> directories, std::string_view fileName,
      std::span<const std::string> extensions) const;

  /// The mount points of the volumes that hold the items, each once, in first-seen order. Leaves out items on
  /// no known volume. A link counts for the volume that holds the link.
  std::vector<std::string> getUniqueDrives(std::span<const std::filesystem::path> forList) const;

  /// Item paths by the mount point of the volume that holds them, each list in the order of the items. Items
  /// on no known volume, whose drive was pulled for example, are logged and filed under the empty text.
  using ItemsByDrive = std::map<std::string, std::vector<std::string>, std::less<>>;
  /// The items, each under its drive.
  ItemsByDrive mappingOfUniqueDrives(std::span<const std::filesystem::path> to) const;

  /// Removes a file or a link, never its target and never a folder, with administrator rights through the
  /// default `ScriptRunner`. True when nothing is left at the path; at once and without running anything when
  /// nothing is there. False, and an error logged, when the rights are not given or the removal fails. Where
  /// the path cannot be looked at, a command that reports success counts. No path is ever read as an option
  /// or as part of a command: one that a script's quoting cannot carry fails with a runner that takes text.
  /// The command looks the path up again, with its rights: callers must not name a path whose folders another
  /// user may rename or replace meanwhile. Blocks until the command ends, which may wait for a user's answer.
  bool removePathWithElevatedPermissions(std::string_view path) const;
  /// For a path that is not a plain text yet.
  bool removeItemWithElevatedPermissions(const std::filesystem::path& url) const;

 private:
  bool isTaken(const std::string& path) const;

  std::shared_ptr<const PlatformFileSystem> fileSystem_;
};

}  // namespace quillonic
