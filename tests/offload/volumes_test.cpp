// Offloads to volumes of several kinds, made in files and mounted where the machine allows it.

#include <quillonic/filesystem.hpp>
#include <quillonic/offload.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "private_process.hpp"
#include "sum.hpp"
#include "trees.hpp"

namespace quillonic::offload {
namespace {

struct Volume {
  const char* kind;
  // Makes the volume in the file $1 and mounts it at $2, or prints why that cannot be.
  const char* make;
  std::size_t nameChanges;
  std::size_t unheldLinks;
};

constexpr Volume volumes[] = {
    {"ext4", "mkfs.ext4 -q \"$1\" && attached mount", 0, 0},
    {"exfat", "mkfs.exfat \"$1\" && { attached mount -t exfat || attached mount.exfat-fuse; }", 5, 2},
    // Without a device, the system only tells that a program serves it.
    {"ntfs", "mkfs.ntfs -F -q \"$1\" && ntfs-3g \"$1\" \"$2\"", 5, 0},
    {"vfat", "mkfs.vfat \"$1\" && attached mount -o utf8", 5, 2},
};

bool made(const Volume& volume, const fs::path& image, const fs::path& point) {
  // The device goes when the volume does.
  const auto command = "set -- '" + image.native() + "' '" + point.native() +
                       "'; PATH=$PATH:/usr/sbin:/sbin file=$1 point=$2; "
                       "attached() { device=$(losetup -f --show \"$file\") && \"$@\" \"$device\" \"$point\"; "
                       "result=$?; losetup -d \"$device\"; return $result; }; { " +
                       volume.make + "; } >/dev/null 2>&1";
  return std::system(command.c_str()) == 0;
}

void expectOffload(const Volume& volume, const TemporaryFolder& folder, const fs::path& card) {
  SCOPED_TRACE(volume.kind);
  const auto image = folder.file(std::string(volume.kind) + ".img", "");
  fs::resize_file(image, 64'000'000);
  const auto point = folder.folder(std::string("at ") + volume.kind);
  if (!made(volume, image, point)) {
    std::printf("no %s volume can be mounted here: not tested\n", volume.kind);
    return;
  }
  const fs::path targets[] = {fs::canonical(folder.folder("at " + std::string(volume.kind) + "/copy"))};
  const auto plan = planOffload(card, targets);
  EXPECT_THAT(plan.targets[0].volume.kind, testing::EndsWith(volume.kind));
  EXPECT_TRUE(plan.targets[0].fits());
  EXPECT_EQ(plan.targets[0].writtenPaths.size(), volume.nameChanges);
  EXPECT_EQ(decode<OffloadPlan>(encode(plan)), plan);
  OffloadRun first(plan, {.checksum = &sum, .verified = {}, .progress = {}});
  const auto& report = runAll(first);
  EXPECT_EQ(report.count(0, CopyState::failed), 0U);
  EXPECT_EQ(report.count(0, CopyState::unheld), volume.unheldLinks);
  expectOnlyWholeFiles(plan, 0, true);

  // A second run finds everything, also one that was planned before.
  EXPECT_EQ(planOffload(card, targets).targets[0].missingFiles, 0);
  OffloadRun again(plan, {});
  const auto& second = runAll(again);
  EXPECT_EQ(second.count(0, CopyState::found), plan.items.size() - volume.unheldLinks);
  umount2(point.c_str(), MNT_DETACH);
}

TEST(Offload, HoldsOnEveryKindOfVolume) {
  const TemporaryFolder folder;
  const auto card = oddCard(folder);
  runPrivately([&] {
    for (const auto& volume : volumes) expectOffload(volume, folder, card);
  });
}

TEST(Offload, TellsWhatFailsByItem) {
  runPrivately([&] {
    const TemporaryFolder folder;
    const auto card = oddCard(folder);
    mkfifo((card / "pipe").c_str(), 0600);
    const fs::path targets[] = {folder.folder("whole"), folder.folder("small"), folder.folder("pulled")};
    mountAt(targets[1], "small", "tmpfs", 0, "size=40k");
    mountAt(targets[2]);
    folder.file("whole/empty", "taken");
    const auto plan = planOffload(card, targets);
    EXPECT_FALSE(plan.targets[1].fits());
    folder.file("card/con.txt", "changed since");
    OffloadRun run(plan, {.checksum = &sum, .verified = {}, .progress = {}});
    // Everything goes to the volume that is still open, and nothing to what is below.
    ASSERT_EQ(umount2(targets[2].c_str(), MNT_DETACH), 0);
    const auto& report = runAll(run);
    EXPECT_FALSE(report.isGood());
    const std::map<std::string, std::error_code> expected{{"pipe", OffloadError::kindIsNotCopied},
                                                          {"con.txt", OffloadError::sourceChanged},
                                                          {"empty", OffloadError::nameIsTaken},
                                                          {"second name", OffloadError::targetIsMissing}};
    EXPECT_EQ(report.copy(0, 2).error, std::errc::no_such_device);
    OffloadRun late(plan, {});
    EXPECT_EQ(runAll(late).count(2, CopyState::failed), plan.items.size());
    EXPECT_TRUE(fs::is_empty(targets[2]));
    for (std::size_t item = 0; item < plan.items.size(); ++item) {
      const auto& path = plan.items[item].path;
      SCOPED_TRACE(path);
      const auto known = expected.find(path);
      EXPECT_EQ(report.copy(item, 0).error, known != expected.end() ? known->second : std::error_code());
      const bool isTooMuch = path == "DCIM/100/A001.mov";
      EXPECT_TRUE(!isTooMuch || report.copy(item, 1).error == std::errc::no_space_on_device);
    }
    EXPECT_EQ(contentOf(targets[0] / "empty"), "taken");
    EXPECT_FALSE(fs::exists(targets[0] / "second name"));
    EXPECT_EQ(partialCount(folder.path()), 0U);
  });
}

TEST(Offload, ComparesWhatAnotherRunCopiesMeanwhile) {
  const TemporaryFolder folder;
  const auto card = oddCard(folder);
  const fs::path targets[] = {folder.folder("copy")};
  const auto plan = planOffload(card, targets);
  OffloadRun other(plan, {.checksum = &sum, .verified = {}, .progress = {}});
  const auto meanwhile = [&, isFirst = true](const OffloadProgress&) mutable {
    return !std::exchange(isFirst, false) || runAll(other).isGood();
  };
  OffloadRun run(plan, {.checksum = &sum, .verified = {}, .progress = meanwhile});
  EXPECT_TRUE(runAll(run).isGood());
}

TEST(Offload, StopsAndGoesOn) {
  const TemporaryFolder folder;
  const auto card = oddCard(folder);
  const fs::path targets[] = {folder.folder("copy")};
  int calls = 0;
  const auto stop = [&](const OffloadProgress&) { return ++calls < 5; };
  OffloadRun stopped(planOffload(card, targets), {.checksum = &sum, .verified = {}, .progress = stop});
  const auto& report = runAll(stopped);
  EXPECT_FALSE(report.isGood());
  EXPECT_EQ(report.count(0, CopyState::failed), 0U);
  expectOnlyWholeFiles(stopped.plan(), 0, false);
  OffloadRun next(planOffload(card, targets), {.checksum = &sum, .verified = {}, .progress = {}});
  EXPECT_TRUE(runAll(next).isGood());
  expectOnlyWholeFiles(next.plan(), 0, true);
  // A copy that decays is not good, and not replaced.
  folder.file("copy/con.txt", "A device");
  fs::last_write_time(folder / "copy/con.txt", fs::last_write_time(card / "con.txt"));
  OffloadRun last(planOffload(card, targets), {.checksum = &sum, .verified = {}, .progress = {}});
  EXPECT_EQ(runAll(last).count(0, CopyState::failed), 1U);
  EXPECT_EQ(contentOf(folder / "copy/con.txt"), "A device");
}

}  // namespace
}  // namespace quillonic::offload
