// Reads a look, tells what it holds or why it is refused, and grades a picture with it.
#include <quillonic/lut.hpp>

#include <array>
#include <cstdint>
#include <iostream>
#include <string>

using namespace quillonic;
using namespace quillonic::lut;

namespace {

// A look that swaps red and blue, as a grading program writes it.
constexpr auto text = R"(TITLE "Swap"
# made by hand
LUT_3D_SIZE 2
0 0 0
0 0 1
0 1 0
0 1 1
1 0 0
1 0 1
1 1 0
1 1 1
)";

void show(const Result<Lut, Failure>& look) {
  if (!look) {
    std::cout << "refused: " << look.error().description() << '\n';
    return;
  }
  const auto facts = look->description();
  std::cout << facts.header.title << ", " << rawValue(facts.kind) << ", " << facts.size3D.value_or(0)
            << " entries on an axis\n";
}

}  // namespace

int main() {
  const auto look = readText(text, "swap.cube");
  show(look);
  show(readText(std::string(text) + "1 1 1\n", "swap.cube"));
  show(readText("LUT_3D_SIZE 2\n0,0 0,0 0,0\n", "comma.cube"));

  // A frame of two 8-bit RGBA pixels, in place. Threads would share a larger one by rows.
  std::array<std::uint8_t, 8> frame{255, 128, 0, 7, 10, 20, 30, 255};
  const Applier applier(*look, {.source = SampleType::uint8, .target = SampleType::uint8});
  applier.apply(Picture::interleaved(frame.data(), SampleType::uint8, 4, {.width = 2, .height = 1}));
  for (const auto sample : frame) std::cout << int{sample} << ' ';
  std::cout << '\n';

  // The same twice is no change at all.
  const auto twice = joined(*look, *look, edge17);
  const auto color = Applier(twice->lut).apply({0.25F, 0.5F, 0.75F});
  std::cout << color[0] << ' ' << color[1] << ' ' << color[2] << ", at most " << twice->errorAtCenters
            << " off\n";

  // Curves from a function, written for other programs.
  const auto square = [](const Rgb& c) { return Rgb{c[0] * c[0], c[1] * c[1], c[2] * c[2]}; };
  std::cout << textOf(Lut(*Table1D::sampled(3, square)), Format::spi1d).value();
}
