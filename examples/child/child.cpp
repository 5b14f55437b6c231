#include "child.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace child {
namespace {

constexpr int stopSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int firstFeed = 3;

Descriptor signals;
Descriptor parentEnds;

[[noreturn]] void fail(const std::string& what, int error = errno) {
  throw std::system_error(error, std::generic_category(), what);
}

struct Pipe {
  Descriptor read;
  Descriptor write;
};

Pipe makePipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) fail("pipe");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// In the child, between fork and exec: only calls that are safe there.
void become(const Program& program, char* const* argv, std::span<const int> descriptors, pid_t parent) {
  // The targets are small numbers; sources among them would be overwritten before they are copied.
  std::array<int, 8> copies{};
  for (std::size_t i = 0; i < descriptors.size(); ++i) {
    copies[i] = fcntl(descriptors[i], F_DUPFD_CLOEXEC, 16);
    if (copies[i] < 0) return;
  }
  for (std::size_t i = 0; i < descriptors.size(); ++i) {
    if (dup2(copies[i], static_cast<int>(i) + (i < 2 ? 1 : firstFeed - 2)) < 0) return;
  }
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
  // Should this process be killed, its children do not go on without it.
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(127);
  if (!program.folder.empty() && chdir(program.folder.c_str()) != 0) return;
  execvp(argv[0], argv);
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Child::Child(const Program& program) {
  std::vector<char*> argv{const_cast<char*>(program.name.c_str())};
  for (const auto& word : program.words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);

  auto out = makePipe();
  auto err = makePipe();
  auto failure = makePipe();
  std::vector<int> descriptors{out.write.number(), err.write.number()};
  std::vector<Descriptor> childEnds;
  for (int i = 0; i < program.feeds; ++i) {
    auto feed = makePipe();
    descriptors.push_back(feed.read.number());
    childEnds.push_back(std::move(feed.read));
    feeds_.push_back(std::move(feed.write));
  }

  const auto self = getpid();
  process = fork();
  if (process < 0) fail("fork");
  if (process == 0) {
    become(program, argv.data(), descriptors, self);
    const int error = errno;
    (void)!write(failure.write.number(), &error, sizeof error);
    _exit(127);
  }
  failure.write = Descriptor();
  int error = 0;
  if (read(failure.read.number(), &error, sizeof error) == sizeof error) {
    wait();
    if (error == ENOENT) throw MissingProgram(program.name);
    fail(program.name, error);
  }
  output = std::move(out.read);
  errors = std::move(err.read);
}

Child::Child(Child&& other) noexcept
    : process(std::exchange(other.process, 0)),
      output(std::move(other.output)),
      errors(std::move(other.errors)),
      feeds_(std::move(other.feeds_)),
      status_(other.status_) {}

Child::~Child() {
  if (process <= 0 || status_ >= 0) return;
  // It gets a while to remove what it has half written.
  signal(SIGTERM);
  for (int tries = 0; tries < 300; ++tries) {
    int status = 0;
    if (waitpid(process, &status, WNOHANG) != 0) return;
    usleep(10'000);
  }
  signal(SIGKILL);
  wait();
}

void Child::feed(std::size_t pipe, std::string_view text) {
  const auto end = std::move(feeds_.at(pipe));
  while (!text.empty()) {
    const auto written = write(end.number(), text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

void Child::signal(int number) const noexcept {
  if (process > 0 && status_ < 0) kill(process, number);
}

int Child::wait() {
  if (status_ >= 0) return status_;
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) fail("waitpid");
  }
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return status_;
}

void watch(pid_t parent) {
  std::signal(SIGPIPE, SIG_IGN);  // a reader that has gone must not keep this process from cleaning up
  sigset_t set;
  sigemptyset(&set);
  for (const int number : stopSignals) sigaddset(&set, number);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signals = Descriptor(signalfd(-1, &set, SFD_CLOEXEC));
  if (parent <= 0) return;
  parentEnds = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, parent, 0)));
  if (!parentEnds.isOpen() && errno == ESRCH) throw Interrupted{SIGTERM};
}

