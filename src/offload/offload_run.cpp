#include <quillonic/offload/offload_error.hpp>
#include <quillonic/offload/offload_run.hpp>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "offload/planned_items.hpp"
#include "offload/whole_seconds.hpp"
#include "offload/work.hpp"
#include "platform/item_changes.hpp"
#include "platform/mount_holding.hpp"

namespace quillonic::offload {
namespace {

namespace fs = std::filesystem;

// A group shares one wait for its volume. Each of its files keeps a descriptor per target open.
constexpr std::size_t greatestGroupSize = 96;
constexpr std::int64_t greatestGroupBytes = std::int64_t{256} << 20;

// The folder of a target, if it is on the volume of the plan: else it is what the volume was mounted on.
Result<SharedFolder> plannedRoot(const PlannedTarget& target) {
  auto root = openedRoot(target.root);
  if (!root) return root;
  const auto mount = mountHolding(target.root);
  const bool isThere =
      target.mountPoint.empty() || (mount && mount->mountPoint == target.mountPoint &&
                                    VolumeTraits::at(target.root).kind == target.volume.kind);
  return isThere ? std::move(root) : items::systemError(std::errc::no_such_device);
}

}  // namespace

OffloadRun::Work::Work(OffloadPlan plan, RunOptions options)
    : plan_(std::move(plan)), options_(std::move(options)) {
  if (!options_.verified.empty() && options_.verified.size() != plan_.targets.size()) {
    throw std::invalid_argument("one list of verified files per target is needed");
  }
  auto source = openedRoot(plan_.source);
  if (!source) throw fs::filesystem_error("cannot open the source", plan_.source, source.error());
  source_ = *std::move(source);
  for (std::size_t i = 0; i < plan_.targets.size(); ++i) {
    auto& target = targets_.emplace_back(Target{&plan_.targets[i], plannedRoot(plan_.targets[i]), {}});
    if (options_.verified.empty()) continue;
    for (const auto& entry : options_.verified[i].entries)
      target.verified.insert_or_assign(entry.file, &entry);
  }
  report_.targetCount = targets_.size();
  report_.copies.resize(plan_.items.size() * targets_.size());
  report_.checksums.resize(plan_.items.size());
  report_.dates.resize(plan_.items.size());
  makeFolders();
  makeGroups();
}

OffloadRun::Work::Folders OffloadRun::Work::folders() const {
  Folders folders{FoldersBelow(source_), {}};
  for (const auto& target : targets_) {
    folders.targets.emplace_back(target.root ? *target.root : SharedFolder());
  }
  return folders;
}

void OffloadRun::Work::fail(std::size_t item, std::size_t target, std::error_code error) {
  auto& copy = copyOf(item, target);
  const bool isStop = error == std::errc::operation_canceled;
  copy.state = isStop ? CopyState::waiting : CopyState::failed;
  copy.error = error;
}

void OffloadRun::Work::failAll(std::size_t item, std::error_code error) {
  for (std::size_t target = 0; target < targets_.size(); ++target) {
    if (copyOf(item, target).state == CopyState::waiting) fail(item, target, error);
  }
}

bool OffloadRun::Work::progressed(const OffloadProgress& progress) {
  if (options_.progress && !options_.progress(progress)) isStopped_ = true;
  return !isStopped_;
}

void OffloadRun::Work::makeGroups() {
  const auto greatestCount =
      std::max<std::size_t>(greatestGroupSize / std::max<std::size_t>(1, targets_.size()), 1);
  std::int64_t bytes = 0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < plan_.items.size(); ++i) {
    const auto& item = plan_.items[i];
    if (!isFile(item)) continue;
    const bool isFull = count == greatestCount || bytes + item.size > greatestGroupBytes;
    if (groups_.empty() || isFull) {
      groups_.push_back({i, i});
      bytes = 0;
      count = 0;
    }
    groups_.back().end = i + 1;
    bytes += item.size;
    ++count;
  }
}

