// The loops over pixels, compiled once for every set of instructions. A block of pixels is split into
// channels, decoded to floats, taken through the tables, encoded and merged again.
#pragma once

#include <quillonic/lut/picture.hpp>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace quillonic::lut {

// The greatest code; 0 for floating-point samples.
constexpr std::uint32_t greatestCode(SampleType type) noexcept {
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

// Few enough for the first level of the cache, and a multiple of what a step handles.
inline constexpr std::size_t blockPixels = 256;
inline constexpr std::size_t stepPixels = 8;

inline constexpr std::size_t alphaChannel = 3;

// Red, green and blue as floats, and all four channels as the bits of samples.
struct alignas(64) Block {
  float colors[3][blockPixels];
  std::uint8_t samples[4][blockPixels * 4];
};

// The samples of up to `blockPixels` pixels in memory.
template <class Byte> struct Run {
  Byte* first[4];
  std::ptrdiff_t stride;
  // Samples of a pixel that follow each other: 3 or 4; 1 for planes; 0 for anything else.
  int together;
  // If 3 or 4 are together, the channel of each in the order of addresses, the lowest of which is the first.
  int order[4];
};

// Where the samples of each channel are in a block.
struct Channels {
  std::uint8_t* samples[4];
};

// An evenly spaced table: entries of four floats for a cube, and of one for each of three curves.
struct Grid {
  double min[3];
  // Steps of the grid per unit of input.
  double scale[3];
  const float* entries[3];
  std::int32_t size;
};

// Work on as many pixels as given, rounded up to whole steps.
using TableKernel = void (*)(const Grid& grid, Block& block, std::size_t count);
// Converts one channel between samples and floats.
using Decoder = void (*)(const std::uint8_t* samples, float* values, std::size_t count);
using Encoder = void (*)(const float* values, std::uint8_t* samples, std::size_t count);
using Splitter = void (*)(const Run<const std::uint8_t>& run, const Channels& channels, std::size_t count);
using Merger = void (*)(const Channels& channels, const Run<std::uint8_t>& run, std::size_t count);

struct Kernels {
  TableKernel nearest1D;
  TableKernel linear1D;
  TableKernel nearest3D;
  // The fast ones place inputs in the grid with floats: exact for domains from 0 where the steps per unit are
  // a power of two.
  TableKernel trilinear;
  TableKernel fastTrilinear;
  TableKernel tetrahedral;
  TableKernel fastTetrahedral;
  // By type of sample; null for single floats, which stay as they are.
  Decoder decoders[6];
  Encoder encoders[6];
  // For samples of 1, 2 and 4 bytes.
  Splitter splitters[3];
  Merger mergers[3];
};

// The places in these lists.
constexpr std::size_t indexOf(SampleType type) noexcept {
  return static_cast<std::size_t>(type);
}
constexpr std::size_t indexOfBytes(SampleType type) noexcept {
  return static_cast<std::size_t>(std::countr_zero(bytesOf(type)));
}

const Kernels& baselineKernels() noexcept;
// Null where they were not compiled, or where the processor lacks the instructions.
const Kernels* avx2Kernels() noexcept;

}  // namespace quillonic::lut
