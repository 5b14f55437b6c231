// Drives and processes, as the system counts them: on stored trees, and on real copies.
#include <quillonic/host/drive_meter.hpp>
#include <quillonic/host/process_meter.hpp>

#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/loop.h>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <sys/ioctl.h>
#include <vector>

#include "host/stored_tree.hpp"
#include "private_process.hpp"

namespace quillonic::host {
namespace {

using namespace std::chrono_literals;

using Moment = DriveMeter::Clock::time_point;

// A line of the system's statistics.
std::string diskLine(const std::string& name, std::uint64_t read, std::uint64_t written, int inFlight = 0) {
  return "   8       0 " + name + " 1 2 " + std::to_string(read) + " 4 5 6 " + std::to_string(written) +
         " 8 " + std::to_string(inFlight) + " 10 11 12 13 14 15 16 17\n";
}

// Each drive with its sectors and its speeds in sectors a second.
std::string shown(const DriveMeter& meter) {
  return joined(meter.drives(), '\n', [](const MeasuredDrive& drive) {
    const auto speed = [](std::optional<double> bytes) {
      return bytes ? std::to_string(std::lround(*bytes / 512)) : "-";
    };
    return drive.name + (drive.isPartition ? " partition " : " ") + std::to_string(drive.bytesRead / 512) +
           " " + std::to_string(drive.bytesWritten / 512) + " " + std::to_string(drive.requestsInFlight) +
           " " + speed(drive.bytesReadPerSecond) + " " + speed(drive.bytesWrittenPerSecond);
  });
}

TEST(DriveMeter, FollowsCountersThatWrapAndDrivesThatGo) {
  const TemporaryFolder root;
  root.file("sys/block/sdb/diskseq", "7\n");
  root.file("sys/block/sdb/sdb1/partition", "1\n");
  root.link("sys/class/block/sdb1", root / "sys/block/sdb/sdb1");
  root.file("proc/diskstats", "");
  DriveMeter meter(root.path());
  Moment now{};
  const auto look = [&](const std::string& lines) {
    root.file("proc/diskstats", lines);
    EXPECT_FALSE(meter.sample(now += 2s));
    return shown(meter);
  };
  EXPECT_EQ(
      look(diskLine("sda", 4294967290, 100) + diskLine("sdb1", 1, 1) + diskLine("sdb", 9, 9) + "cut short\n"),
      "sda 0 0 0 - -\nsdb 0 0 0 - -\nsdb1 partition 0 0 0 - -");
  // One wraps at 32 bits; the other is another drive now.
  root.file("sys/block/sdb/diskseq", "8\n");
  EXPECT_EQ(look(diskLine("sda", 14, 300, 3) + diskLine("sdb", 6000, 6000)),
            "sda 20 200 3 10 100\nsdb 0 0 0 - -");
  // What fell was no wrap.
  EXPECT_EQ(look(diskLine("sda", 4, 300)), "sda 0 0 0 - -");
  EXPECT_EQ(look(""), "");
  EXPECT_EQ(DriveMeter(root / "missing").sample(now), std::errc::no_such_file_or_directory);
}

TEST(DrivesBelow, AreFoundThroughAllKindsOfDevices) {
  const auto lines = storedLines("drives.txt");
  const TemporaryFolder root;
  storeTree(root, lines);
  const auto table = MountTable::fromText(joined(lines, '\n'));
  const std::map<std::string, StorageKind> kinds{{"drives", StorageKind::drives},
                                                 {"memory", StorageKind::memory},
                                                 {"network", StorageKind::network},
                                                 {"unknown", StorageKind::unknown}};
  std::size_t points = 0;
  for (const auto& line : lines) {
    const auto words = split(line);
    if (words.empty() || words[0][0] != '/') continue;
    const auto& mount = *table.withLongestMountPoint(words[0]);
    const DrivesBelow expected{kinds.at(words[1]), {words.begin() + 2, words.end()}};
    EXPECT_EQ(drivesBelowMount(mount, table, root.path()), expected) << line;
    EXPECT_TRUE(drivesBelowMount(mount, table, "/missing").drives.empty()) << line;
    ++points;
  }
  EXPECT_EQ(points, table.mounts().size());
  EXPECT_EQ(drivesBelow("/proc/self"), (DrivesBelow{StorageKind::memory, {}}));
}

constexpr std::size_t mebibyte = std::size_t{1} << 20U;

bool writeTo(const std::filesystem::path& file, std::size_t size) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const std::string bytes(mebibyte, 'x');
  bool isWritten = descriptor >= 0;
  for (std::size_t at = 0; at < size; at += mebibyte) {
    isWritten = isWritten && write(descriptor, bytes.data(), mebibyte) == static_cast<ssize_t>(mebibyte);
  }
  isWritten = isWritten && fsync(descriptor) == 0;
  close(descriptor);
  return isWritten;
}

// A disk of a file: what is written to it is what the system counts, exactly.
TEST(DriveMeter, CountsTheBytesThatADiskGets) {
  const TemporaryFolder folder;
  const int control = open("/dev/loop-control", O_RDWR | O_CLOEXEC);
  const int number = control >= 0 ? ioctl(control, LOOP_CTL_GET_FREE) : -1;
  const auto name = "loop" + std::to_string(number);
  const int disk = number >= 0 ? open(("/dev/" + name).c_str(), O_RDWR | O_CLOEXEC) : -1;
  const auto image = folder.file("image", std::string(16 * mebibyte, '\0'));
  const int file = open(image.c_str(), O_RDWR | O_CLOEXEC);
  const bool isAttached = disk >= 0 && ioctl(disk, LOOP_SET_FD, file) == 0;
  close(control);
  close(file);
  if (!isAttached) GTEST_SKIP() << "needs a free loop device";
  DriveMeter meter;
  Moment now{};
  EXPECT_FALSE(meter.sample(now));
  EXPECT_TRUE(writeTo("/dev/" + name, 8 * mebibyte));
  EXPECT_FALSE(meter.sample(now += 4s));
  const auto* drive = meter.drive(name);
  ASSERT_TRUE(drive);
  EXPECT_EQ(drive->bytesWritten, 8 * mebibyte);
  EXPECT_EQ(drive->bytesWrittenPerSecond, 2.0 * mebibyte);
  EXPECT_EQ(ioctl(disk, LOOP_CLR_FD), 0);
  close(disk);
}

// What a process of a family writes before and after its children.
struct Plan {
  explicit Plan(std::mt19937& random, int depth = 0)
      : before(random() % 3), after(random() % 3), pause(random() % 2000) {
    for (auto count = random() % (depth < 3 ? 4U : 1U); count > 0; --count)
      children.emplace_back(random, depth + 1);
  }

