/// Runs a planned offload: copies each file to all targets with one reading, verifies, relinks, reports.
///
///     offload::OffloadRun run(std::move(plan), {.checksum = &offload::xxh64});
///     for (std::size_t step = 0; step < run.stepCount(); ++step) run.run(step);   // or on several threads
///     const auto& report = run.finish();
///     if (!report.isGood()) ...
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/offload/checksum.hpp>
#include <quillonic/offload/hash_list.hpp>
#include <quillonic/offload/offload_plan.hpp>
#include <quillonic/platform/unheld.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace quillonic::offload {

/// What became of an item in a target.
enum class CopyState : std::uint8_t {
  /// Nothing yet, or stopped before.
  waiting,
  /// It is there. Nothing was verified: no checksum was asked for, or the item has no content.
  copied,
  /// It is there, and its bytes were read back from the volume.
  verified,
  /// It was there before: a file that a list calls verified or, without a checksum, has its source's size and
  /// date; a link that is what would be made; a folder. What else it lacks of its source is not told again.
  found,
  /// The volume cannot hold it.
  unheld,
  /// It is not there, or is not good.
  failed,
};

/// One item in one target.
struct ReportedCopy {
  /// What became of it.
  CopyState state = CopyState::waiting;
  /// Why it failed, or waits.
  std::error_code error = {};
  /// What it lacks of its source.
  Unheld unheld = {};
  /// Whether this run made it.
  bool isNew = false;
};

/// What became of every item.
struct QUILLONIC_EXPORT OffloadReport {
  /// The number of targets.
  std::size_t targetCount = 0;
  /// By item, and within an item by target, as in the plan.
  std::vector<ReportedCopy> copies;
  /// The checksums of the files that were read, by item; empty for others.
  std::vector<std::string> checksums;
  /// When each checksum was computed, by item.
  std::vector<Date> dates;

  /// One item in one target.
  const ReportedCopy& copy(std::size_t item, std::size_t target) const noexcept {
    return copies[item * targetCount + target];
  }
  /// The number of items of a target in a state.
  std::size_t count(std::size_t target, CopyState state) const noexcept;
  /// Whether every item is in every target, copied, verified or found: none is unheld.
  bool isGood() const noexcept;
};

/// What was done for one target since the last call.
struct OffloadProgress {
  /// Its number.
  std::size_t target = 0;
  /// The number of the item that is worked on.
  std::size_t item = 0;
  /// Bytes copied.
  std::uint64_t copied = 0;
  /// Bytes read back.
  std::uint64_t verified = 0;
};

/// How a plan is run.
struct RunOptions {
  /// Computed from what is read, and compared with what is read back. Null copies without verifying. Must
  /// outlive the run.
  const ChecksumKind* checksum = nullptr;
  /// By target: lists of earlier runs. A copy that is there with size and date, and in the list with these
  /// and a checksum, counts as verified. A list that came with the source says nothing of the copies: do not
  /// pass it. Other copies that are there are verified anew, against the source.
  std::vector<HashList> verified = {};
  /// Called on the thread of each step, so on several at once if steps run so; without new bytes while only
  /// the source is read. False stops all steps.
  std::function<bool(const OffloadProgress&)> progress = {};
};

/// One run. An item gets its name in a target when its bytes are on the volume and verified; so what is there
/// with size and date is whole, and a later run of the same or a new plan copies only the rest.
/// Nothing is ever replaced: another item under the name is `OffloadError::nameIsTaken`, unless it is a file
/// of the same size and, by its checksum, the same bytes. Nothing is written where a target's volume was
/// pulled or is not mounted as planned, and nothing is good in a target that was moved or unmounted
/// meanwhile.
///
/// A stop costs what each step was copying: without a checksum one file, else its files that are not verified
/// yet, together at most 256 MiB, or one larger file. Their items wait, with `std::errc::operation_canceled`
/// where something was lost. Callers that run no further step stop too, and lose nothing.
class QUILLONIC_EXPORT OffloadRun {
 public:
  /// Opens the source and the targets, which stay open, and makes the folders. Throws a `std::system_error`
  /// when the source is not there. A target that is not there fails item by item, and so does an item whose
  /// path points out of the source. Throws `std::invalid_argument` unless `verified` is empty or has a list
  /// per target.
  OffloadRun(OffloadPlan plan, RunOptions options);
  OffloadRun(const OffloadRun&) = delete;
  OffloadRun& operator=(const OffloadRun&) = delete;
  ~OffloadRun();

  /// The plan.
  const OffloadPlan& plan() const noexcept;
  /// The number of steps: groups of files, each independent of the others.
  std::size_t stepCount() const noexcept;
  /// Runs one step; several threads may run different ones. Each must be run at most once. Never throws for
  /// a file's fault; takes one buffer of 256 KiB, and up to 96 descriptors where there are so many.
  void run(std::size_t step);
  /// Makes the links, gives folders their attributes, waits until the targets' volumes have everything, and
  /// reports. Call it once, when no step runs any more, also after a stop.
  const OffloadReport& finish();

 private:
  class QUILLONIC_HIDDEN Work;
  std::unique_ptr<Work> work_;
};

/// The list of the files that a run verified in one target, without those it found, to be completed with who
/// made it. Paths are those in the target. Leaves out what the form cannot hold.
QUILLONIC_EXPORT HashList hashListOf(const OffloadPlan& plan, const OffloadReport& report, std::size_t target,
                                     const ChecksumKind& kind);

}  // namespace quillonic::offload

/// The states and their texts.
template <> struct quillonic::CaseTable<quillonic::offload::CopyState> {
  static constexpr auto rows = std::to_array<CaseRow<offload::CopyState>>({
      {offload::CopyState::waiting, "waiting"},
      {offload::CopyState::copied, "copied"},
      {offload::CopyState::verified, "verified"},
      {offload::CopyState::found, "found"},
      {offload::CopyState::unheld, "unheld"},
      {offload::CopyState::failed, "failed"},
  });
};
