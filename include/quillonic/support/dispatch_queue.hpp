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
/// A block must not enter the queue that it runs on: it would wait for itself for ever. A block that runs beside
/// others gets away with that until a barrier arrives in between.
///
/// A thread whose turn takes longer than a few milliseconds to come sleeps until then. A queue may be destroyed once
/// every operation has returned, or has run before one of the destroying thread's own that runs alone. Entering changes
/// the queue, so a class whose constant functions enter it keeps it `mutable`.
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

  /// Runs a block in its turn. What it returns by reference is used outside the turn.
  template <class Block> decltype(auto) sync(Block&& block) {
    const Turn turn(*this, attribute_ == Attribute::serial);
    return std::forward<Block>(block)();
  }

  /// Runs a block in its turn and while no other block of the queue runs, which on a serial queue is the same.
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

  // All counts begin shortly before they wrap, so that a wrap is nothing special.
  static constexpr std::uint32_t firstCount = 0U - 8;

  // Counts the blocks of one kind that have left, and lets threads sleep until the count is at a value.
  class QUILLONIC_EXPORT LeftCount {
   public:
    bool isAt(std::uint32_t value) const noexcept {
      return word_.load(std::memory_order_acquire) >> 32U == value;
    }

    // The queue may be gone as soon as the count has changed.
    void increment() noexcept {
      const auto before = word_.fetch_add(std::uint64_t{1} << 32U, std::memory_order_release);
      if (static_cast<std::uint32_t>(before) != 0) wake(static_cast<std::uint32_t>(before >> 32U) + 1);
    }

    void await(std::uint32_t value) noexcept {
      if (!isAt(value)) wait(value);
    }

   private:
    void wait(std::uint32_t value) noexcept;
    void wake(std::uint32_t value) noexcept;

    // The count, and in the lower half how many threads sleep.
    std::atomic<std::uint64_t> word_{std::uint64_t{firstCount} << 32U};
  };

  // A block arrives by one instruction, which counts it and tells how many of either kind came before it. Nobody is
  // overtaken then, since a block waits until just those have left: all before it that run alone, and, if it runs alone
  // itself, all that run together as well. What the lower count of arrivals carries into the upper one when it wraps is
  // added to those that left, too.
  static constexpr std::uint64_t oneShared = std::uint64_t{1} << 32U;

  void enterShared() noexcept {
    const auto ahead = arrived_.fetch_add(oneShared, std::memory_order_relaxed);
    aloneLeft_.await(static_cast<std::uint32_t>(ahead));
  }

  void leaveShared() noexcept { sharedLeft_.increment(); }

  void enterAlone() noexcept {
    const auto ahead = arrived_.fetch_add(1, std::memory_order_relaxed);
    aloneLeft_.await(static_cast<std::uint32_t>(ahead));
    sharedLeft_.await(static_cast<std::uint32_t>(ahead >> 32U));
  }

  void leaveAlone() noexcept {
    if (aloneLeft_.isAt(0U - 1)) sharedLeft_.increment();
    aloneLeft_.increment();
  }

  std::atomic<std::uint64_t> arrived_{firstCount * oneShared + firstCount};
  LeftCount aloneLeft_;
  LeftCount sharedLeft_;
  Attribute attribute_;
  DispatchQoS qos_;
  std::optional<DispatchQoS::QoSClass> target_;
  std::string label_;
};

}  // namespace quillonic
