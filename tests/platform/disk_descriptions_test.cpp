#include <quillonic/platform/disk_descriptions.hpp>

#include <gtest/gtest.h>

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
TEST(DiskDescriptions, ReadTheDeviceBehindAVolume) {
  const TemporaryFolder tree;
  const auto tell = [&](const path& file, std::string_view value) {
    tree.folder(file.parent_path());
    std::ofstream(tree / file) << value << '\n';
  };
  const auto link = [&](const path& from, const path& to) {
    tree.folder(from.parent_path());
    std::filesystem::create_directory_symlink(tree.folder(to), tree / from);
  };
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

  using Description = DiskDescriptionDictionary;
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
    auto description = diskDescriptionOfMount(mountOf("ext4", "/dev/x", 8, minor), tree.path());
    for (const auto* key : {"DAVolumePath", "DAVolumeKind", "DAVolumeNetwork"}) description.erase(key);
    EXPECT_EQ(description, expected) << device;
  }
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
