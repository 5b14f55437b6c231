#include "catalogue/card_search.hpp"

#include <quillonic/catalogue/identification.hpp>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

namespace quillonic::catalogue {
namespace {

using Index = FolderTree::Index;

// A copy is seldom deeper in the folder that a person chooses.
constexpr std::size_t greatestDepth = 3;
constexpr std::size_t greatestEvidence = 4;

struct Found {
  const LayoutRow* row;
  // The items that each marker is.
  std::vector<Index> markers;
};

class Search {
 public:
  explicit Search(FolderTree& tree) : tree_(tree) {}

  std::vector<Card> cards() {
    std::deque<Index> candidates{FolderTree::root};
    while (!candidates.empty()) {
      const auto root = candidates.front();
      candidates.pop_front();
      searchAt(root);
      if (tree_.depth(root) == greatestDepth) continue;
      for (const auto child : tree_.children(root)) {
        const auto& item = tree_[child];
        if (item.isFolder() && !isClaimed(child) && nameRole(item.name) == NameRole::ordinary)
          candidates.push_back(child);
      }
    }
    const auto files = unclaimedFiles();
    for (const auto& row : layoutRows()) searchByFiles(row, files);
    return std::move(cards_);
  }

 private:
  bool isClaimed(Index item) const {
    while (item != FolderTree::root && !claimed_.contains(item)) item = tree_[item].parent;
    return claimed_.contains(item);
  }

  bool isNamed(Index item, const MarkerName& name, Index root) const {
    if (name.literal.empty()) return matchesAny(name.patterns, tree_[item].name);
    std::string wanted(name.literal);
    const auto own = root == FolderTree::root ? std::string_view(tree_.rootName()) : tree_[root].name;
    wanted.replace(wanted.find('='), 1, own);
    return capitals(wanted) == capitals(tree_[item].name);
  }

  // Adds the items that a marker names below a folder.
  void findMarker(const Marker& marker, std::size_t next, Index folder, Index root,
                  std::vector<Index>& found) {
    const bool isLast = next + 1 == marker.names.size();
    for (const auto child : tree_.children(folder)) {
      const bool mustBeFolder = !isLast || marker.isFolder;
      if (mustBeFolder != tree_[child].isFolder() || !isNamed(child, marker.names[next], root)) continue;
      if (isLast) {
        found.push_back(child);
      } else {
        findMarker(marker, next + 1, child, root, found);
      }
    }
  }

  // The items of a set of markers; none unless all are there.
  std::vector<Index> itemsOf(const MarkerSet& set, Index root) {
    std::vector<Index> all;
    for (const auto& marker : set.markers) {
      const auto before = all.size();
      findMarker(marker, 0, root, root, all);
      if (all.size() == before) return {};
    }
    return all;
  }

  void searchAt(Index root) {
    std::vector<Found> found;
    for (const auto& row : layoutRows()) {
      for (const auto& set : row.markerSets) {
        if (auto markers = itemsOf(set, root); !markers.empty()) {
          found.push_back({&row, std::move(markers)});
          break;
        }
      }
    }
    for (const auto& each : found) {
      const bool isShallower =
          std::ranges::any_of(found, [&](const Found& other) { return leadsTo(each, other); });
      if (!isShallower) add(each, root);
    }
    for (const auto& each : found) {
      for (auto item : each.markers) claim(item, root);
    }
  }

  // Whether all markers of a layout are folders on the way to another's, which is the one that is meant.
  bool leadsTo(const Found& found, const Found& other) const {
    return found.row != other.row && std::ranges::all_of(found.markers, [&](Index marker) {
             return std::ranges::any_of(other.markers, [&](Index deeper) {
               return deeper != marker && tree_.isWithin(deeper, marker);
             });
           });
  }

  // Nothing below the root's own folder of a marker is the root of another card.
  void claim(Index item, Index root) {
    while (tree_[item].parent != root) item = tree_[item].parent;
    claimed_.insert(item);
  }

  struct File {
    Index item;
    // Nothing for what a desktop left there.
    std::optional<FileExtension> extension;
  };

