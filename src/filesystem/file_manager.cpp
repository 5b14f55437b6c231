#include <quillonic/filesystem/file_manager.hpp>
#include <quillonic/platform/logging.hpp>
#include <quillonic/platform/script_runner.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cxxabi.h>
#include <exception>
#include <set>
#include <utility>

#include "platform/items.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

// The folder with a trailing slash. Paths are joined as texts, so that a name with a leading slash stays in
// the folder.
std::string namePrefix(const std::filesystem::path& folder) {
  auto prefix = folder.native();
  if (!prefix.empty() && !prefix.ends_with('/')) prefix.push_back('/');
  return prefix;
}

std::vector<std::string> namePrefixes(std::span<const std::filesystem::path> folders) {
  std::vector<std::string> prefixes;
  prefixes.reserve(folders.size());
  for (const auto& folder : folders) prefixes.push_back(namePrefix(folder));
  return prefixes;
}

// A path that no program reads as an option; nothing when the working folder is gone.
std::optional<std::string> absolutePath(std::string_view path) {
  if (path.starts_with('/')) return std::string(path);
  const auto folder = items::workingFolder();
  if (!folder) return std::nullopt;
  return namePrefix(*folder).append(path);
}

std::optional<TextDictionary> handRemovalOver(ScriptRunner& runner, std::string_view item) {
  const auto path = absolutePath(item);
  if (!path || path->find('\0') != std::string::npos) return std::nullopt;
  if (runner.form() == ScriptForm::argumentList) {
    return runner.runArguments(std::array<std::string, 3>{"/bin/rm", "--", *path});
  }
  // The path is inside single quotes inside double quotes, where these characters cannot be written.
  if (path->find_first_of("'\"\\\n\r") != std::string::npos) return std::nullopt;
  const auto command = "/bin/rm '" + *path + "';";
  return runner.runText("do shell script \"" + command + "\" with administrator privileges");
}

// Nothing when the script could not be created. An exception of a host's runner counts as an error.
std::optional<TextDictionary> runRemoval(ScriptRunner& runner, std::string_view item) {
  try {
    return handRemovalOver(runner, item);
  } catch (const std::exception& error) {
    return TextDictionary{{"exception", error.what()}};
#ifdef __GLIBCXX__
  } catch (const abi::__forced_unwind&) {
    throw;  // the thread is being cancelled, which ends the process where it is not let through
#endif
  } catch (...) {
    return TextDictionary{{"exception", "unknown"}};
  }
}

}  // namespace

FileManager::FileManager() : FileManager(nullptr) {}

FileManager::FileManager(std::shared_ptr<const PlatformFileSystem> fileSystem)
    : fileSystem_(fileSystem ? std::move(fileSystem) : PlatformFileSystem::system()) {}

bool FileManager::isTaken(const std::string& path) const {
  const auto presence = fileSystem_->presenceOfItem(path);
  if (presence == ItemPresence::unknown) {
    VantiroLogging::defaultLogger()->logWarning(
        "QLC_FME_IT-Taken as free, since it cannot be found out whether an item exists: " + path);
  }
  return presence == ItemPresence::present;
}

std::filesystem::path FileManager::filePathAdjustedForCollision(const std::filesystem::path& path) const {
  const std::string taken(path_text::withoutTrailingSlashes(path.native()));
  if (!isTaken(taken)) return path;
  const auto folderSize = path_text::folderPrefix(taken).size();
  const auto stemEnd = folderSize + path_text::extensionStart(taken.substr(folderSize));
  auto candidate = taken.substr(0, stemEnd) + ' ';
  for (std::uint64_t counter = 2;; ++counter) {
    candidate.resize(stemEnd + 1);
    candidate += std::to_string(counter);
    candidate.append(taken, stemEnd);
    if (!isTaken(candidate)) return candidate;
  }
}

