#include "lut/formats.hpp"

#include <algorithm>
#include <array>

namespace quillonic::lut {
namespace {

using Words = std::span<const std::string_view>;

constexpr auto rows = std::to_array<FormatRow>({
    {Format::cube, [](Words words) { return isCubeKeyword(words[0]); }, readCube},
    {Format::threeDL,
     [](Words words) {
       return isSame(words[0], "3DMESH") || isSame(words[0], "Mesh") ||
              (words.size() >= 3 && std::ranges::all_of(words, isInteger));
     },
     readThreeDL},
    {Format::spi1d,
     [](Words words) { return words.size() == 2 && isSame(words[0], "Version") && words[1] == "1"; },
     readSpi1d},
    {Format::spi3d, [](Words words) { return isSame(words[0], "SPILUT"); }, readSpi3d},
    {Format::csp, [](Words words) { return isSame(words[0], "CSPLUTV100"); }, readCsp},
    {Format::integerLut,
     [](Words words) { return isSame(words[0], "LUT:") || (words.size() == 1 && isInteger(words[0])); },
     readIntegerLut},
});

}  // namespace

std::span<const FormatRow> formatRows() noexcept {
  return rows;
}

bool isInteger(std::string_view word) noexcept {
  TextLines line(word);
  line.next();
  line.integer();
  return !line.fault();
}

bool isMeantAsNumber(std::string_view word) noexcept {
  word.remove_prefix(std::min(word.find_first_not_of("+-"), word.size()));
  if (isSame(word, "nan") || isSame(word, "inf") || isSame(word, "infinity")) return true;
  return word.find_first_of("0123456789.") == 0 &&
         word.find_first_not_of("0123456789.,+-eE") == std::string_view::npos;
}

float scaled(double code, int depth) noexcept {
  return static_cast<float>(code / ((1 << depth) - 1));
}

}  // namespace quillonic::lut
