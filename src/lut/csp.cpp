// .csp: a shaper of uneven points per channel, then curves or a cube.
#include <algorithm>
#include <functional>

#include "lut/formats.hpp"

namespace quillonic::lut {
namespace {

// Free text up to its end, which must be there.
void readMetadata(TextLines& lines, Draft& draft) {
  lines.word();
  lines.literal("METADATA");
  lines.end();
  while (lines.nextOfAny()) {
    if (isSame(lines.peek(), "END")) {
      auto line = lines;
      line.word();
      if (isSame(line.word(), "METADATA") && line.peek().empty()) return;
    }
    draft.keepUnknown(lines.line());
  }
  lines.failCounted({}, "END METADATA");
}

std::vector<float> readPoints(TextLines& lines, std::size_t count) {
  std::vector<float> points;
  const auto expected = std::to_string(count) + " numbers";
  if (!lines.nextMustBe(expected)) return points;
  const auto line = lines.line();
  while (!lines.peek().empty()) points.push_back(lines.real());
  if (points.size() != count && !lines.fault()) lines.failAt(line, expected);
  return points;
}

Curve readCurve(TextLines& lines) {
  Curve curve;
  if (!lines.nextMustBe("a number of points")) return curve;
  const auto word = lines.peek();
  const auto count = lines.count(0, greatestSize1D);
  lines.end();
  if (count == 1) lines.failAt(word, "no points, or at least two");
  if (count == 0 || lines.fault()) return curve;
  curve.inputs = readPoints(lines, count);
  if (std::ranges::adjacent_find(curve.inputs, std::greater_equal<>()) != curve.inputs.end())
    lines.failAt(lines.line(), "rising numbers");
  curve.outputs = readPoints(lines, count);
  return curve;
}

}  // namespace

void readCsp(TextLines& lines, Draft& draft) {
  if (!lines.nextMustBe("CSPLUTV100")) return;
  lines.literal("CSPLUTV100");
  lines.end();
  if (!lines.nextMustBe("1D or 3D")) return;
  const bool isCube = isSame(lines.peek(), "3D");
  lines.literal(isCube ? "3D" : "1D");
  lines.end();
  if (!lines.nextMustBe("a number of points")) return;
  if (isSame(lines.peek(), "BEGIN")) {
    readMetadata(lines, draft);
  } else {
    lines.again();
  }

  Curves curves;
  for (auto& curve : curves) curve = readCurve(lines);
  if (std::ranges::any_of(curves, [](const Curve& curve) { return !curve.inputs.empty(); }))
    draft.curves = std::move(curves);

  if (!lines.nextMustBe("the size of the table")) return;
  const auto size = isCube ? lines.equalEdges() : lines.count(leastSize, greatestSize1D);
  lines.end();
  if (lines.fault()) return;
  (isCube ? draft.size3D : draft.size1D) = size;
  if (draft.isHeaderOnly) return;
  (isCube ? draft.entries3D : draft.entries1D) = lines.rows(isCube ? size * size * size : size);
  lines.endOfText();
}

}  // namespace quillonic::lut
