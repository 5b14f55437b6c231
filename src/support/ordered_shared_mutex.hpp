// A shared mutex that serves threads in order of arrival.
#pragma once

#include <atomic>
#include <cstdint>

namespace quillonic {

// Works with `std::lock_guard` and `std::shared_lock`. Neither readers nor writers starve: a thread waits for
// exactly those ahead of it that exclude it, a reader for the writers and a writer for both. One addition
// queues a thread and tells it how many of either kind are ahead. Threads behind it that it excludes wait for
// it in turn, and none of them can leave first: a count that has reached the awaited number tells that just
// those ahead have left, and stays there until the waiting thread has left as well. Counts may wrap, since they
// are compared for equality only.
//
// The standard library looks sleepers up in a table, and every shared library may have its own copy of that: all threads
// that use one mutex must run the same binary's code, so this header stays private.
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
    // This writer's arrival has carried into the upper half: one more reader has arrived, who never leaves.
    if (writersLeft_ == UINT32_MAX) leave(readersLeft_);
    leave(writersLeft_);
  }

 private:
  // As wide as what the system can wait on.
  using Count = std::atomic<std::uint32_t>;

  static void await(const Count& count, std::uint64_t ahead) noexcept {
    const auto awaited = static_cast<std::uint32_t>(ahead);
    for (auto now = count.load(); now != awaited; now = count.load()) count.wait(now);
  }

  static void leave(Count& count) noexcept {
    ++count;
    count.notify_all();
  }

  static constexpr std::uint64_t oneWriter = 1;
  static constexpr std::uint64_t oneReader = std::uint64_t{1} << 32U;
  // All counts begin shortly before they wrap, so that a wrap is nothing special.
  static constexpr std::uint32_t first = UINT32_MAX - 7;

  std::atomic<std::uint64_t> arrived_{first * oneReader + first * oneWriter};  // readers above, writers below
  Count writersLeft_{first};
  Count readersLeft_{first};
};

}  // namespace quillonic
