#include <quillonic/support/atomic_switch.hpp>

#include <utility>

#include "platform/unfair_lock.hpp"

namespace quillonic {

AtomicSwitch::~AtomicSwitch() = default;

void AtomicSwitch::toggle() {
  modifyIsOn([](bool& value) { value = !value; });
}

UnfairLockBasedAtomicSwitch::UnfairLockBasedAtomicSwitch(bool isOn) noexcept : isOn_(isOn) {}
UnfairLockBasedAtomicSwitch::~UnfairLockBasedAtomicSwitch() = default;

bool UnfairLockBasedAtomicSwitch::isOn() const noexcept {
  const UnfairGuard guard(verificationLock_);
  return isOn_;
}

void UnfairLockBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  const UnfairGuard guard(verificationLock_);
  isOn_ = isOn;
}

QueueBasedAtomicSwitch::QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS qos)
    : dispatchQueue_(std::move(label), qos), isOn_(startingState) {}

QueueBasedAtomicSwitch::QueueBasedAtomicSwitch(bool startingState, std::string label,
                                               DispatchQoS::QoSClass targetQos)
    : dispatchQueue_(std::move(label), DispatchQoS::unspecified, DispatchQueue::Attribute::serial, targetQos),
      isOn_(startingState) {}

QueueBasedAtomicSwitch::~QueueBasedAtomicSwitch() = default;

bool QueueBasedAtomicSwitch::isOn() const noexcept {
  return dispatchQueue_.sync([this] { return isOn_; });
}

void QueueBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  dispatchQueue_.sync([&] { isOn_ = isOn; });
}

ConcurrentQueueBasedAtomicSwitch::ConcurrentQueueBasedAtomicSwitch(bool startingState, std::string label,
                                                                   DispatchQoS::QoSClass qos)
    : dispatchQueue_(std::move(label), DispatchQoS::unspecified, DispatchQueue::Attribute::concurrent, qos),
      isOn_(startingState) {}

ConcurrentQueueBasedAtomicSwitch::~ConcurrentQueueBasedAtomicSwitch() = default;

bool ConcurrentQueueBasedAtomicSwitch::isOn() const noexcept {
  return dispatchQueue_.sync([this] { return isOn_; });
}

void ConcurrentQueueBasedAtomicSwitch::setIsOn(bool isOn) noexcept {
  dispatchQueue_.syncBarrier([&] { isOn_ = isOn; });
}

}  // namespace quillonic
