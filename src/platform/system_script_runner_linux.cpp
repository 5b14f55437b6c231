#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/wait.h>
#include <utility>
#include <vector>

#include "platform/descriptor_linux.hpp"
#include "platform/system_script_runner.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

constexpr std::size_t greatestOutput = 65536;

// Programs that run another one with raised rights, beginning with the one that can ask the user. Full paths,
// because callers control the search path.
struct Launcher {
  std::array<const char*, 4> words;
  // The exit status when it could ask nobody, so that the next one is tried.
  int couldNotAsk;
};
constexpr auto launchers = std::to_array<Launcher>({
    {{"/usr/bin/pkexec", "--disable-internal-agent"}, 127},
    {{"/usr/bin/sudo", "-n", "--"}, -1},
});

// The settings of a child process: no input, both outputs into one pipe, no terminal to ask on, and default
// signal settings.
class SpawnSettings {
 public:
  explicit SpawnSettings(int output) {
    require(::posix_spawn_file_actions_init(&actions_));
    require(::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
    require(::posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO));
    // Last: the pipe may have the number of an input that the host has closed.
    require(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    require(::posix_spawnattr_init(&attributes_));
    sigset_t signals;
    ::sigemptyset(&signals);
    require(::posix_spawnattr_setsigmask(&attributes_, &signals));
    ::sigfillset(&signals);
    require(::posix_spawnattr_setsigdefault(&attributes_, &signals));
    constexpr int flags = POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
    require(::posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)));
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&actions_);
  }

  // The child's identifier; nothing when the program could not be started.
  std::optional<pid_t> start(const std::vector<const char*>& words) const {
    if (!areComplete_) return std::nullopt;
    // The declaration lacks a const, but the function changes nothing.
    auto* const* arguments = const_cast<char* const*>(words.data());
    pid_t child = 0;
    const int error = ::posix_spawn(&child, words.front(), &actions_, &attributes_, arguments, environ);
    return error == 0 ? std::optional(child) : std::nullopt;
  }

 private:
  // Without memory a setting is lost, and the program would run with the host's input or output.
  void require(int error) noexcept { areComplete_ = areComplete_ && error == 0; }

  bool areComplete_ = true;
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

// A started program. Its end is waited for whatever happens, so that it leaves no zombie.
class Child {
 public:
  explicit Child(pid_t identifier) noexcept : identifier_(identifier) {}
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() { static_cast<void>(wait()); }

  // From `waitpid`; absent where the host ignores the ends of its children.
  std::optional<int> wait() noexcept {
    const auto identifier = std::exchange(identifier_, -1);
    int status = 0;
    pid_t ended = -1;
    if (identifier > 0) {
      do {
        ended = ::waitpid(identifier, &status, 0);
      } while (ended < 0 && errno == EINTR);
    }
    return ended > 0 ? std::optional(status) : std::nullopt;
  }

 private:
  pid_t identifier_;
};

// Puts off the cancelling of the thread: what runs with raised rights cannot be called back.
class CancellationLater {
 public:
  CancellationLater() noexcept { ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }
  CancellationLater(const CancellationLater&) = delete;
  CancellationLater& operator=(const CancellationLater&) = delete;
  ~CancellationLater() { ::pthread_setcancelstate(before_, nullptr); }

 private:
  int before_ = PTHREAD_CANCEL_ENABLE;
};

std::string readToEnd(int file) {
  std::string output;
  std::array<char, 4096> block{};
  for (;;) {
    const auto count = ::read(file, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return output;
    output.append(block.data(), std::min(static_cast<std::size_t>(count), greatestOutput - output.size()));
  }
}

struct Outcome {
  std::optional<int> status;
  std::string output;

  bool exitedWith(int wanted) const { return status && WIFEXITED(*status) && WEXITSTATUS(*status) == wanted; }

  TextDictionary errors() const {
    TextDictionary errors;
    if (exitedWith(0)) return errors;
    if (status && WIFEXITED(*status)) errors.emplace("exit status", std::to_string(WEXITSTATUS(*status)));
    if (status && WIFSIGNALED(*status)) errors.emplace("signal", std::to_string(WTERMSIG(*status)));
    const auto printed = text::trimmed(output);
    if (!printed.empty()) errors.emplace("output", printed);
    return errors;
  }
};

// Nothing when the program could not be started.
std::optional<Outcome> outcomeOf(std::vector<const char*> words) {
  words.push_back(nullptr);
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  Descriptor output(ends[0]);
  Descriptor input(ends[1]);
  const auto started = SpawnSettings(input.number()).start(words);
  static_cast<void>(input.close());
  if (!started) return std::nullopt;

  Child child(*started);
  // Closed before the child is waited for, which may wait to write.
  const auto pipe = std::move(output);
  Outcome outcome{.status = {}, .output = readToEnd(pipe.number())};
  outcome.status = child.wait();
  return outcome;
}

class SystemScriptRunner final : public ScriptRunner {
 public:
  ScriptForm form() const noexcept override { return ScriptForm::argumentList; }

  std::optional<TextDictionary> runArguments(std::span<const std::string> words) override {
    const auto hasNul = [](const std::string& word) { return word.find('\0') != std::string::npos; };
    if (words.empty() || std::ranges::any_of(words, hasNul)) return std::nullopt;
    const CancellationLater later;
    std::vector<const char*> command;
    for (const auto& word : words) command.push_back(word.c_str());
    if (::geteuid() == 0) {
      const auto outcome = outcomeOf(std::move(command));
      return outcome ? std::optional(outcome->errors()) : std::nullopt;
    }

    std::optional<TextDictionary> errors;
    for (const auto& launcher : launchers) {
      std::vector<const char*> raised(launcher.words.begin(), std::ranges::find(launcher.words, nullptr));
      raised.insert(raised.end(), command.begin(), command.end());
      const auto outcome = outcomeOf(std::move(raised));
      if (!outcome) continue;
      errors = outcome->errors();
      if (!outcome->exitedWith(launcher.couldNotAsk)) break;
    }
    return errors;
  }
};

}  // namespace

std::shared_ptr<ScriptRunner> systemScriptRunner() {
  return std::make_shared<SystemScriptRunner>();
}

}  // namespace quillonic
