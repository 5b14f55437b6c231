#include "catalogue/folder_tree.hpp"

#include <algorithm>
#include <utility>

namespace quillonic::catalogue {

FolderTree::FolderTree(const std::filesystem::path& folder, bool hasSizes, WalkProgress progress)
    : hasSizes_(hasSizes), progress_(progress) {
  items_.push_back({.name = {}, .parent = root, .type = FileType::directory});
  auto physical = items::canonical(folder.native());
  if (!physical) {
    miss(root, physical.error());
    items_[root].isListed = true;
    return;
  }
  physical_ = *std::move(physical);
  rootName_ = std::filesystem::path(physical_).filename().native();
}

void FolderTree::listAll(Index folder) {
  for (const auto child : children(folder)) {
    if (items_[child].isFolder()) listAll(child);
  }
}

std::size_t FolderTree::depth(Index item) const noexcept {
  std::size_t found = 0;
  for (; item != root; item = items_[item].parent) ++found;
  return found;
}

bool FolderTree::isWithin(Index item, Index folder) const noexcept {
  while (item != folder && item != root) item = items_[item].parent;
  return item == folder;
}

std::string FolderTree::path(Index item, Index from) const {
  std::size_t length = 0;
  for (auto at = item; at != from && at != root; at = items_[at].parent) length += items_[at].name.size() + 1;
  std::string text(length > 0 ? length - 1 : 0, '/');
  for (auto at = item; at != from && at != root; at = items_[at].parent) {
    length -= items_[at].name.size() + 1;
    text.replace(length, items_[at].name.size(), items_[at].name);
  }
  return text;
}

Result<const items::Folder*> FolderTree::open(Index folder) {
  std::vector<Index> way;
  for (auto at = folder;; at = items_[at].parent) {
    way.push_back(at);
    if (at == root) break;
  }
  std::ranges::reverse(way);
  const auto differing = std::ranges::mismatch(opened_, way, {}, &Opened::index);
  while (opened_.end() != differing.in1) opened_.pop_back();
  for (auto next = differing.in2; next != way.end(); ++next) {
    if (opened_.size() == greatestDepth) return items::systemError(std::errc::filename_too_long);
    auto opened = opened_.empty() ? items::Folder::open(physical_)
                                  : items::Folder::open(items_[*next].name, &opened_.back().folder);
    if (!opened) return opened.error();
    opened_.push_back({*next, *std::move(opened)});
  }
  return &opened_.back().folder;
}

void FolderTree::look(Index file, const items::Folder& folder) {
  auto& item = items_[file];
  if (item.type != FileType::unknown && (!hasSizes_ || item.type != FileType::regular)) return;
  const auto status = items::status(item.name, {.size = true}, &folder);
  if (!status) return miss(file, status.error());
  item.type = status->type;
  item.size = status->size;
}

void FolderTree::list(Index folder) {
  items_[folder].isListed = true;
  if (isStopped || !items_[folder].isFolder()) return;
  const auto opened = open(folder);
  const auto first = items_.size();
  const auto add = [&](const std::string& name, FileType type) {
    items_.push_back({.name = name, .parent = folder, .type = type});
    look(static_cast<Index>(items_.size() - 1), **opened);
    return true;
  };
  const auto error = opened ? items::forEachEntry(**opened, add) : opened.error();
  // What was listed before an error counts.
  if (error) miss(folder, error);
  std::sort(items_.begin() + static_cast<std::ptrdiff_t>(first), items_.end(),
            [](const Item& a, const Item& b) { return a.name < b.name; });
  items_[folder].first = static_cast<Index>(first);
  items_[folder].count = static_cast<Index>(items_.size() - first);
  progress_(items_.size() - 1, isStopped);
}

Result<std::string> FolderTree::firstBytes(Index file, std::size_t limit) {
  const auto opened = open(items_[file].parent);
  return opened ? items::firstBytes(items_[file].name, limit, *opened) : opened.error();
}

}  // namespace quillonic::catalogue
