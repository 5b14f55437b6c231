#include <quillonic/host/activity_tracker.hpp>

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <mutex>
#include <string_view>
#include <utility>

#include "host/post_all.hpp"
#include "host/rate_window.hpp"

namespace quillonic::host {
namespace {

using namespace std::chrono_literals;

constexpr auto unknownBytes = std::numeric_limits<std::uint64_t>::max();
// Looks that are closer together measure chance.
constexpr auto shortestInterval = 100ms;

Progress progressOf(std::uint64_t done, std::optional<std::uint64_t> expected, const RateWindow<1>& window) {
  Progress progress{.bytesDone = done, .bytesExpected = expected, .bytesPerSecond = {}, .secondsToGo = {}};
  const auto rates = window.rates();
  if (!rates) return progress;
  progress.bytesPerSecond = rates->front();
  if (expected && rates->front() > 0) {
    progress.secondsToGo = static_cast<double>(*expected - std::min(done, *expected)) / rates->front();
  }
  return progress;
}

}  // namespace

struct detail::JobRecord {
  JobRecord(std::uint64_t number, JobDescription announced)
      : identifier(number),
        description(std::move(announced)),
        bytesExpected(description.bytesExpected.value_or(unknownBytes)) {}

  std::optional<std::uint64_t> expected() const noexcept {
    const auto bytes = bytesExpected.load();
    return bytes == unknownBytes ? std::nullopt : std::optional(bytes);
  }

  // On a cache line of its own: the threads that advance the job disturb nobody else.
  alignas(64) std::atomic<std::uint64_t> bytesDone = 0;
  alignas(64) const std::uint64_t identifier;
  const JobDescription description;
  std::atomic<std::uint64_t> bytesExpected;
  std::atomic<bool> hasEnded = false;
};

ActiveJob::ActiveJob() noexcept = default;

ActiveJob::ActiveJob(std::shared_ptr<detail::JobRecord> record) noexcept
    : record_(std::move(record)), bytes_(&record_->bytesDone) {}

ActiveJob::ActiveJob(ActiveJob&& other) noexcept
    : record_(std::move(other.record_)), bytes_(std::exchange(other.bytes_, nullptr)) {}

ActiveJob& ActiveJob::operator=(ActiveJob&& other) noexcept {
  if (this == &other) return *this;
  end();
  record_ = std::move(other.record_);
  bytes_ = std::exchange(other.bytes_, nullptr);
  return *this;
}

ActiveJob::~ActiveJob() {
  end();
}

void ActiveJob::setBytesExpected(std::optional<std::uint64_t> bytes) noexcept {
  if (record_) record_->bytesExpected.store(bytes.value_or(unknownBytes));
}

std::uint64_t ActiveJob::identifier() const noexcept {
  return record_ ? record_->identifier : 0;
}

void ActiveJob::end() noexcept {
  if (record_) record_->hasEnded.store(true);
  record_.reset();
  bytes_ = nullptr;
}

struct ActivityTracker::State {
  struct Job {
    std::shared_ptr<detail::JobRecord> record;
    RateWindow<1> window;
    // The part of its bytes that is in the totals.
    std::uint64_t counted = 0;
    bool isAnnounced = false;

    JobState state() const {
      const auto& [name, application, readsFrom, writesTo, ignored] = record->description;
      const auto done = record->bytesDone.load();
      return {record->identifier, name,     application,
              readsFrom,          writesTo, progressOf(done, record->expected(), window)};
    }
  };

  // The jobs of an application, or all.
  struct Group {
    explicit Group(Clock::duration length) : window(length) { total.progress.bytesExpected = 0; }

    void enter() {
      if (activeJobs++ > 0) return;
      bytesBefore = bytesEver;
      bytesOfEnded = 0;
      window.restart();
    }
    void leave(std::uint64_t bytes) {
      --activeJobs;
      bytesOfEnded += bytes;
    }
    // What the active jobs expect is added up for each look.
    void expect(std::optional<std::uint64_t> bytes) {
      expected = expected && bytes ? std::optional(*expected + *bytes) : std::nullopt;
    }
    void look(Clock::time_point now) {
      window.add(now, {bytesEver});
      total.activeJobs = activeJobs;
      total.progress = progressOf(bytesEver - bytesBefore, expected, window);
    }

