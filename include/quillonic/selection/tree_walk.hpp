/// The items below a folder that a criterion chooses.
///
///     class Printer : public WalkObserver {
///       void chosen(const WalkItem& item, bool& stop) override { std::cout << item.path << '\n'; }
///     };
///     Printer printer;
///     const WalkSummary summary = walkTree("/card", Selector(criterion, calendar), {}, printer);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/file_type.hpp>
#include <quillonic/selection/selector.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace quillonic::selection {

/// An item that a walk came to.
struct WalkItem {
  /// The bytes of its path, which begins with the folder as given. Valid until the call returns.
  std::string_view path;
  /// Unknown only if the item could not be looked at.
  FileType type = FileType::unknown;
  /// The size in bytes, if the criterion asked for it.
  std::optional<std::uint64_t> size;
};

/// What a walk has done so far.
struct WalkSummary {
  /// Items that were compared with the criterion.
  std::uint64_t seen = 0;
  /// Those that it chose.
  std::uint64_t chosen = 0;
  /// Those that what is known did not decide, as by a date that the volume does not record. They are not
  /// chosen.
  std::uint64_t undecided = 0;
  /// Folders and items that could not be read.
  std::uint64_t unread = 0;
  /// Whether an observer stopped the walk.
  bool isStopped = false;

  friend bool operator==(const WalkSummary&, const WalkSummary&) = default;
};

/// What a host does with what a walk finds. Calls come on the thread of the walk, in the walk's order;
/// setting `stop` ends it.
class QUILLONIC_EXPORT WalkObserver {
 public:
  WalkObserver() = default;
  WalkObserver(const WalkObserver&) = delete;
  WalkObserver& operator=(const WalkObserver&) = delete;
  virtual ~WalkObserver();

  /// The criterion chose an item.
  virtual void chosen(const WalkItem& item, bool& stop) = 0;
  /// The criterion could not decide about an item.
  virtual void undecided(const WalkItem& item);
  /// An item could not be looked at, or a folder not be read or not to its end. Its path is valid until the
  /// call returns. What vanishes during the walk is not told.
  virtual void unread(std::string_view path, std::error_code error);
  /// Comes with each folder, and with every 1,000 items of a large one.
  virtual void progressed(const WalkSummary& soFar, bool& stop);
};

/// How far a walk goes.
struct WalkOptions {
  /// Whether to see hidden items, and what is in hidden folders, although the criterion does not ask for
  /// hidden ones. One with `hidden` in it always sees them.
  bool seesHidden = false;
  /// Whether to see what is on volumes mounted below the folder. The mount points themselves are seen anyway.
  /// If not, no automounter is woken.
  bool entersMountPoints = false;
};

/// Compares every item below a folder with a criterion: by byte order of names, each folder before what is in
/// it. Links are not followed, but for the folder itself. Asks the system once about each item that its name
/// and the kind that its folder tells do not decide, and only for what the criterion needs. Keeps the chosen
/// names of one folder at each level in memory; depth and lengths of paths have no limit. A folder that
/// cannot be read is told and skipped. Exceptions of the observer end the walk and pass through.
QUILLONIC_EXPORT WalkSummary walkTree(const std::filesystem::path& folder, const Selector& selector,
                                      const WalkOptions& options, WalkObserver& observer);

}  // namespace quillonic::selection
