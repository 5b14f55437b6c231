#include <quillonic/media/sample_rate.hpp>
#include <quillonic/platform/localization.hpp>

#include <atomic>
#include <utility>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

constinit std::atomic<std::int64_t> proposedHertz = 48000;

}  // namespace

std::int64_t SampleRate::defaultCustomHz() noexcept {
  return proposedHertz;
}

void SampleRate::setDefaultCustomHz(std::int64_t hertz) noexcept {
  proposedHertz = hertz;
}

std::span<const SampleRate> SampleRate::allCommonCases() {
  static const auto cases = []<std::size_t... i>(std::index_sequence<i...> /*positions*/) {
    return std::to_array({detail::fixedSampleRates[i]..., custom(defaultCustomHz())});
  }
  (std::make_index_sequence<detail::fixedSampleRates.size()>{});
  return cases;
}

std::string SampleRate::description() const {
  if (!isCustom()) return pickerDescription();
  constexpr std::int64_t leastInKilohertz = 1001;
  if (hertz() < leastInKilohertz) return Localization::localized("{} Hz", {std::to_string(hertz())});
  return Localization::localized("{} kHz", {number_text::shortest(static_cast<double>(hertz()) / 1000)});
}

std::string SampleRate::pickerDescription() const {
  return Localization::localized(isCustom() ? "Custom" : row().text);
}

}  // namespace quillonic