    RateWindow<1> window;
    std::uint64_t bytesEver = 0;
    std::uint64_t bytesBefore = 0;
    std::uint64_t bytesOfEnded = 0;
    std::uint64_t activeJobs = 0;
    std::optional<std::uint64_t> expected = 0;
    ActivityTotal total;
  };

  struct Drive {
    explicit Drive(Clock::duration length) : window(length) {}

    void enter() {
      if (activeJobs++ == 0) window.restart();
    }
    // Whether there is something to tell.
    bool look(Clock::time_point now) {
      window.add(now, {speed.bytesRead, speed.bytesWritten});
      const auto rates = window.rates().value_or(RateWindow<2>::Rates{});
      speed.bytesReadPerSecond = rates[0];
      speed.bytesWrittenPerSecond = rates[1];
      speed.measuredSeconds = window.seconds();
      auto toldNow = speed;
      toldNow.measuredSeconds = told.measuredSeconds;
      return std::exchange(told, toldNow) != toldNow;
    }
    bool moves() const { return speed.bytesReadPerSecond > 0 || speed.bytesWrittenPerSecond > 0; }

    RateWindow<2> window;
    std::uint64_t activeJobs = 0;
    DriveSpeed speed;
    DriveSpeed told;
  };

  State(std::shared_ptr<NotificationCenter> postsAt, Clock::duration window)
      : center(std::move(postsAt)), length(window), total(window), toldTotal(total.total) {}

  Group& application(const Job& job) {
    const auto& name = job.record->description.application;
    const auto [entry, isNew] = applications.try_emplace(name, length);
    if (isNew) entry->second.total.application = name;
    return entry->second;
  }

  template <class Visit> void visitDrives(const Job& job, Visit visit) {
    const auto visitAll = [&](const auto& names, auto count) {
      for (const auto& name : names) {
        const auto [entry, isNew] = drives.try_emplace(name, length);
        if (isNew) entry->second.speed.drive = entry->second.told.drive = name;
        visit(entry->second, count);
      }
    };
    visitAll(job.record->description.readsFrom, &DriveSpeed::bytesRead);
    visitAll(job.record->description.writesTo, &DriveSpeed::bytesWritten);
  }

  void enter(Job& job) {
    job.isAnnounced = true;
    total.enter();
    application(job).enter();
    visitDrives(job, [](Drive& drive, auto /*count*/) { drive.enter(); });
  }

  void leave(Job& job) {
    count(job);
    total.leave(job.counted);
    application(job).leave(job.counted);
    visitDrives(job, [](Drive& drive, auto /*count*/) { --drive.activeJobs; });
  }

  // Adds what the job has done since it was last counted to the totals.
  void count(Job& job) {
    const auto done = job.record->bytesDone.load();
    const auto more = done - std::exchange(job.counted, done);
    total.bytesEver += more;
    application(job).bytesEver += more;
    visitDrives(job, [&](Drive& drive, auto count) { drive.speed.*count += more; });
  }

  void measure(Clock::time_point now) {
    total.expected = total.bytesOfEnded;
    for (auto& [name, group] : applications) group.expected = group.bytesOfEnded;
    for (auto& job : jobs) {
      count(job);
      job.window.add(now, {job.counted});
      total.expect(job.record->expected());
      application(job).expect(job.record->expected());
    }
    total.look(now);
    for (auto& [name, group] : applications) group.look(now);
  }

  std::vector<JobState> states() const {
    std::vector<JobState> states;
    states.reserve(jobs.size());
    for (const auto& job : jobs) states.push_back(job.state());
    return states;
  }

