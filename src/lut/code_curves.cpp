#include "lut/code_curves.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace quillonic::lut {
namespace {

// A sample of the target in a table: never a single byte, which is slower to load.
template <class Sample> using Result = std::conditional_t<sizeof(Sample) == 1, std::uint16_t, Sample>;

template <class From, class To>
void replaceCodes(const std::byte* __restrict results, const std::uint8_t* __restrict from,
                  std::uint8_t* __restrict to, std::size_t count) noexcept {
  for (std::size_t i = 0; i < count; ++i) {
    From code;
    std::memcpy(&code, from + i * sizeof code, sizeof code);
    Result<To> result;
    std::memcpy(&result, results + code * sizeof result, sizeof result);
    const auto sample = static_cast<To>(result);
    std::memcpy(to + i * sizeof sample, &sample, sizeof sample);
  }
}

constexpr decltype(&replaceCodes<std::uint8_t, std::uint8_t>) replacers[2][3]{
    {replaceCodes<std::uint8_t, std::uint8_t>, replaceCodes<std::uint8_t, std::uint16_t>,
     replaceCodes<std::uint8_t, std::uint32_t>},
    {replaceCodes<std::uint16_t, std::uint8_t>, replaceCodes<std::uint16_t, std::uint16_t>,
     replaceCodes<std::uint16_t, std::uint32_t>},
};

// By doubles: where a table has an entry for each code, the code's own entry is found.
float valueIn(const Table1D& table, Interpolation interpolation, std::size_t channel, double input) noexcept {
  const auto min = static_cast<double>(table.domain().min[channel]);
  const auto last = static_cast<double>(table.size() - 1);
  const double steps = (input - min) * (last / (static_cast<double>(table.domain().max[channel]) - min));
  const double at = steps > 0 ? std::min(steps, last) : 0;
  const auto entry = [&](std::size_t i) { return static_cast<double>(table.entries()[i][channel]); };
  if (interpolation == Interpolation::nearest)
    return static_cast<float>(entry(static_cast<std::size_t>(std::floor(at + 0.5))));
  const auto i = std::min(static_cast<std::size_t>(at), table.size() - 2);
  const double part = at - static_cast<double>(i);
  return static_cast<float>((1 - part) * entry(i) + part * entry(i + 1));
}

}  // namespace

CodeCurves::CodeCurves(const Lut& lut, const ApplierOptions& options, const Kernels& kernels)
    : replace_(replacers[indexOfBytes(options.source)][indexOfBytes(options.target)]) {
  constexpr std::size_t step = 256;
  const auto count = std::size_t{1} << (8 * bytesOf(options.source));
  const auto bytes = bytesOf(options.target), bytesOfResult = std::max<std::size_t>(bytes, 2);
  const auto* const curves = lut.curves();
  results_.resize(3 * count * bytesOfResult);
  auto* result = results_.data();
  for (std::size_t channel = 0; channel < 3; ++channel) {
    for (std::size_t first = 0; first < count; first += step) {
      float values[step];
      for (std::size_t i = 0; i < step; ++i) {
        double input = std::min(static_cast<double>(first + i) / greatestCode(options.source), 1.0);
        if (curves) input = static_cast<double>((*curves)[channel](static_cast<float>(input)));
        values[i] = valueIn(*lut.table1D(), options.interpolation, channel, input);
      }
      std::uint8_t samples[sizeof values];
      if (const auto encode = kernels.encoders[indexOf(options.target)]) {
        encode(values, samples, step);
      } else {
        std::memcpy(samples, values, sizeof values);
      }
      for (std::size_t i = 0; i < step; ++i, result += bytesOfResult) {
        const std::uint16_t wide = samples[i];
        std::memcpy(result, bytes == 1 ? static_cast<const void*>(&wide) : samples + i * bytes,
                    bytesOfResult);
      }
    }
  }
}

void CodeCurves::apply(const Channels& source, const Channels& target, std::size_t count) const noexcept {
  for (std::size_t channel = 0; channel < 3; ++channel)
    replace_(results_.data() + channel * (results_.size() / 3), source.samples[channel],
             target.samples[channel], count);
}

}  // namespace quillonic::lut
