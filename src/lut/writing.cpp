#include <quillonic/lut/writing.hpp>

#include <algorithm>
#include <string_view>

#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic::lut {
namespace {

bool isUniform(const Domain& domain) noexcept {
  const auto isGrey = [](const Rgb& color) { return color[0] == color[1] && color[1] == color[2]; };
  return isGrey(domain.min) && isGrey(domain.max);
}

void writeNumbers(std::string& text, std::string_view name, std::span<const float> numbers) {
  text += name;
  for (const float number : numbers) {
    if (!text.empty() && text.back() != '\n') text += ' ';
    text += number_text::shortest(number);
  }
  text += '\n';
}

void writeRows(std::string& text, std::span<const Rgb> entries) {
  for (const auto& entry : entries) writeNumbers(text, "", entry);
}

// A first comment of this text marks another format; with more spaces it is the same comment.
void writeComment(std::string& text, std::string_view comment) {
  text.append(comment.starts_with("Truelight Cube") ? "#  " : "# ").append(comment).append("\n");
}

void writeComments(std::string& text, std::string_view comments) {
  if (comments.ends_with('\n')) comments.remove_suffix(1);
  if (comments.empty()) return;
  for (auto lines = text::lines(comments); const auto line = lines.next();) writeComment(text, *line);
}

std::string oneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
  return text;
}

std::string sizeLine(std::string_view name, std::size_t size) {
  return std::string(name) + " " + std::to_string(size) + "\n";
}

std::optional<std::string> cubeText(const Lut& lut) {
  const auto* shaper = lut.table1D();
  const auto* cube = lut.table3D();
  const bool hasBoth = shaper && cube;
  if (lut.curves() || (hasBoth && !(isUniform(shaper->domain()) && isUniform(cube->domain()))))
    return std::nullopt;

  std::string text;
  writeComments(text, lut.header.comments);
  const auto title = oneLine(lut.header.title);
  if (!title.empty() && hasBoth) writeComment(text, title);
  if (!title.empty() && !hasBoth) text += "TITLE \"" + title + "\"\n";
  if (lut.header.expectsVideoRange) text += "LUT_IN_VIDEO_RANGE\n";
  if (lut.header.givesVideoRange) text += "LUT_OUT_VIDEO_RANGE\n";
  if (shaper) text += sizeLine("LUT_1D_SIZE", shaper->size());
  if (cube) text += sizeLine("LUT_3D_SIZE", cube->edge());
  if (hasBoth) {
    writeNumbers(text, "LUT_1D_INPUT_RANGE", std::array{shaper->domain().min[0], shaper->domain().max[0]});
    writeNumbers(text, "LUT_3D_INPUT_RANGE", std::array{cube->domain().min[0], cube->domain().max[0]});
  } else if (const auto domain = lut.domain(); domain != Domain()) {
    // Some programs ignore a domain that precedes the size.
    writeNumbers(text, "DOMAIN_MIN", domain.min);
    writeNumbers(text, "DOMAIN_MAX", domain.max);
  }
  if (shaper) writeRows(text, shaper->entries());
  if (cube) writeRows(text, cube->entries());
  return text;
}

std::optional<std::string> spi1dText(const Lut& lut) {
  const auto* table = lut.table1D();
  if (!table || lut.table3D() || lut.curves() || !isUniform(table->domain())) return std::nullopt;
  const bool isOneCurve = std::ranges::all_of(
      table->entries(), [](const Rgb& entry) { return entry[0] == entry[1] && entry[1] == entry[2]; });
  const std::size_t components = isOneCurve ? 1 : 3;
  std::string text = "Version 1\n";
  writeNumbers(text, "From", std::array{table->domain().min[0], table->domain().max[0]});
  text += sizeLine("Length", table->size()) + sizeLine("Components", components) + "{\n";
  for (const auto& entry : table->entries()) writeNumbers(text, "", std::span(entry).first(components));
  return text + "}\n";
}

std::optional<std::string> spi3dText(const Lut& lut) {
  const auto* cube = lut.table3D();
  if (lut.kind() != Kind::threeD || cube->domain() != Domain()) return std::nullopt;
  const auto edge = std::to_string(cube->edge());
  std::string text = "SPILUT 1.0\n3 3\n" + edge + " " + edge + " " + edge + "\n";
  for (std::size_t red = 0; red < cube->edge(); ++red) {
    for (std::size_t green = 0; green < cube->edge(); ++green) {
      for (std::size_t blue = 0; blue < cube->edge(); ++blue) {
        const auto position = std::to_string(red) + " " + std::to_string(green) + " " + std::to_string(blue);
        writeNumbers(text, position, cube->at(red, green, blue));
      }
    }
  }
  return text;
}

}  // namespace

std::optional<std::string> textOf(const Lut& lut, Format format) {
  switch (format) {
    case Format::cube:
      return cubeText(lut);
    case Format::spi1d:
      return spi1dText(lut);
    case Format::spi3d:
      return spi3dText(lut);
    case Format::threeDL:
    case Format::csp:
    case Format::integerLut:
      break;
  }
  return std::nullopt;
}

}  // namespace quillonic::lut
