#include <quillonic/host/activity_tracker.hpp>

#include <tuple>

#include "host/payload_fields.hpp"

namespace quillonic::host {
namespace {

constexpr std::tuple progressFields{
    Field{"bytesDone", &Progress::bytesDone}, Field{"bytesExpected", &Progress::bytesExpected},
    Field{"bytesPerSecond", &Progress::bytesPerSecond}, Field{"secondsToGo", &Progress::secondsToGo}};

constexpr std::tuple jobFields{Field{"identifier", &JobState::identifier}, Field{"name", &JobState::name},
                               Field{"application", &JobState::application},
                               Field{"readsFrom", &JobState::readsFrom},
                               Field{"writesTo", &JobState::writesTo}};

constexpr std::tuple listFields{Field{"jobs", &JobList::jobs}};

constexpr std::tuple totalFields{Field{"application", &ActivityTotal::application},
                                 Field{"activeJobs", &ActivityTotal::activeJobs}};

constexpr std::tuple speedFields{Field{"drive", &DriveSpeed::drive},
                                 Field{"bytesRead", &DriveSpeed::bytesRead},
                                 Field{"bytesWritten", &DriveSpeed::bytesWritten},
                                 Field{"bytesReadPerSecond", &DriveSpeed::bytesReadPerSecond},
                                 Field{"bytesWrittenPerSecond", &DriveSpeed::bytesWrittenPerSecond},
                                 Field{"measuredSeconds", &DriveSpeed::measuredSeconds}};

}  // namespace

NotificationPayload JobState::payload() const {
  NotificationPayload values;
  addFields(values, *this, jobFields);
  addFields(values, progress, progressFields);
  return values;
}

std::optional<JobState> JobState::fromPayload(const NotificationPayload& values) {
  JobState state;
  const bool isWhole =
      readFields(values, state, jobFields) && readFields(values, state.progress, progressFields);
  return isWhole ? std::optional(std::move(state)) : std::nullopt;
}

NotificationPayload JobList::payload() const {
  NotificationPayload values;
  addFields(values, *this, listFields);
  return values;
}

std::optional<JobList> JobList::fromPayload(const NotificationPayload& values) {
  JobList list;
  return readFields(values, list, listFields) ? std::optional(std::move(list)) : std::nullopt;
}

NotificationPayload ActivityTotal::payload() const {
  NotificationPayload values;
  addFields(values, *this, totalFields);
  addFields(values, progress, progressFields);
  return values;
}

std::optional<ActivityTotal> ActivityTotal::fromPayload(const NotificationPayload& values) {
  ActivityTotal total;
  const bool isWhole =
      readFields(values, total, totalFields) && readFields(values, total.progress, progressFields);
  return isWhole ? std::optional(std::move(total)) : std::nullopt;
}

NotificationPayload DriveSpeed::payload() const {
  NotificationPayload values;
  addFields(values, *this, speedFields);
  return values;
}

std::optional<DriveSpeed> DriveSpeed::fromPayload(const NotificationPayload& values) {
  DriveSpeed speed;
  return readFields(values, speed, speedFields) ? std::optional(std::move(speed)) : std::nullopt;
}

}  // namespace quillonic::host
