#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/offload/offload_plan.hpp>
#include <quillonic/offload/written_names.hpp>

#include <algorithm>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "offload/folders.hpp"
#include "offload/planned_items.hpp"
#include "platform/item_changes.hpp"
#include "platform/mount_holding.hpp"

namespace quillonic::offload {
namespace {

namespace fs = std::filesystem;
using Resolution = ReplicatedReferenceLinkResolution;
using Identity = std::pair<std::uint64_t, std::uint64_t>;

constexpr auto operation = "cannot plan an offload";

std::string canonicalOrFail(const fs::path& folder) {
  return locations::valueOrFail(items::canonical(folder.native()), operation, folder);
}

Identity identityOf(const items::Status& status) {
  return {status.device, status.inode};
}

std::int64_t countOf(Date date) {
  return date.time_since_epoch().count();
}

std::string below(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!folder.empty()) path += '/';
  return path += name;
}

// What a target holds of the source already.
class TargetSurvey {
 public:
  TargetSurvey(PlannedTarget& target, SharedFolder root) : target_(&target), folders_(std::move(root)) {}

  void survey(const PlannedItem& item, bool isSymbolic) {
    const auto& volume = target_->volume;
    const bool isLost = isCopied(item, volume) && isTooLarge(item, volume);
    const bool isLinkLost = (isSymbolic && item.kind == PlannedKind::link && !volume.holdsSymbolicLinks) ||
                            (item.kind == PlannedKind::hardName && !volume.holdsHardLinks);
    if (isLost || isLinkLost) target_->unheld.push_back(item.path);
    if (!isCopied(item, volume) || isLost || isPresent(item)) return;
    target_->missingBytes += item.size;
    ++target_->missingFiles;
  }

  // Records the written names of a folder's items.
  void nameItems(const std::string& folder, std::span<const std::string> names) {
    const auto written = writtenNames(names, target_->volume.kind);
    const std::string writtenFolder(target_->writtenPath(folder));
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (written[i] == names[i] && writtenFolder == folder) continue;
      target_->writtenPaths.emplace(below(folder, names[i]), below(writtenFolder, written[i]));
    }
  }

 private:
  bool isPresent(const PlannedItem& item) {
    const auto path = target_->writtenPath(item.path);
    const auto folder = folders_.remembered(path_text::folderOf(path));
    const auto copy = folder ? items::status(nameOf(path), folder->get()) : folder.error();
    return copy && hasSizeOf(item, *copy) && hasDateOf(item, *copy, target_->volume);
  }

  PlannedTarget* target_;
  FoldersBelow folders_;
};

class Planner {
 public:
  Planner(OffloadPlan& plan, const PlanOptions& options, std::vector<TargetSurvey> targets)
      : plan_(&plan), options_(&options), targets_(std::move(targets)) {}

  // Plans the items of a folder; `origin` is where it is, if not at its path in the source.
  std::error_code planFolder(const SharedFolder& folder, const std::string& path, const std::string& origin) {
    const auto entries = items::entries(*folder);
    const auto own = items::status(".", folder.get());
    if (!entries || !own) return entries ? own.error() : entries.error();
    // Only links lead from a folder back into itself.
    if (std::ranges::find(ancestors_, identityOf(*own)) != ancestors_.end()) {
      return items::systemError(std::errc::too_many_symbolic_link_levels);
    }
    ancestors_.push_back(identityOf(*own));
    std::vector<std::string> names;
    names.reserve(entries->size());
    for (const auto& entry : *entries) names.push_back(entry.name);
    for (auto& target : targets_) target.nameItems(path, names);
    for (const auto& name : names) {
      planItem(folder, name, below(path, name), origin.empty() ? origin : below(origin, name));
    }
    ancestors_.pop_back();
    return {};
  }

 private:
  void planItem(const SharedFolder& folder, const std::string& name, const std::string& path,
                const std::string& origin) {
    PlannedItem item{.path = path, .origin = origin};
    const auto status = items::status(name, folder.get());
    if (!status) {
      item.error = status.error().value();
      return add(item);
    }
    item.modified = countOf(status->modified);
    switch (status->type) {
      case FileType::directory:
        return planSubfolder(items::Folder::open(name, folder.get()), item);
      case FileType::regular:
        return planFile(*folder, name, *status, item);
      case FileType::symbolicLink:
        return planLink(item, true);
      case FileType::socket:
      case FileType::namedPipe:
      case FileType::characterSpecial:
      case FileType::blockSpecial:
      case FileType::unknown:
        return add(item);
    }
  }

  void planSubfolder(Result<items::Folder> folder, PlannedItem item) {
    item.kind = PlannedKind::folder;
    const auto index = plan_->items.size();
    add(item);
    const auto error =
        folder ? planFolder(std::make_shared<const items::Folder>(*std::move(folder)), item.path, item.origin)
               : folder.error();
    if (!error) return;
    plan_->items[index].kind = PlannedKind::none;
    plan_->items[index].error = error.value();
  }

