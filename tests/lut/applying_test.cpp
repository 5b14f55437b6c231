// The laws of interpolation over random tables and colours, against doubles, for every set of instructions
// that the processor has.
#include <quillonic/lut.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace quillonic::lut {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr auto kinds = {Interpolation::nearest, Interpolation::trilinear, Interpolation::tetrahedral};
constexpr auto sampleTypes = {SampleType::uint8,  SampleType::uint10, SampleType::uint12,
                              SampleType::uint16, SampleType::half,   SampleType::single};

class Random {
 public:
  float number(float low = -0.25F, float high = 1.25F) {
    return std::uniform_real_distribution<float>(low, high)(engine_);
  }
  Rgb color(float low = -0.25F, float high = 1.25F) {
    return {number(low, high), number(low, high), number(low, high)};
  }
  std::size_t below(std::size_t limit) { return engine_() % limit; }
  std::vector<Rgb> colors(std::size_t count) {
    std::vector<Rgb> all(count);
    for (auto& color : all) color = this->color();
    return all;
  }
  Domain domain() {
    Domain domain;
    for (std::size_t channel = 0; channel < 3; ++channel) {
      domain.min[channel] = number(-1, 0);
      domain.max[channel] = number(0.5F, 2);
    }
    return domain;
  }
  Table3D cube(std::size_t edge, const Domain& domain = {}) {
    return *Table3D::sampled(
        edge, [&](const Rgb&) { return color(); }, domain);
  }
  Table1D curves(std::size_t size, const Domain& domain = {}) {
    return *Table1D::sampled(
        size, [&](const Rgb&) { return color(); }, domain);
  }

 private:
  std::mt19937 engine_{21};
};

// The interpolation by its formulas, with doubles.
struct Axis {
  std::size_t index;
  double part;
  std::size_t nearest;
};

Axis axisOf(const Domain& domain, std::size_t channel, std::size_t size, double x) {
  const double min = static_cast<double>(domain.min[channel]);
  const double last = static_cast<double>(size - 1);
  const double t = (x - min) * last / (static_cast<double>(domain.max[channel]) - min);
  const double at = t > 0 ? std::min(t, last) : 0;
  const auto index = std::min(static_cast<std::size_t>(at), size - 2);
  return {index, at - static_cast<double>(index), static_cast<std::size_t>(at + 0.5)};
}

using Exact = std::array<double, 3>;

Exact exact(const Table3D& cube, Interpolation interpolation, const Exact& color) {
  std::array<Axis, 3> axes;
  for (std::size_t i = 0; i < 3; ++i) axes[i] = axisOf(cube.domain(), i, cube.edge(), color[i]);
  const auto corner = [&](std::size_t channel, std::size_t r, std::size_t g, std::size_t b) {
    return static_cast<double>(cube.at(axes[0].index + r, axes[1].index + g, axes[2].index + b)[channel]);
  };
  Exact result{};
  // The order of the axes by their parts, the greatest first.
  std::array<std::size_t, 3> order{0, 1, 2};
  std::ranges::sort(order, [&](auto a, auto b) { return axes[a].part > axes[b].part; });
  for (std::size_t channel = 0; channel < 3; ++channel) {
    auto& sum = result[channel];
    if (interpolation == Interpolation::nearest) {
      sum = static_cast<double>(cube.at(axes[0].nearest, axes[1].nearest, axes[2].nearest)[channel]);
    } else if (interpolation == Interpolation::trilinear) {
      for (std::size_t bits = 0; bits < 8; ++bits) {
        double weight = 1;
        for (std::size_t i = 0; i < 3; ++i) weight *= (bits >> i & 1) != 0 ? axes[i].part : 1 - axes[i].part;
        sum += weight * corner(channel, bits & 1, bits >> 1 & 1, bits >> 2);
      }
    } else {
      // From the first corner to the last, a step along each axis in this order.
      std::array<std::size_t, 3> at{};
      double above = 1;
      for (std::size_t step = 0; step <= 3; ++step) {
        const double below = step < 3 ? axes[order[step]].part : 0;
        sum += (above - below) * corner(channel, at[0], at[1], at[2]);
        above = below;
        if (step < 3) at[order[step]] = 1;
      }
    }
  }
  return result;
}

Exact exact(const Table1D& table, Interpolation interpolation, const Exact& color) {
  Exact result{};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    const auto axis = axisOf(table.domain(), channel, table.size(), color[channel]);
    const auto entry = [&](std::size_t i) { return static_cast<double>(table.entries()[i][channel]); };
    result[channel] = interpolation == Interpolation::nearest
                          ? entry(axis.nearest)
                          : (1 - axis.part) * entry(axis.index) + axis.part * entry(axis.index + 1);
  }
  return result;
}

Exact exact(const Lut& lut, Interpolation interpolation, Exact color) {
  if (lut.table1D())
    color = exact(*lut.table1D(), lut.table3D() ? Interpolation::linear : interpolation, color);
  return lut.table3D() ? exact(*lut.table3D(), interpolation, color) : color;
}