  // What is to be posted.
  std::vector<Notification> changes(Clock::time_point now) {
    std::vector<Notification> changes;
    const auto note = [&](auto name, const auto& record) {
      changes.push_back({std::string(name.text), record.payload()});
    };
    // First those that come: where one job follows another, the bar goes on.
    for (auto& job : jobs) {
      if (!job.isAnnounced) enter(job), note(newActiveJob, job.state());
    }
    std::erase_if(jobs, [&](Job& job) {
      if (!job.record->hasEnded.load()) return false;
      leave(job);
      note(removedActiveJob, job.state());
      return true;
    });
    isBehind = lastLook && now - *lastLook < shortestInterval;
    if (isBehind || lastIdentifier == 0) return changes;
    lastLook = now;
    measure(now);
    JobList list{states()};
    if (list != toldList) note(allActiveJobsUpdate, toldList = std::move(list));
    if (total.total != toldTotal) note(mainActivityUpdateBroadcast, toldTotal = total.total);
    for (auto& [name, drive] : drives) {
      if (drive.look(now)) note(driveSpeedUpdate, drive.speed);
    }
    return changes;
  }

  bool isAtRest() const {
    if (lastIdentifier == 0) return true;
    const auto rests = [](const auto& entry) { return !entry.second.moves(); };
    // A speed that is not known yet is told when it is.
    return jobs.empty() && !isBehind && total.total.progress.bytesPerSecond == 0 &&
           std::ranges::all_of(drives, rests);
  }

  const std::shared_ptr<NotificationCenter> center;
  const Clock::duration length;
  mutable std::mutex mutex;
  std::uint64_t lastIdentifier = 0;
  std::vector<Job> jobs;
  Group total;
  std::map<std::string, Group> applications;
  std::map<std::string, Drive> drives;
  std::optional<Clock::time_point> lastLook;
  // Whether the last look was too close to the one before to measure.
  bool isBehind = false;
  JobList toldList;
  ActivityTotal toldTotal;
  // Ends first, since it uses the others.
  Observation requests;
};

ActivityTracker::ActivityTracker(std::shared_ptr<NotificationCenter> center, std::chrono::milliseconds window)
    : state_(std::make_unique<State>(center ? std::move(center) : NotificationCenter::current(), window)) {
  const auto answer = [this](const Notification& /*request*/) {
    state_->center->post(allActiveJobsUpdate, JobList{jobs()});
  };
  state_->requests = state_->center->observe(notification_names::kNeedsUpdateForAllActiveJobs, answer);
}

ActivityTracker::~ActivityTracker() = default;

ActiveJob ActivityTracker::start(JobDescription description) {
  const std::lock_guard lock(state_->mutex);
  auto record = std::make_shared<detail::JobRecord>(state_->lastIdentifier + 1, std::move(description));
  state_->jobs.push_back({record, RateWindow<1>(state_->length)});
  ++state_->lastIdentifier;
  return ActiveJob(std::move(record));
}

std::optional<ActivityTracker::Clock::time_point> ActivityTracker::update(Clock::time_point now) {
  std::vector<Notification> changes;
  std::optional<Clock::time_point> next;
  {
    const std::lock_guard lock(state_->mutex);
    changes = state_->changes(now);
    if (!state_->isAtRest()) next = now + std::max<Clock::duration>(state_->length / 6, shortestInterval);
  }
  postAll(*state_->center, changes);
  return next;
}

std::vector<JobState> ActivityTracker::jobs() const {
  const std::lock_guard lock(state_->mutex);
  return state_->states();
}

std::vector<ActivityTotal> ActivityTracker::applications() const {
  const std::lock_guard lock(state_->mutex);
  std::vector<ActivityTotal> totals;
  for (const auto& [name, group] : state_->applications) totals.push_back(group.total);
  return totals;
}

std::vector<DriveSpeed> ActivityTracker::drives() const {
  const std::lock_guard lock(state_->mutex);
  std::vector<DriveSpeed> speeds;
  for (const auto& [name, drive] : state_->drives) speeds.push_back(drive.speed);
  return speeds;
}

ActivityTotal ActivityTracker::total() const {
  const std::lock_guard lock(state_->mutex);
  return state_->total.total;
}

}  // namespace quillonic::host
