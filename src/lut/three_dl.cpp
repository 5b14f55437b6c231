// .3dl: integers with blue changing fastest; the size follows from their number.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "lut/formats.hpp"

namespace quillonic::lut {
namespace {

constexpr std::size_t greatestRows = greatestEdge * greatestEdge * greatestEdge;

// The depth of integers, from the greatest one: twice the greatest code is still of the depth.
int depthOf(std::int64_t greatest) noexcept {
  if (greatest <= 511) return 8;
  if (greatest <= 2047) return 10;
  return greatest <= 8191 ? 12 : 16;
}

struct ThreeDL {
  Draft& draft;
  std::int64_t greatest = 0;
  bool hasGridLine = false;
  // From the line "Mesh"; 0 without.
  std::size_t edge = 0;
  int depth = 0;
};

void readMesh(TextLines& lines, ThreeDL& file) {
  if (file.edge != 0) return lines.failHere("one line Mesh");
  lines.word();
  file.edge = (std::size_t{1} << lines.count(0, 7)) + 1;
  file.depth = static_cast<int>(lines.count(8, 16));
  lines.end();
}

// The codes of the grid's planes, which must be even: then they have no effect. An uneven line has been
// taken as positions of inputs and as a curve of outputs, which are inverse to each other.
void readGridLine(TextLines& lines, ThreeDL& file, std::vector<std::int64_t> codes) {
  const auto line = lines.line();
  if (std::exchange(file.hasGridLine, true) || !file.draft.entries3D.empty())
    return lines.failAt(line, "three integers");
  while (!lines.peek().empty()) codes.push_back(lines.integer());
  if (lines.fault()) return;
  const double step =
      static_cast<double>((1 << depthOf(codes.back())) - 1) / static_cast<double>(codes.size() - 1);
  bool isEven = codes.front() == 0;
  for (std::size_t i = 1; i < codes.size(); ++i) {
    isEven = isEven && codes[i] > codes[i - 1] &&
             std::abs(static_cast<double>(codes[i]) - static_cast<double>(i) * step) <= 2;
  }
  if (!isEven) lines.failAt(line, "evenly rising planes of the grid from 0 to full scale");
}

void readNumbers(TextLines& lines, ThreeDL& file) {
  auto& entries = file.draft.entries3D;
  std::array<std::int64_t, 3> codes;
  for (auto& code : codes) code = lines.integer();
  if (!lines.peek().empty()) return readGridLine(lines, file, {codes.begin(), codes.end()});
  if (entries.size() == greatestRows) return lines.failAt(lines.line(), "at most 256 entries on an axis");
  if (entries.empty()) entries.reserve(std::min({lines.mostRows(6), lines.linesLeft(), greatestRows}));
  Rgb entry;
  for (std::size_t channel = 0; channel < 3; ++channel) {
    file.greatest = std::max(file.greatest, codes[channel]);
    entry[channel] = static_cast<float>(codes[channel]);
  }
  entries.push_back(entry);
}

void readLine(TextLines& lines, ThreeDL& file) {
  const auto word = lines.peek();
  if (isMeantAsNumber(word)) return readNumbers(lines, file);
  if (isSame(word, "Mesh")) return readMesh(lines, file);
  if (word.starts_with('<')) return lines.failAt(lines.line(), "a .3dl of plain numbers");
  file.draft.keepUnknown(lines.line());
}

std::size_t edgeOf(std::size_t rows) noexcept {
  const auto edge = static_cast<std::size_t>(std::lround(std::cbrt(static_cast<double>(rows))));
  return edge >= leastSize && edge * edge * edge == rows ? edge : 0;
}

}  // namespace

void readThreeDL(TextLines& lines, Draft& draft) {
  ThreeDL file{draft};
  auto& entries = draft.entries3D;
  while (lines.next()) readLine(lines, file);
  const auto rows = std::to_string(entries.size()) + " rows";
  const auto edge = edgeOf(entries.size());
  if (file.edge != 0 && file.edge != edge)
    return lines.failCounted(rows, std::to_string(file.edge * file.edge * file.edge) + " rows");
  if (edge == 0) return lines.failCounted(rows, "8 rows, 27 rows or another cube of the entries on an axis");
  constexpr std::int64_t leastPlausible = 128;
  if (file.depth == 0 && file.greatest < leastPlausible)
    return lines.failCounted(std::to_string(file.greatest) + " as the greatest integer", "at least 128");
  const int depth = file.depth != 0 ? file.depth : depthOf(file.greatest);

  // Red and blue change places.
  const auto at = [&](std::size_t slow, std::size_t middle, std::size_t fast) -> Rgb& {
    return entries[fast + edge * (middle + edge * slow)];
  };
  for (std::size_t slow = 0; slow < edge; ++slow) {
    for (std::size_t middle = 0; middle < edge; ++middle) {
      for (std::size_t fast = 0; fast < slow; ++fast)
        std::swap(at(slow, middle, fast), at(fast, middle, slow));
    }
  }
  for (auto& entry : entries) {
    for (float& value : entry) value = scaled(static_cast<double>(value), depth);
  }
  draft.size3D = edge;
  draft.header.depth = depth;
}

}  // namespace quillonic::lut
