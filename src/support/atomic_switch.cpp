#include <quillonic/support/atomic_switch.hpp>

#include <shared_mutex>
#include <utility>

#include "support/ordered_shared_mutex.hpp"

namespace quillonic {

AtomicSwitch::~AtomicSwitch() = default;

void AtomicSwitch::toggle() {
  modifyIsOn([](bool& value) { value = !value; });
}

UnfairLockBasedAtomicSwitch::UnfairLockBasedAtomicSwitch(bool isOn) noexcept : isOn_(isOn) {}
UnfairLockBasedAtomicSwitch::~UnfairLockBasedAtomicSwitch() = default;

bool UnfairLockBasedAtomicSwitch::isOn() const noexcept {
  const std::lock_guard guard(verificationLock_);
  return isOn_;
}

void UnfairLockBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  const std::lock_guard guard(verificationLock_);
  isOn_ = isOn;
}

QueueBasedAtomicSwitch::QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS qos)
    : label_(std::move(label)),
      qos_(qos),
      queue_(std::make_unique<OrderedSharedMutex>()),
      isOn_(startingState) {}

QueueBasedAtomicSwitch::QueueBasedAtomicSwitch(bool startingState, std::string label,
                                               DispatchQoS::QoSClass targetQos)
    : QueueBasedAtomicSwitch(startingState, std::move(label), DispatchQoS::unspecified) {
  targetQos_ = targetQos;
}

QueueBasedAtomicSwitch::~QueueBasedAtomicSwitch() = default;

bool QueueBasedAtomicSwitch::isOn() const noexcept {
  const std::lock_guard turn(*queue_);
  return isOn_;
}

void QueueBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  const std::lock_guard turn(*queue_);
  isOn_ = isOn;
}

ConcurrentQueueBasedAtomicSwitch::ConcurrentQueueBasedAtomicSwitch(bool startingState, std::string label,
                                                                   DispatchQoS::QoSClass qos)
    : label_(std::move(label)),
      targetQos_(qos),
      queue_(std::make_unique<OrderedSharedMutex>()),
      isOn_(startingState) {}

ConcurrentQueueBasedAtomicSwitch::~ConcurrentQueueBasedAtomicSwitch() = default;

bool ConcurrentQueueBasedAtomicSwitch::isOn() const noexcept {
  const std::shared_lock turn(*queue_);
  return isOn_;
}

void ConcurrentQueueBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  const std::lock_guard turn(*queue_);
  isOn_ = isOn;
}

}  // namespace quillonic
