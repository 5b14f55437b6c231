#include <quillonic/lut/applier.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "lut/kernels.hpp"

namespace quillonic::lut {
// The types of members of `Prepared`, which is no type of this source alone.
struct FreeAligned {
  void operator()(float* floats) const noexcept { ::operator delete[](floats, std::align_val_t(64)); }
};
using Floats = std::unique_ptr<float[], FreeAligned>;

// An evenly spaced table with its kernel.
struct Stage {
  Floats floats;
  Grid grid{};
  TableKernel kernel = nullptr;
};

namespace {

constexpr std::size_t alphaChannel = 3;

const Kernels& kernelsOf(Instructions instructions) noexcept {
  const Kernels* fast = instructions == Instructions::avx2 ? avx2Kernels() : nullptr;
  return fast ? *fast : baselineKernels();
}

// The greatest code; 0 for floating-point samples.
std::uint32_t greatestCode(SampleType type) noexcept {
  switch (type) {
    case SampleType::uint8:
      return 255;
    case SampleType::uint10:
      return 1023;
    case SampleType::uint12:
      return 4095;
    case SampleType::uint16:
      return 65535;
    case SampleType::half:
    case SampleType::single:
      break;
  }
  return 0;
}

std::size_t indexOf(SampleType type) noexcept {
  return static_cast<std::size_t>(type);
}

// The place of a number of bytes in lists for 1, 2 and 4.
std::size_t indexOfBytes(SampleType type) noexcept {
  return static_cast<std::size_t>(std::countr_zero(bytesOf(type)));
}

// The codes that a sample of integers can hold.
std::size_t codesOf(SampleType type) noexcept {
  return std::size_t{1} << (8 * bytesOf(type));
}

// The results for codes: as few bytes as the target's samples have, but never single bytes, which are slower
// to load.
template <class To> using Result = std::conditional_t<sizeof(To) == 1, std::uint16_t, To>;

// Replaces codes by those of a table.
template <class From, class To>
void replaceCodes(const std::byte* __restrict table, const std::uint8_t* __restrict from,
                  std::uint8_t* __restrict to, std::size_t count) noexcept {
  for (std::size_t i = 0; i < count; ++i) {
    From code;
    std::memcpy(&code, from + i * sizeof code, sizeof code);
    Result<To> wide;
    std::memcpy(&wide, table + code * sizeof wide, sizeof wide);
    const auto result = static_cast<To>(wide);
    std::memcpy(to + i * sizeof result, &result, sizeof result);
  }
}

using Replacer = void (*)(const std::byte*, const std::uint8_t*, std::uint8_t*, std::size_t) noexcept;
constexpr Replacer replacers[2][3]{
    {replaceCodes<std::uint8_t, std::uint8_t>, replaceCodes<std::uint8_t, std::uint16_t>,
     replaceCodes<std::uint8_t, std::uint32_t>},
    {replaceCodes<std::uint16_t, std::uint8_t>, replaceCodes<std::uint16_t, std::uint16_t>,
     replaceCodes<std::uint16_t, std::uint32_t>},
};

Floats makeFloats(std::size_t count) {
  return Floats(static_cast<float*>(::operator new[](count * sizeof(float), std::align_val_t(64))));
}

Grid gridOf(const Domain& domain, std::size_t size) noexcept {
  Grid grid{};
  grid.size = static_cast<std::int32_t>(size);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    grid.min[channel] = static_cast<double>(domain.min[channel]);
    grid.scale[channel] =
        static_cast<double>(size - 1) / (static_cast<double>(domain.max[channel]) - grid.min[channel]);
  }
  return grid;
}

// Whether products with a number round to nothing else.
bool isPowerOfTwo(double number) noexcept {
  int exponent = 0;
  return std::frexp(number, &exponent) == 0.5 && exponent > -100 && exponent < 100;
}

Stage stageOf(const Table1D& table, const Kernels& kernels, Interpolation interpolation) {
  Stage stage;
  const auto size = table.size();
  stage.floats = makeFloats(3 * size);
  stage.grid = gridOf(table.domain(), size);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    float* const curve = stage.floats.get() + channel * size;
    for (std::size_t i = 0; i < size; ++i) curve[i] = table.entries()[i][channel];
    stage.grid.entries[channel] = curve;
  }
  stage.kernel = interpolation == Interpolation::nearest ? kernels.nearest1D : kernels.linear1D;
  return stage;
}

