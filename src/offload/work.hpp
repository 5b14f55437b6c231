// The parts of a run: preparing, copying files, making links.
#pragma once

#include <quillonic/offload/offload_run.hpp>
#include <quillonic/support/function_ref.hpp>

#include <atomic>
#include <optional>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "offload/copying.hpp"
#include "offload/folders.hpp"

namespace quillonic::offload {

constexpr bool isThere(CopyState state) noexcept {
  return state == CopyState::copied || state == CopyState::verified || state == CopyState::found;
}

class OffloadRun::Work {
 public:
  Work(OffloadPlan plan, RunOptions options);

  const OffloadPlan& plan() const noexcept { return plan_; }
  std::size_t groupCount() const noexcept { return groups_.size(); }
  void run(std::size_t step);
  const OffloadReport& finish();

 private:
  // A range of items.
  struct Group {
    std::size_t begin;
    std::size_t end;
  };

  struct Target {
    const PlannedTarget* plan;
    // Its folder, or why it cannot be opened.
    Result<SharedFolder> root;
    // By path.
    std::unordered_map<std::string_view, const HashListEntry*> verified;
  };

  // The folders that one step has open: those of the source, and of each target.
  struct Folders {
    FoldersBelow source;
    std::vector<FoldersBelow> targets;
  };

  // A file that was written to some targets and waits for their volumes.
  struct Pending {
    std::size_t item;
    Copying copying;
    // Of each of the copying's targets.
    std::vector<std::size_t> targets;
  };

  Folders folders() const;
  ReportedCopy& copyOf(std::size_t item, std::size_t target) {
    return report_.copies[item * plan_.targets.size() + target];
  }
  void set(std::size_t item, std::size_t target, CopyState state) { copyOf(item, target).state = state; }
  void setNew(std::size_t item, std::size_t target, CopyState state) {
    copyOf(item, target) = {.state = state, .isNew = true};
  }
  void fail(std::size_t item, std::size_t target, std::error_code error);
  void failAll(std::size_t item, std::error_code error);
  bool progressed(const OffloadProgress& progress);

  void makeGroups();
  void makeFolders();
  bool isToCopy(std::size_t item, std::size_t target, const Result<SharedFolder>& folder,
                std::vector<std::size_t>& unverified);
  void copyItem(std::size_t item, Folders& folders, std::vector<Pending>& pending);
  void verifyFound(std::size_t item, const SourceFile& source, const std::vector<std::size_t>& targets,
                   Folders& folders, std::optional<std::string> checksum);
  void copyItems(Group items, Folders& folders);
  void sync(std::vector<Pending>& pending);
  void complete(Pending& pending);
  void setChecksum(std::size_t item, const std::string& checksum);
  std::error_code verify(const SourceFile& copy, std::size_t item, std::size_t target,
                         const std::string& checksum);
  void makeLinks();
  void forEachLink(FunctionRef<void(std::size_t item, std::size_t target)> block);
  std::error_code errorOfFirstName(const PlannedItem& item, std::size_t target) const;
  void makeLink(std::size_t item, std::size_t target, FoldersBelow& folders);
  void completeFolders();
  static std::error_code errorOfPlace(const Target& target);

  OffloadPlan plan_;
  RunOptions options_;
  SharedFolder source_;
  std::vector<Target> targets_;
  std::vector<Group> groups_;
  OffloadReport report_;
  // The items that hard names refer to, by path.
  std::unordered_map<std::string_view, std::size_t> firstNames_;
  std::atomic<bool> isStopped_{false};
  // Held by steps while their files are open; alone by a step that found no descriptor left.
  std::shared_mutex descriptors_;
};

}  // namespace quillonic::offload
