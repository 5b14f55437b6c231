// The mean speed of counts that only grow, over a window that slides.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace quillonic::host {

using Clock = std::chrono::steady_clock;

// Several counts that are read at the same moments. Allocates nothing.
template <std::size_t channels> class RateWindow {
 public:
  using Counts = std::array<std::uint64_t, channels>;
  using Rates = std::array<double, channels>;

  explicit RateWindow(Clock::duration window) noexcept : window_(window) {}

  // Forgets all samples.
  void restart() noexcept { size_ = 0; }

  // Moments and counts ascend. Of samples that are close together the last one stays.
  void add(Clock::time_point now, const Counts& counts) noexcept {
    const auto grain = window_ / (capacity - 4);
    if (size_ >= 2 && now - at(size_ - 2).moment < grain) --size_;
    if (size_ == capacity) dropOldest();
    at(size_++) = {now, counts};
    // The newest of those outside is where the window begins.
    while (size_ > 2 && now - at(1).moment >= window_) dropOldest();
  }

  // The time that is measured; 0 before the second sample.
  double seconds() const noexcept {
    if (size_ < 2) return 0;
    return std::chrono::duration<double>(at(size_ - 1).moment - at(0).moment).count();
  }

  // Per second; nothing before the second sample.
  std::optional<Rates> rates() const noexcept {
    const auto span = seconds();
    if (span <= 0) return std::nullopt;
    Rates rates;
    for (std::size_t i = 0; i < channels; ++i) {
      rates[i] = static_cast<double>(at(size_ - 1).counts[i] - at(0).counts[i]) / span;
    }
    return rates;
  }

 private:
  struct Sample {
    Clock::time_point moment;
    Counts counts;
  };

  static constexpr std::size_t capacity = 32;

  Sample& at(std::size_t index) noexcept { return samples_[(first_ + index) % capacity]; }
  const Sample& at(std::size_t index) const noexcept { return samples_[(first_ + index) % capacity]; }

  void dropOldest() noexcept {
    first_ = (first_ + 1) % capacity;
    --size_;
  }

  Clock::duration window_;
  std::array<Sample, capacity> samples_;
  std::size_t first_ = 0;
  std::size_t size_ = 0;
};

}  // namespace quillonic::host