TableKernel kernelOf(const Kernels& kernels, Interpolation interpolation, bool isFast) noexcept {
  switch (interpolation) {
    case Interpolation::nearest:
      return kernels.nearest3D;
    case Interpolation::linear:
    case Interpolation::trilinear:
      return isFast ? kernels.fastTrilinear : kernels.trilinear;
    case Interpolation::tetrahedral:
      break;
  }
  return isFast ? kernels.fastTetrahedral : kernels.tetrahedral;
}

Stage stageOf(const Table3D& cube, const Kernels& kernels, Interpolation interpolation) {
  Stage stage;
  const auto entries = cube.entries();
  stage.floats = makeFloats(4 * entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const auto& [red, green, blue] = entries[i];
    const float padded[4]{red, green, blue, 0};
    std::memcpy(stage.floats.get() + 4 * i, padded, sizeof padded);
  }
  stage.grid = gridOf(cube.domain(), cube.edge());
  stage.grid.entries[0] = stage.floats.get();
  bool isFast = cube.domain().min == Rgb{};
  for (const double scale : stage.grid.scale) isFast = isFast && isPowerOfTwo(scale);
  stage.kernel = kernelOf(kernels, interpolation, isFast);
  return stage;
}

// The samples of a row from a pixel on.
template <class To, class Byte>
Run<To> runOf(const BasicPicture<Byte>& picture, std::size_t row, std::size_t pixel,
              SampleType type) noexcept {
  Run<To> run{};
  run.stride = picture.pixelStride;
  const auto bytes = static_cast<std::ptrdiff_t>(bytesOf(type));
  for (std::size_t channel = 0; channel < 4; ++channel) {
    const auto& plane = picture.planes[channel];
    if (!plane.first) continue;
    Byte* const first = plane.first + plane.rowStride * static_cast<std::ptrdiff_t>(row) +
                        picture.pixelStride * static_cast<std::ptrdiff_t>(pixel);
    run.first[channel] = reinterpret_cast<To*>(first);
  }
  const int channels = run.first[alphaChannel] ? 4 : 3;
  if (run.stride == bytes) {
    run.together = 1;
  } else if (run.stride == channels * bytes) {
    // Every place of the pixel has a channel.
    To* const lowest = *std::min_element(run.first, run.first + channels);
    int found = 0;
    for (int channel = 0; channel < channels; ++channel) {
      const auto offset = run.first[channel] - lowest;
      if (offset % bytes != 0 || offset >= run.stride) return run;
      run.order[offset / bytes] = channel;
      found |= 1 << (offset / bytes);
    }
    if (found != (1 << channels) - 1) return run;
    run.together = channels;
    run.first[0] = lowest;
  }
  return run;
}

}  // namespace

struct Applier::Prepared {
  ApplierOptions options;
  const Kernels& kernels;
  std::optional<Curves> curves;
  std::vector<Stage> stages;
  // For curves of integers: the bits of the target's sample for each code that a sample holds, a table per
  // channel.
  std::vector<std::byte> codes;

  Prepared(const Lut& lut, const ApplierOptions& chosen)
      : options(chosen), kernels(kernelsOf(chosen.instructions)) {
    if (lut.curves()) curves = *lut.curves();
    const bool isShaper = lut.table3D() != nullptr;
    if (lut.table1D())
      stages.push_back(
          stageOf(*lut.table1D(), kernels, isShaper ? Interpolation::linear : options.interpolation));
    if (lut.table3D()) stages.push_back(stageOf(*lut.table3D(), kernels, options.interpolation));
    if (lut.kind() == Kind::oneD && greatestCode(options.source) != 0) prepareCodes(*lut.table1D());
  }

