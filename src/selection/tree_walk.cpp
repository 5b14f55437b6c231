#include <quillonic/selection/tree_walk.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/folder_chain.hpp"
#include "platform/items.hpp"
#include "selection/selection_plan.hpp"

namespace quillonic::selection {

WalkObserver::~WalkObserver() = default;
void WalkObserver::undecided(const WalkItem& /*item*/) {}
void WalkObserver::unread(std::string_view /*path*/, std::error_code /*error*/) {}
void WalkObserver::progressed(const WalkSummary& /*soFar*/, bool& /*stop*/) {}

// Compares the items of a folder while it is read, since their status costs least then, and keeps only those
// that it has to tell of or to enter. These are sorted.
class TreeWalk {
 public:
  TreeWalk(const Selector& selector, const WalkOptions& options, WalkObserver& observer)
      : plan_(*selector.plan_),
        seesHidden_(options.seesHidden || plan_.asksForHidden),
        entersMountPoints_(options.entersMountPoints),
        observer_(observer) {}

  WalkSummary walk(const std::string& root) {
    path_ = root;
    // A link is followed here alone.
    if (!root.empty() && !root.ends_with('/')) path_ += '/';
    enter(path_);
    while (!levels_.empty() && !summary_.isStopped) {
      auto& level = levels_.back();
      path_.resize(level.pathSize);
      if (level.next == level.kept.size()) {
        leave();
      } else {
        tell(level.kept[level.next++], level);
      }
    }
    return summary_;
  }

 private:
  // Small, since many are sorted.
  struct Kept {
    std::uint32_t nameStart;
    std::uint32_t nameSize;
    std::optional<std::uint64_t> size;
    // The system's number of what went wrong, or 0.
    int error;
    FileType type;
    Answer answer;
  };

  struct Level {
    // The size of its path, with a trailing slash.
    std::size_t pathSize = 0;
    // The names of the kept items, one after another.
    std::string names;
    std::vector<Kept> kept;
    std::size_t next = 0;

    std::string_view name(const Kept& item) const {
      return std::string_view(names).substr(item.nameStart, item.nameSize);
    }
  };

  void miss(std::string_view path, std::error_code error) {
    // What was removed meanwhile is not missed, but the root is.
    if (items::isMissing(error) && !levels_.empty()) return;
    ++summary_.unread;
    observer_.unread(path, error);
  }

  // Reads the folder that the path names.
  void enter(const std::string& name) {
    if (const auto error = folders_.enter(name)) return miss(shownFolder(), error);
    Level level;
    level.pathSize = path_.size();
    observer_.progressed(summary_, summary_.isStopped);
    const auto error = items::forEachEntry(*folders_.last(), [&](const std::string& entry, FileType type) {
      if (!seesHidden_ && entry.starts_with('.')) return true;
      constexpr std::uint64_t itemsBetweenReports = 1000;
      if (++summary_.seen % itemsBetweenReports == 0) observer_.progressed(summary_, summary_.isStopped);
      consider(level, entry, type);
      return !summary_.isStopped;
    });
    sort(level);
    levels_.push_back(std::move(level));
    if (error) miss(shownFolder(), error);
  }

  // Many file systems list items in the order of their creation, or the last first: names of cards are then
  // sorted.
  static void sort(Level& level) {
    const auto name = [&](const Kept& item) { return level.name(item); };
    if (std::ranges::is_sorted(level.kept, {}, name)) return;
    std::ranges::reverse(level.kept);
    if (!std::ranges::is_sorted(level.kept, {}, name)) std::ranges::sort(level.kept, {}, name);
  }

  void consider(Level& level, const std::string& name, FileType type) {
    Facts facts;
    facts.name = name;
    if (type != FileType::unknown) facts.type = type;
    auto answer = plan_.answer(facts);
    std::error_code error;
    if (answer == Answer::unknown || !facts.type) {
      const auto status = items::status(name, plan_.parts, folders_.last());
      error = status.error();
      if (status) {
        facts.add(*status, plan_.parts);
        answer = plan_.answer(facts);
      }
    }
    const auto found = facts.type.value_or(FileType::unknown);
    if (answer == Answer::no && found != FileType::directory && !error) return;
    level.kept.push_back({static_cast<std::uint32_t>(level.names.size()),
                          static_cast<std::uint32_t>(name.size()), facts.size, error.value(), found, answer});
    level.names += name;
  }

  void tell(const Kept& item, const Level& level) {
    path_ += level.name(item);
    if (item.error != 0) return miss(path_, {item.error, std::system_category()});
    const WalkItem shown{path_, item.type, item.size};
    if (item.answer == Answer::yes) {
      ++summary_.chosen;
      observer_.chosen(shown, summary_.isStopped);
    } else if (item.answer == Answer::unknown) {
      ++summary_.undecided;
      observer_.undecided(shown);
    }
    if (item.type != FileType::directory || summary_.isStopped) return;
    const std::string name(level.name(item));
    if (!mayEnter(name)) return;
    path_ += '/';
    enter(name);
  }

  // Asked before a folder is opened, which would wake an automounter.
  bool mayEnter(const std::string& name) {
    if (entersMountPoints_) return true;
    const auto status = items::status(name, items::StatusParts{}, folders_.last());
    if (!status) miss(path_, status.error());
    if (!status || status->isMountPoint) return status && !*status->isMountPoint;
    const auto parent = items::status(".", items::StatusParts{}, folders_.last());
    return parent && parent->device == status->device;
  }

  void leave() {
    levels_.pop_back();
    const auto error = folders_.leave();
    if (!error || levels_.empty()) return;
    auto& level = levels_.back();
    path_.resize(level.pathSize);
    if (level.next == level.kept.size()) return;
    level.next = level.kept.size();
    ++summary_.unread;
    observer_.unread(shownFolder(), error);
  }

  // Without its trailing slash.
  std::string_view shownFolder() const {
    return std::string_view(path_).substr(0, path_.size() - (path_.size() > 1 ? 1 : 0));
  }

  const Selector::Plan& plan_;
  bool seesHidden_;
  bool entersMountPoints_;
  WalkObserver& observer_;
  WalkSummary summary_;
  items::FolderChain folders_;
  std::vector<Level> levels_;
  std::string path_;
};

WalkSummary walkTree(const std::filesystem::path& folder, const Selector& selector,
                     const WalkOptions& options, WalkObserver& observer) {
  return TreeWalk(selector, options, observer).walk(folder.native());
}

}  // namespace quillonic::selection
