// .spi1d: a header in any order and rows in braces. .spi3d: rows that tell their own position.

#include <algorithm>
#include <array>
#include <utility>

#include "lut/formats.hpp"

namespace quillonic::lut {
namespace {

struct Spi1dHeader {
  std::optional<std::size_t> version;
  std::optional<std::size_t> length;
  std::optional<std::size_t> components;
  std::optional<Domain> domain;
};

template <class Value, class Read> void readOnce(TextLines& lines, std::optional<Value>& value, Read read) {
  if (value) return lines.failHere("each keyword once");
  lines.word();
  value = read();
  lines.end();
}

void readSpi1dHeaderLine(TextLines& lines, Spi1dHeader& header, Draft& draft) {
  const auto word = lines.peek();
  if (isSame(word, "Version")) {
    readOnce(lines, header.version, [&] { return lines.count(1, 1); });
  } else if (isSame(word, "Length")) {
    readOnce(lines, header.length, [&] { return lines.count(leastSize, greatestSize1D); });
  } else if (isSame(word, "Components")) {
    readOnce(lines, header.components, [&] { return lines.count(1, 3); });
  } else if (isSame(word, "From")) {
    readOnce(lines, header.domain, [&] {
      const auto range = lines.rest();
      const float min = lines.real();
      const float max = lines.real();
      if (!(min < max)) lines.failAt(range, "a minimum below the maximum");
      return Domain{{min, min, min}, {max, max, max}};
    });
  } else if (isMeantAsNumber(word)) {
    lines.failAt(lines.line(), "{ before the first row");
  } else {
    draft.keepUnknown(lines.line());
  }
}

void readSpi1dRow(TextLines& lines, std::size_t components, std::vector<Rgb>& entries) {
  Rgb entry{};
  for (std::size_t i = 0; i < components; ++i) entry[i] = lines.real();
  lines.end();
  if (components == 1) entry = {entry[0], entry[0], entry[0]};
  entries.push_back(entry);
}

}  // namespace

void readSpi1d(TextLines& lines, Draft& draft) {
  Spi1dHeader header;
  bool isOpen = false;
  while (!isOpen && lines.next()) {
    isOpen = lines.peek() == "{";
    if (!isOpen) readSpi1dHeaderLine(lines, header, draft);
  }
  if (!isOpen) return lines.failCounted({}, "{ before the first row");
  const auto brace = lines.word();
  lines.end();
  if (!header.version || !header.length || !header.components)
    return lines.failAt(brace, "Version, Length and Components before it");
  draft.size1D = *header.length;
  draft.domain1D = header.domain.value_or(Domain());
  if (draft.isHeaderOnly) return;

  auto& entries = draft.entries1D;
  entries.reserve(std::min(draft.size1D, lines.mostRows(2)));
  while (entries.size() < draft.size1D && lines.nextOf(entries.size(), draft.size1D)) {
    if (lines.peek() == "}")
      return lines.failCounted(std::to_string(entries.size()) + " rows",
                               std::to_string(draft.size1D) + " rows");
    readSpi1dRow(lines, *header.components, entries);
  }
  // What follows the closing brace is free.
  if (!lines.next()) return;
  if (lines.word() != "}") return lines.failAt(lines.line(), "} after the last row");
  lines.end();
}

void readSpi3d(TextLines& lines, Draft& draft) {
  if (!lines.nextMustBe("SPILUT 1.0")) return;
  lines.literal("SPILUT");
  lines.literal("1.0");
  lines.end();
  if (!lines.nextMustBe("3 3")) return;
  lines.count(3, 3);
  lines.count(3, 3);
  lines.end();
  if (!lines.nextMustBe("three equal sizes")) return;
  const auto edge = lines.equalEdges();
  lines.end();
  if (lines.fault()) return;
  draft.size3D = edge;
  if (draft.isHeaderOnly) return;

  const auto count = edge * edge * edge;
  // Where the text is too short for all rows, nothing is stored: what is missing is found at its end.
  const auto stored = lines.mostRows(12) >= count ? count : 0;
  std::vector<bool> isRead(stored);
  auto& entries = draft.entries3D;
  entries.resize(stored);
  for (std::size_t row = 0; row < count && lines.nextOf(row, count); ++row) {
    const auto line = lines.line();
    std::size_t position = 0;
    for (const std::size_t step : {std::size_t{1}, edge, edge * edge})
      position += step * lines.count(0, edge - 1);
    const auto entry = lines.color();
    lines.end();
    if (stored == 0 || lines.fault()) continue;
    if (isRead[position]) return lines.failAt(line, "each position once");
    isRead[position] = true;
    entries[position] = entry;
  }
  lines.endOfText();
}

}  // namespace quillonic::lut
