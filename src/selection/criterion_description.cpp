#include <quillonic/platform/localization.hpp>
#include <quillonic/selection/byte_size.hpp>
#include <quillonic/selection/criterion.hpp>

#include <array>
#include <limits>

#include "selection/moments.hpp"
#include "text/pieces.hpp"

namespace quillonic::selection {
namespace {

struct KindRow {
  Kind kind;
  std::string_view name;
};

constexpr auto kindNames = std::to_array<KindRow>({
    {ItemKind::file, "File"},
    {ItemKind::folder, "Folder"},
    {ItemKind::link, "Link"},
    {ItemKind::special, "Special file"},
    {ItemKind::unlisted, "Unknown format"},
    {FileKind::video, "Video"},
    {FileKind::audio, "Audio"},
    {FileKind::still, "Still picture"},
    {FileKind::raw, "Raw still"},
    {FileKind::rawVideo, "Raw video"},
    {FileKind::frame, "Frame of a sequence"},
    {FileKind::sidecar, "Sidecar"},
    {FileKind::index, "Index"},
    {FileKind::thumb, "Thumbnail"},
    {FileKind::proxy, "Proxy"},
    {FileKind::subtitle, "Subtitles"},
    {FileKind::project, "Project"},
    {FileKind::list, "Edit or shot list"},
    {FileKind::lut, "Look-up table"},
    {FileKind::checksum, "Checksums"},
    {FileKind::document, "Document"},
    {FileKind::archive, "Archive"},
});
static_assert(kindNames.size() == allCases<ItemKind>().size() + allCases<FileKind>().size());

constexpr std::array<std::string_view, 3> dateNames = {"Created: {}", "Modified: {}", "Accessed: {}"};

std::string local(std::string_view text, std::string_view value) {
  return Localization::localized(text, {text::printable(value)});
}

std::string described(const KindCondition& condition) {
  std::string names;
  for (const auto& kind : condition.kinds) {
    const auto* row = detail::rowWhere(kindNames, &KindRow::kind, kind);
    names.append(names.empty() ? "" : ", ").append(row ? Localization::localized(row->name) : std::string());
  }
  return local("Kind: {}", names);
}

std::string described(const ExtensionCondition& condition) {
  std::string all;
  for (const auto& extension : condition.extensions) all.append(all.empty() ? "." : ", .").append(extension);
  return local("Extension: {}", all);
}

std::string described(const NameCondition& condition) {
  return local(condition.ignoresCase ? "Name in any case: {}" : "Name: {}", condition.pattern);
}

std::string described(const TimeFrame& frame) {
  return frame.description();
}

std::string described(const TimeSpan& span) {
  const auto since = span.since ? moments::text(*span.since) : std::string();
  const auto before = span.before ? moments::text(*span.before) : std::string();
  if (since.empty()) return local("before {}", before);
  return before.empty() ? local("since {}", since)
                        : Localization::localized("since {} and before {}", {since, before});
}

std::string described(const DateCondition& condition) {
  return local(dateNames[static_cast<std::size_t>(condition.date)],
               std::visit([](const auto& when) { return described(when); }, condition.when));
}

std::string described(const SizeCondition& condition) {
  const auto [least, most] = condition;
  const auto all = std::numeric_limits<std::uint64_t>::max();
  if (least == most) return local("Size: {}", byteSizeText(least));
  if (most == all) return local("Size: {} or more", byteSizeText(least));
  if (least == 0) return local("Size: {} or less", byteSizeText(most));
  return Localization::localized("Size: {} to {}", {byteSizeText(least), byteSizeText(most)});
}

std::string described(const HiddenCondition& /*condition*/) {
  return Localization::localized("Hidden");
}

std::string described(const VolumeCondition& condition) {
  return local("Volume: {}", condition.place.native());
}

std::string described(const Combination& combination) {
  const auto& [of, members] = combination;
  const bool isAll = of == Combination::Of::all;
  if (members.empty()) return Localization::localized(isAll ? "Everything" : "Nothing");
  std::string all;
  for (const auto& member : members) {
    auto one = member.description();
    const auto* inner = std::get_if<Combination>(&member.alternatives());
    if (inner && inner->members.size() > 1 && inner->of != Combination::Of::none)
      one = std::string("(").append(one).append(")");
    all = all.empty() ? one : Localization::localized(isAll ? "{} and {}" : "{} or {}", {all, one});
  }
  return of == Combination::Of::none ? Localization::localized("Not ({})", {all}) : all;
}

}  // namespace

std::string Criterion::description() const {
  return std::visit([](const auto& value) { return described(value); }, value_);
}

}  // namespace quillonic::selection
