#include "catalogue/image_sequences.hpp"

#include <quillonic/media/media_format.hpp>

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "catalogue/clip_draft.hpp"
#include "catalogue/name_pattern.hpp"
#include "text/ascii.hpp"
#include "text/number_text.hpp"

namespace quillonic::catalogue {
namespace {

constexpr std::size_t leastStills = 10;
// What fits into 64 bits; digits before them are part of the stem.
constexpr std::size_t greatestWidth = 18;

bool canBeFrame(FileExtension extension) noexcept {
  return isOfKind(extension, FileKind::frame);
}

bool isStillToo(FileExtension extension) noexcept {
  const auto format = formatOf(extension);
  return format == MediaFormat::jpeg || format == MediaFormat::tiff || format == MediaFormat::dng;
}

std::string_view withoutSeparator(std::string_view stem) noexcept {
  return stem.substr(0, stem.find_last_not_of("._- ") + 1);
}

}  // namespace

std::vector<ImageSequence> imageSequences(const std::vector<std::string_view>& names, bool hasStills) {
  // Stem, extension and width; then the frames.
  std::map<std::tuple<std::string, FileExtension, std::size_t>, ImageSequence> found;
  std::vector<std::string> sounds;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto extension = fileExtensionOfName(names[i]);
    const auto stem = stemOf(names[i]);
    if (extension && mainKind(*extension) == FileKind::audio) sounds.push_back(capitals(stem));
    if (!extension || !canBeFrame(*extension) || (hasStills && isStillToo(*extension))) continue;
    const auto others = std::find_if_not(stem.rbegin(), stem.rend(), ascii::isDigit);
    const auto width = std::min(static_cast<std::size_t>(others - stem.rbegin()), greatestWidth);
    const auto number = number_text::read<std::uint64_t>(stem.substr(stem.size() - width));
    if (!number) continue;
    const auto prefix = stem.substr(0, stem.size() - width);
    auto& sequence = found[{capitals(prefix), *extension, width}];
    if (sequence.frames.empty()) sequence.stem = withoutSeparator(prefix);
    sequence.frames.push_back({*number, i});
  }
  std::vector<ImageSequence> sequences;
  for (auto& [key, sequence] : found) {
    auto& frames = sequence.frames;
    const bool hasSound = std::ranges::find(sounds, capitals(sequence.stem)) != sounds.end();
    const bool isFilm = frames.size() >= leastStills || !isStillToo(std::get<1>(key)) || hasSound;
    if (frames.size() < 2 || !isFilm) continue;
    std::ranges::stable_sort(frames, {}, &Frame::number);
    for (std::size_t i = 1; i < frames.size(); ++i) {
      if (frames[i].number > frames[i - 1].number + 1)
        sequence.missing.push_back({frames[i - 1].number + 1, frames[i].number - 1});
    }
    sequences.push_back(std::move(sequence));
  }
  return sequences;
}

}  // namespace quillonic::catalogue