std::vector<Instructions> instructions() {
  std::vector<Instructions> all{Instructions::baseline};
  if (isAvailable(Instructions::avx2)) all.push_back(Instructions::avx2);
  return all;
}

std::vector<Rgb> applied(const Lut& lut, Interpolation interpolation, Instructions used,
                         std::vector<Rgb> colors) {
  Applier(lut, {.interpolation = interpolation, .instructions = used}).apply(colors, colors);
  return colors;
}

TEST(Applying, AgreesWithDoublesAndAmongInstructions) {
  Random random;
  std::vector<Lut> luts;
  for (const std::size_t edge : {2U, 3U, 16U, 17U, 33U, 50U}) {
    luts.emplace_back(random.cube(edge));
    luts.emplace_back(random.cube(edge, random.domain()));
    luts.emplace_back(random.curves(edge * 100, random.domain()));
    luts.emplace_back(random.curves(edge), random.cube(edge, random.domain()));
  }
  for (const auto& lut : luts) {
    for (const auto interpolation : kinds) {
      // A shaper's rounding moves inputs over the middle between entries.
      if (interpolation == Interpolation::nearest && lut.kind() == Kind::shaperAndThreeD) continue;
      const auto colors = random.colors(1003);
      const auto results = applied(lut, interpolation, Instructions::baseline, colors);
      for (std::size_t i = 0; i < colors.size(); ++i) {
        Exact color;
        std::ranges::copy(colors[i], color.begin());
        const auto expected = exact(lut, interpolation, color);
        // A shaper rounds its result to a float, which a fine cube multiplies.
        const double tolerance = lut.kind() == Kind::shaperAndThreeD ? 1e-5 : 1e-6;
        for (std::size_t channel = 0; channel < 3; ++channel)
          ASSERT_NEAR(static_cast<double>(results[i][channel]), expected[channel], tolerance);
      }
      for (const auto used : instructions()) ASSERT_EQ(applied(lut, interpolation, used, colors), results);
    }
  }
}

TEST(Applying, KeepsTheLawsOfInterpolation) {
  Random random;
  const auto domain = random.domain();
  const auto affine = [](const Rgb& c) {
    return Rgb{0.5F * c[0] - 0.25F * c[1] + 0.125F, c[2] - c[0], 0.25F * (c[0] + c[1] + c[2])};
  };
  const Lut map(*Table3D::sampled(9, affine, domain));
  const Lut cube(random.cube(5));
  // Red for green, green for blue and blue for red, in the input and the output.
  const auto turned = [](const Rgb& c) { return Rgb{c[1], c[2], c[0]}; };
  const auto& entries = *cube.table3D();
  const Lut permuted(*Table3D::sampled(5, [&](const Rgb& c) {
    const auto at = [](float x) { return static_cast<std::size_t>(std::lround(4 * x)); };
    return turned(entries.at(at(c[2]), at(c[0]), at(c[1])));
  }));
  for (const auto interpolation : {Interpolation::trilinear, Interpolation::tetrahedral}) {
    const Applier mapper(map, {.interpolation = interpolation});
    const Applier applier(cube, {.interpolation = interpolation});
    const Applier other(permuted, {.interpolation = interpolation});
    for (int turn = 0; turn < 1000; ++turn) {
      Rgb color = random.color(0, 1);
      for (std::size_t i = 0; i < 3; ++i) color[i] = std::clamp(color[i], domain.min[i], domain.max[i]);
      const auto mapped = affine(color);
      const auto result = applier.apply(color);
      const auto same = other.apply(turned(color));
      // The corners of its cell.
      const Exact exactColor{static_cast<double>(color[0]), static_cast<double>(color[1]),
                             static_cast<double>(color[2])};
      for (std::size_t channel = 0; channel < 3; ++channel) {
        EXPECT_NEAR(mapper.apply(color)[channel], mapped[channel], 1e-6);
        EXPECT_NEAR(same[channel], turned(result)[channel], 1e-6);
        float least = infinity;
        float greatest = -infinity;
        for (std::size_t bits = 0; bits < 8; ++bits) {
          std::array<std::size_t, 3> at;
          for (std::size_t i = 0; i < 3; ++i) at[i] = axisOf({}, i, 5, exactColor[i]).index + (bits >> i & 1);
          least = std::min(least, entries.at(at[0], at[1], at[2])[channel]);
          greatest = std::max(greatest, entries.at(at[0], at[1], at[2])[channel]);
        }
        EXPECT_GE(result[channel], least - 1e-6F);
        EXPECT_LE(result[channel], greatest + 1e-6F);
      }
    }
    // All kinds agree at grid points; between them a grey uses the first and the last corner alone.
    for (std::size_t i = 0; i < 5; ++i)
      EXPECT_EQ(applier.apply({static_cast<float>(i) / 4, 0.5F, 1}), entries.at(i, 2, 4));
  }
  const Applier tetrahedral(cube);
  for (float part = 0; part <= 1; part += 0.125F) {
    const float grey = (2 + part) / 4;
    for (std::size_t channel = 0; channel < 3; ++channel)
      EXPECT_EQ(tetrahedral.apply({grey, grey, grey})[channel],
                (1 - part) * entries.at(2, 2, 2)[channel] + part * entries.at(3, 3, 3)[channel]);
  }
}

