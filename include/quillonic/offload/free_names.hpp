/// Free names that are taken, not only found.
///
///     auto report = offload::createFileAtFreeName("/out/report.txt");     // "/out/report 2.txt", now yours
///     const std::string extensions[] = {"mov", "xml"};
///     auto takes = offload::createFilesAtFreeNames("/out", "take", extensions);
///
/// What is created is empty and new, so that two programs that ask at once never get the same. A name is
/// formed as `FileManager` does. Each operation throws a `std::system_error` when nothing can be created,
/// for example in a missing or full folder.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_manager.hpp>

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace quillonic::offload {

/// Creates an empty file under the path, or the next free one of `filePathAdjustedForCollision`.
QUILLONIC_EXPORT std::filesystem::path createFileAtFreeName(const std::filesystem::path& path);

/// Creates an empty folder in the same way.
QUILLONIC_EXPORT std::filesystem::path createFolderAtFreeName(const std::filesystem::path& path);

/// Creates an empty file per extension, all with one stem that is free for each, as
/// `consistentFilePathsAdjustedForCollision` forms them. All or none: what it created is removed when one of
/// them turns out to be taken.
QUILLONIC_EXPORT FileManager::PathsByExtension createFilesAtFreeNames(
    const std::filesystem::path& outputDirectory, std::string_view fileName,
    std::span<const std::string> extensions);

}  // namespace quillonic::offload
