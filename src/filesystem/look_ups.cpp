#include "filesystem/look_ups.hpp"

#include <algorithm>
#include <utility>

#include "filesystem/locations.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "text/name_folding.hpp"
#include "text/pieces.hpp"

namespace quillonic {

// The system's own limit in one path look-up.
static constexpr int greatestLinkCount = 40;

const MountTable& LookUps::mounts() {
  if (!mounts_) mounts_ = MountTable::current();
  return *mounts_;
}

const VolumeNames& LookUps::identifiers() {
  if (!identifiers_) identifiers_ = VolumeNames::identifiers();
  return *identifiers_;
}

const VolumeNames& LookUps::labels() {
  if (!labels_) labels_ = VolumeNames::labels();
  return *labels_;
}

std::error_code LookUps::reach(const std::string& path) {
  const auto prefix = path_text::folderPrefix(path);
  const auto folder = followed(std::string(prefix));
  if (!folder) return folder.error();
  const auto item = locations::inFolder(*folder, std::string_view(path).substr(prefix.size()));
  return isAutomounted(item) ? items::systemError(std::errc::no_such_file_or_directory)
                             : items::status(item).error();
}

Result<std::string> LookUps::followed(const std::string& folder) {
  auto found = physical(folder, greatestLinkCount);
  if (!found) return found.error();
  return (*std::move(found)).path;
}

void LookUps::keep(std::string_view folder) {
  for (; folder != "/"; folder = path_text::folderOf(folder)) {
    std::string path(folder);
    const auto known = physical_.find(path);
    if (known != physical_.end() && known->second && known->second->path == path) return;
    physical_.insert_or_assign(path, Physical{path, 0});
  }
}

// One component at a time.
Result<LookUps::Physical> LookUps::physical(std::string_view path, int linksLeft) {
  Physical folder{"/", 0};
  for (auto names = text::split(path, '/'); const auto name = names.next();) {
    if (name->empty() || *name == ".") continue;
    if (*name == "..") {
      folder.path = std::string(path_text::folderOf(folder.path));
      continue;
    }
    const auto item = locations::inFolder(folder.path, *name);
    auto known = physical_.find(item);
    if (known == physical_.end()) {
      auto found = physicalItem(item, folder.path, linksLeft - folder.linkCount);
      // There may be fewer links on another way.
      if (found.error() == std::errc::too_many_symbolic_link_levels) return found;
      known = physical_.emplace(item, std::move(found)).first;
    }
    if (!known->second) return known->second.error();
    folder.path = known->second->path;
    folder.linkCount += known->second->linkCount;
    if (folder.linkCount > linksLeft) return items::systemError(std::errc::too_many_symbolic_link_levels);
  }
  return folder;
}

Result<LookUps::Physical> LookUps::physicalItem(const std::string& item, const std::string& folder,
                                                int linksLeft) {
  if (isAutomounted(item)) return items::systemError(std::errc::no_such_file_or_directory);
  const auto status = items::status(item);
  if (!status) return status.error();
  if (status->type == FileType::directory) return Physical{item, 0};
  if (status->type != FileType::symbolicLink) return items::systemError(std::errc::not_a_directory);
  if (linksLeft == 0) return items::systemError(std::errc::too_many_symbolic_link_levels);
  const auto text = items::linkText(item);
  if (!text) return text.error();
  auto target = physical(text->starts_with('/') ? *text : locations::inFolder(folder, *text), linksLeft - 1);
  if (!target) return target;
  return Physical{target->path, target->linkCount + 1};
}

bool LookUps::isAutomounted(const std::string& path) {
  const auto* mount = mounts().withLongestMountPoint(path);
  return mount && isAutomountKind(mount->kind);
}

const LookUps::Listing& LookUps::listing(const std::string& folder) {
  auto known = listings_.find(folder);
  if (known == listings_.end()) known = listings_.emplace(folder, listed(folder)).first;
  return known->second;
}

LookUps::Listing LookUps::listed(const std::string& folder) {
  const auto path = followed(folder);
  const auto opened = path ? items::Folder::open(*path) : path.error();
  const auto found = opened ? items::entries(*opened) : opened.error();
  if (!found) return {{}, found.error()};
  Listing listing;
  for (const auto& entry : *found) listing.entries.push_back({text::foldedName(entry.name), entry.name});
  std::ranges::stable_sort(listing.entries, {}, &Entry::folded);
  return listing;
}

}  // namespace quillonic
