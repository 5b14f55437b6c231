// Pictures of every type and layout.
#include <quillonic/lut.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "lut/random_tables.hpp"

namespace quillonic::lut {
namespace {

constexpr auto sampleTypes = {SampleType::uint8,  SampleType::uint10, SampleType::uint12,
                              SampleType::uint16, SampleType::half,   SampleType::single};

// The greatest code of integers.
double greatestOf(SampleType type) {
  constexpr double codes[] = {255, 1023, 4095, 65535, 0, 0};
  return codes[static_cast<std::size_t>(type)];
}

// A sample of a picture as a number.
double valueOf(const std::byte* sample, SampleType type) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, sample, bytesOf(type));
  if (greatestOf(type) > 0) return std::min(bits / greatestOf(type), 1.0);
  if (type == SampleType::single) {
    float value = 0;
    std::memcpy(&value, sample, 4);
    return static_cast<double>(value);
  }
  const double sign = (bits & 0x8000U) != 0 ? -1 : 1;
  const int exponent = static_cast<int>(bits >> 10 & 31U);
  const double digits = bits & 1023U;
  return sign * (exponent == 0 ? std::ldexp(digits, -24) : std::ldexp(1024 + digits, exponent - 25));
}

// How far a sample may be from a value: an integer half a code and a little more.
double toleranceOf(SampleType type, double value) {
  constexpr double ofFloats = 3e-6;
  if (type == SampleType::single) return ofFloats;
  if (type == SampleType::half) return std::abs(value) / 2048 + ofFloats;
  return 0.5 / greatestOf(type) + ofFloats;
}

// Pixels with gaps, which must not change, in one of five layouts.
struct Pixels {
  static constexpr PictureSize size{.width = 301, .height = 5};
  static constexpr std::size_t planeBytes = size.width * size.height * 16 + 64;
  std::vector<std::byte> bytes = std::vector<std::byte>(4 * planeBytes + 1, std::byte{0x3A});
  Picture picture;

  Pixels(SampleType type, int layout) {
    std::byte* const start = bytes.data() + 1;  // aligned to nothing
    const auto wide = static_cast<std::ptrdiff_t>(bytesOf(type) * 4 * size.width + 5);
    if (layout < 2) {
      picture = Picture::interleaved(start, type, layout == 0 ? 3 : 4, size, wide);
    } else if (layout == 2) {
      picture =
          Picture::planar({start, start + planeBytes, start + 2 * planeBytes, nullptr}, type, size, wide);
    } else {
      // Alpha, blue, green, red from the bottom up; or pixels with a gap.
      picture = Picture::interleaved(start, type, 4, size, wide);
      std::ranges::reverse(picture.planes);
      for (auto& plane : picture.planes) plane = {plane.first + wide * 4, -wide};
      if (layout == 4) picture.pixelStride += 3;
      if (layout == 4) picture.size.width = size.width / 2;
    }
  }

  Pixels(const Pixels& other) : bytes(other.bytes), picture(other.picture) {
    for (auto& plane : picture.planes) {
      if (plane.first) plane.first = bytes.data() + (plane.first - other.bytes.data());
    }
  }

  std::byte* at(std::size_t channel, std::size_t x, std::size_t y) const {
    const auto& plane = picture.planes[channel];
    return plane.first + plane.rowStride * static_cast<std::ptrdiff_t>(y) +
           picture.pixelStride * static_cast<std::ptrdiff_t>(x);
  }
  template <class Visit> void forEach(Visit visit) const {
    for (std::size_t y = 0; y < picture.size.height; ++y) {
      for (std::size_t x = 0; x < picture.size.width; ++x) {
        for (std::size_t channel = 0; channel < 4; ++channel) {
          if (picture.planes[channel].first) visit(x, y, channel);
        }
      }
    }
  }
  void fill(SampleType type, Random& random) {
    forEach([&](std::size_t x, std::size_t y, std::size_t channel) {
      const float value = random.number(0, 1);
      auto code = static_cast<std::uint32_t>(value * static_cast<float>(greatestOf(type)));
      if (type == SampleType::half) code = static_cast<std::uint32_t>(random.below(0x3C00));
      if (type == SampleType::single) std::memcpy(&code, &value, 4);
      std::memcpy(at(channel, x, y), &code, bytesOf(type));
    });
  }
};

