#include <quillonic/selection/selector.hpp>

#include <algorithm>
#include <string>

#include "platform/path_text.hpp"
#include "selection/selection_plan.hpp"
#include "selection/wildcards.hpp"
#include "support/overloaded.hpp"
#include "text/ascii.hpp"
#include "text/unicode.hpp"

namespace quillonic::selection {
namespace {

Answer answerOf(bool holds) noexcept {
  return holds ? Answer::yes : Answer::no;
}

bool endsWith(std::string_view name, std::string_view extension) noexcept {
  if (extension.empty()) return extensionText(name).empty();
  // A full stop, and something before it.
  if (name.size() < extension.size() + 2) return false;
  const auto end = name.substr(name.size() - extension.size());
  return name[name.size() - extension.size() - 1] == '.' &&
         std::ranges::equal(end, extension, {}, ascii::lowered);
}

ItemKind itemKind(FileType type) noexcept {
  switch (type) {
    case FileType::regular:
      return ItemKind::file;
    case FileType::directory:
      return ItemKind::folder;
    case FileType::symbolicLink:
      return ItemKind::link;
    case FileType::socket:
    case FileType::namedPipe:
    case FileType::characterSpecial:
    case FileType::blockSpecial:
    case FileType::unknown:
      break;
  }
  return ItemKind::special;
}

// Whether a regular file of this name is of a kind.
bool isNamedAs(std::string_view name, const Kind& kind) noexcept {
  const auto extension = fileExtensionOfName(name);
  const auto* wanted = std::get_if<FileKind>(&kind);
  return wanted ? extension && isOfKind(*extension, *wanted) : !extension;
}

Answer answerTo(const KindCondition& condition, const Facts& facts) noexcept {
  bool isOpen = false;
  for (const auto& kind : condition.kinds) {
    const auto* item = std::get_if<ItemKind>(&kind);
    const bool isByName = !item || *item == ItemKind::unlisted;
    const auto wanted = isByName ? ItemKind::file : *item;
    if (facts.type && itemKind(*facts.type) != wanted) continue;
    if (isByName && facts.name && !isNamedAs(*facts.name, kind)) continue;
    if (facts.type && (facts.name || !isByName)) return Answer::yes;
    isOpen = true;
  }
  return isOpen ? Answer::unknown : Answer::no;
}

Answer answerTo(const ExtensionCondition& condition, const Facts& facts) noexcept {
  if (!facts.name) return Answer::unknown;
  return answerOf(std::ranges::any_of(
      condition.extensions, [&](const auto& extension) { return endsWith(*facts.name, extension); }));
}

Answer answerTo(const NameCondition& condition, const Facts& facts) {
  if (!facts.name) return Answer::unknown;
  if (!condition.ignoresCase) return answerOf(matchesPattern(condition.pattern, *facts.name));
  return answerOf(matchesPattern(condition.pattern, text::lowerCasedEach(*facts.name)));
}

Answer answerTo(const DateCondition& condition, const Facts& facts) noexcept {
  const auto& date = condition.date == FileDate::created    ? facts.created
                     : condition.date == FileDate::modified ? facts.modified
                                                            : facts.accessed;
  const auto* span = std::get_if<TimeSpan>(&condition.when);
  if (!date || !span) return Answer::unknown;
  const auto second = std::chrono::floor<std::chrono::seconds>(*date);
  const auto reaches = [&](const std::optional<Moment>& moment) {
    return moment && *std::get_if<std::chrono::sys_seconds>(&*moment) <= second;
  };
  return answerOf((!span->since || reaches(span->since)) && !reaches(span->before));
}

Answer answerTo(const SizeCondition& condition, const Facts& facts) noexcept {
  if (facts.type == FileType::directory) return Answer::no;
  if (!facts.size || !facts.type) return Answer::unknown;
  return answerOf(condition.least <= *facts.size && *facts.size <= condition.most);
}

Answer answerTo(const HiddenCondition& /*condition*/, const Facts& facts) noexcept {
  return facts.name ? answerOf(facts.name->starts_with('.')) : Answer::unknown;
}

// What a criterion needs, added to a plan. Nothing of it depends on the items.
void prepare(const Criterion& criterion, auto& plan) {
  auto& parts = plan.parts;
  std::visit(Overloaded{[&](const Combination& combination) {
                          for (const auto& member : combination.members) prepare(member, plan);
                        },
                        [&](const SizeCondition&) { parts.size = true; },
                        [&](const DateCondition& condition) {
                          parts.created = parts.created || condition.date == FileDate::created;
                          parts.modified = parts.modified || condition.date == FileDate::modified;
                          parts.accessed = parts.accessed || condition.date == FileDate::accessed;
                        },
                        [&](const HiddenCondition&) { plan.asksForHidden = true; },
                        [&](const VolumeCondition& condition) {
                          const auto [known, isNew] = plan.devices.try_emplace(condition.place);
                          if (!isNew) return;
                          const auto status = items::status(condition.place.native(), items::StatusParts{});
                          if (status) {
                            known->second = status->device;
                          } else {
                            plan.unseenVolumes.push_back({condition.place, status.error()});
                          }
                        },
                        [](const auto&) {}},
             criterion.alternatives());
}

}  // namespace

void Facts::add(const items::Status& status, items::StatusParts parts) {
  type = status.type;
  device = status.device;
  if (parts.size) size = status.size;
  if (parts.created) created = status.created;
  if (parts.modified) modified = status.modified;
  if (parts.accessed) accessed = status.accessed;
}

Answer Selector::Plan::answer(const Criterion& part, const Facts& facts) const {
  return std::visit(Overloaded{[&](const Combination& combination) {
                                 // One member that holds, or of all one that does not, decides; else one that
                                 // is open leaves it open.
                                 const bool isAll = combination.of == Combination::Of::all;
                                 const auto deciding = isAll ? Answer::no : Answer::yes;
                                 auto result = isAll ? Answer::yes : Answer::no;
                                 for (const auto& member : combination.members) {
                                   const auto one = answer(member, facts);
                                   if (one == Answer::unknown || one == deciding) result = one;
                                   if (one == deciding) break;
                                 }
                                 if (combination.of != Combination::Of::none || result == Answer::unknown)
                                   return result;
                                 return answerOf(result == Answer::no);
                               },
                               [&](const VolumeCondition& condition) {
                                 const auto& device = devices.at(condition.place);
                                 return device && facts.device ? answerOf(*device == *facts.device)
                                                               : Answer::unknown;
                               },
                               [&](const auto& condition) { return answerTo(condition, facts); }},
                    part.alternatives());
}

Selector::Selector(const Criterion& criterion, const Calendar& calendar, std::chrono::sys_seconds instant) {
  auto plan = std::make_shared<Plan>();
  plan->criterion = criterion.resolved(calendar, instant);
  prepare(plan->criterion, *plan);
  plan_ = std::move(plan);
}

const Criterion& Selector::criterion() const noexcept {
  return plan_->criterion;
}

const std::vector<Selector::UnseenVolume>& Selector::unseenVolumes() const noexcept {
  return plan_->unseenVolumes;
}

Answer Selector::answer(const FileAttributes& attributes) const {
  using Key = FileAttributeKey;
  const auto name = attributes.value<std::string>(Key::filePathName.rawValue());
  Facts facts;
  if (name) facts.name = *name;
  facts.type = attributes.value<FileType>(Key::NSFileType.rawValue());
  facts.size = attributes.value<std::uint64_t>(Key::NSFileSize.rawValue());
  facts.created = attributes.value<Date>(Key::NSFileCreationDate.rawValue());
  facts.modified = attributes.value<Date>(Key::NSFileModificationDate.rawValue());
  facts.device = attributes.value<std::uint64_t>(Key::NSFileSystemNumber.rawValue());
  return plan_->answer(facts);
}

Answer Selector::answer(const std::filesystem::path& item) const {
  const std::string path(path_text::withoutTrailingSlashes(item.native()));
  Facts facts;
  facts.name = std::string_view(path).substr(path_text::folderPrefix(path).size());
  const auto byName = plan_->answer(facts);
  if (byName != Answer::unknown) return byName;
  const auto status = items::status(path, plan_->parts);
  if (!status) return Answer::unknown;
  facts.add(*status, plan_->parts);
  return plan_->answer(facts);
}

}  // namespace quillonic::selection
