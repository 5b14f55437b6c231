#include <array>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <quillonic/filesystem.hpp>
#include <quillonic/platform/mount_table.hpp>

#include "filesystem/private_process.hpp"
#include "filesystem/temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> drivesOf(const path& item) {
  return FileManager().getUniqueDrives({&item, 1});
}

// What the system's own tool says; empty where it is not installed.
std::string findmnt(const path& item) {
  std::string output;
  const auto command = "findmnt --noheadings --output TARGET --target '" + item.native() + "' 2>/dev/null";
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
  std::array<char, 4096> line{};
  while (pipe && std::fgets(line.data(), line.size(), pipe.get())) output += line.data();
  return output.substr(0, output.find('\n'));
}

void mountAt(const char* source, const path& at, const char* kind, unsigned long flags, const char* options) {
  ASSERT_EQ(mount(source, at.c_str(), kind, flags, options), 0) << at << ": " << std::strerror(errno);
}

void compareMounts(const TemporaryFolder& folder) {
  const auto disk = drivesOf(folder.path()).at(0);
  const auto card = folder.folder("card a");
  mountAt("quillonic", card, "tmpfs", 0, "");
  const auto inner = folder.folder("card a/inner/deep");
  const auto file = folder.file("card a/inner/file");
  const auto bound = folder.folder("bound");
  mountAt(inner.parent_path().c_str(), bound, nullptr, MS_BIND, nullptr);
  const auto boundFile = folder.file("bound file");
  mountAt(file.c_str(), boundFile, nullptr, MS_BIND, nullptr);
  const auto stack = folder.folder("stack");
  mountAt("below", stack, "tmpfs", 0, "");
  const auto hidden = folder.folder("stack/hidden");
  mountAt("hidden", hidden, "tmpfs", 0, "");
  mountAt("above", stack, "tmpfs", 0, "");
  const auto within = folder.folder("stack/hidden/within");

  const auto odd = folder.folder("odd \\040\t\nname");
  mountAt("odd", odd, "tmpfs", 0, "");

  struct Row {
    path item;
    path root;
    // The tool goes by the text of a path: it does not see what is hidden and does not print what is odd.
    bool toolKnows = true;
  };
  const Row rows[] = {
      {folder.path(), disk}, {card, card},           {inner, card},
      {file, card},          {bound, bound},         {bound / "deep", bound},
      {stack, stack},        {boundFile, boundFile}, {"/proc/self/stat", "/proc"},
      {odd, odd, false},     {hidden, stack, false}, {within, stack, false},
  };
  for (const auto& [item, root, toolKnows] : rows) {
    EXPECT_THAT(drivesOf(item), ElementsAre(root.native())) << item;
    const auto told = toolKnows ? findmnt(item) : std::string();
    EXPECT_TRUE(told.empty() || told == root.native()) << told;
  }

  // A link counts where it lies, even one written with a slash or leading nowhere.
  std::filesystem::create_symlink(card, folder / "link");
  std::filesystem::create_symlink("/proc/nowhere", bound / "dangling");
  EXPECT_THAT(drivesOf(folder / "link"), ElementsAre(disk));
  EXPECT_THAT(drivesOf(folder / "link/"), ElementsAre(disk));
  EXPECT_THAT(drivesOf(folder / "link/inner"), ElementsAre(card.native()));
  EXPECT_THAT(drivesOf(bound / "dangling"), ElementsAre(bound.native()));
  EXPECT_THAT(drivesOf(folder / "link/output.mov"), ElementsAre(card.native()));
  EXPECT_THAT(drivesOf(folder / "link/missing/output.mov"), IsEmpty());

  std::filesystem::current_path(bound);
  EXPECT_THAT(drivesOf("deep"), ElementsAre(bound.native()));
  EXPECT_THAT(drivesOf("output.mov"), ElementsAre(bound.native()));
  EXPECT_THAT(drivesOf(".."), ElementsAre(disk));
  std::filesystem::current_path("/");

  // A pulled drive.
  const auto table = MountTable::current();
  ASSERT_EQ(umount2(bound.c_str(), MNT_DETACH), 0);
  EXPECT_THAT(drivesOf(bound / "deep/clip.mov"), IsEmpty());
  EXPECT_EQ(table.holding(bound)->mountPoint, disk);
}

TEST(VolumeRoots, AreThoseOfTheSystemsMounts) {
  const TemporaryFolder folder;
  const auto result = runPrivately([&] { compareMounts(folder); });
  if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs a namespace of its own for mounting";
  EXPECT_EQ(result, PrivateRun::passed);
  if (findmnt("/").empty()) GTEST_SKIP() << "findmnt is not installed: compared with what was mounted only";
}

// The layers of an overlay keep their own device numbers, and yet it is one volume.
TEST(VolumeRoots, TakeAnOverlayAsOneVolume) {
  const TemporaryFolder folder;
  const auto result = runPrivately([&] {
    for (const auto* layer : {"lower", "upper", "merged"}) {
      mountAt("layer", folder.folder(layer), "tmpfs", 0, "");
    }
    folder.folder("upper/files");
    folder.folder("upper/work");
    folder.file("lower/below");
    const auto options = "lowerdir=" + (folder / "lower").native() +
                         ",upperdir=" + (folder / "upper/files").native() +
                         ",workdir=" + (folder / "upper/work").native();
    const auto merged = folder / "merged";
    if (mount("overlay", merged.c_str(), "overlay", 0, options.c_str()) != 0) _exit(privateRunNotAllowed);
    folder.file("merged/above");
    EXPECT_THAT(drivesOf(merged / "below"), ElementsAre(merged.native()));
    EXPECT_THAT(drivesOf(merged / "above"), ElementsAre(merged.native()));
  });
  if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs an overlay in a namespace of its own";
  EXPECT_EQ(result, PrivateRun::passed);
}

}  // namespace
}  // namespace quillonic
