// What jobs, processes and drives cost to follow.
#include <quillonic/host.hpp>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {
namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;

constexpr int threadCount = 8;
constexpr int processCount = 500;
constexpr int driveCount = 50;

// The time that passes for each call when eight threads call without a pause.
template <class Call> std::optional<double> secondsPerCall(Call call) {
  constexpr int turns = 1'000'000;
  std::atomic<bool> begins = false;
  std::vector<std::thread> threads;
  for (int i = 0; i < threadCount; ++i) {
    threads.emplace_back([&] {
      while (!begins) std::this_thread::yield();
      for (int turn = 0; turn < turns; ++turn) call();
    });
  }
  const auto start = Clock::now();
  begins = true;
  for (auto& thread : threads) thread.join();
  return std::chrono::duration<double>(Clock::now() - start).count() / (double{threadCount} * turns);
}

// Children that do nothing until this process ends.
const std::vector<pid_t>& idleProcesses() {
  static const auto processes = [] {
    std::vector<pid_t> started;
    for (int i = 0; i < processCount; ++i) {
      const auto process = fork();
      if (process < 0) throw std::runtime_error("no more processes");
      if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (;;) pause();
      }
      started.push_back(process);
    }
    return started;
  }();
  return processes;
}

// What the system shows of as many drives, in files.
struct DriveTree {
  DriveTree() {
    std::string name = fs::temp_directory_path() / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    root = name;
    fs::create_directory(root / "proc");
    std::ofstream statistics(root / "proc/diskstats");
    for (int i = 0; i < driveCount; ++i) {
      const auto drive = "nvme" + std::to_string(i) + "n1";
      statistics
          << " 259 " << i << ' ' << drive
          << " 665663 53726 14799674 341765 296221 243394 121301440 496948 0 172636 991471 1 2 3 4 5 6\n";
      fs::create_directories(root / "sys/block" / drive);
      std::ofstream(root / "sys/block" / drive / "diskseq") << i << '\n';
    }
  }
  DriveTree(const DriveTree&) = delete;
  DriveTree& operator=(const DriveTree&) = delete;
  ~DriveTree() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
  }

  fs::path root;
};

const auto* const advanced = "a job advanced by 8 threads";
const auto* const sampled = "a sample of 50 drives and 500 processes";

const bool added = [] {
  addMeasured(
      {advanced, ours},
      [] {
        host::ActivityTracker tracker;
        auto job = tracker.start({"A001", "offload"});
        return secondsPerCall([&] { job.advance(1); });
      },
      5);
  addMeasured(
      {advanced, least("a relaxed atomic addition")},
      [] {
        alignas(64) std::atomic<std::uint64_t> bytes = 0;
        return secondsPerCall([&] { bytes.fetch_add(1, std::memory_order_relaxed); });
      },
      5);
  add({sampled, ours}, [] {
    static const DriveTree tree;
    auto drives = std::make_shared<host::DriveMeter>(tree.root);
    auto processes = std::make_shared<host::ProcessMeter>();
    processes->follow(idleProcesses().front());
    processes->follow(getpid(), host::ProcessMeter::Children::included);
    processes->sample();
    if (processes->processes().size() <= processCount)
      throw std::runtime_error("not all children were found");
    return [=] {
      drives->sample();
      processes->sample();
    };
  });
  add({sampled, least("one read of each process's file")}, [] {
    std::vector<int> files;
    for (const auto process : idleProcesses())
      files.push_back(open(("/proc/" + std::to_string(process) + "/io").c_str(), O_RDONLY | O_CLOEXEC));
    return [=] {
      std::array<char, 512> text;
      for (const int file : files) use(pread(file, text.data(), text.size(), 0));
    };
  });
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
