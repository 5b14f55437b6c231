// Any text as a file without an extension, and what was read applied to colours and pixels.
#include <array>
#include <cstdint>
#include <limits>

#include "lut_reading.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  using namespace lut;
  const auto look = readText(bytes);
  if (!look) return;
  constexpr float infinity = std::numeric_limits<float>::infinity();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  constexpr std::array<Rgb, 6> colors{{{0, 0.5F, 1},
                                       {-1, 2, 0.3F},
                                       {nan, infinity, -infinity},
                                       {1e-40F, -3e38F, 3e38F},
                                       {1, 1, 1},
                                       {0.9F, 0.1F, 0.7F}}};
  for (const auto interpolation :
       {Interpolation::nearest, Interpolation::trilinear, Interpolation::tetrahedral}) {
    std::array<std::array<Rgb, 6>, 2> results;
    for (const auto used : {Instructions::baseline, bestInstructions()}) {
      const Applier applier(*look, {.interpolation = interpolation, .instructions = used});
      auto& result = results[used == Instructions::baseline ? 0 : 1];
      applier.apply(colors, result);
      if (bestInstructions() == Instructions::baseline) results[1] = result;
      for (const auto& color : result) require(isFinite(color), "finite entries give finite colours");
    }
    require(results[0] == results[1], "all instructions give the same");
    std::array<std::uint8_t, 8> pixels{0, 1, 2, 3, 250, 251, 252, 253};
    const Applier applier(*look, {interpolation, SampleType::uint8, SampleType::uint8});
    applier.apply(Picture::interleaved(pixels.data(), SampleType::uint8, 4, {2, 1}));
    require(pixels[3] == 3 && pixels[7] == 253, "alpha stays");
  }
}

}  // namespace quillonic::fuzz