  // The tables applied to the colours of a block.
  void transform(Block& block, std::size_t count) const noexcept {
    const auto padded = (count + stepPixels - 1) / stepPixels * stepPixels;
    for (std::size_t channel = 0; channel < 3; ++channel) {
      float* const values = block.colors[channel];
      std::fill(values + count, values + padded, 0.0F);
      if (!curves) continue;
      for (std::size_t i = 0; i < count; ++i) values[i] = (*curves)[channel](values[i]);
    }
    for (const auto& stage : stages) stage.kernel(stage.grid, block, padded);
  }

  // Single floats are where the tables take them from. Codes that are looked up are put where no others are.
  static Channels channelsOf(Block& block, bool isInColors) noexcept {
    Channels channels{};
    for (std::size_t channel = 0; channel < 4; ++channel)
      channels.samples[channel] = isInColors && channel != alphaChannel
                                      ? reinterpret_cast<std::uint8_t*>(block.colors[channel])
                                      : block.samples[channel];
    return channels;
  }
  Channels sourceOf(Block& block) const noexcept {
    return channelsOf(block, options.source == SampleType::single);
  }
  Channels targetOf(Block& block) const noexcept {
    return channelsOf(block, options.target == SampleType::single || !codes.empty());
  }

  void decode(Block& block, std::size_t count) const noexcept {
    if (options.source == SampleType::single) return;
    for (std::size_t channel = 0; channel < 3; ++channel)
      kernels.decoders[indexOf(options.source)](block.samples[channel], block.colors[channel], count);
  }
  void encode(Block& block, std::size_t count) const noexcept {
    if (options.target == SampleType::single) return;
    for (std::size_t channel = 0; channel < 3; ++channel)
      kernels.encoders[indexOf(options.target)](block.colors[channel], block.samples[channel], count);
  }

  // Alpha of another type is rescaled; one that the source lacks is opaque.
  void convertAlpha(Block& block, std::size_t count, bool isInSource) const noexcept {
    if (isInSource && options.source == options.target) return;
    alignas(64) float values[blockPixels]{};
    auto* const samples = block.samples[alphaChannel];
    if (!isInSource) {
      std::fill(values, values + count, 1.0F);
    } else if (const auto decoder = kernels.decoders[indexOf(options.source)]) {
      decoder(samples, values, count);
    } else {
      std::memcpy(values, samples, count * sizeof(float));
    }
    if (const auto encoder = kernels.encoders[indexOf(options.target)]) {
      encoder(values, samples, count);
    } else {
      std::memcpy(samples, values, count * sizeof(float));
    }
  }

  // By doubles: where a table has an entry for each code, the code's own entry is found.
  void prepareCodes(const Table1D& table) {
    const auto count = codesOf(options.source);
    const auto greatest = static_cast<double>(greatestCode(options.source));
    const auto bytes = bytesOf(options.target), resultBytes = std::max<std::size_t>(bytes, 2);
    std::vector<std::byte> found(3 * count * resultBytes);
    Block block{};
    const auto channels = channelsOf(block, options.target == SampleType::single);
    const auto handled = std::min(blockPixels, count);
    for (std::size_t first = 0; first < count; first += handled) {
      for (std::size_t channel = 0; channel < 3; ++channel) {
        for (std::size_t i = 0; i < handled; ++i) {
          double input = std::min(static_cast<double>(first + i) / greatest, 1.0);
          if (curves) input = static_cast<double>((*curves)[channel](static_cast<float>(input)));
          block.colors[channel][i] = valueIn(table, stages.front().grid, channel, input);
        }
      }
      encode(block, handled);
      for (std::size_t channel = 0; channel < 3; ++channel) {
        for (std::size_t i = 0; i < handled; ++i)
          std::memcpy(&found[(channel * count + first + i) * resultBytes],
                      channels.samples[channel] + i * bytes, bytes);
      }
    }
    codes = std::move(found);
  }

