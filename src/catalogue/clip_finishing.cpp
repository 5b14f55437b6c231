#include <quillonic/media/media_format.hpp>
#include <quillonic/platform/localization.hpp>

#include <algorithm>
#include <numeric>
#include <span>
#include <tuple>
#include <utility>

#include "catalogue/clip_draft.hpp"

namespace quillonic::catalogue {
namespace {

constexpr bool isEssence(ClipKind kind, ClipRole role) noexcept {
  switch (role) {
    case ClipRole::video:
    case ClipRole::sound:
      return true;
    case ClipRole::still:
      return kind != ClipKind::video && kind != ClipKind::sound;
    default:
      return false;
  }
}

bool isLivePhoto(const Draft& draft) {
  const auto is = [&](ClipRole role, MediaFormat first, MediaFormat second) {
    return std::ranges::any_of(draft.files, [&](const DraftFile& each) {
      const auto extension = fileExtensionOfName(fileName(each.file.path));
      return each.file.role == role && extension &&
             (formatOf(*extension) == first || formatOf(*extension) == second);
    });
  };
  return is(ClipRole::still, MediaFormat::heif, MediaFormat::jpeg) &&
         is(ClipRole::video, MediaFormat::quickTimeMovie, MediaFormat::quickTimeMovie);
}

ClipKind kindOf(const Draft& draft) {
  if (draft.frames) return ClipKind::imageSequence;
  if (draft.has(ClipRole::video)) return isLivePhoto(draft) ? ClipKind::livePhoto : ClipKind::video;
  if (draft.has(ClipRole::still)) return ClipKind::still;
  return draft.has(ClipRole::sound) ? ClipKind::sound : ClipKind::video;
}

void sort(std::vector<DraftFile>& files, ClipKind kind) {
  const bool isStillFirst = kind != ClipKind::video && kind != ClipKind::sound;
  const auto rank = [=](const DraftFile& each) {
    const auto role = each.file.role;
    const auto order = isStillFirst && role == ClipRole::still ? -1 : static_cast<int>(role);
    return std::tuple(!isEssence(kind, role), order, each.span, each.file.number.value_or(0));
  };
  std::ranges::sort(files, [&](const DraftFile& a, const DraftFile& b) {
    const auto first = rank(a);
    const auto second = rank(b);
    return first != second ? first < second : a.file.path < b.file.path;
  });
}

// Names every part that must be before or between those that are there.
void findMissingParts(const std::vector<DraftFile>& files, ClipRole role, std::vector<Problem>& problems) {
  std::optional<std::uint64_t> expected;
  std::size_t span = 0;
  for (const auto& each : files) {
    if (each.file.role != role || each.counts == ' ' || each.counts == 'o') continue;
    if (!expected || each.span != span) expected = each.counts == 'p' ? 1 : 0;
    span = each.span;
    for (; *expected < *each.file.number; ++*expected)
      problems.push_back({ProblemKind::missingPart, std::to_string(*expected)});
    expected = *each.file.number + 1;
  }
}

// The first of them, as people list them: "4, 6-8".
std::string spansText(const std::vector<FrameSpan>& spans) {
  constexpr std::size_t greatestCount = 10;
  std::string text;
  for (const auto& span : std::span(spans).first(std::min(spans.size(), greatestCount))) {
    if (!text.empty()) text += ", ";
    text += std::to_string(span.first);
    if (span.last > span.first) text.append("-").append(std::to_string(span.last));
  }
  return spans.size() > greatestCount ? text + ", ..." : text;
}

}  // namespace

bool Draft::has(ClipRole role) const noexcept {
  return std::ranges::any_of(files, [&](const DraftFile& each) { return each.file.role == role; });
}

void nameClip(Draft& draft) {
  if (!draft.row) return;
  if (draft.row->titlesByStem) {
    const auto first = std::ranges::min_element(draft.files, {}, [](const DraftFile& each) {
      return std::tuple(each.file.role, each.file.number.value_or(0));
    });
    draft.name = stemOf(fileName(first->file.path));
  }
  if (!draft.has(ClipRole::video)) return;
  for (const auto suffix : draft.row->needs) {
    const bool isThere = std::ranges::any_of(
        draft.files, [&](const DraftFile& each) { return endsInCapitals(each.file.path, suffix); });
    if (!isThere) draft.problems.push_back({ProblemKind::missingSidecar, draft.name + std::string(suffix)});
  }
}

Clip finishedClip(Draft draft) {
  Clip clip;
  clip.name = std::move(draft.name);
  clip.kind = kindOf(draft);
  clip.card = draft.card;
  sort(draft.files, clip.kind);
  clip.problems = std::move(draft.problems);
  if (draft.row) {
    findMissingParts(draft.files, ClipRole::video, clip.problems);
    findMissingParts(draft.files, ClipRole::sound, clip.problems);
  }
  if (!isEssence(clip.kind, draft.files.front().file.role))
    clip.problems.push_back({ProblemKind::missingEssence, clip.name});
  if (!draft.missingFrames.empty())
    clip.problems.push_back({ProblemKind::missingFrames, spansText(draft.missingFrames)});
  clip.frames = draft.frames;
  clip.missingFrames = std::move(draft.missingFrames);
  clip.files.reserve(draft.files.size());
  for (auto& each : draft.files) clip.files.push_back(std::move(each.file));
  return clip;
}

std::uint64_t Clip::totalSize() const noexcept {
  return std::accumulate(files.begin(), files.end(), std::uint64_t{0},
                         [](std::uint64_t sum, const ClipFile& file) { return sum + file.size; });
}

std::size_t Clip::essenceCount() const noexcept {
  return static_cast<std::size_t>(
      std::ranges::count_if(files, [&](const ClipFile& file) { return isEssence(kind, file.role); }));
}

std::string description(const Problem& problem) {
  switch (problem.kind) {
    case ProblemKind::missingPart:
      return Localization::localized("File {} of the clip is missing.", {problem.subject});
    case ProblemKind::missingSidecar:
      return Localization::localized("{} is missing.", {problem.subject});
    case ProblemKind::missingEssence:
      return Localization::localized("There is neither picture nor sound of {}.", {problem.subject});
    case ProblemKind::missingFrames:
      return Localization::localized("Frames are missing: {}.", {problem.subject});
    case ProblemKind::differsByCaseOnly:
      return Localization::localized("{} differs from another name by case alone.", {problem.subject});
    case ProblemKind::nameNotUtf8:
      return Localization::localized("{} is not UTF-8.", {problem.subject});
  }
  return {};
}

}  // namespace quillonic::catalogue
