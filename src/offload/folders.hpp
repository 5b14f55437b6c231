// Folders below a root, reached without following a link.
#pragma once

#include <quillonic/support/result.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/items.hpp"
#include "platform/path_text.hpp"

namespace quillonic::offload {

using SharedFolder = std::shared_ptr<const items::Folder>;

// A folder that stays open: if its volume is pulled, nothing is written to what takes its place.
inline Result<SharedFolder> openedRoot(const std::filesystem::path& root) {
  const auto place = items::canonical(root.native());
  auto folder = place ? items::Folder::open(*place) : place.error();
  if (!folder) return folder.error();
  return std::make_shared<const items::Folder>(*std::move(folder));
}

// Whether a path, whose final link is not followed, names an open folder: another volume may be there by now.
inline bool isNameOf(const std::string& path, const items::Folder& folder) {
  const auto open = items::status(".", &folder);
  const auto named = items::status(path);
  return open && named && items::areSame(*open, *named);
}

// Remembers the last folder, since items come in the order of their folders.
class FoldersBelow {
 public:
  explicit FoldersBelow(SharedFolder root) : root_(std::move(root)), last_(root_) {}

  // The folder of an item, by the item's path below the root.
  Result<SharedFolder> folderOf(std::string_view path) { return open(path_text::folderOf(path)); }

  Result<SharedFolder> open(std::string_view path) {
    if (path == lastPath_ && last_) return last_;
    last_ = opened(path);
    lastPath_ = path;
    return last_;
  }

  // The same, but a folder that was missing counts as missing until another was asked for.
  Result<SharedFolder> remembered(std::string_view path) { return path == lastPath_ ? last_ : open(path); }

 private:
  Result<SharedFolder> opened(std::string_view path) const {
    if (!root_) return items::systemError(std::errc::no_such_file_or_directory);
    auto folder = root_;
    for (const auto& name : path_text::components(path)) {
      auto next = items::Folder::open(name, folder.get());
      if (!next) return next.error();
      folder = std::make_shared<const items::Folder>(*std::move(next));
    }
    return folder;
  }

  SharedFolder root_;
  Result<SharedFolder> last_;
  std::string lastPath_;
};

// Whether a path cannot point out of the folder that it counts from.
inline bool isBelow(std::string_view path) {
  if (path.starts_with('/') || path.find('\0') != std::string_view::npos) return false;
  const auto names = path_text::components(path);
  return !names.empty() && std::ranges::find(names, "..") == names.end();
}

inline std::string nameOf(std::string_view path) {
  return std::string(path.substr(path_text::folderPrefix(path).size()));
}

}  // namespace quillonic::offload
