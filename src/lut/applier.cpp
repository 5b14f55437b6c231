#include <quillonic/lut/applier.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "lut/code_curves.hpp"
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

const Kernels& kernelsOf(Instructions instructions) noexcept {
  const Kernels* fast = instructions == Instructions::avx2 ? avx2Kernels() : nullptr;
  return fast ? *fast : baselineKernels();
}

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
  // Used instead in pictures of integers, if there is no cube.
  std::optional<CodeCurves> codeCurves;

  Prepared(const Lut& lut, const ApplierOptions& chosen)
      : options(chosen), kernels(kernelsOf(chosen.instructions)) {
    if (lut.curves()) curves = *lut.curves();
    const bool isShaper = lut.table3D() != nullptr;
    if (lut.table1D())
      stages.push_back(
          stageOf(*lut.table1D(), kernels, isShaper ? Interpolation::linear : options.interpolation));
    if (lut.table3D()) stages.push_back(stageOf(*lut.table3D(), kernels, options.interpolation));
    if (!isShaper && greatestCode(options.source) != 0) codeCurves.emplace(lut, options, kernels);
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
    return channelsOf(block, options.target == SampleType::single || codeCurves);
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

  // From the samples of the source to those of the target, which have their places.
  void applyTo(Block& block, std::size_t count) const noexcept {
    if (codeCurves) return codeCurves->apply(sourceOf(block), targetOf(block), count);
    decode(block, count);
    transform(block, count);
    encode(block, count);
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
