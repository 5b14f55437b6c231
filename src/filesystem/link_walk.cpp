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
#include "platform/folder_chain.hpp"
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
    visit(*shown, *physical, *physical);
    while (!levels_.empty() && !stop_) {
      auto& level = levels_.back();
      if (level.next == level.folders.size()) {
        leave();
        continue;
      }
      const auto& name = level.folders[level.next++];
      visit(locations::inFolder(level.shown, name), locations::inFolder(level.physical, name), name);
    }
    return isComplete_;
  }

 private:
  // A folder on the way from the root to the current one.
  struct Level {
    // Its path as the caller sees it, and with its links followed.
    std::string shown;
    std::string physical;
    // Absent until it is compared with another.
    std::optional<items::Status> status;
    // Its folders, and the next one to visit.
    std::vector<std::string> folders;
    std::size_t next = 0;
  };

  void missFolder(const std::string& folder, std::error_code error) {
    isComplete_ = false;
    VantiroLogging::defaultLogger()->logWarning("ELFDP-Failed to read folder: " + folder + " with error " +
                                                error.message());
  }

  // `name` is that of the folder in the last one, or the first folder's path.
  void visit(std::string shown, std::string physical, const std::string& name) {
    if (const auto error = folders_.enter(name)) return missFolder(shown, error);
    const auto entries = items::entries(*folders_.last());
    if (!entries) {
      missFolder(shown, entries.error());
      static_cast<void>(folders_.leave());
      return;
    }
    auto& level = levels_.emplace_back(Level{std::move(shown), std::move(physical), {}, {}, 0});
    // Parsed once, not for each link.
    path link = path(level.shown) / "link";
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
      const auto known = items::status(entry.name, folders_.last());
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
    const auto text = items::linkText(name, folders_.last());
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
    const auto found = link_types::typeOf(name, status, folders_.last());
    if (!found && !items::isMissing(found.error())) isComplete_ = false;
    if (link_types::logged(found, item) != ReferenceLinkType::aliasReference) return std::nullopt;
    lookUps_.keep(level.physical);
    auto target = aliasTargetIn(*folders_.last(), name, item, lookUps_);
    if (!isInPlace(level)) return std::nullopt;
    return link_types::loggedTarget(std::move(target), item);
  }

  // False, and missed, if another folder took the place of the one that was read: a target that is searched
  // for by paths would be searched for there.
  bool isInPlace(Level& level) {
    const auto there = items::status(level.physical);
    if (!level.status) level.status = items::status(".", folders_.last()).asOptional();
    const bool isIt = level.status && there && items::areSame(*level.status, *there);
    if (!there || isIt) return true;
    missFolder(level.shown, items::systemError(std::errc::no_such_file_or_directory));
    return false;
  }

  // Goes back to the parent folder.
  void leave() {
    levels_.pop_back();
    const auto error = folders_.leave();
    if (!error || levels_.empty() || levels_.back().next == levels_.back().folders.size()) return;
    missFolder(levels_.back().shown, error);
    levels_.back().next = levels_.back().folders.size();
  }

  LinkPairBlock block_;
  FunctionRef<bool()> shouldStop_;
  LookUps lookUps_;
  items::FolderChain folders_;
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