TEST(Pictures, AreTheSameInEveryLayoutAndType) {
  Random random;
  const std::vector<Lut> luts{Lut(random.cube(17)), Lut(random.curves(100)),
                              Lut(random.curves(5), random.cube(5))};
  for (const auto& lut : luts) {
    for (const auto source : sampleTypes) {
      for (const auto target : sampleTypes) {
        for (int layout = 0; layout < (lut.kind() == Kind::threeD ? 5 : 1); ++layout) {
          Pixels from(source, layout);
          from.fill(source, random);
          const ApplierOptions options{
              .source = source, .target = target, .instructions = Instructions::baseline};
          const Applier applier(lut, options);
          const int otherLayout = (layout + static_cast<int>(random.below(5))) % 5;
          Pixels to(target, otherLayout);
          applier.apply(from.picture, to.picture);
          to.forEach([&](std::size_t x, std::size_t y, std::size_t channel) {
            if (x >= from.picture.size.width) return;
            const double result = valueOf(to.at(channel, x, y), target);
            double expected = 1;
            if (channel < 3) {
              Exact color;
              for (std::size_t i = 0; i < 3; ++i) color[i] = valueOf(from.at(i, x, y), source);
              expected = exact(lut, Interpolation::tetrahedral, color)[channel];
            } else if (from.picture.planes[3].first) {
              expected = valueOf(from.at(3, x, y), source);
            }
            if (greatestOf(target) > 0) expected = std::clamp(expected, 0.0, 1.0);
            ASSERT_NEAR(result, expected, toleranceOf(target, expected));
          });
          for (const auto used : instructions()) {
            auto fast = options;
            fast.instructions = used;
            const Applier faster(lut, fast);
            Pixels other(target, otherLayout);
            // Threads share it for two rows each, past the last; the gaps stay as they were.
            std::vector<std::jthread> threads;
            for (std::size_t row = 0; row < 7; row += 2)
              threads.emplace_back([&, row] { faster.applyRows(from.picture, other.picture, row, 2); });
            threads.clear();
            ASSERT_EQ(other.bytes, to.bytes);
            if (source != target) continue;
            Pixels inPlace = from;
            faster.apply(inPlace.picture);
            from.forEach([&](std::size_t x, std::size_t y, std::size_t channel) {
              const auto& expected = channel == 3 ? from : inPlace;
              ASSERT_EQ(std::memcmp(inPlace.at(channel, x, y), expected.at(channel, x, y), bytesOf(source)),
                        0);
            });
          }
        }
      }
    }
  }
}

TEST(Pictures, RoundHalvesUpAndKeepEveryHalfFloat) {
  // Codes of 8 bits and a table that adds half a code.
  const Lut half(*Table1D::sampled(2, [](const Rgb& c) {
    const float more = 0.5F / 255;
    return Rgb{c[0] + more, c[1] - more, c[2]};
  }));
  for (const auto used : instructions()) {
    std::array<std::uint8_t, 3> pixel{0, 0, 255};
    const Applier applier(half,
                          {.source = SampleType::uint8, .target = SampleType::uint8, .instructions = used});
    applier.apply(Picture::interleaved(pixel.data(), SampleType::uint8, 3, {1, 1}));
    EXPECT_EQ(pixel, (std::array<std::uint8_t, 3>{1, 0, 255}));

    // A table that changes nothing returns every half float in its domain.
    const float most = 65504;
    const Lut same(*Table1D::identity(2, {{-most, -most, -most}, {most, most, most}}));
    const Applier widened(same,
                          {.source = SampleType::half, .target = SampleType::single, .instructions = used});
    const Applier narrowed(Lut(*Table1D::sampled(2, [](const Rgb&) { return Rgb{}; })),
                           {.source = SampleType::single, .target = SampleType::half, .instructions = used});
    std::vector<std::uint16_t> halves;
    for (std::uint32_t code = 0; code < 0x10000; ++code) {
      if ((code & 0x7C00U) != 0x7C00U) halves.push_back(static_cast<std::uint16_t>(code));
    }
    // Alpha is converted without a table.
    std::vector<std::uint16_t> pixels(4 * halves.size());
    for (std::size_t i = 0; i < halves.size(); ++i) pixels[4 * i + 3] = halves[i];
    std::vector<float> floats(pixels.size());
    const PictureSize size{halves.size(), 1};
    const auto wide = Picture::interleaved(floats.data(), SampleType::single, 4, size);
    widened.apply(ConstPicture::interleaved(pixels.data(), SampleType::half, 4, size), wide);
    for (std::size_t i = 0; i < halves.size(); ++i)
      ASSERT_EQ(static_cast<double>(floats[4 * i + 3]),
                valueOf(reinterpret_cast<const std::byte*>(&halves[i]), SampleType::half));
    std::vector<std::uint16_t> again(pixels.size());
    narrowed.apply(ConstPicture::interleaved(floats.data(), SampleType::single, 4, size),
                   Picture::interleaved(again.data(), SampleType::half, 4, size));
    for (std::size_t i = 0; i < halves.size(); ++i) ASSERT_EQ(again[4 * i + 3], halves[i]);
  }
}

}  // namespace
}  // namespace quillonic::lut
