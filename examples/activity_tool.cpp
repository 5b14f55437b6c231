// Runs a command and shows what it and the drives read and write: on a terminal a bar for each, which move;
// otherwise lines, once a second. Ends with a summary and the status of the command, or 128 and the number of
// the signal that ended it. All of it goes to standard error, so that the command's output can be used.
//
//     activity_tool COMMAND [ARGUMENT...]
#include <quillonic/host.hpp>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quillonic::host;
using namespace std::chrono_literals;

namespace {

std::string sizeText(double bytes) {
  const char* unit = "B";
  for (const auto* greater : {"kB", "MB", "GB", "TB"}) {
    if (bytes < 1000) break;
    bytes /= 1000;
    unit = greater;
  }
  std::ostringstream text;
  text << std::fixed << std::setprecision(*unit == 'B' ? 0 : 1) << bytes << ' ' << unit;
  return text.str();
}

std::string sizeText(std::uint64_t bytes) {
  return sizeText(static_cast<double>(bytes));
}

// What reads and writes: a drive, or the command with its children.
struct Source {
  std::string name;
  std::uint64_t bytesRead = 0;
  std::uint64_t bytesWritten = 0;
  double readPerSecond = 0;
  double writtenPerSecond = 0;
};

class Display {
 public:
  void show(const std::vector<Source>& sources) {
    if (!isTerminal_) {
      for (const auto& source : sources) std::cerr << line(source) << '\n';
      return;
    }
    clear();
    for (const auto& source : sources) std::cerr << line(source) << "  " << bar(source) << '\n';
    shown_ = sources.size();
  }

  void summarise(const std::vector<Source>& sources, std::chrono::duration<double> time) {
    clear();
    std::cerr << std::fixed << std::setprecision(1) << time.count() << " s\n";
    for (const auto& source : sources) {
      std::cerr << source.name << ": " << sizeText(source.bytesRead) << " read, "
                << sizeText(source.bytesWritten) << " written\n";
    }
  }

  bool isTerminal() const { return isTerminal_; }

 private:
  static std::string line(const Source& source) {
    std::ostringstream text;
    text << std::left << std::setw(10) << source.name << std::right << std::setw(10)
         << sizeText(source.readPerSecond) << "/s read " << std::setw(10) << sizeText(source.writtenPerSecond)
         << "/s written";
    return text.str();
  }

  // Full at the greatest speed that the source has had.
  std::string bar(const Source& source) {
    constexpr double width = 30;
    const auto speed = source.readPerSecond + source.writtenPerSecond;
    auto& greatest = greatest_[source.name];
    greatest = std::max(greatest, speed);
    std::string bar(greatest > 0 ? static_cast<std::size_t>(width * speed / greatest) : 0, '#');
    bar.resize(static_cast<std::size_t>(width), '.');
    return bar;
  }

  // Moves the cursor up to the first line and clears what is below.
  void clear() {
    if (shown_ > 0) std::cerr << "\x1b[" << shown_ << "A\x1b[J";
    shown_ = 0;
  }

  bool isTerminal_ = isatty(STDERR_FILENO) != 0;
  std::size_t shown_ = 0;
  std::map<std::string, double> greatest_;
};

class Watch {
 public:
  explicit Watch(pid_t command) {
    if (processes_.follow(command, ProcessMeter::Children::included) != ProcessAnswer::counted) {
      std::cerr << "The system does not tell what the command reads and writes.\n";
    }
    processes_.sample();
    if (const auto error = drives_.sample()) {
      std::cerr << "The system does not tell what drives read and write: " << error.message() << '\n';
    }
  }

  std::vector<Source> sample() {
    processes_.sample();
    drives_.sample();
    const auto total = processes_.total();
    const auto speeds = processes_.totalSpeeds().value_or(ProcessSpeeds{});
    std::vector<Source> sources{
        {"command", total.readByCalls, total.writtenByCalls, speeds.readByCalls, speeds.writtenByCalls}};
    for (const auto& drive : drives_.drives()) {
      if (drive.isPartition || drive.bytesRead + drive.bytesWritten == 0) continue;
      sources.push_back({drive.name, drive.bytesRead, drive.bytesWritten,
                         drive.bytesReadPerSecond.value_or(0), drive.bytesWrittenPerSecond.value_or(0)});
    }
    return sources;
  }

 private:
  ProcessMeter processes_;
  DriveMeter drives_;
};

// Whether it has ended; it is not waited for, so that its counts stay its own.
bool hasEnded(pid_t command) {
  siginfo_t ended{};
  return waitid(P_PID, static_cast<id_t>(command), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         ended.si_pid == command;
}

int failed(const char* command, int error) {
  std::cerr << command << ": " << std::strerror(error) << '\n';
  return error == ENOENT ? 127 : 126;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first.empty() || first.front() == '-') {
    const bool asksForHelp = first == "-h" || first == "--help";
    (asksForHelp ? std::cout : std::cerr) << "usage: activity_tool COMMAND [ARGUMENT...]\n";
    return asksForHelp ? 0 : 64;
  }
  // Waited for below; the command gets none of them blocked.
  sigset_t signals;
  sigset_t before;
  sigemptyset(&signals);
  for (const int number : {SIGCHLD, SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGUSR1, SIGUSR2}) {
    sigaddset(&signals, number);
  }
  sigprocmask(SIG_BLOCK, &signals, &before);
  // The command starts when it is watched: of one that has ended the system may tell other users nothing.
  int link[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, link) != 0) return failed(argv[1], errno);
  const pid_t command = fork();
  if (command < 0) return failed(argv[1], errno);
  if (command == 0) {
    close(link[0]);
    char go = 0;
    if (read(link[1], &go, 1) != 1) _exit(126);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    execvp(argv[1], argv + 1);
    const int error = errno;
    _exit(write(link[1], &error, sizeof error) == sizeof error ? 0 : 126);
  }
  close(link[1]);
  Watch watch(command);
  int error = EPIPE;
  if (write(link[0], "", 1) != 1 || read(link[0], &error, sizeof error) != 0) return failed(argv[1], error);

  const auto start = std::chrono::steady_clock::now();
  Display display;
  const timespec interval{display.isTerminal() ? 0 : 1, display.isTerminal() ? 250'000'000 : 0};
  auto shownAt = start;
  while (!hasEnded(command)) {
    siginfo_t info{};
    const int number = sigtimedwait(&signals, &info, &interval);
    // Keys on a terminal have reached the command too.
    if (number > 0 && number != SIGCHLD && info.si_code != SI_KERNEL) kill(command, number);
    const auto now = std::chrono::steady_clock::now();
    if (now - shownAt < 200ms) continue;
    shownAt = now;
    display.show(watch.sample());
  }
  display.summarise(watch.sample(), std::chrono::steady_clock::now() - start);
  int status = 0;
  while (waitpid(command, &status, 0) < 0 && errno == EINTR) continue;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
