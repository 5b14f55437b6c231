#include <quillonic/offload/free_names.hpp>
#include <quillonic/support/function_ref.hpp>

#include <system_error>

#include "filesystem/locations.hpp"
#include "platform/item_changes.hpp"

namespace quillonic::offload {
namespace {

// So many programs never take a name each between a look and a creation: a volume that says so is faulty.
constexpr int greatestTryCount = 10'000;

using Creation = FunctionRef<std::error_code(const std::string& path)>;

constexpr auto taking = "cannot take a free name";

std::filesystem::path created(const std::filesystem::path& path, Creation create) {
  for (int tries = 0;; ++tries) {
    auto candidate = FileManager().filePathAdjustedForCollision(path);
    const auto error = create(candidate.native());
    if (!error) return candidate;
    if (error != std::errc::file_exists || tries == greatestTryCount)
      locations::fail(taking, candidate, error);
  }
}

std::error_code createFile(const std::string& path) {
  return items::create(path, {});
}

}  // namespace

std::filesystem::path createFileAtFreeName(const std::filesystem::path& path) {
  return created(path, createFile);
}

std::filesystem::path createFolderAtFreeName(const std::filesystem::path& path) {
  return created(path, [](const std::string& folder) { return items::createFolder(folder); });
}

FileManager::PathsByExtension createFilesAtFreeNames(const std::filesystem::path& outputDirectory,
                                                     std::string_view fileName,
                                                     std::span<const std::string> extensions) {
  for (int tries = 0;; ++tries) {
    auto paths = FileManager().consistentFilePathsAdjustedForCollision(outputDirectory, fileName, extensions);
    std::error_code error;
    // Every program creates them in this order, so that one of two always gets on.
    auto next = paths.begin();
    while (next != paths.end() && !(error = createFile(next->second.native()))) ++next;
    if (next == paths.end()) return paths;
    for (auto own = paths.begin(); own != next; ++own) items::remove(own->second.native());
    if (error != std::errc::file_exists || tries == greatestTryCount)
      locations::fail(taking, next->second, error);
  }
}

}  // namespace quillonic::offload
