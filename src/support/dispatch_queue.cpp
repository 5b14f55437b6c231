#include <quillonic/support/dispatch_queue.hpp>

#include <utility>

#include "platform/futex.hpp"
#include "platform/unfair_lock.hpp"

namespace quillonic {

// A thread that waits for its turn, on its own stack. It is gone as soon as it has seen that it was admitted.
struct DispatchQueue::Waiter {
  enum Progress : std::uint32_t { looking, sleeping, admitted };

  void waitUntilAdmitted() noexcept {
    if (futex::comesSoon([this] { return progress.load(std::memory_order_acquire) == admitted; })) return;
    std::uint32_t before = looking;
    progress.compare_exchange_strong(before, sleeping, std::memory_order_acquire);
    while (progress.load(std::memory_order_acquire) != admitted) futex::wait(progress, sleeping);
  }

  void admit() noexcept {
    const auto* word = &progress;
    if (progress.exchange(admitted, std::memory_order_release) == sleeping) futex::wakeOne(word);
  }

  bool alone;
  std::atomic<std::uint32_t> progress{looking};
  Waiter* next = nullptr;
};

DispatchQueue::DispatchQueue(std::string label, DispatchQoS qos, Attribute attribute,
                             std::optional<DispatchQoS::QoSClass> target)
    : attribute_(attribute), qos_(qos), target_(target), label_(std::move(label)) {}

bool DispatchQueue::mayRun(std::uint32_t state, bool alone) noexcept {
  return (state & runsAlone) == 0 && (!alone || state < oneShared);
}

std::uint32_t DispatchQueue::running(std::uint32_t state, bool alone) noexcept {
  return alone ? state | runsAlone : state + oneShared;
}

void DispatchQueue::wait(bool alone) noexcept {
  Waiter waiter{alone};
  {
    const UnfairGuard guard(waitersLock_, UnfairGuard::WhenTaken::lookAgain);
    auto state = state_.load(std::memory_order_relaxed);
    while ((state & awaited) == 0) {
      // The turn may have come meanwhile; if not, the gate is shut before the last block leaves.
      const bool run = mayRun(state, alone);
      const auto next = run ? running(state, alone) : state | awaited;
      if (!state_.compare_exchange_weak(state, next, std::memory_order_acquire, std::memory_order_relaxed)) {
        continue;
      }
      if (run) return;
      break;
    }
    (first_ ? last_->next : first_) = &waiter;
    last_ = &waiter;
  }
  waiter.waitUntilAdmitted();
}

// Lets in those at the head of the queue whose turn has come: one that runs alone, or all that run together.
void DispatchQueue::admit() noexcept {
  Waiter* admitted = nullptr;
  {
    const UnfairGuard guard(waitersLock_, UnfairGuard::WhenTaken::lookAgain);
    auto** end = &admitted;
    auto state = state_.load(std::memory_order_relaxed);
    while (first_ && mayRun(state, first_->alone)) {
      Waiter* const waiter = first_;
      auto next = running(state, waiter->alone);
      if (!waiter->next) next &= ~awaited;
      if (!state_.compare_exchange_weak(state, next, std::memory_order_acq_rel, std::memory_order_relaxed)) {
        continue;
      }
      state = next;
      first_ = std::exchange(waiter->next, nullptr);
      *end = waiter;
      end = &waiter->next;
    }
  }
  while (admitted) std::exchange(admitted, admitted->next)->admit();
}

}  // namespace quillonic