void OffloadRun::Work::makeFolders() {
  auto opened = folders();
  for (std::size_t i = 0; i < plan_.items.size(); ++i) {
    const auto& item = plan_.items[i];
    if (!isBelow(item.path)) failAll(i, std::make_error_code(std::errc::invalid_argument));
    if (item.kind == PlannedKind::none) {
      failAll(i, item.error != 0 ? std::error_code(static_cast<int>(item.error), std::system_category())
                                 : OffloadError::kindIsNotCopied);
    }
    for (std::size_t t = 0; t < targets_.size(); ++t) {
      const auto path = targets_[t].plan->writtenPath(item.path);
      if (copyOf(i, t).state == CopyState::failed) continue;
      if (!targets_[t].root || !isBelow(path)) {
        fail(i, t,
             targets_[t].root ? std::make_error_code(std::errc::invalid_argument) : targets_[t].root.error());
        continue;
      }
      if (item.kind != PlannedKind::folder) continue;
      const auto parent = opened.targets[t].folderOf(path);
      auto error = parent ? items::createFolder(nameOf(path), parent->get()) : parent.error();
      const bool wasThere = error == std::errc::file_exists;
      if (wasThere) {
        const auto there = items::status(nameOf(path), parent->get());
        error = there && there->type == FileType::directory ? std::error_code() : OffloadError::nameIsTaken;
      }
      if (error)
        fail(i, t, error);
      else if (wasThere)
        set(i, t, CopyState::found);
      else
        setNew(i, t, CopyState::copied);
    }
  }
}

// An error when the path of a target's root no longer names the folder that is open.
std::error_code OffloadRun::Work::errorOfPlace(const Target& target) {
  const auto place = items::canonical(target.plan->root);
  const bool isThere = place && isNameOf(*place, **target.root);
  return isThere ? std::error_code() : items::systemError(std::errc::no_such_device);
}

const OffloadReport& OffloadRun::Work::finish() {
  makeLinks();
  if (!isStopped_) completeFolders();
  for (std::size_t t = 0; t < targets_.size(); ++t) {
    const auto& root = targets_[t].root;
    auto error = root ? items::syncVolume(**root) : root.error();
    if (!error && !targets_[t].plan->volume.syncsAtOnce) error = items::syncFolder(**root);
    if (!error) error = errorOfPlace(targets_[t]);
    if (!error) continue;
    // Names that a volume may have lost, or that are no longer there, are not called good.
    for (std::size_t i = 0; i < plan_.items.size(); ++i) {
      if (isThere(copyOf(i, t).state)) fail(i, t, error);
    }
  }
  return report_;
}

std::size_t OffloadReport::count(std::size_t target, CopyState state) const noexcept {
  std::size_t found = 0;
  for (std::size_t at = target; at < copies.size(); at += targetCount) {
    if (copies[at].state == state) ++found;
  }
  return found;
}

bool OffloadReport::isGood() const noexcept {
  return std::ranges::all_of(copies, [](const ReportedCopy& copy) { return isThere(copy.state); });
}

OffloadRun::OffloadRun(OffloadPlan plan, RunOptions options)
    : work_(std::make_unique<Work>(std::move(plan), std::move(options))) {}

OffloadRun::~OffloadRun() = default;

const OffloadPlan& OffloadRun::plan() const noexcept {
  return work_->plan();
}

std::size_t OffloadRun::stepCount() const noexcept {
  return work_->groupCount();
}

void OffloadRun::run(std::size_t step) {
  work_->run(step);
}

const OffloadReport& OffloadRun::finish() {
  return work_->finish();
}

HashList hashListOf(const OffloadPlan& plan, const OffloadReport& report, std::size_t target,
                    const ChecksumKind& kind) {
  HashList list;
  for (std::size_t i = 0; i < plan.items.size(); ++i) {
    const auto& item = plan.items[i];
    if (report.copy(i, target).state != CopyState::verified || report.checksums[i].empty()) continue;
    HashListEntry entry{.file = std::string(plan.targets[target].writtenPath(item.path)),
                        .size = static_cast<std::uint64_t>(item.size),
                        .modified = wholeSeconds(modificationDateOf(item)),
                        .kind = kind.name,
                        .checksum = report.checksums[i],
                        .hashed = report.dates[i]};
    if (HashList::canHold(entry)) list.entries.push_back(std::move(entry));
  }
  return list;
}

}  // namespace quillonic::offload
