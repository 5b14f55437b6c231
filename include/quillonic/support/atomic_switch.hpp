/// Switches that threads share.
///
///     auto cancelled = std::make_shared<UnfairLockBasedAtomicSwitch>(false);
///     std::jthread copy([cancelled] { while (!cancelled->isOn()) copyNextBlock(); });
///     cancelled->setIsOn(true);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/dispatch_qos.hpp>

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace quillonic {

class OrderedSharedMutex;

/// A Boolean that any thread may read and write at any time. Once `setIsOn` has returned, every later read
/// sees the new value. Share it by reference; it cannot be copied. Callers must not destroy it before every
/// call on it has returned. Seeing another thread's write does not mean that the write has returned: let each
/// thread hold a `std::shared_ptr`.
///
/// A switch takes a lock, so a signal handler must not use it: the handler would wait forever where it
/// interrupts a thread in the switch. Let it set a lock-free `std::atomic<bool>` or write to a pipe, and let
/// a thread set the switch. In the child of a `fork` a switch may stay locked by a thread that is not there.
class QUILLONIC_EXPORT AtomicSwitch {
 public:
  AtomicSwitch() = default;
  AtomicSwitch(const AtomicSwitch&) = delete;
  AtomicSwitch& operator=(const AtomicSwitch&) = delete;
  virtual ~AtomicSwitch();

  /// The value of the last finished write, or of one still running.
  virtual bool isOn() const = 0;
  /// Writes the value; every read that begins after the return sees it.
  virtual void setIsOn(bool isOn) = 0;

  /// Reads the value, passes a copy to `modification`, and writes it back, even when the modification throws;
  /// the exception then passes on. Holds nothing between the read and the write, on purpose: writes by other
  /// threads, and by the modification itself, in between are overwritten. Drops what the modification
  /// returns. Callers that need to test and set in one step take their own lock.
  template <class Modification> void modifyIsOn(Modification&& modification) {
    bool value = isOn();
    try {
      std::forward<Modification>(modification)(value);
    } catch (...) {
      setIsOn(value);
      throw;
    }
    setIsOn(value);
  }

  /// Writes the opposite of what it reads, in two steps like every modification: when two threads toggle at
  /// once, one toggle may be lost.
  void toggle();
};

/// The cheapest switch, for hot paths. Each access holds a mutex for one load or store. The lock is not fair.
class QUILLONIC_EXPORT UnfairLockBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// Starts with a value. Allocates nothing.
  explicit UnfairLockBasedAtomicSwitch(bool isOn) noexcept;
  ~UnfairLockBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

 private:
  mutable std::mutex verificationLock_;
  bool isOn_;
};

/// Runs reads and writes one at a time, in order of arrival, on the calling thread. When busy threads
/// outnumber the processors, each access may wait until the previous one gets a processor again.
class QUILLONIC_EXPORT QueueBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// A serial queue with a quality of service and no target queue.
  QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS qos);
  /// A serial queue of unspecified quality that targets the global queue of a class. A bare `{}` is a class,
  /// too: write `DispatchQoS` for a queue without a target.
  QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS::QoSClass targetQos);
  ~QueueBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

  /// The label as given, for logs; may be empty.
  const std::string& label() const noexcept { return label_; }
  /// The quality of service; unspecified for a queue made with a target.
  DispatchQoS qos() const noexcept { return qos_; }
  /// Absent when the queue has no target.
  std::optional<DispatchQoS::QoSClass> targetQos() const noexcept { return targetQos_; }

 private:
  std::string label_;
  DispatchQoS qos_;
  std::optional<DispatchQoS::QoSClass> targetQos_;
  std::unique_ptr<OrderedSharedMutex> queue_;
  bool isOn_;
};

/// Runs reads together and writes alone. A write waits for the running reads, and later reads wait for the
/// write, so that neither starves. Waiting costs as much as in `QueueBasedAtomicSwitch`.
class QUILLONIC_EXPORT ConcurrentQueueBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// A concurrent queue of unspecified quality that targets the global queue of a class.
  ConcurrentQueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS::QoSClass qos);
  ~ConcurrentQueueBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

  /// The label as given, for logs; may be empty.
  const std::string& label() const noexcept { return label_; }
  /// Always unspecified: the given class is that of the target.
  DispatchQoS qos() const noexcept { return DispatchQoS::unspecified; }
  /// Never absent.
  std::optional<DispatchQoS::QoSClass> targetQos() const noexcept { return targetQos_; }

 private:
  std::string label_;
  DispatchQoS::QoSClass targetQos_;
  std::unique_ptr<OrderedSharedMutex> queue_;
  bool isOn_;
};

}  // namespace quillonic
