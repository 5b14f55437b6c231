// Looks into files of colour look-up tables, applies them, and makes others of them.
//   lut_tool info FILE...
//   lut_tool apply FILE [--interpolation nearest|linear|trilinear|tetrahedral]
//   lut_tool convert FILE OUT.cube [--size N]
//   lut_tool join A B OUT.cube
//   lut_tool curves FILE OUT.svg
// Ends with 65 for a file that was refused, 66 for one that cannot be read, 73 for one that cannot be
// written, and 64 for other words.
#include <quillonic/lut.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace quillonic;
using namespace quillonic::lut;

namespace {

constexpr int usageStatus = 64;
constexpr int refusedStatus = 65;
constexpr int unreadableStatus = 66;
constexpr int unwritableStatus = 73;

using Words = std::span<const std::string>;

// Ends the program with a status.
struct Exit {
  int status;
};

constexpr std::string_view usage =
    "usage: lut_tool info FILE...\n"
    "       lut_tool apply FILE [--interpolation nearest|linear|trilinear|tetrahedral]   (colours on "
    "standard "
    "input)\n"
    "       lut_tool convert FILE OUT.cube [--size N]\n"
    "       lut_tool join A B OUT.cube\n"
    "       lut_tool curves FILE OUT.svg\n";

// The sentence says what is wrong; without one, the usage says what is right.
[[noreturn]] void endWithUsage(std::string_view sentence = {}) {
  std::cerr << (sentence.empty() ? usage : sentence) << (sentence.empty() ? "" : "\n");
  throw Exit{usageStatus};
}

[[noreturn]] void endWithRefusal(const std::string& file, const ParseError& error) {
  const auto found = error.found.empty() ? "the end" : '"' + error.found + '"';
  std::string line =
      file + ":" + std::to_string(error.line) + ": found " + found + ", expected " + error.expected;
  std::ranges::replace_if(
      line, [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
  std::cerr << line << '\n';
  throw Exit{refusedStatus};
}

Lut readOrEnd(const std::string& file) {
  auto lut = readFile(file);
  if (lut) return *std::move(lut);
  if (lut.error().reason != Failure::Reason::cannotOpen) endWithRefusal(file, lut.error().where);
  throw Exit{unreadableStatus};  // the library logged why
}

void writeOrEnd(const std::string& file, std::string_view text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  if (out.flush()) return;
  std::cerr << "cannot write " << file << '\n';
  throw Exit{unwritableStatus};
}

std::string numbers(const Rgb& color) {
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%.9g %.9g %.9g", static_cast<double>(color[0]),
                static_cast<double>(color[1]), static_cast<double>(color[2]));
  return text.data();
}

void showLines(std::string_view name, const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) std::cout << name << ": " << line << '\n';
}

void info(const std::string& file) {
  const auto facts = readOrEnd(file).description();
  std::cout << "file: " << file << "\nformat: " << rawValue(facts.header.format)
            << "\nkind: " << rawValue(facts.kind) << '\n';
  if (facts.size1D) std::cout << "size_1d: " << *facts.size1D << '\n';
  if (facts.size3D) std::cout << "size_3d: " << *facts.size3D << '\n';
  std::cout << "title: " << facts.header.title << '\n';
  std::cout << "domain_min: " << numbers(facts.domain.min) << "\ndomain_max: " << numbers(facts.domain.max)
            << '\n';
  if (facts.header.depth) std::cout << "depth: " << *facts.header.depth << '\n';
  if (facts.header.expectsVideoRange) std::cout << "input_range: video\n";
  if (facts.header.givesVideoRange) std::cout << "output_range: video\n";
  showLines("comment", facts.header.comments);
  showLines("unknown", facts.header.unknownLines);
}

std::optional<Interpolation> interpolationOf(std::string_view word) {
  if (word == "nearest") return Interpolation::nearest;
  if (word == "linear") return Interpolation::linear;
  if (word == "trilinear") return Interpolation::trilinear;
  if (word == "tetrahedral") return Interpolation::tetrahedral;
  return std::nullopt;
}

// Three numbers, which may be "nan" or "inf"; nothing for anything else. In no locale.
std::optional<Rgb> colorOf(const std::string& line) {
  std::istringstream words(line);
  Rgb color;
  std::string word;
  for (float& value : color) {
    if (!(words >> word)) return std::nullopt;
    const char* const first = word.data() + (word.front() == '+' ? 1 : 0);
    const char* const end = word.data() + word.size();
    double wide = 0;
    const auto [last, error] = std::from_chars(first, end, wide);
    if (last != end || error != std::errc()) return std::nullopt;
    value = static_cast<float>(wide);
  }
  return words >> word ? std::nullopt : std::optional(color);
}

void apply(Words words) {
  ApplierOptions options;
  if (words.size() == 3 && words[1] == "--interpolation") {
    const auto interpolation = interpolationOf(words[2]);
    if (!interpolation) {
      endWithUsage("--interpolation: \"" + words[2] + "\" is not nearest, linear, trilinear or tetrahedral");
    }
    options.interpolation = *interpolation;
  } else if (words.size() != 1) {
    endWithUsage();
  }
  const Applier applier(readOrEnd(words[0]), options);
  std::size_t number = 0;
  for (std::string line; std::getline(std::cin, line);) {
    ++number;
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    const auto color = colorOf(line);
    if (!color) endWithRefusal("standard input", {number, 1, line, "three numbers"});
    std::cout << numbers(applier.apply(*color)) << '\n';
  }
}

void writeCube(const Lut& lut, const std::string& file) {
  const auto even = evened(lut);
  const auto text = even ? textOf(*even, Format::cube) : std::nullopt;
  if (text) return writeOrEnd(file, *text);
  std::cerr << file << " cannot hold the table\n";
  throw Exit{unwritableStatus};
}

void convert(Words words) {
  std::optional<std::size_t> size;
  if (words.size() == 4 && words[2] == "--size") {
    const auto& word = words[3];
    std::size_t number = 0;
    const auto [last, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || last != word.data() + word.size()) {
      endWithUsage("--size: \"" + word + "\" is no whole number");
    }
    size = number;
  } else if (words.size() != 2) {
    endWithUsage();
  }
  auto lut = readOrEnd(words[0]);
  if (size) {
    auto other = resampled(lut, *size);
    if (!other) {
      endWithUsage("--size: a cube has " + std::to_string(leastSize) + " to " + std::to_string(greatestEdge) +
                   " points on an axis, other tables up to " + std::to_string(greatestSize1D));
    }
    lut = *std::move(other);
  }
  writeCube(lut, words[1]);
}

// The finest of both; a cube of curves has at least the most common edge.
std::size_t sizeOfJoined(const Description& first, const Description& second) {
  if (!first.size3D && !second.size3D) return std::max(*first.size1D, *second.size1D);
  return std::max({first.size3D.value_or(edge33), second.size3D.value_or(edge33)});
}

void join(Words words) {
  if (words.size() != 3) endWithUsage();
  const auto first = readOrEnd(words[0]);
  const auto second = readOrEnd(words[1]);
  const auto both = joined(first, second, sizeOfJoined(first.description(), second.description()));
  if (!both) {
    std::cerr << words[0] << " and " << words[1] << " cannot be joined\n";
    throw Exit{unwritableStatus};
  }
  writeCube(both->lut, words[2]);
  std::cout << "error_at_points: " << static_cast<double>(both->errorAtPoints)
            << "\nerror_at_centers: " << static_cast<double>(both->errorAtCenters) << '\n';
}

// What the greys of the domain become, one curve per channel.
void drawCurves(Words words) {
  if (words.size() != 2) endWithUsage();
  const auto lut = readOrEnd(words[0]);
  const Applier applier(lut);
  std::ostringstream svg;
  svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 256 256\" fill=\"none\">\n";
  const std::array names{"red", "green", "blue"};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    svg << "<polyline stroke=\"" << names[channel] << "\" points=\"";
    for (std::size_t x = 0; x <= 256; x += 2) {
      Rgb color;
      for (std::size_t i = 0; i < 3; ++i) color[i] = gridPoint(lut.domain(), i, x, 257);
      svg << x << ',' << 256 - 256 * std::clamp(applier.apply(color)[channel], 0.0F, 1.0F) << ' ';
    }
    svg << "\"/>\n";
  }
  svg << "</svg>\n";
  writeOrEnd(words[1], svg.str());
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> all(argv + 1, argv + argc);
  if (all.size() == 1 && (all[0] == "-h" || all[0] == "--help")) return (std::cout << usage).flush() ? 0 : 1;
  try {
    if (all.size() < 2) endWithUsage();
    const Words words = std::span(all).subspan(1);
    const auto& command = all.front();
    if (command == "info") {
      for (const auto& file : words) info(file);
    } else if (command == "apply") {
      apply(words);
    } else if (command == "convert") {
      convert(words);
    } else if (command == "join") {
      join(words);
    } else if (command == "curves") {
      drawCurves(words);
    } else {
      endWithUsage();
    }
  } catch (const Exit& exit) {
    return exit.status;
  }
}
