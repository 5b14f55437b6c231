// .lut: curves of integers, one a line; a word of the header or of the file's name tells their depth.
#include <algorithm>
#include <charconv>

#include "lut/formats.hpp"
#include "text/ascii.hpp"

namespace quillonic::lut {
namespace {

constexpr std::int64_t greatestCode = 65535;

int depthOfSize(std::size_t size) noexcept {
  for (const int depth : {8, 10, 12, 16}) {
    if (size == std::size_t{1} << depth) return depth;
  }
  return 0;
}

// The depth that a name such as "log10to8" tells, -1 for half floats and 0 for none.
int depthInName(std::string_view name) {
  const auto lowered = ascii::loweredText(std::string(name));
  for (auto to = lowered.find("to"); to != std::string::npos; to = lowered.find("to", to + 1)) {
    auto before = to;
    while (before > 0 && ascii::isLower(lowered[before - 1])) --before;
    if (before == 0 || !ascii::isDigit(lowered[before - 1])) continue;
    int depth = 0;
    const char* const end = lowered.data() + lowered.size();
    const auto [last, error] = std::from_chars(lowered.data() + to + 2, end, depth);
    if (error != std::errc() || depth < 8 || depth > 16 || depthOfSize(std::size_t{1} << depth) == 0)
      continue;
    return depth == 16 && last != end && *last == 'f' ? -1 : depth;
  }
  return 0;
}

struct Sizes {
  std::size_t tables = 1;
  std::size_t entries = 256;
  int depth = 0;
};

Sizes readSizes(TextLines& lines) {
  Sizes sizes;
  lines.word();
  const auto tables = lines.peek();
  sizes.tables = lines.count(1, 4);
  if (sizes.tables == 2) lines.failAt(tables, "1, 3 or 4 tables");
  const auto entries = lines.peek();
  sizes.entries = lines.count(leastSize, greatestSize1D);
  if (sizes.entries == 65536) lines.failAt(entries, "integers as input: half floats are not supported");
  const auto output = lines.peek();
  if (output == "65536f" || output == "65536F")
    lines.failAt(output, "integers as output: half floats are not supported");
  if (!output.empty()) {
    const auto size = lines.integer();
    sizes.depth = size > 0 ? depthOfSize(static_cast<std::size_t>(size)) : 0;
    if (sizes.depth == 0) lines.failAt(output, "an output size of 256, 1024, 4096 or 65536");
  }
  lines.end();
  return sizes;
}

}  // namespace

void readIntegerLut(TextLines& lines, Draft& draft) {
  constexpr std::string_view start = "\"LUT:\" or an integer; this is not a supported .lut";
  if (!lines.nextMustBe(start)) return;
  const auto line = lines.line();
  Sizes sizes;
  if (isSame(lines.peek(), "LUT:")) {
    sizes = readSizes(lines);
  } else if (isInteger(lines.peek())) {
    lines.again();
  } else {
    return lines.failAt(line, start);
  }
  if (sizes.depth == 0) sizes.depth = depthInName(draft.stem);
  if (sizes.depth < 0) return lines.failAt(line, "a name without \"to16f\": half floats are not supported");
  if (sizes.depth == 0) sizes.depth = depthOfSize(sizes.entries);
  if (sizes.depth == 0) lines.failAt(line, "a depth of the output, in the header or the name");
  if (lines.fault()) return;
  draft.size1D = sizes.entries;
  draft.header.depth = sizes.depth;
  if (draft.isHeaderOnly) return;

  const auto count = sizes.tables * sizes.entries;
  // Each table has a channel; a fourth is alpha's. The first rows make the entries, the others fill them in.
  auto& entries = draft.entries1D;
  entries.reserve(std::min(sizes.entries, lines.mostRows(2)));
  for (std::size_t row = 0; row < count && lines.nextOf(row, count); ++row) {
    const auto word = lines.peek();
    const auto code = lines.integer();
    if (code < 0 || code > greatestCode) lines.failAt(word, "an integer from 0 to 65535");
    lines.end();
    const float value = scaled(static_cast<double>(code), sizes.depth);
    const auto channel = row / sizes.entries;
    if (channel == 0) {
      entries.push_back({value, value, value});
    } else if (channel < 3 && !lines.fault()) {
      entries[row % sizes.entries][channel] = value;
    }
  }
  lines.endOfText();
}

}  // namespace quillonic::lut
