/// Input and output that a host announces: jobs, and what they add up to.
///
///     ActivityTracker tracker;
///     auto job = tracker.start({.name = "A001", .application = "offload", .readsFrom = {"/media/CARD"},
///                               .writesTo = {"/media/RAID"}, .bytesExpected = size});
///     copy([&](std::size_t written) { job.advance(written); });   // on any thread
///
/// and on a timer of the host, as often as it asks for:
///
///     if (const auto next = tracker.update()) timer.fireAt(*next);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/host/notification_center.hpp>
#include <quillonic/support/host_keys.hpp>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillonic::host {

/// What a host announces of a job.
struct JobDescription {
  /// What users call it.
  std::string name;
  /// The program that does the work.
  std::string application;
  /// The drives that it reads, by any names that the host uses for drives, such as their mount points.
  std::vector<std::string> readsFrom = {};
  /// The drives that it writes. Each one counts all bytes of the job, as when a card is copied to several; one
  /// that is named twice counts them twice.
  std::vector<std::string> writesTo = {};
  /// Absent while unknown.
  std::optional<std::uint64_t> bytesExpected = std::nullopt;
};

/// How far some work is. Speeds and times are those of the last `ActivityTracker::update()`.
struct Progress {
  /// Bytes that were handled.
  std::uint64_t bytesDone = 0;
  /// Absent when it is unknown for any of the jobs. May be less than `bytesDone`: hosts can be wrong.
  std::optional<std::uint64_t> bytesExpected;
  /// The mean over the last few seconds; absent until it was looked at twice.
  std::optional<double> bytesPerSecond;
  /// At this speed; absent when a figure is missing, and while nothing moves.
  std::optional<double> secondsToGo;

  friend bool operator==(const Progress&, const Progress&) = default;
};

/// One job at one moment.
struct JobState {
  /// Unique within the tracker, ascending in the order of announcement.
  std::uint64_t identifier = 0;
  /// As announced.
  std::string name;
  /// As announced.
  std::string application;
  /// As announced.
  std::vector<std::string> readsFrom;
  /// As announced.
  std::vector<std::string> writesTo;
  /// How far it is.
  Progress progress;

  friend bool operator==(const JobState&, const JobState&) = default;
  /// The values "identifier", "name", "application", "readsFrom", "writesTo" (lists of texts), "bytesDone",
  /// "bytesExpected", "bytesPerSecond" and "secondsToGo"; none for an absent one.
  QUILLONIC_EXPORT NotificationPayload payload() const;
  /// Reads these values.
  QUILLONIC_EXPORT static std::optional<JobState> fromPayload(const NotificationPayload& values);
};

/// All active jobs at one moment.
struct JobList {
  /// In the order of announcement.
  std::vector<JobState> jobs;

  friend bool operator==(const JobList&, const JobList&) = default;
  /// The list under "jobs".
  QUILLONIC_EXPORT NotificationPayload payload() const;
  /// Reads the list.
  QUILLONIC_EXPORT static std::optional<JobList> fromPayload(const NotificationPayload& values);
};

/// What the jobs of one application, or all of them, add up to. A job that ended counts, with what it has
/// done, until another one begins while none of them is active, so that a bar over several jobs never goes
/// back. Each application begins anew on its own: their sum may be less than the total of all.
struct ActivityTotal {
  /// The application; empty for the total of all.
  std::string application;
  /// How many jobs are active.
  std::uint64_t activeJobs = 0;
  /// How far they are together.
  Progress progress;

  friend bool operator==(const ActivityTotal&, const ActivityTotal&) = default;
  /// The values "application", "activeJobs" and those of `Progress`, as in `JobState::payload()`.
  QUILLONIC_EXPORT NotificationPayload payload() const;
  /// Reads these values.
  QUILLONIC_EXPORT static std::optional<ActivityTotal> fromPayload(const NotificationPayload& values);
};

/// How much a drive reads and writes.
struct DriveSpeed {
  /// The drive's name, as announced.
  std::string drive;
  /// Bytes read since the drive was first named.
  std::uint64_t bytesRead = 0;
  /// Bytes written since then.
  std::uint64_t bytesWritten = 0;
  /// The mean over the measured time.
  double bytesReadPerSecond = 0;
  /// The mean over the measured time.
  double bytesWrittenPerSecond = 0;
  /// The time over which the speeds were measured; 0 before the second look, when nothing is known of them.
  double measuredSeconds = 0;

