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

/// A Boolean that any thread may read and write at any time. When `setIsOn` has returned, every read that
/// begins later sees the new value. Shared by reference and never copied. Callers must not destroy it before every
/// call on it has returned, and a read that sees another thread's write does not say that the write has returned: let
/// each thread hold a `std::shared_ptr`.
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

  /// The value of the last write that has returned, or of one that runs meanwhile.
  virtual bool isOn() const = 0;
  /// Writes the value; every read that begins after the return sees it.
  virtual void setIsOn(bool isOn) = 0;

  /// Reads the value, hands a copy to `modification` to change, and writes it back, also when the
  /// modification ends by an exception, which then passes on. Nothing is held between the read and the write,
  /// on purpose: what another thread wrote in between is overwritten, and the modification may use the switch
  /// itself, although what it writes there is overwritten too. What it returns is dropped. Callers that need to
  /// test and set in one step take a lock of their own.
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

  /// Writes the opposite of what it reads, in two steps like every modification: of two threads that toggle
  /// at once, one may be lost.
  void toggle();
};

/// The cheapest switch, for hot paths: a mutex is held for the single load or store. Threads that wait for it
/// come in any order.
class QUILLONIC_EXPORT UnfairLockBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// A switch that starts with a value. Nothing is allocated.
  explicit UnfairLockBasedAtomicSwitch(bool isOn) noexcept;
  ~UnfairLockBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

 private:
  mutable std::mutex verificationLock_;
  bool isOn_;
};

/// A switch whose reads and writes run one at a time in strict order of arrival, each on the calling thread. Where busy
/// threads outnumber the processors, every access may wait until the one before it is given a processor again.
class QUILLONIC_EXPORT QueueBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// A switch with a serial queue of a given quality of service that targets no other queue.
  QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS qos);
  /// A switch with a serial queue of unspecified quality that targets the global queue of a class. A bare `{}` is a
  /// class, too: name `DispatchQoS` for a queue without a target.
  QueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS::QoSClass targetQos);
  ~QueueBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

  /// The queue's label as it was given, for logs; it may be empty.
  const std::string& label() const noexcept { return label_; }
  /// The queue's quality of service; unspecified for one that was made with a target.
  DispatchQoS qos() const noexcept { return qos_; }
  /// Absent when the queue targets none.
  std::optional<DispatchQoS::QoSClass> targetQos() const noexcept { return targetQos_; }

 private:
  std::string label_;
  DispatchQoS qos_;
  std::optional<DispatchQoS::QoSClass> targetQos_;
  std::unique_ptr<OrderedSharedMutex> queue_;
  bool isOn_;
};

/// A switch whose reads run together and whose writes run alone. A write waits for the reads that run, and
/// reads that come later wait for it, so that neither starves. Waiting costs as in the other queue-based switch.
class QUILLONIC_EXPORT ConcurrentQueueBasedAtomicSwitch final : public AtomicSwitch {
 public:
  /// A switch with a concurrent queue of unspecified quality that targets the global queue of a class.
  ConcurrentQueueBasedAtomicSwitch(bool startingState, std::string label, DispatchQoS::QoSClass qos);
  ~ConcurrentQueueBasedAtomicSwitch() override;

  bool isOn() const noexcept override;
  void setIsOn(bool isOn) noexcept override;

  /// The queue's label as it was given, for logs; it may be empty.
  const std::string& label() const noexcept { return label_; }
  /// Always unspecified: the class that was given is that of the target.
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
