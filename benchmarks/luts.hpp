// Grading pictures by look-up tables, and reading their files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "rows.hpp"

namespace quillonic::benchmarks {

enum class Pixels { rgbFloat, rgbaFloat, rgb8, rgba8, rgb16, planarFloat, planar16 };

// A picture to be graded into another of its kind. Planes follow each other: red, green, blue.
struct Grading {
  static constexpr std::size_t width = 3840;
  static constexpr std::size_t height = 2160;

  Pixels pixels;
  bool isTetrahedral;
  // A .cube of edge 33.
  std::string file;
  std::byte* source;
  std::byte* target;
};

// Prepares the grading of a picture; where it throws, nobody grades such pixels.
using Grader = std::function<Work(const Grading&)>;
bool addGrader(const std::string& who, const std::string& note, Grader grader);

// Reads a whole .cube.
bool addCubeReader(const std::string& who, const std::string& note,
                   std::function<void(const std::string& file)> read);

}  // namespace quillonic::benchmarks
