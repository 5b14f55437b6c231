#include "switches.hpp"

#include <quillonic/support/atomic_switch.hpp>

#include <atomic>

namespace quillonic::benchmarks {
namespace {

class AtomicBool {
 public:
  bool isOn() const { return isOn_.load(); }
  void setIsOn(bool isOn) { isOn_.store(isOn); }

 private:
  std::atomic<bool> isOn_ = false;
};

Alone<AtomicBool> atomicBool;
Alone<UnfairLockBasedAtomicSwitch> unfair{UnfairLockBasedAtomicSwitch(false)};
Alone<QueueBasedAtomicSwitch> queue{QueueBasedAtomicSwitch(false, "serial", DispatchQoS::utility)};
Alone<ConcurrentQueueBasedAtomicSwitch> concurrent{
    ConcurrentQueueBasedAtomicSwitch(false, "concurrent", DispatchQoS::QoSClass::utility)};

const bool added = [] {
  addSwitch(Promise::oneAtATime, ours, "", unfair.shared);
  addSwitch(Promise::oneAtATimeInOrder, ours, "", queue.shared);
  addSwitch(Promise::readsTogether, ours, "", concurrent.shared);
  for (const auto promise : {Promise::oneAtATime, Promise::oneAtATimeInOrder, Promise::readsTogether}) {
    addSwitch(promise, limit("one atomic"), "", atomicBool.shared);
  }
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
