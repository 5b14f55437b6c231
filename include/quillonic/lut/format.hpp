/// The file formats of look-up tables.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>

namespace quillonic::lut {

/// A file format; its raw value is the extension of its files.
enum class Format { cube, threeDL, spi1d, spi3d, csp, integerLut };

/// What a file holds: three curves, a cube, or a shaper whose result feeds a cube.
enum class Kind { oneD, threeD, shaperAndThreeD };

}  // namespace quillonic::lut

namespace quillonic {

/// The formats by extension.
template <> struct CaseTable<lut::Format> {
  static constexpr auto rows = std::to_array<CaseRow<lut::Format>>({
      {lut::Format::cube, "cube"},
      {lut::Format::threeDL, "3dl"},
      {lut::Format::spi1d, "spi1d"},
      {lut::Format::spi3d, "spi3d"},
      {lut::Format::csp, "csp"},
      {lut::Format::integerLut, "lut"},
  });
};

/// The kinds and their texts for people.
template <> struct CaseTable<lut::Kind> {
  static constexpr auto rows = std::to_array<CaseRow<lut::Kind>>({
      {lut::Kind::oneD, "1D"},
      {lut::Kind::threeD, "3D"},
      {lut::Kind::shaperAndThreeD, "1D+3D"},
  });
};

}  // namespace quillonic
