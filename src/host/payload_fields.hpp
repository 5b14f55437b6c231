// Records as the payloads of notifications.
#pragma once

#include <quillonic/host/notification_center.hpp>
#include <quillonic/support/coding.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace quillonic::host {

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

// `fields` is a tuple of `Field`.
template <class Record, class Fields>
void addFields(NotificationPayload& values, const Record& record, const Fields& fields) {
  std::apply([&](const auto&... field) { (addValue(values, field.key, record.*field.member), ...); }, fields);
}

// False where one of the values does not fit.
template <class Record, class Fields>
bool readFields(const NotificationPayload& values, Record& record, const Fields& fields) {
  return std::apply(
      [&](const auto&... field) { return (readValue(values, field.key, record.*field.member) && ...); },
      fields);
}

}  // namespace quillonic::host