void readLines(std::span<Child* const> children, const OnLine& onLine) {
  struct Source {
    std::size_t child;
    Stream stream;
    std::string pending;
  };
  std::vector<pollfd> polled{{signals.number(), POLLIN, 0}, {parentEnds.number(), POLLIN, 0}};
  std::vector<Source> sources(2);
  for (std::size_t i = 0; i < children.size(); ++i) {
    polled.push_back({children[i]->output.number(), POLLIN, 0});
    sources.push_back({i, Stream::output, {}});
    polled.push_back({children[i]->errors.number(), POLLIN, 0});
    sources.push_back({i, Stream::errors, {}});
  }

  for (auto open = polled.size() - 2; open > 0;) {
    if (poll(polled.data(), polled.size(), -1) < 0) {
      if (errno == EINTR) continue;
      fail("poll");
    }
    int stop = polled[1].revents != 0 ? SIGTERM : 0;
    signalfd_siginfo info;
    if (polled[0].revents != 0 && read(signals.number(), &info, sizeof info) == sizeof info) {
      stop = static_cast<int>(info.ssi_signo);
    }
    if (stop != 0) {
      for (const auto* child : children) child->signal(stop);
      throw Interrupted{stop};
    }
    for (std::size_t i = 2; i < polled.size(); ++i) {
      if (polled[i].revents == 0) continue;
      auto& [child, stream, pending] = sources[i];
      std::array<char, 4096> block;
      const auto length = read(polled[i].fd, block.data(), block.size());
      if (length < 0 && errno == EINTR) continue;
      if (length > 0) pending.append(block.data(), static_cast<std::size_t>(length));
      std::size_t begin = 0;
      for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n', begin)) {
        onLine(child, stream, std::string_view(pending).substr(begin, end - begin));
        begin = end + 1;
      }
      pending.erase(0, begin);
      if (length > 0) continue;
      if (!pending.empty()) onLine(child, stream, pending);
      polled[i].fd = -1;
      --open;
    }
  }
}

void endBy(int signal) {
  std::signal(signal, SIG_DFL);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  raise(signal);
  sigprocmask(SIG_UNBLOCK, &set, nullptr);
  _exit(128 + signal);
}

Result collect(Child& child) {
  Result result;
  Child* const children[] = {&child};
  readLines(children, [&](std::size_t, Stream stream, std::string_view line) {
    auto& text = stream == Stream::output ? result.output : result.errors;
    text.append(text.empty() ? "" : "\n").append(line);
  });
  result.status = child.wait();
  return result;
}

PrivateFolder::PrivateFolder(const std::filesystem::path& parent) {
  auto name = (std::filesystem::absolute(parent) / "work-XXXXXX").native();
  if (!mkdtemp(name.data())) fail(parent);
  path_ = name;
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string PrivateFolder::link(const std::filesystem::path& file, std::string name) const {
  std::filesystem::create_symlink(std::filesystem::absolute(file), path_ / name);
  return name;
}

std::string PrivateFolder::write(std::string name, std::string_view text) const {
  std::ofstream out(path_ / name, std::ios::binary);
  if (!(out << text).flush()) fail(path_ / name);
  return name;
}

PartFile::PartFile(const std::filesystem::path& target) : target_(std::filesystem::absolute(target)) {
  unnamed_ = Descriptor(open(target_.parent_path().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
  if (unnamed_.isOpen()) {
    path_ = "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(unnamed_.number());
    return;
  }
  path_ = hidden_ = hiddenName();
  const Descriptor file(open(path_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
  if (file.isOpen()) return;
  hidden_.clear();
  fail("cannot write there");
}

PartFile::~PartFile() {
  if (!hidden_.empty()) unlink(hidden_.c_str());
}

std::string PartFile::hiddenName() const {
  return target_.parent_path() /
         (".part-" + std::to_string(getpid()) + "-" + std::to_string(unnamed_.number()));
}

std::error_code PartFile::finish(bool overwrite) {
  const auto failed = [](bool isFailure) {
    return std::error_code(isFailure ? errno : 0, std::generic_category());
  };
  const auto moveTo = [&](unsigned flags) {
    return failed(syscall(SYS_renameat2, AT_FDCWD, hidden_.c_str(), AT_FDCWD, target_.c_str(), flags) != 0);
  };
  if (unnamed_.isOpen()) {
    const auto name = overwrite ? std::filesystem::path(hiddenName()) : target_;
    const auto error =
        failed(linkat(AT_FDCWD, path_.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0);
    if (error || !overwrite) return error;
    hidden_ = name;
  }
  constexpr unsigned keepExisting = 1;  // RENAME_NOREPLACE
  auto error = moveTo(overwrite ? 0 : keepExisting);
  // Some file systems cannot promise that; there it can only be asked just before.
  if (error == std::errc::invalid_argument && !overwrite) {
    error = access(target_.c_str(), F_OK) == 0 ? make_error_code(std::errc::file_exists) : moveTo(0);
  }
  if (!error) hidden_.clear();
  return error;
}

}  // namespace child
