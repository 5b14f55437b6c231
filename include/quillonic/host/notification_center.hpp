/// Notifications: what one part of a program tells all others.
///
///     auto center = NotificationCenter::current();
///     const auto token = center->observe(driveDismount, [&](const VolumeChange& change) {
///       abandonCopiesTo(change.volumePath);
///     });                                                    // until the token goes
///     center->post({std::string(notification_names::cloudResourceUploaded), {{"path", uploaded}}});
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/any_value.hpp>

#include <concepts>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillonic::host {

/// Values by name, in byte order of the names.
using NotificationPayload = std::map<std::string, AnyValue, std::less<>>;

/// A name, and values that depend on it.
struct Notification {
  /// What happened; `notification_names` has those that hosts share.
  std::string name;
  /// What there is to know about it.
  NotificationPayload payload;
};

/// A record that travels as the payload of a notification. `fromPayload` gives nothing where a value that the
/// record needs is missing or of another kind.
template <class T>
concept TypedPayload = requires(const T& record, const NotificationPayload& values) {
  { record.payload() } -> std::same_as<NotificationPayload>;
  { T::fromPayload(values) } -> std::same_as<std::optional<T>>;
};

/// A name whose notifications carry a record.
template <TypedPayload Payload> struct NotificationName {
  /// The name itself; a literal.
  std::string_view text;
};

namespace detail {
struct Observer;
struct Observers;
}  // namespace detail

/// Keeps an observation going for as long as it lives. May outlive the centre.
class QUILLONIC_EXPORT Observation {
 public:
  /// Observes nothing.
  Observation() noexcept;
  /// Takes over the observation of the other, which then observes nothing.
  Observation(Observation&& other) noexcept;
  /// Ends its own observation first.
  Observation& operator=(Observation&& other) noexcept;
  /// Ends the observation.
  ~Observation();

  /// Ends the observation: the observer is not called again. Waits for calls that run on other threads, so
  /// that what the observer uses can be destroyed; callers must hold no lock that the observer takes. Within
  /// an observer it does not wait, since two that end each other would do so for ever.
  void end() noexcept;

 private:
  friend class NotificationCenter;
  Observation(std::weak_ptr<detail::Observers> observers,
              std::shared_ptr<detail::Observer> observer) noexcept;

  std::weak_ptr<detail::Observers> observers_;
  std::shared_ptr<detail::Observer> observer_;
};

/// Passes notifications on to observers. Any thread may call any operation at any time, within observers too.
class QUILLONIC_EXPORT NotificationCenter {
 public:
  /// Receives a notification on the thread that posts it.
  using Block = std::function<void(const Notification&)>;

  /// A centre of its own, without observers.
  NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;
  ~NotificationCenter();

  /// Calls the block for every notification of the name, from the next one on, until the token goes.
  [[nodiscard]] Observation observe(std::string_view name, Block block);
  /// Calls the block for the notifications of any name.
  [[nodiscard]] Observation observeAll(Block block);
  /// Calls the block with the record of every notification of the name; not for one whose payload is no such
  /// record.
  template <TypedPayload Payload, std::invocable<const Payload&> TypedBlock>
  [[nodiscard]] Observation observe(NotificationName<Payload> name, TypedBlock block) {
    return observe(name.text, [block = std::move(block)](const Notification& notification) mutable {
      if (const auto record = Payload::fromPayload(notification.payload)) block(*record);
    });
  }

  /// Calls the observers of the name and those of all names, in the order in which they were registered, on
  /// this thread and without a lock. Observers that begin meanwhile hear the next one; those that end are not
  /// called any more. All are called even if some throw; then throws the first exception. Several threads may
  /// post at the same time, and one observer may then be called on all of them.
  void post(const Notification& notification);
  /// Posts a record under its name.
  template <TypedPayload Payload> void post(NotificationName<Payload> name, const Payload& record) {
    post(Notification{std::string(name.text), record.payload()});
  }

  /// The default centre, never null.
  static std::shared_ptr<NotificationCenter> current();
  /// Replaces the default centre; null restores the built-in one, which keeps its observers. What was made
  /// with the earlier centre stays with it.
  static void replace(std::shared_ptr<NotificationCenter> center);

 private:
  Observation add(std::optional<std::string> name, Block block);

  std::shared_ptr<detail::Observers> observers_;
};

}  // namespace quillonic::host
