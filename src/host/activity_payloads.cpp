// Records as the payloads of notifications.
#include <quillonic/host/activity_tracker.hpp>
#include <quillonic/support/coding.hpp>

#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

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

template <class T> void addValue(NotificationPayload& values, std::string_view key, const T& value) {
  values.emplace(key, value);
}
template <class T>
void addValue(NotificationPayload& values, std::string_view key, const std::optional<T>& value) {
  if (value) addValue(values, key, *value);
}

// False where the value is missing or of another kind.
template <class T> bool readValue(const NotificationPayload& values, std::string_view key, T& value) {
  const auto entry = values.find(key);
  auto found = entry != values.end() ? entry->second.as<T>() : std::nullopt;
  if (!found) return false;
  value = *std::move(found);
  return true;
}
template <class T>
bool readValue(const NotificationPayload& values, std::string_view key, std::optional<T>& value) {
  T present{};
  if (!values.contains(key)) return true;
  if (!readValue(values, key, present)) return false;
  value = std::move(present);
  return true;
}

// The fields of a record, and of its progress if it has one.
template <class Record, class Fields>
void addFields(NotificationPayload& values, const Record& record, const Fields& fields) {
  std::apply([&](const auto&... field) { (addValue(values, field.key, record.*field.member), ...); }, fields);
  if constexpr (requires { record.progress; }) addFields(values, record.progress, progressFields);
}

// False where one of the values does not fit.
template <class Record, class Fields>
bool readFields(const NotificationPayload& values, Record& record, const Fields& fields) {
  const bool fits = std::apply(
      [&](const auto&... field) { return (readValue(values, field.key, record.*field.member) && ...); },
      fields);
  if constexpr (requires { record.progress; }) {
    return fits && readFields(values, record.progress, progressFields);
  }
  return fits;
}

template <class Record, class Fields>
NotificationPayload payloadOf(const Record& record, const Fields& fields) {
  NotificationPayload values;
  addFields(values, record, fields);
  return values;
}

template <class Record, class Fields>
std::optional<Record> recordOf(const NotificationPayload& values, const Fields& fields) {
  Record record;
  return readFields(values, record, fields) ? std::optional(std::move(record)) : std::nullopt;
}

}  // namespace

NotificationPayload JobState::payload() const {
  return payloadOf(*this, jobFields);
}

std::optional<JobState> JobState::fromPayload(const NotificationPayload& values) {
  return recordOf<JobState>(values, jobFields);
}

NotificationPayload JobList::payload() const {
  return payloadOf(*this, listFields);
}

std::optional<JobList> JobList::fromPayload(const NotificationPayload& values) {
  return recordOf<JobList>(values, listFields);
}

NotificationPayload ActivityTotal::payload() const {
  return payloadOf(*this, totalFields);
}

std::optional<ActivityTotal> ActivityTotal::fromPayload(const NotificationPayload& values) {
  return recordOf<ActivityTotal>(values, totalFields);
}

NotificationPayload DriveSpeed::payload() const {
  return payloadOf(*this, speedFields);
}

std::optional<DriveSpeed> DriveSpeed::fromPayload(const NotificationPayload& values) {
  return recordOf<DriveSpeed>(values, speedFields);
}

}  // namespace quillonic::host
