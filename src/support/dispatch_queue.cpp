#include <quillonic/support/dispatch_queue.hpp>

#include <utility>

#include "platform/futex.hpp"

namespace quillonic {

DispatchQueue::DispatchQueue(std::string label, DispatchQoS qos, Attribute attribute,
                             std::optional<DispatchQoS::QoSClass> target)
    : attribute_(attribute), qos_(qos), target_(target), label_(std::move(label)) {}

void DispatchQueue::LeftCount::wait(std::uint32_t value) noexcept {
  if (futex::comesSoon([&] { return isAt(value); })) return;
  word_.fetch_add(1, std::memory_order_relaxed);
  for (;;) {
    const auto word = word_.load(std::memory_order_acquire);
    if (word >> 32U == value) break;
    futex::waitFor(word_, word, value);
  }
  word_.fetch_sub(1, std::memory_order_relaxed);
}

void DispatchQueue::LeftCount::wake(std::uint32_t value) noexcept {
  futex::wakeThoseFor(&word_, value);
}

}  // namespace quillonic
