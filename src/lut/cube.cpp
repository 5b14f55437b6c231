// .cube: keywords of two dialects, then rows with red changing fastest.
#include <algorithm>
#include <array>
#include <utility>

#include "lut/formats.hpp"
#include "text/ascii.hpp"

namespace quillonic::lut {
namespace {

// Two ends of a domain, each where a keyword told it, for all three channels or for each.
struct Ends {
  std::optional<Rgb> min;
  std::optional<Rgb> max;
  // The last line that told one.
  std::string_view line;

  Domain domain() const noexcept { return {min.value_or(Domain().min), max.value_or(Domain().max)}; }
  bool agreesWith(const Domain& other) const noexcept {
    return (!min || *min == other.min) && (!max || *max == other.max);
  }
};

struct CubeHeader {
  Draft& draft;
  std::vector<std::string> seen = {};
  Ends domain = {};
  Ends range1D = {};
  Ends range3D = {};
};

void readTitle(TextLines& lines, CubeHeader& header) {
  auto text = lines.rest();
  const auto first = text.find('"');
  const auto last = text.rfind('"');
  auto& title = header.draft.header.title;
  if (first != last) {
    title = text.substr(first + 1, last - first - 1);
  } else {
    title = text;
    std::erase(title, '"');
    title = trimmed(title);
  }
}

void readInputRange(TextLines& lines, Ends& ends) {
  ends.line = lines.line();
  const float min = lines.real();
  const float max = lines.real();
  ends.min = {min, min, min};
  ends.max = {max, max, max};
}

struct Keyword {
  std::string_view word;
  void (*read)(TextLines& lines, CubeHeader& header);
};

constexpr auto keywords = std::to_array<Keyword>({
    {"TITLE", readTitle},
    {"LUT_1D_SIZE",
     [](auto& lines, auto& header) { header.draft.size1D = lines.count(leastSize, greatestSize1D); }},
    {"LUT_3D_SIZE",
     [](auto& lines, auto& header) { header.draft.size3D = lines.count(leastSize, greatestEdge); }},
    {"LUT_2D_SIZE", [](auto& lines, auto&) { lines.failAt(lines.line(), "LUT_1D_SIZE or LUT_3D_SIZE"); }},
    {"DOMAIN_MIN",
     [](auto& lines, auto& header) {
       header.domain.line = lines.line();
       header.domain.min = lines.color();
     }},
    {"DOMAIN_MAX",
     [](auto& lines, auto& header) {
       header.domain.line = lines.line();
       header.domain.max = lines.color();
     }},
    {"LUT_1D_INPUT_RANGE", [](auto& lines, auto& header) { readInputRange(lines, header.range1D); }},
    {"LUT_3D_INPUT_RANGE", [](auto& lines, auto& header) { readInputRange(lines, header.range3D); }},
    {"LUT_IN_VIDEO_RANGE", [](auto&, auto& header) { header.draft.header.expectsVideoRange = true; }},
    {"LUT_OUT_VIDEO_RANGE", [](auto&, auto& header) { header.draft.header.givesVideoRange = true; }},
});

const Keyword* keywordOf(std::string_view word) noexcept {
  const auto found =
      std::ranges::find_if(keywords, [&](const auto& keyword) { return isSame(keyword.word, word); });
  return found == keywords.end() ? nullptr : &*found;
}

bool isHeaderWord(std::string_view word) noexcept {
  const char c = word.empty() ? '0' : word.front();
  return (ascii::isLetter(c) || c == '_') && !isMeantAsNumber(word);
}

void readHeaderLine(TextLines& lines, CubeHeader& header) {
  const auto word = lines.peek();
  const Keyword* keyword = keywordOf(word);
  if (!keyword) return header.draft.keepUnknown(lines.line());
  if (std::ranges::find(header.seen, keyword->word) != header.seen.end())
    return lines.failAt(word, "each keyword once");
  header.seen.emplace_back(keyword->word);
  lines.word();
  keyword->read(lines, header);
  if (keyword->read != readTitle) lines.end();
}

// The domain of a table from the keywords of both dialects.
Domain domainOf(TextLines& lines, const Ends& domain, const Ends& range) {
  const bool hasRange = range.min.has_value();
  const auto result = hasRange ? range.domain() : domain.domain();
  const auto& last = range.line.data() > domain.line.data() ? range.line : domain.line;
  if (!result.isValid()) lines.failAt(last, "a minimum below the maximum");
  if (hasRange && !domain.agreesWith(result)) lines.failAt(last, "the same domain as in the other dialect");
  return result;
}

void finish(TextLines& lines, CubeHeader& header) {
  auto& draft = header.draft;
  const bool hasBoth = draft.size1D != 0 && draft.size3D != 0;
  if (hasBoth && !header.domain.agreesWith({}))
    return lines.failAt(header.domain.line, "a domain of 0 to 1 with two tables");
  const Ends domain = hasBoth ? Ends() : header.domain;
  if (draft.size1D != 0) {
    draft.domain1D = domainOf(lines, domain, header.range1D);
  } else if (header.range1D.min) {
    draft.keepUnknown(header.range1D.line);
  }
  if (draft.size3D != 0) {
    draft.domain3D = domainOf(lines, domain, header.range3D);
  } else if (header.range3D.min) {
    draft.keepUnknown(header.range3D.line);
  }
}

}  // namespace

bool isCubeKeyword(std::string_view word) noexcept {
  return keywordOf(word) != nullptr;
}

void readCube(TextLines& lines, Draft& draft) {
  constexpr std::string_view foreign = "# Truelight Cube";
  if (lines.firstLine().starts_with(foreign)) return lines.failAt(lines.firstLine(), "a .cube with keywords");
  CubeHeader header{draft};
  bool isRow = false;
  while (!isRow && lines.next()) {
    isRow = !isHeaderWord(lines.peek());
    if (!isRow) readHeaderLine(lines, header);
  }
  if (draft.size1D == 0 && draft.size3D == 0) {
    if (isRow) return lines.failAt(lines.line(), "LUT_1D_SIZE or LUT_3D_SIZE");
    return lines.failCounted({}, "LUT_1D_SIZE or LUT_3D_SIZE");
  }
  finish(lines, header);
  if (draft.isHeaderOnly) return;
  if (isRow) lines.again();
  if (draft.size1D != 0) draft.entries1D = lines.rows(draft.size1D);
  if (draft.size3D != 0) draft.entries3D = lines.rows(draft.size3D * draft.size3D * draft.size3D);
  lines.endOfText();
}

}  // namespace quillonic::lut
