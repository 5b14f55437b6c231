// A host hears of its jobs, and asks how many transcodes suit a machine.
#include <quillonic/host.hpp>

#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>

using namespace quillonic;
using namespace quillonic::host;
using namespace std::chrono_literals;

int main() {
  auto center = std::make_shared<NotificationCenter>();
  const auto began =
      center->observe(newActiveJob, [](const JobState& job) { std::cout << job.name << " begins\n"; });
  const auto moved = center->observe(mainActivityUpdateBroadcast, [](const ActivityTotal& total) {
    std::cout << total.activeJobs << " active, " << total.progress.bytesDone << " of "
              << total.progress.bytesExpected.value_or(0) << " bytes";
    if (total.progress.secondsToGo) std::cout << ", " << *total.progress.secondsToGo << " s to go";
    std::cout << '\n';
  });
  const auto speeds = center->observe(driveSpeedUpdate, [](const DriveSpeed& speed) {
    std::cout << speed.drive << " reads " << speed.bytesReadPerSecond << " and writes "
              << speed.bytesWrittenPerSecond << " bytes a second\n";
  });

  // A host calls update() on its timer, without a moment.
  ActivityTracker tracker(center);
  const ActivityTracker::Clock::time_point start{};
  auto job = tracker.start({.name = "A001",
                            .application = "offload",
                            .readsFrom = {"CARD"},
                            .writesTo = {"RAID"},
                            .bytesExpected = 1000});
  tracker.update(start);
  job.advance(250);
  tracker.update(start + 500ms);
  job.advance(750);
  job.end();
  const auto next = tracker.update(start + 1s);
  std::cout << (next ? "asks to be called again\n" : "rests\n");

  const Machine machine{.physicalCores = 16, .memory = std::int64_t{64} << 30};
  std::cout << recommendedConcurrentTranscodes(machine) << " transcodes at once\n" << machine.table();
}
