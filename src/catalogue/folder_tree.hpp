// A folder and what is below it, listed as far as anybody asks.
#pragma once

#include <quillonic/catalogue/card.hpp>
#include <quillonic/platform/file_type.hpp>
#include <quillonic/support/result.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folder_chain.hpp"

namespace quillonic::catalogue {

// Goes from folder to folder by descriptors: swapping a folder for a link redirects nothing.
class FolderTree {
 public:
  using Index = std::uint32_t;

  // Small, since many are sorted.
  struct Item {
    std::string_view name;
    std::uint64_t size;
    Index parent;
    // The items in it, in byte order of their names.
    Index first = 0;
    Index count = 0;
    FileType type;
    bool isListed = false;

    bool isFolder() const noexcept { return type == FileType::directory; }
  };

  // Indexes in a row, for loops.
  struct Children {
    struct Iterator {
      Index index;
      Index operator*() const noexcept { return index; }
      void operator++() noexcept { ++index; }
      bool operator==(const Iterator&) const = default;
    };

    Index first;
    Index last;
    Iterator begin() const noexcept { return {first}; }
    Iterator end() const noexcept { return {last}; }
  };

  static constexpr Index root = 0;

  // With sizes, looks at every file when its folder is listed.
  FolderTree(const std::filesystem::path& folder, bool hasSizes, WalkProgress progress);

  // Listing a folder moves all items.
  Children children(Index folder) {
    if (!items_[folder].isListed) list(folder);
    return {items_[folder].first, items_[folder].first + items_[folder].count};
  }
  void listAll(Index folder = root);
  const Item& operator[](Index item) const noexcept { return items_[item]; }
  std::size_t depth(Index item) const noexcept;
  bool isWithin(Index item, Index folder) const noexcept;

  // The name of the folder itself, with its links followed.
  const std::string& rootName() const noexcept { return rootName_; }
  // Relative to the folder; empty for itself.
  std::string path(Index item) const { return path(item, root); }
  std::string path(Index item, Index from) const;

  Result<std::string> firstBytes(Index file, std::size_t limit);

  void miss(Index item, std::error_code error) { unread.push_back({path(item), error}); }

  std::vector<UnreadItem> unread;
  bool isStopped = false;

 private:
  // More than cards have; those who visit a folder call themselves for those in it.
  static constexpr std::size_t greatestDepth = 200;

  void list(Index folder);
  std::error_code readEntries(Index folder);
  void add(Index folder, const std::string& name, FileType type);
  std::error_code enter(Index folder);

  std::string rootName_;
  bool hasSizes_;
  WalkProgress progress_;
  std::vector<Item> items_;
  std::pmr::monotonic_buffer_resource names_;
  // The folders from the root to the one that was entered last.
  items::FolderChain open_;
  Index entered_ = root;
};

}  // namespace quillonic::catalogue
