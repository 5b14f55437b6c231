#include <quillonic/offload/offload_error.hpp>

#include <chrono>
#include <mutex>
#include <shared_mutex>
#include <utility>

#include "offload/planned_items.hpp"
#include "offload/whole_seconds.hpp"
#include "offload/work.hpp"
#include "platform/item_changes.hpp"

namespace quillonic::offload {

// Whether a file is missing in a target. Adds the target to `unverified` if the file is there.
bool OffloadRun::Work::isToCopy(std::size_t index, std::size_t t, const Result<SharedFolder>& folder,
                                std::vector<std::size_t>& unverified) {
  const auto& item = plan_.items[index];
  const auto& target = targets_[t];
  const auto& volume = target.plan->volume;
  auto& copy = copyOf(index, t);
  if (copy.state != CopyState::waiting || !isCopied(item, volume)) return false;
  if (isTooLarge(item, volume)) {
    copy = {CopyState::unheld, {}, Unheld::size};
    return false;
  }
  const auto path = target.plan->writtenPath(item.path);
  const auto there = folder ? items::status(nameOf(path), folder->get()) : folder.error();
  if (folder && !there && items::isMissing(there.error())) return true;
  if (!there || !hasSizeOf(item, *there)) {
    fail(index, t, there ? OffloadError::nameIsTaken : there.error());
    return false;
  }
  const bool hasDate = hasDateOf(item, *there, volume);
  const auto listed = target.verified.find(path);
  const bool isListed = listed != target.verified.end() && listed->second->size == there->size &&
                        listed->second->modified == wholeSeconds(modificationDateOf(item));
  if (hasDate && (isListed || !options_.checksum)) {
    copy.state = CopyState::found;
  } else if (options_.checksum) {
    // Some volumes hold no dates: the bytes decide.
    if (!hasDate) copy.unheld = Unheld::date;
    unverified.push_back(t);
  } else {
    fail(index, t, OffloadError::nameIsTaken);
  }
  return false;
}

void OffloadRun::Work::copyItem(std::size_t index, Folders& folders, std::vector<Pending>& pending) {
  const auto& item = plan_.items[index];
  Pending next{index, {}, {}};
  std::vector<std::size_t> unverified;
  for (std::size_t t = 0; t < targets_.size(); ++t) {
    const auto path = targets_[t].plan->writtenPath(item.path);
    const auto folder = targets_[t].root ? folders.targets[t].folderOf(path) : targets_[t].root.error();
    if (!isToCopy(index, t, folder, unverified)) continue;
    next.copying.addTarget(nameOf(path), folder, targets_[t].plan->volume);
    next.targets.push_back(t);
  }
  if (next.targets.empty() && unverified.empty()) return;

  const bool isElsewhere = item.kind == PlannedKind::file && !item.origin.empty();
  const auto folder = isElsewhere ? Result<SharedFolder>(SharedFolder()) : folders.source.folderOf(item.path);
  const auto source = folder ? SourceFile::open(isElsewhere ? item.origin : nameOf(item.path), folder->get())
                             : folder.error();
  if (!source) return failAll(index, source.error());
  const bool isAsPlanned = source->status().size == static_cast<std::uint64_t>(item.size) &&
                           source->status().modified == modificationDateOf(item);
  if (!isAsPlanned) return failAll(index, OffloadError::sourceChanged);

  if (!next.targets.empty()) {
    std::uint64_t reported = 0;
    const auto report = [&](std::uint64_t bytes) {
      bool goesOn = true;
      for (const auto t : next.targets)
        goesOn = progressed({.target = t, .item = index, .copied = bytes - reported}) && goesOn;
      reported = bytes;
      return goesOn;
    };
    if (const auto error = next.copying.write(*source, options_.checksum, report)) {
      return failAll(index, error);
    }
    if (next.copying.checksum()) setChecksum(index, *next.copying.checksum());
  }
  verifyFound(index, *source, unverified, folders, next.copying.checksum());
  if (!next.targets.empty()) pending.push_back(std::move(next));
}

std::error_code OffloadRun::Work::verify(const SourceFile& copy, std::size_t item, std::size_t target,
                                         const std::string& checksum) {
  std::uint64_t reported = 0;
  const auto report = [&](std::uint64_t bytes) {
    const bool goesOn = progressed({.target = target, .item = item, .verified = bytes - reported});
    reported = bytes;
    return goesOn;
  };
  const auto read = checksumOf(copy, *options_.checksum, report);
  if (!read) return read.error();
  return *read == checksum ? std::error_code() : OffloadError::contentDiffers;
}

void OffloadRun::Work::setChecksum(std::size_t item, const std::string& checksum) {
  report_.checksums[item] = checksum;
  report_.dates[item] = wholeSeconds(std::chrono::system_clock::now());
}

// Verifies copies of an earlier run, of which nobody knows whether they were.
void OffloadRun::Work::verifyFound(std::size_t index, const SourceFile& source,
                                   const std::vector<std::size_t>& targets, Folders& folders,
                                   std::optional<std::string> checksum) {
  if (targets.empty()) return;
  if (!checksum) {
    const auto goesOn = [&](std::uint64_t) { return progressed({.target = targets.front(), .item = index}); };
    auto read = checksumOf(source, *options_.checksum, goesOn);
    if (!read || !source.isUnchanged()) {
      return failAll(index, read ? OffloadError::sourceChanged : read.error());
    }
    checksum = *std::move(read);
    setChecksum(index, *checksum);
  }
  for (const auto t : targets) {
    const auto path = targets_[t].plan->writtenPath(plan_.items[index].path);
    const auto folder = folders.targets[t].folderOf(path);
    const auto copy = folder ? SourceFile::open(nameOf(path), folder->get()) : folder.error();
    const auto error = copy ? verify(*copy, index, t, *checksum) : copy.error();
    if (error)
      fail(index, t, error);
    else
      set(index, t, CopyState::verified);
  }
}

// Waits until the volumes have the bytes of all files of a group.
void OffloadRun::Work::sync(std::vector<Pending>& pending) {
  for (std::size_t t = 0; t < targets_.size(); ++t) {
    std::vector<Copying::Target*> written;
    for (auto& file : pending) {
      for (std::size_t i = 0; i < file.targets.size(); ++i) {
        if (file.targets[i] == t && file.copying.targets()[i].file)
          written.push_back(&file.copying.targets()[i]);
      }
    }
    // Few files are waited for alone, so that other programs' bytes are not waited for too.
    const bool isAtOnce = targets_[t].plan->volume.syncsAtOnce && written.size() > 4;
    const auto error = isAtOnce ? items::syncVolume(**targets_[t].root) : std::error_code();
    for (auto* target : written) Copying::settle(*target, isAtOnce ? error : target->file->sync());
  }
}

void OffloadRun::Work::complete(Pending& pending) {
  for (std::size_t i = 0; i < pending.targets.size(); ++i) {
    auto& target = pending.copying.targets()[i];
    const auto t = pending.targets[i];
    auto error = target.error;
    if (!error && options_.checksum && isStopped_) error = items::systemError(std::errc::operation_canceled);
    if (!error && options_.checksum) {
      const auto copy = target.file->reading();
      error = copy ? verify(*copy, pending.item, t, *pending.copying.checksum()) : copy.error();
    }
    if (!error) error = target.file->publish(target.name);
    if (error) {
      Copying::settle(target, error);
      fail(pending.item, t, error);
    } else {
      setNew(pending.item, t, options_.checksum ? CopyState::verified : CopyState::copied);
      const bool isLinkLost = plan_.items[pending.item].kind == PlannedKind::hardName;
      copyOf(pending.item, t).unheld = isLinkLost ? target.unheld | Unheld::link : target.unheld;
    }
  }
}

void OffloadRun::Work::copyItems(Group items, Folders& folders) {
  std::vector<Pending> pending;
  for (auto item = items.begin; item < items.end && !isStopped_; ++item) {
    if (isFile(plan_.items[item])) copyItem(item, folders, pending);
  }
  // After a stop, what still has to be verified is dropped: nothing needs to wait for its volume.
  if (!isStopped_ || !options_.checksum) sync(pending);
  for (auto& file : pending) complete(file);
}

void OffloadRun::Work::run(std::size_t step) {
  const auto group = groups_[step];
  auto opened = folders();
  {
    const std::shared_lock lock(descriptors_);
    copyItems(group, opened);
  }
  for (auto item = group.begin; item < group.end; ++item) {
    if (!isFile(plan_.items[item])) continue;
    // Files for which the process had no descriptor left are copied one at a time, while no other step has
    // any open. A file whose name was taken meanwhile, by another program that copies it, is compared.
    bool isLeft = false;
    for (std::size_t t = 0; t < targets_.size(); ++t) {
      auto& copy = copyOf(item, t);
      if (copy.error != std::errc::too_many_files_open && copy.error != std::errc::file_exists) continue;
      copy = {};
      isLeft = true;
    }
    if (!isLeft) continue;
    const std::unique_lock lock(descriptors_);
    copyItems({item, item + 1}, opened);
    for (std::size_t t = 0; t < targets_.size(); ++t) {
      if (copyOf(item, t).error == std::errc::file_exists) fail(item, t, OffloadError::nameIsTaken);
    }
  }
}

}  // namespace quillonic::offload
