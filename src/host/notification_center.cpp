#include <quillonic/host/notification_center.hpp>

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <mutex>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic::host {
namespace {

// How many observers are being called on this thread, one within the other.
thread_local std::size_t callsOnThisThread = 0;

}  // namespace

struct detail::Observer {
  std::optional<std::string> name;
  NotificationCenter::Block block;
  std::uint64_t position = 0;
  // Guarded by the mutex of the centre.
  std::size_t runningCalls = 0;
  bool hasEnded = false;
};

struct detail::Observers {
  using InOrder = std::map<std::uint64_t, std::shared_ptr<Observer>>;

  // The next observer of a name in the order of registration, from a position on and before a limit; its call
  // counts as running.
  std::shared_ptr<Observer> beginCall(std::string_view name, std::uint64_t from, std::uint64_t limit) {
    const std::lock_guard lock(mutex);
    auto next = ofAllNames.lower_bound(from);
    auto end = ofAllNames.end();
    if (const auto named = ofName.find(name); named != ofName.end()) {
      const auto nextNamed = named->second.lower_bound(from);
      if (nextNamed != named->second.end() && (next == end || nextNamed->first < next->first)) {
        next = nextNamed;
        end = named->second.end();
      }
    }
    if (next == end || next->first >= limit) return nullptr;
    ++next->second->runningCalls;
    return next->second;
  }

  void endCall(Observer& observer) {
    const std::lock_guard lock(mutex);
    --observer.runningCalls;
    if (observer.hasEnded) callReturned.notify_all();
  }

  // Returns the block, to be destroyed without the lock, unless a call still runs.
  NotificationCenter::Block remove(Observer& observer) {
    std::unique_lock lock(mutex);
    observer.hasEnded = true;
    if (!observer.name) {
      ofAllNames.erase(observer.position);
    } else if (const auto named = ofName.find(*observer.name); named != ofName.end()) {
      named->second.erase(observer.position);
      if (named->second.empty()) ofName.erase(named);
    }
    if (callsOnThisThread == 0) callReturned.wait(lock, [&] { return observer.runningCalls == 0; });
    return observer.runningCalls == 0 ? std::move(observer.block) : nullptr;
  }

  std::mutex mutex;
  std::condition_variable callReturned;
  std::uint64_t nextPosition = 0;
  std::map<std::string, InOrder, std::less<>> ofName;
  InOrder ofAllNames;
};

Observation::Observation() noexcept = default;

Observation::Observation(std::weak_ptr<detail::Observers> observers,
                         std::shared_ptr<detail::Observer> observer) noexcept
    : observers_(std::move(observers)), observer_(std::move(observer)) {}

Observation::Observation(Observation&& other) noexcept = default;

Observation& Observation::operator=(Observation&& other) noexcept {
  if (this == &other) return *this;
  end();
  observers_ = std::move(other.observers_);
  observer_ = std::move(other.observer_);
  return *this;
}

Observation::~Observation() {
  end();
}

void Observation::end() noexcept {
  const auto observer = std::exchange(observer_, nullptr);
  const auto observers = observers_.lock();
  if (observer && observers) static_cast<void>(observers->remove(*observer));
}

NotificationCenter::NotificationCenter() : observers_(std::make_shared<detail::Observers>()) {}

NotificationCenter::~NotificationCenter() = default;

Observation NotificationCenter::observe(std::string_view name, Block block) {
  return add(std::string(name), std::move(block));
}

Observation NotificationCenter::observeAll(Block block) {
  return add(std::nullopt, std::move(block));
}

Observation NotificationCenter::add(std::optional<std::string> name, Block block) {
  auto observer = std::make_shared<detail::Observer>();
  observer->name = std::move(name);
  observer->block = std::move(block);
  const std::lock_guard lock(observers_->mutex);
  observer->position = observers_->nextPosition++;
  auto& inOrder = observer->name ? observers_->ofName[*observer->name] : observers_->ofAllNames;
  inOrder.emplace_hint(inOrder.end(), observer->position, observer);
  return {observers_, std::move(observer)};
}

void NotificationCenter::post(const Notification& notification) {
  // An observer may replace the centre and so destroy it.
  const auto observers = observers_;
  const auto limit = [&] {
    const std::lock_guard lock(observers->mutex);
    return observers->nextPosition;
  }();
  std::exception_ptr first;
  std::uint64_t from = 0;
  while (const auto observer = observers->beginCall(notification.name, from, limit)) {
    ++callsOnThisThread;
    try {
      observer->block(notification);
    } catch (...) {
      if (!first) first = std::current_exception();
    }
    --callsOnThisThread;
    observers->endCall(*observer);
    from = observer->position + 1;
  }
  if (first) std::rethrow_exception(first);
}

namespace {

using DefaultCenter = Service<std::shared_ptr<NotificationCenter>>;

DefaultCenter& defaultCenter() {
  static const NeverDestroyed<DefaultCenter> center(std::make_shared<NotificationCenter>());
  return *center;
}

}  // namespace

std::shared_ptr<NotificationCenter> NotificationCenter::current() {
  return defaultCenter().current();
}

void NotificationCenter::replace(std::shared_ptr<NotificationCenter> center) {
  defaultCenter().replace(std::move(center));
}

}  // namespace quillonic::host
