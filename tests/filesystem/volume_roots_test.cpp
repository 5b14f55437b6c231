#include <quillonic/filesystem.hpp>

#include <array>
#include <cerrno>
#include <cstddef>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

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

// Older systems and some sandboxes have only the older calls.
TEST(VolumeRoots, NeedNoNewCall) {
  for (const auto error : {unsigned{ENOSYS}, unsigned{EPERM}}) {
    runPrivately([&] {
      std::array<sock_filter, 4> filter{{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_statx, 0, 1),
                                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
                                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)}};
      const sock_fprog program{filter.size(), filter.data()};
      if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
          prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        endAsNotAllowed();
      }
      expectRoots({{"/", "/"}, {"/proc/self/stat", "/proc"}, {"/proc/missing", "/proc"}});
    });
  }
}

}  // namespace
}  // namespace quillonic
