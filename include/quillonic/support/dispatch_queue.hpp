/// Queues of blocks that run in the order in which they arrived, each on the thread that brought it.
///
///     DispatchQueue queue("catalogue", DispatchQoS::utility, DispatchQueue::Attribute::concurrent);
///     auto size = queue.sync([&] { return catalogue.size(); });        // beside other such blocks
///     queue.syncBarrier([&] { catalogue.clear(); });                   // alone
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/dispatch_qos.hpp>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace quillonic {

/// Runs blocks one at a time, or some of them side by side, in strict order of arrival. A queue has no thread
/// of its own: an operation waits for its turn, runs the block on the calling thread and returns what the
/// block returned, or lets its exception pass; the next block's turn comes either way. Nobody overtakes: a
/// block that arrives behind a waiting barrier runs after it, so neither readers nor writers starve.
///
/// A block must not enter the queue that it runs on: it would wait for itself for ever.
class QUILLONIC_EXPORT DispatchQueue {
 public:
  /// Which blocks may run side by side.
  enum class Attribute : std::uint8_t {
    /// One block at a time.
    serial,
    /// Blocks of `sync` run together, a block of `syncBarrier` alone.
    concurrent,
  };

  /// The label, the quality of service and the class of the queue that this one stands for are kept for who
  /// asks.
  explicit DispatchQueue(std::string label, DispatchQoS qos = {}, Attribute attribute = Attribute::serial,
                         std::optional<DispatchQoS::QoSClass> target = std::nullopt);
  DispatchQueue(const DispatchQueue&) = delete;
  DispatchQueue& operator=(const DispatchQueue&) = delete;
  ~DispatchQueue() = default;

  /// Runs a block in its turn.
  template <class Block> decltype(auto) sync(Block&& block) {
    const Turn turn(*this, attribute_ == Attribute::serial);
    return std::forward<Block>(block)();
  }

  /// Runs a block in its turn and while no other block of the queue runs.
  template <class Block> decltype(auto) syncBarrier(Block&& block) {
    const Turn turn(*this, true);
    return std::forward<Block>(block)();
  }

  /// The label as it was given, for logs; it may be empty.
  const std::string& label() const noexcept { return label_; }
  /// The quality of service as it was given; no scheduling follows from it.
  DispatchQoS qos() const noexcept { return qos_; }
  /// Whether blocks of `sync` run together.
  Attribute attribute() const noexcept { return attribute_; }
  /// The class of the global queue that this queue targets; absent when it targets none.
  std::optional<DispatchQoS::QoSClass> target() const noexcept { return target_; }

 private:
  class Turn {
   public:
    Turn(DispatchQueue& queue, bool alone) noexcept : queue_(queue), alone_(alone) {
      alone_ ? queue_.enterAlone() : queue_.enterShared();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() { alone_ ? queue_.leaveAlone() : queue_.leaveShared(); }

   private:
    DispatchQueue& queue_;
    bool alone_;
  };

  struct Waiter;

  // The state counts the blocks that run together and, in its upper half, those that have come and wait. Both
  // counts and what runs alone change in one step, so that nobody slips in ahead of who waits already.
  static constexpr std::uint64_t runsAlone = 1;    // a block runs alone
  static constexpr std::uint64_t firstSleeps = 2;  // the first of the queue has to be woken
  static constexpr std::uint64_t oneShared = 4;
  static constexpr std::uint64_t oneWaiting = std::uint64_t{1} << 32U;
  static constexpr std::uint64_t allShared = oneWaiting - oneShared;
  static constexpr std::uint64_t shut = ~allShared;

  void enterShared() noexcept {
    if ((state_.fetch_add(oneShared, std::memory_order_acquire) & shut) != 0) waitShared();
  }

  void leaveShared() noexcept { sharedLeft(state_.fetch_sub(oneShared, std::memory_order_release)); }

  void enterAlone() noexcept {
    std::uint64_t idle = 0;
    if (!state_.compare_exchange_strong(idle, runsAlone, std::memory_order_acquire,
                                        std::memory_order_relaxed)) {
      waitAlone();
    }
  }

  void leaveAlone() noexcept {
    if ((state_.fetch_sub(runsAlone, std::memory_order_release) & firstSleeps) != 0) wakeFirst();
  }

  void sharedLeft(std::uint64_t before) noexcept {
    if ((before & (firstSleeps | allShared)) == (firstSleeps | oneShared)) wakeFirst();
  }

  void waitShared() noexcept;
  void waitAlone() noexcept;
  void wait(std::uint64_t turn, std::uint64_t obstacles) noexcept;
  void passOn(Waiter& leader) noexcept;
  void take(std::uint64_t turn, std::uint64_t obstacles) noexcept;
  void wakeFirst() noexcept;

  std::atomic<std::uint64_t> state_{0};
  std::atomic<Waiter*> last_{nullptr};
  Attribute attribute_;
  DispatchQoS qos_;
  std::optional<DispatchQoS::QoSClass> target_;
  std::string label_;
};

}  // namespace quillonic