  float valueIn(const Table1D& table, const Grid& grid, std::size_t channel, double input) const noexcept {
    const double steps = (input - grid.min[channel]) * grid.scale[channel];
    const double at = steps > 0 ? std::min(steps, static_cast<double>(table.size() - 1)) : 0;
    const auto entry = [&](std::size_t i) { return static_cast<double>(table.entries()[i][channel]); };
    if (options.interpolation == Interpolation::nearest)
      return static_cast<float>(entry(static_cast<std::size_t>(std::floor(at + 0.5))));
    const auto i = std::min(static_cast<std::size_t>(at), table.size() - 2);
    const double part = at - static_cast<double>(i);
    return static_cast<float>((1 - part) * entry(i) + part * entry(i + 1));
  }

  // From the samples of the source to those of the target, which have their places.
  void applyTo(Block& block, std::size_t count) const noexcept {
    if (codes.empty()) {
      decode(block, count);
      transform(block, count);
      encode(block, count);
      return;
    }
    const auto replace = replacers[indexOfBytes(options.source)][indexOfBytes(options.target)];
    const auto to = targetOf(block);
    for (std::size_t channel = 0; channel < 3; ++channel)
      replace(codes.data() + channel * (codes.size() / 3), block.samples[channel], to.samples[channel],
              count);
  }
};

bool isAvailable(Instructions instructions) noexcept {
  return instructions == Instructions::baseline || avx2Kernels() != nullptr;
}

Instructions bestInstructions() noexcept {
  return avx2Kernels() ? Instructions::avx2 : Instructions::baseline;
}

Applier::Applier(const Lut& lut, const ApplierOptions& options)
    : prepared_(std::make_shared<const Prepared>(lut, options)) {}

Rgb Applier::apply(const Rgb& color) const noexcept {
  Rgb result = color;
  apply(std::span(&color, 1), std::span(&result, 1));
  return result;
}

void Applier::apply(std::span<const Rgb> source, std::span<Rgb> target) const noexcept {
  Block block;
  const auto size = std::min(source.size(), target.size());
  for (std::size_t first = 0; first < size; first += blockPixels) {
    const auto count = std::min(blockPixels, size - first);
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t channel = 0; channel < 3; ++channel)
        block.colors[channel][i] = source[first + i][channel];
    }
    prepared_->transform(block, count);
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t channel = 0; channel < 3; ++channel)
        target[first + i][channel] = block.colors[channel][i];
    }
  }
}

void Applier::apply(const ConstPicture& source, const Picture& target) const noexcept {
  applyRows(source, target, 0, std::min(source.size.height, target.size.height));
}

void Applier::apply(const Picture& picture) const noexcept {
  apply(picture, picture);
}

void Applier::applyRows(const ConstPicture& source, const Picture& target, std::size_t firstRow,
                        std::size_t rows) const noexcept {
  const auto& options = prepared_->options;
  const auto width = std::min(source.size.width, target.size.width);
  const auto height = std::min(source.size.height, target.size.height);
  const auto end = firstRow + std::min(rows, height - std::min(firstRow, height));
  const auto split = prepared_->kernels.splitters[indexOfBytes(options.source)];
  const auto merge = prepared_->kernels.mergers[indexOfBytes(options.target)];
  const bool hasAlpha = source.planes[alphaChannel].first != nullptr;
  Block block;
  const auto from = prepared_->sourceOf(block);
  const auto to = prepared_->targetOf(block);
  for (std::size_t row = firstRow; row < end; ++row) {
    for (std::size_t pixel = 0; pixel < width; pixel += blockPixels) {
      const auto count = std::min(blockPixels, width - pixel);
      split(runOf<const std::uint8_t>(source, row, pixel, options.source), from, count);
      prepared_->applyTo(block, count);
      if (target.planes[alphaChannel].first) prepared_->convertAlpha(block, count, hasAlpha);
      merge(to, runOf<std::uint8_t>(target, row, pixel, options.target), count);
    }
  }
}

}  // namespace quillonic::lut
