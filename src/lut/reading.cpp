#include <quillonic/lut/reading.hpp>
#include <quillonic/platform/logging.hpp>

#include <algorithm>
#include <istream>
#include <optional>
#include <utility>
#include <vector>

#include "lut/formats.hpp"
#include "platform/items.hpp"

namespace quillonic::lut {
namespace {

const FormatRow* rowOfExtension(const std::filesystem::path& name) {
  const auto extension = name.extension().native();
  const auto found = std::ranges::find_if(formatRows(), [&](const FormatRow& row) {
    return !extension.empty() && isSame(rawValue(row.format), std::string_view(extension).substr(1));
  });
  return found == formatRows().end() ? nullptr : &*found;
}

// The row of the first significant line, or the fault.
const FormatRow* rowOfContent(TextLines& lines) {
  auto probe = lines;
  if (!probe.next()) {
    lines = std::move(probe);
    lines.failCounted({}, "a line of a look-up table");
    return nullptr;
  }
  const auto line = probe.line();
  std::vector<std::string_view> words;
  while (words.size() < 4 && !probe.peek().empty()) words.push_back(probe.word());
  for (const auto& row : formatRows()) {
    if (row.recognises(words)) return &row;
  }
  lines.failAt(line, "the first line of a look-up table");
  return nullptr;
}

// Reads as far as the draft says. Nothing if the text was read.
std::optional<Failure> read(TextLines& lines, const std::filesystem::path& name, Draft& draft) {
  const FormatRow* row = rowOfExtension(name);
  const bool isRecognised = row || lines.fault();
  if (!isRecognised) row = rowOfContent(lines);
  if (row && !lines.fault()) {
    draft.stem = name.stem().native();
    draft.header.format = row->format;
    row->read(lines, draft);
    draft.header.comments = std::move(lines.comments());
  }
  if (!lines.fault()) return std::nullopt;
  return Failure{
      isRecognised || row ? Failure::Reason::refused : Failure::Reason::unknownFormat, {}, *lines.fault()};
}

Result<Lut, Failure> finished(Draft draft) {
  auto shaper = Table1D::fromEntries(std::move(draft.entries1D), draft.domain1D);
  auto cube = Table3D::fromEntries(draft.size3D, std::move(draft.entries3D), draft.domain3D);
  auto lut = shaper && cube ? Lut(*std::move(shaper), *std::move(cube))
             : cube         ? Lut(*std::move(cube), std::move(draft.curves))
                            : Lut(*std::move(shaper), std::move(draft.curves));
  lut.header = std::move(draft.header);
  return lut;
}

Failure cannotOpen(const std::filesystem::path& path, std::error_code error) {
  VantiroLogging::defaultLogger()->logError("QLC_CLUT_PTFB-Failed to open lut file " + path.native() + ": " +
                                            error.message());
  return {Failure::Reason::cannotOpen, error, {}};
}

// The entries were not read; tables of the least size take their place.
Description describe(Draft draft) {
  const auto size1D = std::exchange(draft.size1D, 0);
  const auto size3D = std::exchange(draft.size3D, 0);
  if (size1D != 0) draft.entries1D.resize(leastSize);
  if (size3D != 0) draft.entries3D.resize(leastSize * leastSize * leastSize);
  draft.size3D = leastSize;
  auto description = finished(std::move(draft))->description();
  if (size1D != 0) description.size1D = size1D;
  if (size3D != 0) description.size3D = size3D;
  return description;
}

}  // namespace

std::string Failure::description() const {
  switch (reason) {
    case Reason::cannotOpen:
      return error.message();
    case Reason::unknownFormat:
    case Reason::refused:
      break;
  }
  return where.description();
}

Result<Lut, Failure> readText(std::string_view text, const std::filesystem::path& name) {
  TextLines lines(text);
  Draft draft;
  if (auto failure = read(lines, name, draft)) return *std::move(failure);
  return finished(std::move(draft));
}

Result<Lut, Failure> readStream(std::istream& stream, const std::filesystem::path& name) {
  std::string text;
  std::vector<char> block(65'536);
  while (stream.read(block.data(), static_cast<std::streamsize>(block.size())), stream.gcount() > 0) {
    text.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    if (text.size() > greatestFileSize)
      return cannotOpen(name, items::systemError(std::errc::file_too_large));
  }
  if (stream.bad()) return cannotOpen(name, items::systemError(std::errc::io_error));
  return readText(text, name);
}

Result<Lut, Failure> readFile(const std::filesystem::path& path) {
  const auto text = items::wholeFile(path.native(), greatestFileSize);
  if (!text) return cannotOpen(path, text.error());
  return readText(*text, path);
}

Result<Description, Failure> describeFile(const std::filesystem::path& path) {
  for (std::size_t limit = 65'536;; limit *= 4) {
    const auto text = items::firstBytesOfTarget(path.native(), std::min(limit, greatestFileSize));
    if (!text) return cannotOpen(path, text.error());
    const bool isWhole = text->size() < limit;
    // A line that may be cut is left out.
    const auto end = isWhole ? text->size() : text->find_last_of("\r\n") + 1;
    TextLines lines(std::string_view(*text).substr(0, end));
    Draft draft;
    draft.isHeaderOnly = true;
    auto failure = read(lines, path, draft);
    if (lines.isPastEnd() && !isWhole) continue;
    if (failure) return *std::move(failure);
    return describe(std::move(draft));
  }
}

}  // namespace quillonic::lut
