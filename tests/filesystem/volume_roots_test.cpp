#include <quillonic/filesystem.hpp>

#include <array>
#include <gtest/gtest.h>

#include "private_process.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

std::vector<std::string> drivesOf(const path& item) {
  return FileManager().getUniqueDrives({&item, 1});
}

// Takes each item with its root, empty for an item on no volume.
void expectRoots(const std::vector<std::pair<path, path>>& rows) {
  for (const auto& [item, root] : rows) {
    const std::vector<std::string> drives(root.empty() ? 0 : 1, root);
    EXPECT_EQ(drivesOf(item), drives) << item;
    // Several items are looked up in one reading of the whole table.
    EXPECT_EQ(FileManager().getUniqueDrives(std::array{item, item}), drives) << item;
  }
}

void compareMounts(const TemporaryFolder& folder) {
  const auto disk = drivesOf(folder.path()).at(0);
  const auto card = folder.folder("card a");
  mountAt(card);
  const auto file = folder.file("card a/inner/deep/file");
  const auto bound = folder.folder("bound");
  mountAt(bound, (card / "inner").c_str(), "none", MS_BIND);
  const auto boundFile = folder.file("bound file");
  mountAt(boundFile, file.c_str(), "none", MS_BIND);
  const auto stack = folder.folder("stack");
  const auto odd = folder.folder("odd \\040\t\nname");
  for (const auto& at : {stack, folder / "stack/hidden", stack, odd}) mountAt(folder.folder(at));
  const auto within = folder.folder("stack/hidden/within");
  const auto link = folder.link("link", card);

  const auto dangling = folder.link("bound/dangling", "/proc/nowhere");
  expectRoots({{folder.path(), disk}, {file, card}, {bound / "deep", bound}, {boundFile, boundFile}});
  expectRoots({{stack, stack}, {stack / "hidden", stack}, {within, stack}, {odd, odd}});
  expectRoots({{link, disk}, {link / "", disk}, {dangling, bound}, {link / "output.mov", card}});
  expectRoots({{link / "missing/output.mov", ""}, {"/proc/self/stat", "/proc"}});
  std::filesystem::current_path(bound);
  expectRoots({{"deep", bound}, {"..", disk}, {"output.mov", bound}, {"missing/missing", ""}});
  expectRoots({{"", ""}, {std::string("/proc\0x", 7), ""}});
  std::filesystem::current_path("/");

  // An overlay's files keep the device numbers of its layers.
  const auto merged = folder.folder("merged");
  const auto options = overlayOptions(card / "inner", stack);
  if (mount("overlay", merged.c_str(), "overlay", 0, options.c_str()) == 0) {
    expectRoots({{merged / "deep/file", merged}, {folder.file("merged/above"), merged}});
  } else {
    std::printf("no overlay can be mounted here: not compared\n");
  }

  // A pulled drive.
  ASSERT_EQ(umount2(bound.c_str(), MNT_DETACH), 0);
  expectRoots({{bound / "deep/clip.mov", ""}, {bound, disk}});
}

TEST(VolumeRoots, AreThoseOfTheSystemsMounts) {
  const TemporaryFolder folder;
  runPrivately([&] { compareMounts(folder); });
}

}  // namespace
}  // namespace quillonic
