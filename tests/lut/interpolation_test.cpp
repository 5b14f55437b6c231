// The laws of interpolation over random tables and colours, against doubles, for every set of instructions
// that the processor has.
#include <quillonic/lut.hpp>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "lut/random_tables.hpp"

namespace quillonic::lut {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr auto kinds = {Interpolation::nearest, Interpolation::trilinear, Interpolation::tetrahedral};

std::vector<Rgb> applied(const Lut& lut, Interpolation interpolation, Instructions used,
                         std::vector<Rgb> colors) {
  Applier(lut, {.interpolation = interpolation, .instructions = used}).apply(colors, colors);
  return colors;
}

TEST(Interpolation, AgreesWithDoublesAndAmongInstructions) {
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

TEST(Interpolation, KeepsAffineMapsAndEntries) {
  Random random;
  const auto domain = random.domain();
  const auto affine = [](const Rgb& c) {
    return Rgb{0.5F * c[0] - 0.25F * c[1] + 0.125F, c[2] - c[0], 0.25F * (c[0] + c[1] + c[2])};
  };
  const Lut map(*Table3D::sampled(9, affine, domain));
  const Lut cube(random.cube(5));
  const auto& entries = *cube.table3D();
  for (const auto interpolation : {Interpolation::trilinear, Interpolation::tetrahedral}) {
    for (int turn = 0; turn < 1000; ++turn) {
      Rgb color = random.color(0, 1);
      for (std::size_t i = 0; i < 3; ++i) color[i] = std::clamp(color[i], domain.min[i], domain.max[i]);
      const auto result = applied(map, interpolation, Instructions::baseline, {color})[0];
      for (std::size_t channel = 0; channel < 3; ++channel)
        EXPECT_NEAR(result[channel], affine(color)[channel], 1e-6);
    }
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_EQ(Applier(cube, {.interpolation = interpolation}).apply({static_cast<float>(i) / 4, 0.5F, 1}),
                entries.at(i, 2, 4));
    }
  }
  // Between them a grey uses the first and the last corner alone.
  for (float part = 0; part <= 1; part += 0.125F) {
    const float grey = (2 + part) / 4;
    for (std::size_t channel = 0; channel < 3; ++channel)
      EXPECT_EQ(Applier(cube).apply({grey, grey, grey})[channel],
                (1 - part) * entries.at(2, 2, 2)[channel] + part * entries.at(3, 3, 3)[channel]);
  }
}

TEST(Interpolation, TakesNanAsTheMinimumAndInfinitiesAsTheEdges) {
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
