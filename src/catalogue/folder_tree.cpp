#include "catalogue/folder_tree.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace quillonic::catalogue {

FolderTree::FolderTree(const std::filesystem::path& folder, bool hasSizes, WalkProgress progress)
    : hasSizes_(hasSizes), progress_(progress) {
  items_.push_back({.name = {}, .size = 0, .parent = root, .type = FileType::directory});
  const auto physical = items::canonical(folder.native());
  if (const auto error = physical ? open_.enter(*physical) : physical.error()) {
    miss(root, error);
    items_[root].isListed = true;
    return;
  }
  rootName_ = std::filesystem::path(*physical).filename().native();
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

// Goes up to the folder that both are in, then down.
std::error_code FolderTree::enter(Index folder) {
  for (; !isWithin(folder, entered_); entered_ = items_[entered_].parent) static_cast<void>(open_.leave());
  if (folder == entered_)
    return open_.last() ? std::error_code() : items::systemError(std::errc::no_such_file_or_directory);
  auto error = enter(items_[folder].parent);
  if (!error) error = open_.enter(std::string(items_[folder].name));
  if (!error) entered_ = folder;
  return error;
}

void FolderTree::add(Index folder, const std::string& name, FileType type) {
  auto* const kept = static_cast<char*>(names_.allocate(name.size(), 1));
  name.copy(kept, name.size());
  auto& item =
      items_.emplace_back(Item{.name = {kept, name.size()}, .size = 0, .parent = folder, .type = type});
  if (type != FileType::unknown && (!hasSizes_ || type != FileType::regular)) return;
  const auto status = items::status(name, {.size = true}, open_.last());
  if (!status) return miss(static_cast<Index>(items_.size() - 1), status.error());
  item.type = status->type;
  item.size = status->size;
}

std::error_code FolderTree::readEntries(Index folder) {
  if (depth(folder) > greatestDepth) return items::systemError(std::errc::filename_too_long);
  if (const auto error = enter(folder)) return error;
  return items::forEachEntry(*open_.last(), [&](const std::string& name, FileType type) {
    add(folder, name, type);
    return true;
  });
}

void FolderTree::list(Index folder) {
  items_[folder].isListed = true;
  if (isStopped || !items_[folder].isFolder()) return;
  const auto first = items_.size();
  // What was listed before an error counts.
  if (const auto error = readEntries(folder)) miss(folder, error);
  const auto added = std::span(items_).subspan(first);
  // File systems of cards list items in the order of their creation, some others the last first.
  const auto isSorted = [&] { return std::ranges::is_sorted(added, {}, &Item::name); };
  if (!isSorted()) std::ranges::reverse(added);
  if (!isSorted()) std::ranges::sort(added, {}, &Item::name);
  items_[folder].first = static_cast<Index>(first);
  items_[folder].count = static_cast<Index>(added.size());
  progress_(items_.size() - 1, isStopped);
}

Result<std::string> FolderTree::firstBytes(Index file, std::size_t limit) {
  const auto error = enter(items_[file].parent);
  return error ? error : items::firstBytes(std::string(items_[file].name), limit, open_.last());
}

}  // namespace quillonic::catalogue
