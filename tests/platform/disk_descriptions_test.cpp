#include <gtest/gtest.h>

#include <quillonic/platform/disk_descriptions.hpp>

#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

Mount mountOf(std::string kind, std::string source, std::uint32_t major = 0, std::uint32_t minor = 0) {
  Mount mount;
  mount.deviceMajor = major;
  mount.deviceMinor = minor;
  mount.mountPoint = "/mnt";
  mount.kind = std::move(kind);
  mount.source = std::move(source);
  return mount;
}

TEST(DiskDescriptions, KnowNetworkVolumesByTheirKind) {
  const std::tuple<const char*, const char*, bool> rows[] = {
      {"nfs", "s:/x", true},           {"nfs4", "s:/x", true},       {"cifs", "//s/x", true},
      {"smb3", "//s/x", true},         {"fuse.sshfs", "u@s:", true}, {"fuse", "https://s/x", true},
      {"fuse.rclone", "r:", true},     {"fuse", "/dev/sdb1", false}, {"fuseblk", "/dev/sdb1", false},
      {"ext4", "/dev/nfs", false},     {"tmpfs", "nfs", false},      {"nfsd", "nfsd", false},
      {"fuse.mergerfs", "a:b", false}, {"virtiofs", "share", false}, {"", "", false}};
  for (const auto& [kind, source, isNetwork] : rows) {
    const auto description = diskDescriptionOfMount(mountOf(kind, source), "/missing");
    EXPECT_EQ(description,
              (DiskDescriptionDictionary{
                  {"DAVolumePath", path("/mnt")}, {"DAVolumeKind", kind}, {"DAVolumeNetwork", isNetwork}}))
        << kind;
  }
}

// A tree of devices as the system shows it: names by number, and below them what each device tells.
class DeviceTree {
 public:
  path disk(const std::string& number, const path& name) {
    const auto device = tree_.folder("devices" / name);
    tree_.folder("dev/block");
    std::filesystem::create_directory_symlink(device, tree_ / ("dev/block/" + number));
    return device;
  }
  static void tell(const path& device, const path& name, std::string_view value) {
    std::filesystem::create_directories((device / name).parent_path());
    std::ofstream(device / name) << value << '\n';
  }
  // What is told about media and device, behind what every description holds.
  DiskDescriptionDictionary about(std::uint32_t major, std::uint32_t minor) {
    auto description = diskDescriptionOfMount(mountOf("ext4", "/dev/x", major, minor), tree_.path());
    for (const auto* key : {"DAVolumePath", "DAVolumeKind", "DAVolumeNetwork"})
      EXPECT_EQ(description.erase(key), 1U);
    return description;
  }

 private:
  TemporaryFolder tree_;
};

TEST(DiskDescriptions, ReadTheDeviceBehindAVolume) {
  DeviceTree tree;
  const auto sda = tree.disk("8:0", "sda");
  DeviceTree::tell(sda, "device/model", "AXS-AR1         ");
  DeviceTree::tell(sda, "ro", "0");
  const auto sda1 = tree.disk("8:1", "sda/sda1");
  DeviceTree::tell(sda1, "partition", "1");
  DeviceTree::tell(sda1, "ro", "0");
  DeviceTree::tell(sda1, "uevent", "DEVNAME=sda1\nXPARTNAME=no\nPARTNAME=Card = 1\nPARTN=1");
  const auto loop = tree.disk("7:0", "loop0");
  DeviceTree::tell(loop, "loop/backing_file", "/images/card.img");
  DeviceTree::tell(loop, "ro", "1");
  const auto crypt = tree.disk("253:0", "dm-0");
  DeviceTree::tell(crypt, "ro", "0");
  std::filesystem::create_directory(crypt / "slaves");
  std::filesystem::create_directory_symlink(sda1, crypt / "slaves/sda1");
  const auto raid = tree.disk("9:0", "md0");
  DeviceTree::tell(raid, "uevent", "DEVNAME=md0");
  std::filesystem::create_directory(raid / "slaves");
  std::filesystem::create_directory_symlink(sda1, raid / "slaves/sda1");
  std::filesystem::create_directory_symlink(loop, raid / "slaves/loop0");
  const auto cycle = tree.disk("253:1", "dm-1");
  std::filesystem::create_directory(cycle / "slaves");
  std::filesystem::create_directory_symlink(cycle, cycle / "slaves/dm-1");

  using Description = DiskDescriptionDictionary;
  EXPECT_EQ(
      tree.about(8, 0),
      (Description{{"DADeviceModel", "AXS-AR1"}, {"DAMediaName", "AXS-AR1"}, {"DAMediaWritable", true}}));
  const Description card{
      {"DADeviceModel", "AXS-AR1"}, {"DAMediaName", "Card = 1"}, {"DAMediaWritable", true}};
  EXPECT_EQ(tree.about(8, 1), card);
  EXPECT_EQ(tree.about(253, 0), card);
  EXPECT_EQ(tree.about(7, 0), (Description{{"DAMediaName", "disk image"}, {"DAMediaWritable", false}}));
  EXPECT_EQ(tree.about(9, 0), (Description{{"DAMediaName", "md0"}}));
  EXPECT_EQ(tree.about(253, 1), Description{});
  EXPECT_EQ(tree.about(1, 1), Description{});
  // Write protection of the whole counts for its parts.
  DeviceTree::tell(sda, "ro", "1");
  EXPECT_EQ(tree.about(253, 0).at("DAMediaWritable"), AnyValue(false));
}

TEST(DiskDescriptions, AreThoseOfTheVolumeThatHoldsAPath) {
  const auto description = diskDescriptionOfVolume("/proc/self/stat");
  ASSERT_TRUE(description);
  EXPECT_EQ(*description,
            (DiskDescriptionDictionary{
                {"DAVolumePath", path("/proc")}, {"DAVolumeKind", "proc"}, {"DAVolumeNetwork", false}}));
  EXPECT_FALSE(diskDescriptionOfVolume("/missing/missing"));
}

}  // namespace
}  // namespace quillonic