  friend bool operator==(const DriveSpeed&, const DriveSpeed&) = default;
  /// A value for each field, under its name.
  QUILLONIC_EXPORT NotificationPayload payload() const;
  /// Reads these values.
  QUILLONIC_EXPORT static std::optional<DriveSpeed> fromPayload(const NotificationPayload& values);
};

/// A job has become active.
inline constexpr NotificationName<JobState> newActiveJob{notification_names::kNewActiveJob};
/// A job is no longer active; its last state.
inline constexpr NotificationName<JobState> removedActiveJob{notification_names::kRemovedActiveJob};
/// The state of all active jobs.
inline constexpr NotificationName<JobList> allActiveJobsUpdate{notification_names::kAllActiveJobsUpdate};
/// All activity together has progressed.
inline constexpr NotificationName<ActivityTotal> mainActivityUpdateBroadcast{
    notification_names::kMainActivityUpdateBroadcast};
/// The speed of a drive has changed.
inline constexpr NotificationName<DriveSpeed> driveSpeedUpdate{notification_names::driveSpeedUpdate};

namespace detail {
struct JobRecord;
}  // namespace detail

/// A job that was announced; it is active until this goes. May outlive the tracker.
class QUILLONIC_EXPORT ActiveJob {
 public:
  /// No job.
  ActiveJob() noexcept;
  /// Takes over the job of the other, which then has none.
  ActiveJob(ActiveJob&& other) noexcept;
  /// Ends its own job first.
  ActiveJob& operator=(ActiveJob&& other) noexcept;
  /// Ends the job.
  ~ActiveJob();

  /// Adds handled bytes. Any number of threads may call it: one atomic addition, no lock. Nothing without a
  /// job.
  void advance(std::uint64_t bytes) noexcept {
    // Orders nothing else, and so costs no more than the addition.
    if (bytes_) bytes_->fetch_add(bytes, std::memory_order_relaxed);
  }
  /// Changes how many bytes are expected in all; nothing for unknown.
  void setBytesExpected(std::optional<std::uint64_t> bytes) noexcept;
  /// The identifier in `JobState`; 0 without a job.
  std::uint64_t identifier() const noexcept;
  /// Ends the job, whether it is complete or not. Does nothing without one.
  void end() noexcept;

 private:
  friend class ActivityTracker;
  explicit ActiveJob(std::shared_ptr<detail::JobRecord> record) noexcept;

  std::shared_ptr<detail::JobRecord> record_;
  std::atomic<std::uint64_t>* bytes_ = nullptr;
};

/// Follows the jobs of a program. Any thread may call any operation at any time. It also answers
/// "kNeedsUpdateForAllActiveJobs" with "kAllActiveJobsUpdate", at once and on the thread that asks, also when
/// there is no job.
class QUILLONIC_EXPORT ActivityTracker {
 public:
  /// The clock that moments are read from. It stops while the machine sleeps, when nothing is handled either.
  using Clock = std::chrono::steady_clock;

  /// Posts at the centre, or at the default one if it is null. `window` is the time over which speeds are
  /// means.
  explicit ActivityTracker(std::shared_ptr<NotificationCenter> center = nullptr,
                           std::chrono::milliseconds window = std::chrono::seconds(3));
  ActivityTracker(const ActivityTracker&) = delete;
  ActivityTracker& operator=(const ActivityTracker&) = delete;
  ~ActivityTracker();

  /// Announces a job. Observers hear of it from the next `update()`.
  [[nodiscard]] ActiveJob start(JobDescription description);

  /// Measures, and posts on this thread what has changed since the last call: new jobs, removed jobs, the
  /// list of all, their total, and the speed of each drive whose speed changed, in this order. Nothing when
  /// nothing changed. Calls less than 100 ms after the last one tell only of new and removed jobs. Returns
  /// when it wants to be called again; nothing when it has nothing to tell until another job starts. What
  /// observers throw comes back as from `NotificationCenter::post`, after everything was posted.
  std::optional<Clock::time_point> update(Clock::time_point now = Clock::now());

  /// The active jobs in the order of announcement. Bytes are as of now, speeds of the last `update()`.
  std::vector<JobState> jobs() const;
  /// Every application that has announced a job, in byte order, as of the last `update()`.
  std::vector<ActivityTotal> applications() const;
  /// Every drive that was named, in byte order, as of the last `update()`.
  std::vector<DriveSpeed> drives() const;
  /// All jobs together, as of the last `update()`.
  ActivityTotal total() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillonic::host
