#include <quillonic/filesystem/disk_description.hpp>

#include <gtest/gtest.h>
#include <map>
#include <unordered_map>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

using Entries = std::vector<std::pair<AnyValue, AnyValue>>;

TEST(DiskDescription, ReadsAnyDictionary) {
  const std::map<std::string, AnyValue> byText{{"DAVolumeKind", "exfat"},
                                               {"DAVolumePath", std::filesystem::path("/media/CARD")}};
  const std::unordered_map<int, AnyValue> byNumber{{1, "exfat"}};
  const Entries mixed{{7, "x"}, {"DAVolumeKind", "exfat"}, {"DAVolumeKind", "second"}};
  EXPECT_EQ(DiskDescription(byText).storedVolumeKindDescription(), "exfat");
  EXPECT_EQ(DiskDescription(byText).storedDAVolumePath(), "/media/CARD");
  EXPECT_EQ(DiskDescription(byNumber).storedVolumeKindDescription(), std::nullopt);
  EXPECT_EQ(DiskDescription(mixed).storedVolumeKindDescription(), "exfat");
  EXPECT_EQ(DiskDescription(mixed).storedDAVolumePath(), std::nullopt);
}

TEST(DiskDescription, ReadsWrongKindsAsAbsent) {
  const auto isNetwork = [](const AnyValue& value) {
    const Entries entries{{"DAVolumeNetwork", value}};
    return DiskDescription(entries).indicatesVolumeIsNetworkDevice();
  };
  for (const AnyValue& value : {AnyValue(true), AnyValue(1), AnyValue(0.5), AnyValue(~0ULL)})
    EXPECT_TRUE(isNetwork(value));
  for (const AnyValue& value : {AnyValue(false), AnyValue(0), AnyValue("true"), AnyValue()})
    EXPECT_FALSE(isNetwork(value));
  for (const auto* name : {"Apple Disk Image Media", "DISK IMAGE"}) {
    const Entries entries{{"DAMediaName", name}};
    EXPECT_TRUE(DiskDescription(entries).indicatesVolumeIsDiskImage());
  }
  const Entries entries{{"DAVolumePath", "/media/CARD"}, {"DAVolumeKind", 7}, {"DAMediaName", "disk-image"}};
  const DiskDescription wrong(entries);
  EXPECT_FALSE(wrong.indicatesVolumeIsDiskImage() || wrong.indicatesVolumeIsNetworkDevice());
  EXPECT_FALSE(wrong.storedDAVolumePath() || wrong.storedVolumeKindDescription());
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
  EXPECT_TRUE(
      told({{"DADeviceModel", "sony"}, {"DAMediaWritable", 1}}).ends_with("a WRITABLE Sony drive\nno"));
}

}  // namespace
}  // namespace quillonic
