// Replicates the links of a camera card: a link into the card becomes one into the copy, and any other keeps
// its target.
#include <quillonic/filesystem.hpp>
#include <quillonic/offload.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>

using namespace quillonic;
namespace fs = std::filesystem;

//! [replicate]
// Takes the canonical path of the card, whose files were copied; false where links may have been missed.
bool relink(const fs::path& card, const fs::path& copy) {
  const offload::LinkReplication how{.source = card, .copy = copy, .volume = VolumeTraits::at(copy)};
  return enumerateLinkFileDereferencePairs(card, [&](const fs::path& link, const fs::path&, bool&) {
    const auto replica = offload::linkReplica(link, how);
    if (replica.refusal) {
      std::cout << link.filename().native() << ": " << replica.refusal.message() << '\n';
    } else {
      offload::makeLink(replica);
    }
  });
}
//! [replicate]
int main() {
  const auto folder = fs::canonical(fs::temp_directory_path()) / "quillonic_replication_example";
  fs::remove_all(folder);
  fs::create_directories(folder / "card/DCIM");
  fs::create_directories(folder / "copy/DCIM");
  const fs::path clip = folder / "card/DCIM/A001.mov";
  const fs::path copies[] = {folder / "copy/DCIM/A001.mov"};
  std::ofstream(clip) << "a clip";
  fs::create_symlink("DCIM/A001.mov", folder / "card/latest");
  createAliasForFilePath(clip, folder / "card/A001 alias");
  offload::copyFile(clip, copies);
  if (!relink(folder / "card", folder / "copy")) return 1;
  for (const auto* name : {"A001 alias", "latest"})
    std::cout << name << ": " << fs::relative(*deeplyDereferencedFilePath(folder / "copy" / name), folder)
              << '\n';
  fs::remove_all(folder);
}