TEST(Applying, TakesNanAsTheMinimumAndInfinitiesAsTheEdges) {
  Random random;
  const Curve curve{{-1, 0, 3}, {5, 6, 9}};
  for (const auto& lut :
       {Lut(random.curves(9, random.domain())), Lut(random.cube(5, random.domain())), Lut(random.cube(17)),
        Lut(random.curves(5), random.cube(3)), Lut(random.cube(4), Curves{curve, curve, Curve{}})}) {
    const auto domain = lut.domain();
    for (const auto used : instructions()) {
      for (const auto interpolation : kinds) {
        const Applier applier(lut, {.interpolation = interpolation, .instructions = used});
        const auto& [min, max] = domain;
        EXPECT_EQ(applier.apply({nan, nan, nan}), applier.apply(min));
        EXPECT_EQ(applier.apply({infinity, -infinity, infinity}), applier.apply({max[0], min[1], max[2]}));
        EXPECT_EQ(applier.apply({3e38F, -3e38F, nan}), applier.apply({max[0], min[1], min[2]}));
      }
    }
  }
}

// A sample of a picture as a number, and the greatest code of integers.
double greatestOf(SampleType type) {
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

TEST(Applying, GivesEveryLayoutAndTypeTheSame) {
  Random random;
  const std::vector<Lut> luts{Lut(random.cube(17)), Lut(random.curves(100))};
  for (const auto& lut : luts) {
    for (const auto source : sampleTypes) {
      for (const auto target : sampleTypes) {
        for (int layout = 0; layout < (lut.table3D() ? 5 : 1); ++layout) {
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
            // Rows one at a time, past the last; the gaps stay as they were.
            for (std::size_t row = 0; row < 7; row += 2)
              faster.applyRows(from.picture, other.picture, row, 2);
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

TEST(Applying, IsSharedByThreads) {
  Random random;
  for (const auto& lut : {Lut(random.curves(5), random.cube(17)), Lut(random.curves(100))}) {
    const Applier applier(lut, {.source = SampleType::uint16, .target = SampleType::uint16});
    Pixels from(SampleType::uint16, 1);
    from.fill(SampleType::uint16, random);
    Pixels whole(SampleType::uint16, 1), shared = whole;
    applier.apply(from.picture, whole.picture);
    std::vector<std::thread> threads;
    for (std::size_t first = 0; first < 4; ++first) {
      threads.emplace_back([&, first] {
        for (std::size_t row = first; row < Pixels::size.height; row += 4)
          applier.applyRows(from.picture, shared.picture, row, 1);
      });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(shared.bytes, whole.bytes);
  }
}

TEST(Applying, RoundsHalvesUpAndKeepsEveryHalfFloat) {
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

TEST(Resampling, KeepsWhatATableOfTheSizeHolds) {
  Random random;
  const Lut look(random.cube(5));
  EXPECT_EQ(resampled(look, 5), look);
  const auto fine = resampled(look, 9);
  ASSERT_TRUE(fine);
  EXPECT_EQ(resampled(*fine, 5), look);
  EXPECT_FALSE(resampled(look, 1) || resampled(look, 257));

  // A shaper is kept, and the errors are those of the result.
  const Lut shaped(random.curves(9), random.cube(4));
  const auto both = joined(shaped, look, 33);
  ASSERT_TRUE(both);
  EXPECT_LT(both->errorAtPoints, 1e-5F);
  EXPECT_GT(both->errorAtCenters, 1e-5F);
  EXPECT_EQ(*both->lut.table1D(), *shaped.table1D());
  const Applier first(shaped), second(look), one(both->lut);
  for (int turn = 0; turn < 100; ++turn) {
    const auto color = random.color();
    for (std::size_t channel = 0; channel < 3; ++channel)
      EXPECT_NEAR(one.apply(color)[channel], second.apply(first.apply(color))[channel],
                  10 * both->errorAtCenters + 1e-5F);
  }
  EXPECT_EQ(joined(Lut(random.curves(3)), Lut(random.curves(3)), 100)->lut.kind(), Kind::oneD);

  // Uneven points become even ones closely, also before a cube whose domains differ.
  const Curve curve{{-1, 0, 3}, {0, 0.5F, 1}};
  for (const auto& uneven : {Lut(random.curves(9), Curves{curve, curve, Curve{}}),
                             Lut(random.cube(4, random.domain()), Curves{curve, Curve{}, curve})}) {
    const auto even = evened(uneven);
    ASSERT_TRUE(even && textOf(*even, Format::cube));
    const Applier before(uneven), after(*even);
    for (int turn = 0; turn < 100; ++turn) {
      const auto color = random.color(-1, 3);
      for (std::size_t channel = 0; channel < 3; ++channel)
        EXPECT_NEAR(after.apply(color)[channel], before.apply(color)[channel], 1e-3);
    }
  }
}

}  // namespace
}  // namespace quillonic::lut
