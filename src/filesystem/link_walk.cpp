#include <quillonic/filesystem/link_walk.hpp>
#include <quillonic/platform/logging.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "filesystem/alias_resolution.hpp"
#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

// Walks folders without following links and calls the block with each link and its target. Descends from
// folder to folder by descriptors: no path is too long, and swapping a folder for a link does not redirect
// the walk.
class LinkWalk {
 public:
  LinkWalk(LinkPairBlock block, FunctionRef<bool()> shouldStop) : block_(block), shouldStop_(shouldStop) {}

  // Whether every folder was read, until the walk was stopped.
  bool walk(const path& root) {
    const auto shown = locations::standardizedItem(locations::itself(root));
    const auto physical = shown ? items::canonical(*shown) : shown.error();
    if (!physical) {
      missFolder(root, physical.error());
      return false;
    }
    visit(*shown, *physical, items::Folder::open(*physical));
    while (!levels_.empty() && !stop_) {
      auto& level = levels_.back();
      if (level.next == level.folders.size()) {
        leave();
        continue;
      }
      const auto& name = level.folders[level.next++];
      visit(locations::inFolder(level.shown, name), locations::inFolder(level.physical, name),
            items::Folder::open(name, &*level.folder));
    }
    return isComplete_;
  }

 private:
  // A folder on the way from the root to the current one.
  struct Level {
    // Its path as the caller sees it, and with its links followed.
    std::string shown;
    std::string physical;
    // Absent while the walk is far below it.
    std::optional<items::Folder> folder;
    // Absent until it is compared with another.
    std::optional<items::Status> status;
    // Its folders, and the next one to visit.
    std::vector<std::string> folders;
    std::size_t next = 0;
  };

  // More levels than trees have; each uses a descriptor.
  static constexpr std::size_t greatestOpenLevelCount = 64;

  void missFolder(const std::string& folder, std::error_code error) {
    isComplete_ = false;
    VantiroLogging::defaultLogger()->logWarning("ELFDP-Failed to read folder: " + folder + " with error " +
                                                error.message());
  }

  void visit(const std::string& shown, const std::string& physical, Result<items::Folder> folder) {
    const auto entries = folder ? items::entries(*folder) : folder.error();
    if (!entries) return missFolder(shown, entries.error());
    if (levels_.size() >= greatestOpenLevelCount) close(levels_[levels_.size() - greatestOpenLevelCount]);
    auto& level = levels_.emplace_back(Level{shown, physical, *std::move(folder), {}, {}, 0});
    // Parsed once, not for each link.
    path link = path(shown) / "link";
    for (const auto& entry : *entries) {
      if (stop_ || shouldStop_()) {
        stop_ = true;
        return;
      }
      if (auto target = targetOf(level, entry)) {
        block_(link.replace_filename(entry.name), *std::move(target), stop_);
      }
    }
  }

  // The target of an entry that is a link. Records the folders.
  std::optional<std::string> targetOf(Level& level, const items::Entry& entry) {
    auto type = entry.type;
    items::Status status;
    if (type == FileType::unknown || type == FileType::regular) {
      const auto known = items::status(entry.name, &*level.folder);
      if (!known) {
        // Items removed since the folder was read are not missed.
        const auto error = known.error();
        if (!items::isMissing(error)) missFolder(level.shown, error);
        return std::nullopt;
      }
      status = *known;
      type = status.type;
    }
    if (type == FileType::directory) level.folders.push_back(entry.name);
    if (type == FileType::symbolicLink) return symbolicTarget(level, entry.name);
    return type == FileType::regular ? aliasTarget(level, entry.name, status) : std::nullopt;
  }

  std::optional<std::string> symbolicTarget(Level& level, const std::string& name) {
    lookUps_.keep(level.physical);
    const auto follow = [&](const std::string& folder) { return lookUps_.followed(folder); };
    const auto text = items::linkText(name, &*level.folder);
    if (!text && text.error() != std::errc::no_such_file_or_directory) isComplete_ = false;
    auto target = text ? locations::destination(level.physical, true, *text, follow) : text.error();
    const bool isSearched =
        text && !text->starts_with('/') && !(target && path_text::folderOf(*target) == level.physical);
    if (isSearched && !isInPlace(level)) return std::nullopt;
    if (!target) link_types::logMissingTarget(locations::inFolder(level.physical, name));
    return std::move(target).asOptional();
  }

  std::optional<std::string> aliasTarget(Level& level, const std::string& name, const items::Status& status) {
    const auto item = locations::inFolder(level.physical, name);
    const auto found = link_types::typeOf(name, status, &*level.folder);
    if (!found && !items::isMissing(found.error())) isComplete_ = false;
    if (link_types::logged(found, item) != ReferenceLinkType::aliasReference) return std::nullopt;
    lookUps_.keep(level.physical);
    auto target = aliasTargetIn(*level.folder, name, item, lookUps_);
    if (!isInPlace(level)) return std::nullopt;
    return link_types::loggedTarget(std::move(target), item);
  }

  // False, and missed, if another folder took the place of the one that was read: a target that is searched
  // for by paths would be searched for there.
  bool isInPlace(Level& level) {
    const auto there = items::status(level.physical);
    identify(level);
    if (!there || isIt(level, there)) return true;
    missFolder(level.shown, items::systemError(std::errc::no_such_file_or_directory));
    return false;
  }

  static void identify(Level& level) {
    if (!level.status) level.status = items::status(".", &*level.folder).asOptional();
  }

  static bool isIt(const Level& level, const Result<items::Status>& item) {
    return level.status && item && level.status->device == item->device && level.status->inode == item->inode;
  }

  static void close(Level& level) {
    if (!level.folder) return;
    identify(level);
    level.folder.reset();
  }

  // Goes back to the parent folder, which may have to be opened again.
  void leave() {
    const auto left = std::move(levels_.back());
    levels_.pop_back();
    if (levels_.empty() || levels_.back().folder) return;
    auto& level = levels_.back();
    auto above = left.folder ? items::Folder::open("..", &*left.folder)
                             : items::systemError(std::errc::no_such_file_or_directory);
    const auto status = above ? items::status(".", &*above) : above.error();
    if (isIt(level, status)) {
      level.folder.emplace(*std::move(above));
    } else if (level.next != level.folders.size()) {
      missFolder(level.shown,
                 status ? items::systemError(std::errc::no_such_file_or_directory) : status.error());
      level.next = level.folders.size();
    }
  }

  LinkPairBlock block_;
  FunctionRef<bool()> shouldStop_;
  LookUps lookUps_;
  std::vector<Level> levels_;
  bool stop_ = false;
  bool isComplete_ = true;
};

}  // namespace

bool enumerateLinkFileDereferencePairs(const path& inDirectory, LinkPairBlock didFindPair) {
  return enumerateLinkFileDereferencePairs(inDirectory, didFindPair, [] { return false; });
}

bool enumerateLinkFileDereferencePairs(const path& inDirectory, LinkPairBlock didFindPair,
                                       FunctionRef<bool()> shouldStop) {
  return LinkWalk(didFindPair, shouldStop).walk(inDirectory);
}

}  // namespace quillonic
