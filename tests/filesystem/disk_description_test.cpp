#include <quillonic/filesystem/disk_description.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <unordered_map>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

using testing::ElementsAre;
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
  const std::pair<AnyValue, bool> network[] = {{true, true}, {false, false}, {1, true},       {0, false},
                                               {0.5, true},  {~0ULL, true},  {"true", false}, {{}, false}};
  for (const auto& [value, isNetwork] : network) {
    const Entries entries{{"DAVolumeNetwork", value}};
    EXPECT_EQ(DiskDescription(entries).indicatesVolumeIsNetworkDevice(), isNetwork) << value.description();
  }
  for (const AnyValue name : {"Apple Disk Image Media", "DISK IMAGE"}) {
    const Entries entries{{"DAMediaName", name}};
    EXPECT_TRUE(DiskDescription(entries).indicatesVolumeIsDiskImage());
  }
  const Entries wrong{{"DAVolumePath", "/media/CARD"}, {"DAVolumeKind", 7}, {"DAMediaName", "disk-image"}};
  EXPECT_FALSE(DiskDescription(wrong).indicatesVolumeIsDiskImage());
  EXPECT_EQ(DiskDescription(wrong).storedDAVolumePath(), std::nullopt);
  EXPECT_EQ(DiskDescription(wrong).storedVolumeKindDescription(), std::nullopt);
  EXPECT_FALSE(DiskDescription(wrong).indicatesVolumeIsNetworkDevice());
}

TEST(DiskDescription, TellsASonyDriveByModelAndMedia) {
  struct Row {
    Entries entries;
    bool isSony;
    std::vector<std::string> log;
  };
  constexpr auto detected = "info: SONY Drive detected";
  constexpr auto writable = "info: SONY Device determined to be a WRITABLE Sony drive";
  constexpr auto nonWritable = "info: SONY Device determined to be a NON-WRITABLE Sony drive";
  const Row rows[] = {
      {{{"DADeviceModel", "Extreme SSD"}, {"DAMediaName", "Card"}, {"DAMediaWritable", true}},
       false,
       {"info: Device not detected as a SONY drive: (Extreme SSD-Card)"}},
      {{{"DADeviceModel", 7}, {"DAMediaName", 8}},
       false,
       {"info: Device not detected as a SONY drive: (NO_MODEL_NAME-NO_MEDIA_NAME)"}},
      {{{"DADeviceModel", "My SONY"}, {"DAMediaWritable", false}},
       false,
       {detected, "info: DADeviceModel:My SONY", "info: DAMediaWritable:false", writable}},
      {{{"DAMediaWritable", true}, {3, 1.5}, {"DADeviceModel", "xAxS-AR1"}},
       true,
       {detected, "info: DAMediaWritable:true", "info: 3:1.5", "info: DADeviceModel:xAxS-AR1", nonWritable}},
      {{{"DADeviceModel", "sony"}, {"DAMediaWritable", 1}},
       false,
       {detected, "info: DADeviceModel:sony", "info: DAMediaWritable:1", writable}}};
  for (const auto& [entries, isSony, lines] : rows) {
    const RecordedLog log;
    EXPECT_EQ(DiskDescription(entries).indicatesVolumeIsSonyDrive(), isSony);
    EXPECT_EQ(log.lines(), lines);
  }
}

}  // namespace
}  // namespace quillonic
