/// The bytes that processes read and write, as the system counts them.
///
///     ProcessMeter meter;
///     meter.follow(transcoder, ProcessMeter::Children::included);
///     meter.sample();                                    // on a timer of the host
///     std::cout << meter.total().writtenByCalls;
#pragma once

#include <quillonic/export.hpp>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace quillonic::host {

/// What a process has read and written.
struct ProcessBytes {
  /// Through calls that read, from anything: files in memory or on a drive, pipes, sockets. Memory-mapped
  /// files do not count.
  std::uint64_t readByCalls = 0;
  /// Through calls that write.
  std::uint64_t writtenByCalls = 0;
  /// From drives, memory-mapped files included; nothing for what was in memory already, and on network
  /// volumes and those that a program serves.
  std::uint64_t readFromDrives = 0;
  /// To files on drives. The system writes them later, unless they are removed before.
  std::uint64_t writtenToDrives = 0;

  friend bool operator==(const ProcessBytes&, const ProcessBytes&) = default;
};

/// Bytes per second of each kind.
struct ProcessSpeeds {
  /// See `ProcessBytes`.
  double readByCalls = 0;
  /// See `ProcessBytes`.
  double writtenByCalls = 0;
  /// See `ProcessBytes`.
  double readFromDrives = 0;
  /// See `ProcessBytes`.
  double writtenToDrives = 0;
};

/// What is known of a followed process.
enum class ProcessAnswer : std::uint8_t {
  /// Its counts were read.
  counted,
  /// It has ended and its parent knows; the counts are the last ones.
  ended,
  /// This process may not look at it: another user's, or one with raised rights.
  notAllowed,
  /// The system does not count, or does not show processes at all.
  notKnown,
};

/// One followed process.
struct ProcessActivity {
  /// Its identifier.
  std::int32_t process = 0;
  /// That of its parent when it was last looked up; 0 if unknown.
  std::int32_t parent = 0;
  /// Whether the counts are known; they are the last known ones.
  ProcessAnswer answer = ProcessAnswer::notKnown;
  /// Since the process began. Without those of children that were followed; with those of others that it has
  /// waited for.
  ProcessBytes bytes;
  /// The mean over the last few seconds; absent before the second sample.
  std::optional<ProcessSpeeds> speeds;
};

/// Counts what processes read and write, each byte once: the system adds the counts of a child to those of
/// the parent that waits for it, and the meter subtracts what it has counted for the child. Where nobody
/// waits for a child that ends, what it did after the last sample is lost. Keeps one descriptor open for each
/// process. One thread at a time.
class QUILLONIC_EXPORT ProcessMeter {
 public:
  /// Whether children of a process are followed too, and theirs, from the first sample that sees them. One
  /// that begins and ends between two samples counts for its parent.
  enum class Children : std::uint8_t { leftOut, included };
  /// The clock that moments are read from.
  using Clock = std::chrono::steady_clock;

  /// Reads the process information below `root`. `window` is the time over which speeds are means.
  explicit ProcessMeter(const std::filesystem::path& root = "/",
                        std::chrono::milliseconds window = std::chrono::seconds(3));
  ProcessMeter(const ProcessMeter&) = delete;
  ProcessMeter& operator=(const ProcessMeter&) = delete;
  ~ProcessMeter();

  /// Follows a process from now on. Returns what is known of it; one that has ended is not followed. Callers
  /// should follow a child at once: when it has ended, the system tells only those who followed it before.
  ProcessAnswer follow(std::int32_t process, Children children = Children::leftOut);

  /// Reads all counts. Callers that wait for the end of a process must sample before they do: afterwards the
  /// system tells nothing of it.
  void sample(Clock::time_point now = Clock::now());

  /// The followed processes in the order in which they began. One that ends is in the list of one sample,
  /// with its last counts. Valid until the next sample.
  std::span<const ProcessActivity> processes() const noexcept;

  /// All followed processes together, those that have ended included.
  ProcessBytes total() const noexcept;
  /// The speeds of all together; absent before the second sample.
  std::optional<ProcessSpeeds> totalSpeeds() const noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillonic::host
