// The formats: how each is recognised and read.
#pragma once

#include <quillonic/lut/lut.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lut/text_lines.hpp"

namespace quillonic::lut {

// What a reader fills in.
struct Draft {
  // The name of the file without its extension.
  std::string stem;
  // Whether only the header is wanted: entries stay empty.
  bool isHeaderOnly = false;

  Header header;
  std::optional<Curves> curves;
  // 0 for a table that is not there.
  std::size_t size1D = 0;
  std::size_t size3D = 0;
  Domain domain1D;
  Domain domain3D;
  std::vector<Rgb> entries1D;
  std::vector<Rgb> entries3D;

  void keepUnknown(std::string_view line) { header.unknownLines.append(line).append(1, '\n'); }
};

struct FormatRow {
  Format format;
  // Whether a file whose first significant line has these words, of which there is one, is of this format.
  bool (*recognises)(std::span<const std::string_view> words);
  void (*read)(TextLines& lines, Draft& draft);
};

std::span<const FormatRow> formatRows() noexcept;

void readCube(TextLines& lines, Draft& draft);
void readThreeDL(TextLines& lines, Draft& draft);
void readSpi1d(TextLines& lines, Draft& draft);
void readSpi3d(TextLines& lines, Draft& draft);
void readCsp(TextLines& lines, Draft& draft);
void readIntegerLut(TextLines& lines, Draft& draft);

// Whether a line of a .cube's header begins with this word.
bool isCubeKeyword(std::string_view word) noexcept;

// Whether the whole word is an integer.
bool isInteger(std::string_view word) noexcept;
// Whether a word is meant as a number, even as one that is refused: too large, not finite, with a comma.
bool isMeantAsNumber(std::string_view word) noexcept;

// An integer as part of the greatest code of a depth.
float scaled(double code, int depth) noexcept;

}  // namespace quillonic::lut
