#include <quillonic/host/drive_watcher.hpp>

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <poll.h>
#include <random>
#include <string>
#include <sys/utsname.h>
#include <utility>
#include <vector>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic::host {
namespace {

// Whether an event loop would call the host.
bool isReady(const DriveWatcher& watcher) {
  pollfd waiting{watcher.descriptor(), POLLPRI, 0};
  return poll(&waiting, 1, 0) == 1;
}

// What is posted, as words.
struct Heard {
  std::vector<std::string> take() {
    std::ranges::sort(words);
    return std::exchange(words, {});
  }
  Observation observe(NotificationName<VolumeChange> name, const char* sign) {
    return center->observe(name, [this, sign](const VolumeChange& change) {
      words.push_back(sign + change.volumePath.filename().native() + (change.wasPulled ? " pulled" : ""));
      last = change;
    });
  }

  std::shared_ptr<NotificationCenter> center = std::make_shared<NotificationCenter>();
  std::vector<std::string> words;
  VolumeChange last;
  Observation arrivals = observe(driveMount, "+");
  Observation departures = observe(driveDismount, "-");
};

// Whatever happens between two looks, the difference is told. Older systems number mounts again.
void watchMounts(const TemporaryFolder& folder) {
  utsname system{};
  uname(&system);
  int version[2] = {};
  std::sscanf(system.release, "%d.%d", version, version + 1);  // NOLINT(cert-err34-c)
  const bool isToldApart = std::pair(version[0], version[1]) >= std::pair(6, 8);
  Heard heard;
  DriveWatcher watcher(heard.center, DriveWatcher::Volumes::all);
  const auto atFirst = watcher.volumes().size();
  std::map<std::string, int> mounted;
  auto told = mounted;
  std::mt19937 random(5);  // NOLINT(cert-msc51-cpp): the same cases in each run
  for (int step = 1; step <= 300; ++step) {
    const auto name = "card \n" + std::to_string(random() % 6);
    if (mounted.erase(name) > 0) {
      ASSERT_EQ(umount((folder / name).c_str()), 0);
    } else {
      mounted[name] = step;
      mountAt(folder.folder(name), isToldApart ? "card" : std::to_string(step).c_str());
    }
    if (random() % 3 == 0) continue;
    EXPECT_TRUE(isReady(watcher));
    watcher.update();
    EXPECT_FALSE(isReady(watcher));
    std::vector<std::string> expected;
    for (const auto& [point, when] : mounted)
      if (!told.contains(point) || told[point] != when) expected.push_back("+" + point);
    for (const auto& [point, when] : told)
      if (!mounted.contains(point) || mounted[point] != when) expected.push_back("-" + point);
    std::ranges::sort(expected);
    ASSERT_EQ(heard.take(), expected) << step;
    told = mounted;
  }
  EXPECT_EQ(watcher.volumes().size(), atFirst + mounted.size());
  EXPECT_EQ(heard.last.description.at("DAVolumeKind"), AnyValue("tmpfs"));

  // What is in memory is no drive, and a table that cannot be read tells of nothing gone.
  for (const auto& volume : DriveWatcher(heard.center).volumes())
    EXPECT_NE(volume.description.at("DAVolumeKind"), AnyValue("tmpfs"));
  const RecordedLog log;
  mountAt("/proc");
  EXPECT_EQ(DriveWatcher(heard.center).descriptor(), -1);
  EXPECT_TRUE(log.text().starts_with("warning: QLC_DW_U-Failed to read the mount table with error "));
}

TEST(DriveWatcher, TellsOfMountsThatComeAndGo) {
  const TemporaryFolder folder;
  runPrivately([&] { watchMounts(folder); });
}

// Where no device is shown any more, the drive of every volume is gone.
TEST(DriveWatcher, TellsOnceOfADriveThatWasPulled) {
  runPrivately([] {
    Heard heard;
    DriveWatcher watcher(heard.center);
    if (!watcher.update()) endAsNotAllowed();
    mountAt("/sys");
    EXPECT_FALSE(watcher.update());
    EXPECT_FALSE(heard.take().empty());
    EXPECT_TRUE(heard.last.wasPulled);
    EXPECT_TRUE(heard.last.description.contains("DAMediaWritable"));
    watcher.update();
    EXPECT_TRUE(heard.take().empty());
  });
}

}  // namespace
}  // namespace quillonic::host