  void planFile(const items::Folder& folder, const std::string& name, const items::Status& status,
                PlannedItem item) {
    item.kind = PlannedKind::file;
    item.size = static_cast<std::int64_t>(status.size);
    // A file that cannot be opened fails when it is copied.
    const auto type =
        link_types::typeOf(name, status, &folder).value_or(ReferenceLinkType::notAReferenceLink);
    if (type == ReferenceLinkType::aliasReference && plan_->links != Resolution::copyOriginalLinkFile) {
      return isKeptAlias(item) ? add(item) : planLink(item, false);
    }
    if (status.names > 1 && plan_->links == Resolution::relinkToOriginalSource) {
      item.kind = PlannedKind::link;
    }
    if (status.names > 1 && plan_->links == Resolution::relinkToReplicatedSource) {
      const auto [first, isFirst] = firstNames_.try_emplace(identityOf(status), item.path);
      if (!isFirst) {
        item.kind = PlannedKind::hardName;
        item.origin = first->second;
      }
    }
    add(item);
  }

  // Whether an alias cannot be relinked because nobody knows what it refers to.
  bool isKeptAlias(const PlannedItem& item) const {
    if (plan_->links == Resolution::copyOriginalSource) return false;
    try {
      standardizedResolvedAliasReference(plan_->source + "/" + item.path);
      return false;
    } catch (const std::system_error&) {
      return true;
    }
  }

  void planLink(PlannedItem item, bool isSymbolic) {
    const auto place = item.origin.empty() ? plan_->source + "/" + item.path : item.origin;
    if (plan_->links == Resolution::copyOriginalSource && planContent(place, item)) return;
    item.kind = PlannedKind::link;
    item.size = 0;
    add(item, isSymbolic);
  }

  // Plans what a link refers to in its place; false if that cannot be told, or is refused.
  bool planContent(const std::string& place, PlannedItem item) {
    std::optional<fs::path> target;
    try {
      target = deeplyDereferencedFilePath(place);
    } catch (const std::system_error&) {
      return false;
    }
    if (!target) return false;
    const bool isOutside = !path_text::isWithin(target->native(), plan_->source);
    if (isOutside && plan_->outside == OutsideTargets::refuse) return false;
    const auto status = items::status(target->native());
    if (!status) return false;
    item.origin = target->native();
    item.modified = countOf(status->modified);
    if (status->type == FileType::directory) {
      const bool hasCopy = std::ranges::any_of(
          plan_->targets, [&](const auto& copy) { return path_text::isWithin(copy.root, item.origin); });
      if (hasCopy) item.error = static_cast<std::int64_t>(std::errc::too_many_symbolic_link_levels);
      hasCopy ? add(item) : planSubfolder(items::Folder::open(item.origin), item);
      return true;
    }
    if (status->type == FileType::regular) {
      item.kind = PlannedKind::file;
      item.size = static_cast<std::int64_t>(status->size);
    }
    add(item);
    return true;
  }

  void add(const PlannedItem& item, bool isSymbolic = false) {
    for (auto& target : targets_) target.survey(item, isSymbolic);
    plan_->items.push_back(item);
    ++progress_.items;
    if (item.kind == PlannedKind::file) progress_.bytes += static_cast<std::uint64_t>(item.size);
    if (options_->progress && !options_->progress(progress_)) {
      locations::fail(operation, plan_->source, items::systemError(std::errc::operation_canceled));
    }
  }

  OffloadPlan* plan_;
  const PlanOptions* options_;
  PlanProgress progress_;
  std::vector<TargetSurvey> targets_;
  std::vector<Identity> ancestors_;
  std::map<Identity, std::string> firstNames_;
};

}  // namespace

std::string_view PlannedTarget::writtenPath(std::string_view path) const noexcept {
  const auto written = writtenPaths.find(path);
  return written != writtenPaths.end() ? std::string_view(written->second) : path;
}

OffloadPlan planOffload(const fs::path& source, std::span<const fs::path> targets,
                        const PlanOptions& options) {
  OffloadPlan plan;
  plan.source = canonicalOrFail(source);
  plan.links = options.links;
  plan.outside = options.outside;
  std::vector<SharedFolder> roots;
  for (const auto& path : targets) {
    const auto root = canonicalOrFail(path);
    auto folder = openedRoot(root);
    if (!folder) locations::fail(operation, path, folder.error());
    const auto overlaps = [&](const std::string& other) {
      return path_text::isWithin(root, other) || path_text::isWithin(other, root);
    };
    if (overlaps(plan.source) || std::ranges::any_of(plan.targets, overlaps, &PlannedTarget::root)) {
      locations::fail(operation, path, std::make_error_code(std::errc::invalid_argument));
    }
    const auto space = items::freeSpace(**folder);
    PlannedTarget target;
    target.root = root;
    target.volume = VolumeTraits::at(root);
    if (const auto mount = mountHolding(root)) target.mountPoint = mount->mountPoint.native();
    if (space) target.freeBytes = static_cast<std::int64_t>(*space);
    plan.targets.push_back(std::move(target));
    roots.push_back(*std::move(folder));
  }
  const auto folder = openedRoot(plan.source);
  if (!folder) locations::fail(operation, source, folder.error());
  std::vector<TargetSurvey> surveys;
  for (std::size_t i = 0; i < roots.size(); ++i) surveys.emplace_back(plan.targets[i], roots[i]);
  if (const auto error = Planner(plan, options, std::move(surveys)).planFolder(*folder, {}, {}))
    locations::fail(operation, source, error);
  return plan;
}

}  // namespace quillonic::offload