std::string FileManager::lastPathComponentAdjustedForCollision(
    std::span<const std::filesystem::path> amongstDirectories, std::string_view lastPathComponent,
    std::optional<std::string_view> pathExtension) const {
  std::string name(lastPathComponent);
  if (amongstDirectories.empty()) return name;
  if (pathExtension && !pathExtension->empty()) name.append(".").append(*pathExtension);
  const auto prefixes = namePrefixes(amongstDirectories);
  std::string candidate;
  const auto isTakenIn = [&](const std::string& prefix) {
    candidate.assign(prefix).append(name);
    return isTaken(candidate);
  };
  for (std::uint64_t counter = 2; std::ranges::any_of(prefixes, isTakenIn); ++counter) {
    name.assign(lastPathComponent).push_back(' ');
    name += std::to_string(counter);
    if (pathExtension) name.append(".").append(*pathExtension);
  }
  return name;
}

FileManager::PathsByExtension FileManager::consistentFilePathsAdjustedForCollision(
    const std::filesystem::path& outputDirectory, std::string_view fileName,
    std::span<const std::string> extensions) const {
  return consistentFilePathsAdjustedForCollisionAcrossDirectories({&outputDirectory, 1}, fileName,
                                                                  extensions);
}

FileManager::PathsByExtension FileManager::consistentFilePathsAdjustedForCollisionAcrossDirectories(
    std::span<const std::filesystem::path> directories, std::string_view fileName,
    std::span<const std::string> extensions) const {
  const auto prefixes = namePrefixes(directories);
  std::string stem(fileName);
  std::string candidate;
  const auto isTakenIn = [&](const std::string& prefix) {
    return std::ranges::any_of(extensions, [&](const std::string& extension) {
      candidate.assign(prefix).append(stem).append(".").append(extension);
      return isTaken(candidate);
    });
  };
  for (std::uint64_t counter = 2; std::ranges::any_of(prefixes, isTakenIn); ++counter) {
    stem.assign(fileName).push_back('-');
    stem += std::to_string(counter);
  }
  PathsByExtension paths;
  if (prefixes.empty()) return paths;
  for (const auto& extension : extensions) {
    paths.try_emplace(extension, std::string(prefixes.front()).append(stem).append(".").append(extension));
  }
  return paths;
}

std::vector<std::string> FileManager::getUniqueDrives(std::span<const std::filesystem::path> forList) const {
  std::vector<std::string> drives;
  std::set<std::string> seen;
  fileSystem_->enumerateVolumeRoots(
      forList, [&](const std::filesystem::path& /*item*/, const std::filesystem::path* root) {
        if (root && seen.insert(root->native()).second) drives.push_back(root->native());
      });
  return drives;
}

FileManager::ItemsByDrive FileManager::mappingOfUniqueDrives(
    std::span<const std::filesystem::path> to) const {
  ItemsByDrive items;
  const std::string nowhere;
  fileSystem_->enumerateVolumeRoots(
      to, [&](const std::filesystem::path& item, const std::filesystem::path* root) {
        if (!root) {
          VantiroLogging::defaultLogger()->logWarning("MOUD-Unable to find root drive path for given URL: " +
                                                      item.native());
        }
        items[root ? root->native() : nowhere].push_back(item.native());
      });
  return items;
}

bool FileManager::removePathWithElevatedPermissions(std::string_view path) const {
  const std::string item(path_text::withoutTrailingSlashes(path));
  if (fileSystem_->presenceOfItem(item) == ItemPresence::absent) return true;
  const auto errors = runRemoval(*ScriptRunner::defaultRunner(), item);
  if (!errors) {
    VantiroLogging::defaultLogger()->logError(
        std::string("QLC_FME_RIWEP-Failed to elevate permissions to remove ").append(path));
    return false;
  }
  if (!errors->empty()) {
    std::string message("QLC_FME_RIWEP-Failed to remove ");
    // A fixed text, including its wording.
    message.append(path).append(" with due to errors:");
    for (const auto& [key, value] : *errors) {
      message.append(" key: ").append(key).append(" value: ").append(value);
    }
    VantiroLogging::defaultLogger()->logError(message);
    return false;
  }
  const bool isLeft = fileSystem_->presenceOfItem(item) == ItemPresence::present;
  if (isLeft) {
    VantiroLogging::defaultLogger()->logError(
        std::string("QLC_FME_RIWEP-Still there after its removal was reported: ").append(path));
  }
  return !isLeft;
}

bool FileManager::removeItemWithElevatedPermissions(const std::filesystem::path& url) const {
  return removePathWithElevatedPermissions(url.native());
}

}  // namespace quillonic
