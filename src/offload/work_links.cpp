#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/offload/link_replication.hpp>
#include <quillonic/offload/offload_error.hpp>

#include <filesystem>

#include "offload/planned_items.hpp"
#include "offload/work.hpp"
#include "platform/item_changes.hpp"

namespace quillonic::offload {
namespace {

namespace fs = std::filesystem;

// Whether what is there is what would be made.
bool isMade(const LinkReplica& replica, const items::Status& there) {
  switch (replica.form) {
    case LinkForm::symbolicLink:
      return items::linkText(replica.place.native()).value_or({}) == replica.target.native();
    case LinkForm::aliasFile:
      return referenceLinkTypeOfItem(replica.place) == ReferenceLinkType::aliasReference &&
             standardizedResolvedAliasReference(replica.place) == replica.target;
    case LinkForm::hardName: {
      const auto other = items::status(replica.target.native());
      return other && items::areSame(*other, there);
    }
    case LinkForm::copy:
      break;
  }
  return false;
}

}  // namespace

// A file gets one more name only if it was copied, and if both names are still those of one file in the
// source: else the new name would be that of other bytes.
std::error_code OffloadRun::Work::errorOfFirstName(const PlannedItem& item, std::size_t target) const {
  const auto first = firstNames_.find(item.origin);
  if (first == firstNames_.end() || !isThere(report_.copy(first->second, target).state)) {
    return OffloadError::targetIsMissing;
  }
  const auto one = items::status(plan_.source + "/" + item.origin);
  const auto other = items::status(plan_.source + "/" + item.path);
  if (!one || !other) return one ? other.error() : one.error();
  return items::areSame(*one, *other) ? std::error_code() : OffloadError::sourceChanged;
}

void OffloadRun::Work::makeLink(std::size_t index, std::size_t t, FoldersBelow& folders) {
  const auto& item = plan_.items[index];
  const auto& target = *targets_[t].plan;
  const auto path = target.writtenPath(item.path);
  // Links are made by paths, which may mean another volume by now.
  const auto folder = folders.folderOf(path);
  if (!folder) return fail(index, t, folder.error());
  if (!isNameOf((fs::path(target.root) / path).parent_path(), **folder)) {
    return fail(index, t, items::systemError(std::errc::no_such_device));
  }
  const LinkReplication how{.source = plan_.source,
                            .copy = target.root,
                            .resolution = plan_.links,
                            .outside = plan_.outside,
                            .writtenPaths = &target.writtenPaths,
                            .volume = target.volume};
  const bool hasFirst = item.kind == PlannedKind::hardName;
  const bool isElsewhere = item.kind == PlannedKind::link && !item.origin.empty();
  const auto source = isElsewhere ? fs::path(item.origin) : fs::path(plan_.source) / item.path;
  const auto first = !hasFirst ? std::nullopt : std::optional(fs::path(plan_.source) / item.origin);
  const auto replica = linkReplica(source, how, first);
  if (replica.refusal == OffloadError::notHeld) {
    copyOf(index, t) = {CopyState::unheld, {}, Unheld::link};
    return;
  }
  if (replica.refusal) return fail(index, t, replica.refusal);
  // What is copied was planned as a file, so that its bytes are verified.
  if (replica.form == LinkForm::copy) return fail(index, t, OffloadError::sourceChanged);
  if (hasFirst) {
    if (const auto error = errorOfFirstName(item, t)) return fail(index, t, error);
  }
  if (const auto there = items::status(nameOf(path), folder->get())) {
    if (!isMade(replica, *there)) return fail(index, t, OffloadError::nameIsTaken);
    copyOf(index, t) = {.state = CopyState::found};
    return;
  }
  offload::makeLink(replica);
  if (replica.form != LinkForm::hardName) {
    items::setModified(nameOf(path), modificationDateOf(item), folder->get());
  }
  setNew(index, t, CopyState::copied);
}

void OffloadRun::Work::makeLinks() {
  for (const auto& item : plan_.items) {
    if (item.kind == PlannedKind::hardName) firstNames_.emplace(item.origin, plan_.items.size());
  }
  for (std::size_t i = 0; i < plan_.items.size() && !firstNames_.empty(); ++i) {
    const auto first = firstNames_.find(plan_.items[i].path);
    if (first != firstNames_.end() && plan_.items[i].kind == PlannedKind::file) first->second = i;
  }
  std::erase_if(firstNames_, [this](const auto& first) { return first.second == plan_.items.size(); });
  auto opened = folders();
  // An alias file can be made, and one that is there be compared, when its target is there, which may be
  // another link: those that miss theirs are tried again until nothing more can be made.
  for (bool isProgress = true; isProgress && !isStopped_;) {
    isProgress = false;
    forEachLink([&](std::size_t item, std::size_t target) {
      try {
        makeLink(item, target, opened.targets[target]);
        isProgress = true;
      } catch (const std::system_error& error) {
        const auto code = error.code();
        fail(item, target, code);
        if (items::isMissing(code) || code == FilePathAttributeGenerationError::aliasTargetNotFound) {
          set(item, target, CopyState::waiting);
        }
      }
    });
  }
  forEachLink([&](std::size_t item, std::size_t target) {
    if (copyOf(item, target).error) set(item, target, CopyState::failed);
  });
}

// Visits links that wait to be made.
void OffloadRun::Work::forEachLink(FunctionRef<void(std::size_t item, std::size_t target)> block) {
  for (std::size_t i = 0; i < plan_.items.size() && !isStopped_; ++i) {
    const auto kind = plan_.items[i].kind;
    if (kind != PlannedKind::link && kind != PlannedKind::hardName) continue;
    for (std::size_t t = 0; t < targets_.size(); ++t) {
      if (copyOf(i, t).state != CopyState::waiting || isCopied(plan_.items[i], targets_[t].plan->volume))
        continue;
      // After a stop, the first name of a file may wait too.
      const auto first = firstNames_.find(plan_.items[i].origin);
      if (kind == PlannedKind::hardName && first != firstNames_.end() &&
          copyOf(first->second, t).state == CopyState::waiting) {
        continue;
      }
      block(i, t);
    }
  }
}

// Innermost folders first, since what is made in a folder changes its date.
void OffloadRun::Work::completeFolders() {
  auto opened = folders();
  for (std::size_t i = plan_.items.size(); i-- > 0;) {
    const auto& item = plan_.items[i];
    if (item.kind != PlannedKind::folder) continue;
    const auto source = item.origin.empty() ? opened.source.open(item.path) : openedRoot(item.origin);
    const auto status = source ? items::statusOfOpen((*source)->descriptor()) : source.error();
    for (std::size_t t = 0; t < targets_.size(); ++t) {
      if (!isThere(copyOf(i, t).state)) continue;
      const auto copy = opened.targets[t].open(targets_[t].plan->writtenPath(item.path));
      if (!status || !copy) {
        fail(i, t, status ? copy.error() : status.error());
        continue;
      }
      copyOf(i, t).unheld =
          copyAttributes((*source)->descriptor(), *status, (*copy)->descriptor(), targets_[t].plan->volume);
      if (targets_[t].plan->volume.syncsAtOnce) continue;
      if (const auto error = items::syncFolder(**copy)) fail(i, t, error);
    }
  }
}

}  // namespace quillonic::offload
