#include <quillonic/support/dispatch_queue.hpp>

#include <utility>

#include "platform/futex.hpp"

namespace quillonic {

// A thread that waits for its turn, on its own stack. The first of the queue watches the state; the others watch each
// their own word, so that a state that changes is not torn between many.
struct DispatchQueue::Waiter {
  enum Event : std::uint32_t {
    hasTurn = 1,
    leadsQueue = 2,  // and lets in those behind
    hasFollower = 4,
    sleeps = 8,
  };

  // The events so far, when one of those awaited is among them.
  std::uint32_t await(std::uint32_t awaited) noexcept {
    std::uint32_t seen = 0;
    const auto hasCome = [&] {
      seen = events.load(std::memory_order_acquire);
      return (seen & awaited) != 0;
    };
    if (futex::comesSoon(hasCome)) return seen;
    events.fetch_or(sleeps, std::memory_order_relaxed);
    while (!hasCome()) futex::wait(events, seen);
    return seen;
  }

  // The waiter may be gone as soon as it sees what it awaits.
  void signal(std::uint32_t event) noexcept {
    const auto* word = &events;
    if ((events.fetch_or(event, std::memory_order_release) & sleeps) != 0) futex::wakeOne(word);
  }

  std::uint64_t turn;
  std::atomic<std::uint32_t> events{0};
  Waiter* follower = nullptr;
};

DispatchQueue::DispatchQueue(std::string label, DispatchQoS qos, Attribute attribute,
                             std::optional<DispatchQoS::QoSClass> target)
    : attribute_(attribute), qos_(qos), target_(target), label_(std::move(label)) {}

// It has been counted among those that run, and moves over to those that wait.
void DispatchQueue::waitShared() noexcept {
  sharedLeft(state_.fetch_add(oneWaiting - oneShared, std::memory_order_release));
  wait(oneShared, runsAlone);
}

void DispatchQueue::waitAlone() noexcept {
  state_.fetch_add(oneWaiting, std::memory_order_relaxed);
  wait(runsAlone, runsAlone | allShared);
}

void DispatchQueue::wait(std::uint64_t turn, std::uint64_t obstacles) noexcept {
  Waiter waiter{turn};
  std::uint32_t role = Waiter::leadsQueue;
  if (Waiter* const ahead = last_.exchange(&waiter, std::memory_order_acq_rel)) {
    ahead->follower = &waiter;
    ahead->signal(Waiter::hasFollower);
    role = waiter.await(Waiter::hasTurn | Waiter::leadsQueue);
  }
  if ((role & Waiter::hasTurn) == 0) take(turn, obstacles);
  if ((role & Waiter::leadsQueue) != 0) passOn(waiter);
}

// The leader has its turn. It lets in those behind that run together with it, and leaves the queue to the next.
void DispatchQueue::passOn(Waiter& leader) noexcept {
  Waiter* last = &leader;
  if (last_.compare_exchange_strong(last, nullptr, std::memory_order_release, std::memory_order_relaxed))
    return;
  leader.await(Waiter::hasFollower);
  Waiter* next = leader.follower;
  while (leader.turn == oneShared && next->turn == oneShared) {
    state_.fetch_add(oneShared - oneWaiting, std::memory_order_relaxed);
    if ((next->events.load(std::memory_order_acquire) & Waiter::hasFollower) == 0) {
      next->signal(Waiter::hasTurn | Waiter::leadsQueue);
      return;
    }
    std::exchange(next, next->follower)->signal(Waiter::hasTurn);
  }
  next->signal(Waiter::leadsQueue);
}

// The first of the queue takes its turn as soon as nothing stands in the way.
void DispatchQueue::take(std::uint64_t turn, std::uint64_t obstacles) noexcept {
  std::uint64_t state = 0;
  const auto taken = [&] {
    state = state_.load(std::memory_order_relaxed);
    return (state & obstacles) == 0 &&
           state_.compare_exchange_weak(state, (state & ~firstSleeps) - oneWaiting + turn,
                                        std::memory_order_acquire, std::memory_order_relaxed);
  };
  if (futex::comesSoon(taken)) return;
  while (!taken()) {
    if ((state & obstacles) != 0 &&
        state_.compare_exchange_strong(state, state | firstSleeps, std::memory_order_relaxed)) {
      futex::wait(state_, state | firstSleeps);
    }
  }
}

// Between the caller's leaving and this, the first may have woken by itself, run, and removed the queue.
void DispatchQueue::wakeFirst() noexcept {
  futex::wakeOne(&state_);
}

}  // namespace quillonic
