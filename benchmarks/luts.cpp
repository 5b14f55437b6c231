// Tables of a look as graders make them, on a smooth picture with noise and on random colours.
#include "luts.hpp"

#include <quillonic/lut.hpp>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace quillonic::benchmarks {
namespace {

using namespace lut;

constexpr auto width = Grading::width;
constexpr auto height = Grading::height;
constexpr std::size_t pixelCount = width * height;

struct Kind {
  Pixels pixels;
  const char* name;
  SampleType type;
  // Samples of a pixel together; 1 for planes.
  std::size_t together;
};

constexpr auto kinds = std::to_array<Kind>({
    {Pixels::rgbFloat, "RGB float", SampleType::single, 3},
    {Pixels::rgbaFloat, "RGBA float", SampleType::single, 4},
    {Pixels::rgb8, "RGB 8 bit", SampleType::uint8, 3},
    {Pixels::rgba8, "RGBA 8 bit", SampleType::uint8, 4},
    {Pixels::rgb16, "RGB 16 bit", SampleType::uint16, 3},
    {Pixels::planarFloat, "planar float", SampleType::single, 1},
    {Pixels::planar16, "planar 16 bit", SampleType::uint16, 1},
});

const Kind& kindOf(Pixels pixels) {
  return kinds[static_cast<std::size_t>(pixels)];
}

float toned(float x) {
  return std::clamp(x * x * (3 - 2 * x) * 0.9F + 0.05F, 0.0F, 1.0F);
}

Lut look(std::size_t edge) {
  return Lut(*Table3D::sampled(edge, [](const Rgb& c) {
    return Rgb{toned(0.9F * c[0] + 0.1F * c[1]), toned(0.8F * c[1] + 0.2F * c[2]),
               toned(0.95F * c[2] + 0.05F * c[0])};
  }));
}

// The file of a look, made once.
std::string fileOf(std::size_t edge) {
  static std::map<std::size_t, std::string> files;
  auto& file = files[edge];
  if (!file.empty()) return file;
  file = std::filesystem::temp_directory_path() / ("look" + std::to_string(edge) + ".cube");
  std::ofstream(file) << *textOf(look(edge), Format::cube);
  return file;
}

std::vector<std::byte> pictureOf(const Kind& kind, bool isRandom) {
  const auto bytes = bytesOf(kind.type);
  std::vector<std::byte> picture(pixelCount * bytes * std::max<std::size_t>(kind.together, 3));
  std::mt19937 random(33);
  const auto channels = std::max<std::size_t>(kind.together, 3);
  for (std::size_t i = 0; i < pixelCount; ++i) {
    const float across = static_cast<float>(i % width) / width;
    const float down = static_cast<float>(i / width) / height;
    const std::array smooth{across, down, 0.5F * (1 - across) + 0.3F * down, 1.0F};
    for (std::size_t channel = 0; channel < channels; ++channel) {
      const float noise = static_cast<float>(random() >> 8) / (1 << 24);
      const float value = isRandom ? noise : std::clamp(smooth[channel] + 0.02F * (noise - 0.5F), 0.0F, 1.0F);
      auto* const sample = picture.data() + bytes * (kind.together == 1 ? channel * pixelCount + i
                                                                        : i * kind.together + channel);
      if (kind.type == SampleType::single) {
        std::memcpy(sample, &value, 4);
      } else {
        const auto code = static_cast<std::uint32_t>(value * (bytes == 1 ? 255 : 65535) + 0.5F);
        std::memcpy(sample, &code, bytes);
      }
    }
  }
  return picture;
}

// Pictures are large: those of a kind are shared by all who grade it, and everybody writes to one target.
const std::vector<std::byte>& picture(const Kind& kind, bool isRandom) {
  static std::map<std::pair<Pixels, bool>, std::vector<std::byte>> pictures;
  auto& found = pictures[{kind.pixels, isRandom}];
  if (found.empty()) found = pictureOf(kind, isRandom);
  return found;
}

std::byte* target() {
  static std::vector<std::byte> bytes(pixelCount * 16, std::byte{1});
  return bytes.data();
}

std::string workOf(const Kind& kind, bool isTetrahedral, bool isRandom) {
  return std::string("grade a pixel by a 33 cube, ") + (isTetrahedral ? "tetrahedral, " : "trilinear, ") +
         kind.name + (isRandom ? ", random colours" : "");
}

template <class Byte> BasicPicture<Byte> viewOf(const Kind& kind, Byte* bytes) {
  constexpr PictureSize size{width, height};
  if (kind.together != 1) return BasicPicture<Byte>::interleaved(bytes, kind.type, kind.together, size);
  const auto plane = pixelCount * bytesOf(kind.type);
  return BasicPicture<Byte>::planar({bytes, bytes + plane, bytes + 2 * plane, nullptr}, kind.type, size);
}

Work copied(const Kind& kind, bool isRandom) {
  const auto& source = picture(kind, isRandom);
  return [&source] { use(std::memcpy(target(), source.data(), source.size())); };
}

template <class Table>
Work graded(const Table& table, const Kind& kind, Interpolation interpolation, std::byte* source) {
  Applier applier(table, {.interpolation = interpolation, .source = kind.type, .target = kind.type});
  return [=] { applier.apply(viewOf<const std::byte>(kind, source), viewOf(kind, target())); };
}

Work gradedByCube(const Grading& grading) {
  const auto interpolation = grading.isTetrahedral ? Interpolation::tetrahedral : Interpolation::trilinear;
  return graded(*readFile(grading.file), kindOf(grading.pixels), interpolation, grading.source);
}

// All numbers of a file, unchecked.
double sumOfNumbers(std::string_view text) {
  double sum = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  at = std::find(at, end, '\n');
  while (at != end) {
    if (*at == '\n' || *at == ' ') {
      ++at;
      continue;
    }
    float number = 0;
    at = std::from_chars(at, end, number).ptr;
    sum += static_cast<double>(number);
  }
  return sum;
}

std::string textOfFile(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

bool addCurves() {
  for (const auto pixels : {Pixels::rgb8, Pixels::rgb16, Pixels::planarFloat}) {
    const auto& kind = kindOf(pixels);
    const auto work = std::string("grade a pixel by curves of 4,096 entries, ") + kind.name;
    const auto source = [&kind] { return const_cast<std::byte*>(picture(kind, false).data()); };
    add({work, ours, "one load from a table per sample", pixelCount}, [=, &kind] {
      const auto curve = [](const Rgb& c) { return Rgb{toned(c[0]), toned(c[1]), toned(c[2])}; };
      return graded(Lut(*Table1D::sampled(4096, curve)), kind, Interpolation::linear, source());
    });
    add({work, least("a copy"), "", pixelCount}, [&kind] { return copied(kind, false); });
  }
  for (const std::size_t edge : {edge33, edge65}) {
    add({"read a .cube of edge " + std::to_string(edge), least("std::from_chars on its numbers")},
        [edge] { return [text = textOfFile(fileOf(edge))] { use(sumOfNumbers(text)); }; });
  }
  return true;
}

const bool added = addGrader(ours, "", gradedByCube) &&
                   addCubeReader(ours, "", [](const std::string& file) { use(readFile(file)); }) &&
                   addCurves();

}  // namespace

bool addGrader(const std::string& who, const std::string& note, Grader grader) {
  for (const auto& kind : kinds) {
    for (const bool isTetrahedral : {true, false}) {
      for (const bool isRandom : {false, true}) {
        const auto work = workOf(kind, isTetrahedral, isRandom);
        add({work, who, note, pixelCount, !isRandom}, [=, &kind] {
          auto* const source = const_cast<std::byte*>(picture(kind, isRandom).data());
          return grader({kind.pixels, isTetrahedral, fileOf(edge33), source, target()});
        });
        if (who == ours)
          add({work, least("a copy"), "", pixelCount, !isRandom},
              [=, &kind] { return copied(kind, isRandom); });
      }
    }
  }
  return true;
}

bool addCubeReader(const std::string& who, const std::string& note,
                   std::function<void(const std::string& file)> read) {
  for (const std::size_t edge : {edge33, edge65}) {
    add({"read a .cube of edge " + std::to_string(edge), who, note},
        [=] { return [read, file = fileOf(edge)] { read(file); }; });
  }
  return true;
}

}  // namespace quillonic::benchmarks
