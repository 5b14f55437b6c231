/// Whether a criterion chooses an item.
///
///     const Selector selector(criterion, calendar);
///     selector.answer(attributes);              // asks the system nothing
///     selector.answer("/card/A001.mov");        // asks it once at most
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attributes.hpp>
#include <quillonic/selection/criterion.hpp>
#include <quillonic/time/calendar.hpp>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

namespace quillonic::selection {

/// What is known about an item decides it, or not: a file system without creation dates leaves "created
/// today" open, as well as "not created today". One open part leaves a combination open unless the others
/// decide it.
enum class Answer : std::uint8_t { no, yes, unknown };

/// A criterion with its time frames resolved, so that all items are compared with the same bounds however
/// long that takes. A value that never changes and that threads share.
class QUILLONIC_EXPORT Selector {
 public:
  /// Resolves the criterion. One system call for each volume that it names; a volume that cannot be looked at
  /// leaves its condition open.
  explicit Selector(const Criterion& criterion, const Calendar& calendar,
                    std::chrono::sys_seconds instant = Calendar::now());

  /// The criterion, with its times as instants.
  const Criterion& criterion() const noexcept;

  /// A place that a volume condition names.
  struct UnseenVolume {
    /// As the condition has it.
    std::filesystem::path place;
    /// Why it could not be looked at.
    std::error_code error;
  };
  /// The volumes that could not be looked at, each once: a host says so before a walk leaves every item
  /// undecided.
  const std::vector<UnseenVolume>& unseenVolumes() const noexcept;

  /// Answers from attributes in hand, and asks the system nothing. Uses `filePathName`, `NSFileType`,
  /// `NSFileSize`, the two dates and `NSFileSystemNumber`. The date of access is no attribute.
  Answer answer(const FileAttributes& attributes) const;

  /// Answers for a path; does not follow a final link. Asks the system once, and not at all if the name
  /// decides. Unknown for an item that cannot be looked at.
  Answer answer(const std::filesystem::path& item) const;

 private:
  friend class TreeWalk;
  struct QUILLONIC_HIDDEN Plan;

  std::shared_ptr<const Plan> plan_;
};

}  // namespace quillonic::selection
