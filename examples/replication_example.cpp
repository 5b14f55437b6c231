// Replicates a camera card: a link into the card becomes one into the copy, and any other keeps its target.
#include <quillonic/filesystem.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

using namespace quillonic;
namespace fs = std::filesystem;

//! [replicate]
// Takes the canonical path of the card, as targets are spelled; false where links may have been missed.
bool replicate(const fs::path& card, const fs::path& copy) {
  std::map<fs::path, fs::path> links;
  const auto keep = [&](const fs::path& link, const fs::path& target, bool&) { links[link] = target; };
  if (!enumerateLinkFileDereferencePairs(card, keep)) return false;
  fs::create_directory(copy);
  for (const auto& item : fs::recursive_directory_iterator(card)) {
    const auto place = copy / item.path().lexically_relative(card);
    if (item.is_directory() && !item.is_symlink()) fs::create_directory(place);
    if (item.is_directory() || links.contains(item.path())) continue;
    fs::copy(item, place, fs::copy_options::copy_symlinks);
  }
  const bool takesLinks = fileSystemSupportsSymbolicLinks(copy);
  for (const auto& [link, target] : links) {
    const auto place = copy / link.lexically_relative(card);
    const auto inCard = target.lexically_relative(card);
    const auto newTarget = *inCard.begin() == ".." ? target : copy / inCard;
    const bool isAlias = filePathLinkType(link) == ReferenceLinkType::aliasReference;
    if (isAlias) createAliasForFilePath(newTarget, place);
    if (!isAlias && takesLinks) fs::create_symlink(newTarget, place);
    if (!isAlias && !takesLinks) fs::copy(newTarget, place, fs::copy_options::recursive);
  }
  return true;
}
//! [replicate]
int main() {
  const auto folder = fs::canonical(fs::temp_directory_path()) / "quillonic_replication_example";
  fs::remove_all(folder);
  fs::create_directories(folder / "card/DCIM");
  std::ofstream(folder / "card/DCIM/A001.mov") << "a clip";
  fs::create_symlink("DCIM/A001.mov", folder / "card/latest");
  createAliasForFilePath(folder / "card/DCIM/A001.mov", folder / "card/A001 alias");
  if (!replicate(folder / "card", folder / "copy")) return 1;
  for (const auto* name : {"A001 alias", "latest"})
    std::cout << name << ": " << fs::relative(*deeplyDereferencedFilePath(folder / "copy" / name), folder)
              << '\n';
  fs::remove_all(folder);
}