  File fileOf(Index item) const {
    const auto name = tree_[item].name;
    const bool isOrdinary = nameRole(name) == NameRole::ordinary;
    return {item, isOrdinary ? fileExtensionOfName(name) : std::nullopt};
  }

  static bool namesMaker(const LayoutRow& row, const File& file) {
    return file.extension && std::ranges::find(row.extensions, *file.extension) != row.extensions.end();
  }

  bool isConfirmed(const Found& found) {
    for (const auto marker : found.markers) {
      for (const auto item : tree_.children(marker)) {
        if (!tree_[item].isFolder() && namesMaker(*found.row, fileOf(item))) return true;
      }
    }
    return false;
  }

  void add(const Found& found, Index root) {
    Card card;
    card.layout = found.row->layout;
    card.root = tree_.path(root);
    card.confidence = found.row->isVerified                                  ? Confidence::certain
                      : !found.row->extensions.empty() && isConfirmed(found) ? Confidence::likely
                                                                             : Confidence::possible;
    addEvidence(card, found.markers, root);
    cards_.push_back(std::move(card));
  }

  void addEvidence(Card& card, const std::vector<Index>& markers, Index root) const {
    for (const auto marker : markers) {
      if (card.evidence.size() == greatestEvidence) break;
      card.evidence.push_back(tree_.path(marker, root) + (tree_[marker].isFolder() ? "/" : ""));
    }
  }

  // Of listed folders.
  std::vector<File> unclaimedFiles() const {
    std::vector<File> found;
    std::vector<Index> folders{FolderTree::root};
    while (!folders.empty()) {
      const auto next = folders.back();
      folders.pop_back();
      if (!tree_[next].isListed) continue;
      for (const auto item : tree_.children(next)) {
        if (!tree_[item].isFolder()) {
          found.push_back(fileOf(item));
        } else if (!isClaimed(item) && nameRole(tree_[item].name) != NameRole::leftover) {
          folders.push_back(item);
        }
      }
    }
    return found;
  }

  // Recorders without markers are known by their files, and at worst by names.
  void searchByFiles(const LayoutRow& row, const std::vector<File>& all) {
    std::vector<Index> files;
    const auto addThose = [&](auto isWanted) {
      for (const auto& file : all) {
        if (isWanted(file)) files.push_back(file.item);
      }
    };
    addThose([&](const File& file) { return namesMaker(row, file); });
    const bool isLikely = !files.empty();
    if (!isLikely && !row.names.empty() && cards_.empty())
      addThose([&](const File& file) { return matchesAny(row.names, tree_[file.item].name); });
    if (files.empty()) return;
    auto root = tree_[files.front()].parent;
    while (!std::ranges::all_of(files, [&](Index file) { return tree_.isWithin(file, root); }))
      root = tree_[root].parent;
    Card card;
    card.layout = row.layout;
    card.root = tree_.path(root);
    card.isByFiles = true;
    card.confidence = isLikely ? Confidence::likely : Confidence::possible;
    addEvidence(card, files, root);
    cards_.push_back(std::move(card));
  }

  FolderTree& tree_;
  std::vector<Card> cards_;
  std::unordered_set<Index> claimed_;
};

}  // namespace

const LayoutRow& rowOfLayout(CardLayout layout) noexcept {
  const auto number = static_cast<std::size_t>(layout);
  return layoutRows()[number < layoutRows().size() ? number : 0];
}

std::string_view maker(CardLayout layout) noexcept {
  return rowOfLayout(layout).maker;
}

std::string_view family(CardLayout layout) noexcept {
  return rowOfLayout(layout).family;
}

std::vector<Card> cardsInTree(FolderTree& tree) {
  return Search(tree).cards();
}

CardSearch cardsIn(const std::filesystem::path& folder) {
  return cardsIn(folder, [](std::uint64_t /*itemCount*/, bool& /*stop*/) {});
}

CardSearch cardsIn(const std::filesystem::path& folder, WalkProgress progress) {
  FolderTree tree(folder, false, progress);
  auto cards = cardsInTree(tree);
  return {std::move(cards), std::move(tree.unread), tree.isStopped};
}

}  // namespace quillonic::catalogue
