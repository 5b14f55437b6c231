// The folders from one folder down to another, by descriptors: no path is too long, and swapping a folder for
// a link does not redirect a walk.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/items.hpp"

namespace quillonic::items {

class FolderChain {
 public:
  bool isEmpty() const noexcept { return places_.empty(); }
  // The last folder; null if it could not be opened again.
  const Folder* last() const noexcept { return places_.back().folder ? &*places_.back().folder : nullptr; }

  // Opens a folder in the last one, or the first by its path.
  std::error_code enter(const std::string& name) {
    if (!isEmpty() && !last()) return systemError(std::errc::no_such_file_or_directory);
    auto folder = Folder::open(name, isEmpty() ? nullptr : last());
    if (!folder) return folder.error();
    if (places_.size() >= greatestOpenCount) close(places_[places_.size() - greatestOpenCount]);
    places_.push_back({*std::move(folder), {}});
    return {};
  }

  // Goes back to the folder above, which may have to be opened again. Fails if another is in its place.
  std::error_code leave() {
    const auto left = std::move(places_.back());
    places_.pop_back();
    if (isEmpty() || places_.back().folder) return {};
    auto above =
        left.folder ? Folder::open("..", &*left.folder) : systemError(std::errc::no_such_file_or_directory);
    const auto status = above ? items::status(".", StatusParts{}, &*above) : above.error();
    if (!status) return status.error();
    auto& place = places_.back();
    if (!place.status || !areSame(*place.status, *status)) {
      return systemError(std::errc::no_such_file_or_directory);
    }
    place.folder.emplace(*std::move(above));
    return {};
  }

 private:
  struct Place {
    // Absent while the chain goes far below it.
    std::optional<Folder> folder;
    // Known while it is absent.
    std::optional<Status> status;
  };

  // More levels than trees have; each uses a descriptor.
  static constexpr std::size_t greatestOpenCount = 64;

  static void close(Place& place) {
    if (!place.folder) return;
    place.status = items::status(".", StatusParts{}, &*place.folder).asOptional();
    place.folder.reset();
  }

  std::vector<Place> places_;
};

}  // namespace quillonic::items
