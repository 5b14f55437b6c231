#include <quillonic/filesystem/disk_description.hpp>

#include <gtest/gtest.h>
#include <map>
#include <unordered_map>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

using Entries = std::vector<std::pair<AnyValue, AnyValue>>;

TEST(DiskDescription, ReadsAnyDictionaryAndWrongKindsAsAbsent) {
  const std::map<std::string, AnyValue> byText{{"DAVolumeKind", "exfat"},
                                               {"DAVolumePath", std::filesystem::path("/media/CARD")}};
  EXPECT_EQ(DiskDescription(byText).storedVolumeKindDescription(), "exfat");
  EXPECT_EQ(DiskDescription(byText).storedDAVolumePath(), "/media/CARD");
  const std::unordered_map<int, AnyValue> byNumber{{1, "exfat"}};
  const Entries mixed{
      {7, "x"}, {"DAVolumeKind", "exfat"}, {"DAVolumeKind", "second"}, {"DAVolumePath", "/a"}};
  EXPECT_EQ(DiskDescription(byNumber).storedVolumeKindDescription(), std::nullopt);
  EXPECT_EQ(DiskDescription(mixed).storedVolumeKindDescription(), "exfat");
  EXPECT_EQ(DiskDescription(mixed).storedDAVolumePath(), std::nullopt);

  // Whether it is a network device, and whether it is a disk image.
  const std::pair<const char*, std::vector<AnyValue>> rows[] = {
      {"10", {true, 1, 0.5, ~0ULL}},
      {"00", {false, 0, "true", AnyValue(), "disk-image"}},
      {"01", {"DISK IMAGE", "Some Disk Image Media"}}};
  for (const auto& [expected, values] : rows) {
    for (const auto& value : values) {
      const Entries entries{{"DAVolumeNetwork", value}, {"DAMediaName", value}};
      const DiskDescription read(entries);
      EXPECT_EQ(std::to_string(read.indicatesVolumeIsNetworkDevice()) +
                    std::to_string(read.indicatesVolumeIsDiskImage()),
                expected)
          << value.description();
    }
  }
}

TEST(DiskDescription, TellsASonyDriveByModelAndMedia) {
  const auto told = [](const Entries& entries) {
    const RecordedLog log;
    const bool isSony = DiskDescription(entries).indicatesVolumeIsSonyDrive();
    return log.text() + (isSony ? "yes" : "no");
  };
  EXPECT_EQ(told({{"DADeviceModel", "Extreme SSD"}, {"DAMediaName", "Card"}, {"DAMediaWritable", true}}),
            "info: Device not detected as a SONY drive: (Extreme SSD-Card)\nno");
  EXPECT_EQ(told({{"DADeviceModel", 7}, {"DAMediaName", 8}}),
            "info: Device not detected as a SONY drive: (NO_MODEL_NAME-NO_MEDIA_NAME)\nno");
  EXPECT_EQ(told({{"DADeviceModel", "My SONY"}, {"DAMediaWritable", false}}),
            "info: SONY Drive detected\ninfo: DADeviceModel:My SONY\ninfo: DAMediaWritable:false\n"
            "info: SONY Device determined to be a WRITABLE Sony drive\nno");
  EXPECT_EQ(
      told({{"DAMediaWritable", true}, {3, 1.5}, {"DADeviceModel", "xAxS-AR1"}}),
      "info: SONY Drive detected\ninfo: DAMediaWritable:true\ninfo: 3:1.5\ninfo: DADeviceModel:xAxS-AR1\n"
      "info: SONY Device determined to be a NON-WRITABLE Sony drive\nyes");
}

}  // namespace
}  // namespace quillonic
