// A shared mutex that serves threads in order of arrival.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace quillonic {

// Works with `std::lock_guard` and `std::shared_lock`. Neither readers nor writers starve: a reader waits for
// the writers ahead of it, a writer for all threads ahead. One addition queues a thread and tells it how many
// readers and writers are ahead. Later threads that it excludes wait for it in turn, and none of them can
// leave first: so when a count has reached the awaited number, exactly those ahead have left, and the count
// stays there until the waiting thread has left too. Counts may wrap, since they are compared only for
// equality.
class OrderedSharedMutex {
 public:
  OrderedSharedMutex() = default;
  OrderedSharedMutex(const OrderedSharedMutex&) = delete;
  OrderedSharedMutex& operator=(const OrderedSharedMutex&) = delete;

  void lock_shared() noexcept { await(writersLeft_, arrived_.fetch_add(oneReader)); }
  void unlock_shared() noexcept { leave(readersLeft_); }

  void lock() noexcept {
    const auto ahead = arrived_.fetch_add(oneWriter);
    await(writersLeft_, ahead);
    await(readersLeft_, ahead >> 32U);
  }

  void unlock() noexcept {
    // A writer's arrival carried into the upper half: one more reader has arrived, who never leaves.
    if (writersLeft_ == UINT32_MAX) leave(readersLeft_);
    leave(writersLeft_);
  }

 private:
  using Count = std::atomic<std::uint32_t>;

  // Sleeps on a condition variable, not on the count: the standard library's wait for an atomic first yields
  // the processor, and a busy program then keeps it for milliseconds.
  void await(const Count& count, std::uint64_t ahead) noexcept {
    const auto awaited = static_cast<std::uint32_t>(ahead);
    if (count == awaited) return;
    std::unique_lock guard(sleepersMutex_);
    ++sleepers_;
    hasLeft_.wait(guard, [&] { return count == awaited; });
    --sleepers_;
  }

  void leave(Count& count) noexcept {
    ++count;
    // A thread that is not counted yet sees the new count before it sleeps.
    if (sleepers_ == 0) return;
    { const std::lock_guard counted(sleepersMutex_); }  // a counted thread sleeps by now
    hasLeft_.notify_all();
  }

  static constexpr std::uint64_t oneWriter = 1;
  static constexpr std::uint64_t oneReader = std::uint64_t{1} << 32U;
  // All counts start shortly before they wrap, so that wrapping is an ordinary case.
  static constexpr std::uint32_t first = UINT32_MAX - 7;

  std::atomic<std::uint64_t> arrived_{first * oneReader + first * oneWriter};  // readers above, writers below
  Count writersLeft_{first};
  Count readersLeft_{first};
  Count sleepers_{0};
  std::mutex sleepersMutex_;
  std::condition_variable hasLeft_;
};

}  // namespace quillonic
