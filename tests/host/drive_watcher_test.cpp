#include <quillonic/host/drive_watcher.hpp>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/epoll.h>

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

struct Heard {
  explicit Heard(NotificationCenter& center)
      : arrivals(center.observe(driveMount, [this](const VolumeChange& change) { note("+", change); })),
        departures(center.observe(driveDismount, [this](const VolumeChange& change) { note("-", change); })) {
  }

  void note(const char* sign, const VolumeChange& change) {
    text += sign + change.volumePath.filename().native() + (change.wasPulled ? " pulled " : " ");
    last = change;
  }
  std::string take() { return std::exchange(text, {}); }

  std::string text;
  VolumeChange last;
  Observation arrivals;
  Observation departures;
};

void watchMounts(const TemporaryFolder& folder) {
  const auto center = std::make_shared<NotificationCenter>();
  Heard heard(*center);
  const auto a = folder.folder("a");
  const auto b = folder.folder("b \n");
  mountAt(a);
  DriveWatcher watcher(center, DriveWatcher::Volumes::all);
  const auto atFirst = watcher.volumes().size();
  const int loop = epoll_create1(EPOLL_CLOEXEC);
  epoll_event event{EPOLLPRI | EPOLLET, {}};
  ASSERT_EQ(epoll_ctl(loop, EPOLL_CTL_ADD, watcher.descriptor(), &event), 0);
  EXPECT_FALSE(isReady(watcher));
  watcher.update();
  EXPECT_EQ(heard.take(), "");

  mountAt(b);
  EXPECT_EQ(epoll_wait(loop, &event, 1, 0), 1);
  close(loop);
  watcher.update();
  EXPECT_EQ(heard.take(), "+b \n ");
  EXPECT_EQ(heard.last.volumePath, b);
  EXPECT_EQ(heard.last.description.at("DAVolumeKind"), AnyValue("tmpfs"));
  EXPECT_EQ(watcher.volumes().size(), atFirst + 1);
  EXPECT_FALSE(isReady(watcher));

  // Several changes between two looks, one of them over before the second.
  const auto arrived = heard.last;
  mountAt(a);
  ASSERT_EQ(umount(a.c_str()), 0);
  ASSERT_EQ(umount(b.c_str()), 0);
  ASSERT_EQ(mount("none", a.c_str(), "none", MS_REMOUNT | MS_RDONLY, nullptr), 0);
  mountAt(folder.folder("c"));
  EXPECT_TRUE(isReady(watcher));
  watcher.update();
  EXPECT_EQ(heard.take(), "-b \n +c ");

  // Another volume in the same place.
  ASSERT_EQ(umount(a.c_str()), 0);
  mountAt(a, "another");
  ASSERT_EQ(mount(a.c_str(), b.c_str(), "none", MS_MOVE, nullptr), 0);
  watcher.update();
  EXPECT_EQ(heard.take(), "-a +b \n ");

  // Drives in memory are none, and without a table nothing is gone.
  EXPECT_TRUE(DriveWatcher(center).update().has_value() || DriveWatcher(center).volumes().empty());
  for (const auto& volume : DriveWatcher(center).volumes())
    EXPECT_NE(volume.description.at("DAVolumeKind"), AnyValue("tmpfs"));
  const RecordedLog log;
  mountAt("/proc");
  const DriveWatcher blind(center);
  EXPECT_EQ(blind.descriptor(), -1);
  EXPECT_TRUE(blind.volumes().empty());
  EXPECT_EQ(log.text().find("warning: QLC_DW_U-Failed to read the mount table with error "), 0U);
}

TEST(DriveWatcher, TellsOfMountsThatComeAndGo) {
  const TemporaryFolder folder;
  runPrivately([&] { watchMounts(folder); });
}

// Where the system's tree of devices is another one, the drive of every volume is gone.
TEST(DriveWatcher, TellsOnceOfADriveThatWasPulled) {
  runPrivately([] {
    const auto center = std::make_shared<NotificationCenter>();
    Heard heard(*center);
    DriveWatcher watcher(center);
    std::string expected;
    const bool hasDrives = watcher.update().has_value();
    if (!hasDrives) endAsNotAllowed();
    mountAt("/sys");
    EXPECT_FALSE(watcher.update());
    const auto told = heard.take();
    EXPECT_NE(told.find(" pulled "), std::string::npos);
    EXPECT_TRUE(heard.last.wasPulled);
    EXPECT_TRUE(heard.last.description.contains("DAMediaWritable"));
    watcher.update();
    EXPECT_EQ(heard.take(), "");
  });
}

}  // namespace
}  // namespace quillonic::host
