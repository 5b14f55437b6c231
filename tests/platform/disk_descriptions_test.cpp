#include <quillonic/platform/disk_descriptions.hpp>

#include <gtest/gtest.h>
#include <sstream>

#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

using Description = DiskDescriptionDictionary;

TEST(DiskDescriptions, KnowNetworkVolumesByTheirKind) {
  // Whether it is a network volume, the kind and the source.
  std::istringstream rows(
      "0 ext4 /dev/nfs  0 tmpfs nfs  0 nfsd nfsd  0 fuse /dev/sdb1  0 fuseblk /dev/sdb1  0 fuse.mergerfs a:b "
      "0 virtiofs share  1 nfs s:/x  1 nfs4 s:/x  1 cifs //s/x  1 smb3 //s/x  1 fuse.sshfs u@s: "
      "1 fuse https://s/x  1 fuse.rclone r:  1 fuse.juicefs j:x  1 gpfs x  1 fuse.quobyte q  1 afp a");
  int count = 0;
  std::string kind;
  std::string source;
  for (bool isNetwork = false; rows >> isNetwork >> kind >> source; ++count) {
    const Mount mount{0, 0, 0, 0, "/", "/mnt", kind, source, false, ""};
    const Description expected{
        {"DAVolumePath", path("/mnt")}, {"DAVolumeKind", kind}, {"DAVolumeNetwork", isNetwork}};
    EXPECT_EQ(diskDescriptionOfMount(mount, "/missing"), expected) << kind;
  }
  EXPECT_EQ(count, 18);
}

// A device tree as the system shows it: names by number, and the properties of each device below.
TEST(DiskDescriptions, ReadTheDeviceBehindAVolume) {
  const TemporaryFolder tree;
  const auto tell = [&](const path& file, const std::string& value) { tree.file(file, value + "\n"); };
  const auto link = [&](const path& from, const path& to) { tree.link(from, tree.folder(to)); };
  tell("sda/device/model", "AXS-AR1         ");
  tell("sda/ro", "0");
  tell("sda/sda1/partition", "1");
  tell("sda/sda1/ro", "1");
  tell("sda/sda1/uevent", "DEVNAME=sda1\nXPARTNAME=no\nPARTNAME=Card = 1\nPARTN=1");
  tell("loop0/loop/backing_file", "/images/card.img");
  tell("loop0/ro", "1");
  link("crypt/slaves/sda1", "sda/sda1");
  tell("raid/uevent", "DEVNAME=md0");
  link("raid/slaves/sda1", "sda/sda1");
  link("raid/slaves/loop0", "loop0");
  link("cycle/slaves/cycle", "cycle");

  const Description card{
      {"DADeviceModel", "AXS-AR1"}, {"DAMediaName", "Card = 1"}, {"DAMediaWritable", false}};
  const std::pair<path, Description> rows[] = {
      {"sda", {{"DADeviceModel", "AXS-AR1"}, {"DAMediaName", "AXS-AR1"}, {"DAMediaWritable", true}}},
      {"sda/sda1", card},
      {"crypt", card},
      {"loop0", {{"DAMediaName", "disk image"}, {"DAMediaWritable", false}}},
      {"raid", {{"DAMediaName", "md0"}}},
      {"cycle", {}}};
  std::uint32_t minor = 0;
  for (const auto& [device, expected] : rows) {
    link("dev/block/8:" + std::to_string(++minor), device);
    const Mount mount{0, 0, 8, minor, "/", "/mnt", "ext4", "/dev/x", false, ""};
    auto description = diskDescriptionOfMount(mount, tree.path());
    for (const auto* key : {"DAVolumePath", "DAVolumeKind", "DAVolumeNetwork"}) description.erase(key);
    EXPECT_EQ(description, expected) << device;
  }
}

TEST(DiskDescriptions, AreThoseOfTheVolumeThatHoldsAPath) {
  const Description expected{
      {"DAVolumePath", path("/proc")}, {"DAVolumeKind", "proc"}, {"DAVolumeNetwork", false}};
  EXPECT_EQ(diskDescriptionOfVolume("/proc/self/stat").value(), expected);
  EXPECT_FALSE(diskDescriptionOfVolume("/missing/missing"));
}

}  // namespace
}  // namespace quillonic