  std::size_t blocks() const {
    return std::accumulate(children.begin(), children.end(), before + after,
                           [](std::size_t sum, const Plan& child) { return sum + child.blocks(); });
  }

  pid_t start() const {
    const auto process = fork();
    if (process != 0) return process;
    writeTo("/dev/null", before * mebibyte);
    std::vector<pid_t> started;
    for (const auto& child : children) started.push_back(child.start());
    usleep(static_cast<useconds_t>(pause));
    for (const auto child : started) waitpid(child, nullptr, 0);
    writeTo("/dev/null", after * mebibyte);
    _exit(0);
  }

  std::size_t before;
  std::size_t after;
  std::size_t pause;
  std::vector<Plan> children;
};

// However families of processes live and end, and whenever samples are taken. This process waits for the first
// and so inherits the counts of all; where nobody waits, what is written after the last sample is lost.
TEST(ProcessMeter, CountsEveryByteOfAFamilyOnce) {
  for (unsigned seed = 0; seed < 24; ++seed) {
    const bool isWaitedFor = seed % 4 != 0;
    std::mt19937 random(seed);
    const Plan plan(random);
    ProcessMeter meter;
    Moment now{};
    ASSERT_EQ(meter.follow(getpid(), ProcessMeter::Children::included), ProcessAnswer::counted);
    meter.sample(now);
    const auto own = meter.total().writtenByCalls;
    std::signal(SIGCHLD, isWaitedFor ? SIG_DFL : SIG_IGN);
    const auto family = plan.start();
    auto last = own;
    const auto sample = [&] {
      meter.sample(now += 100ms);
      EXPECT_GE(meter.total().writtenByCalls, last) << seed;
      last = meter.total().writtenByCalls;
    };
    while (waitpid(family, nullptr, WNOHANG) == 0) sample();
    sample();
    sample();
    // Tools that run the test write a few bytes for it.
    const auto blocks = (last - own) / mebibyte;
    EXPECT_LE(blocks, plan.blocks()) << seed;
    EXPECT_TRUE(blocks == plan.blocks() || !isWaitedFor) << seed;
    EXPECT_EQ(meter.processes().size(), 1U) << seed;

    meter.sample(now += 1h);
    writeTo("/dev/null", 2 * mebibyte);
    meter.sample(now += 4s);
    EXPECT_NEAR(meter.totalSpeeds()->writtenByCalls, 2.0 * mebibyte / 4, 100) << seed;
  }
  std::signal(SIGCHLD, SIG_DFL);
}

TEST(ProcessMeter, SaysWhyItKnowsNothing) {
  const TemporaryFolder root;
  root.file("proc/1/stat", "1 (a b) c) S 0 1 1 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 1 0 5 1 1\n");
  ProcessMeter meter(root.path());
  EXPECT_EQ(meter.follow(1), ProcessAnswer::notKnown);
  meter.sample();
  EXPECT_EQ(meter.processes()[0].answer, ProcessAnswer::notKnown);
  EXPECT_FALSE(meter.totalSpeeds());
  EXPECT_EQ(meter.follow(2), ProcessAnswer::ended);
  EXPECT_EQ(ProcessMeter(root / "missing").follow(1), ProcessAnswer::notKnown);

  EXPECT_EQ(ProcessMeter().follow(-1), ProcessAnswer::ended);

  const auto testing = getpid();
  runPrivately([&] {
    becomeNobody();
    EXPECT_EQ(ProcessMeter().follow(testing), ProcessAnswer::notAllowed);
  });
  runPrivately([&] {
    if (mount("proc", "/proc", "proc", 0, "hidepid=2") != 0) endAsNotAllowed();
    becomeNobody();
    EXPECT_EQ(ProcessMeter().follow(testing), ProcessAnswer::notAllowed);
  });
}

}  // namespace
}  // namespace quillonic::host
