/// Volumes that come and go.
///
///     DriveWatcher watcher;
///     loop.watch(watcher.descriptor(), POLLPRI, [&] { watcher.update(); });
///     if (const auto after = watcher.update()) timer.fireEvery(*after, [&] { watcher.update(); });
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/host/notification_center.hpp>
#include <quillonic/platform/disk_descriptions.hpp>
#include <quillonic/support/host_keys.hpp>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace quillonic::host {

/// A volume that came or went.
struct VolumeChange {
  /// The mount point.
  std::filesystem::path volumePath;
  /// The volume as `diskDescriptionOfMount()` gives it; for one that went, as it was when it came.
  DiskDescriptionDictionary description;
  /// The drive is gone although the volume is still mounted: somebody pulled it.
  bool wasPulled = false;

  friend bool operator==(const VolumeChange&, const VolumeChange&) = default;
  /// The values of the description, and "wasPulled", a Boolean: a dictionary for `DiskDescription`.
  QUILLONIC_EXPORT NotificationPayload payload() const;
  /// Reads these values.
  QUILLONIC_EXPORT static std::optional<VolumeChange> fromPayload(const NotificationPayload& values);
};

/// A volume is mounted no more, or its drive was pulled.
inline constexpr NotificationName<VolumeChange> driveDismount{notification_names::driveDismount};
/// A volume was mounted.
inline constexpr NotificationName<VolumeChange> driveMount{"driveMount"};

/// Tells of volumes that come and go by comparing the table of mounts with that of the last look. One thread
/// at a time.
class QUILLONIC_EXPORT DriveWatcher {
 public:
  /// Which volumes are watched.
  enum class Volumes : std::uint8_t {
    /// Those on drives, on other machines and of programs that serve them, as users know them: without
    /// folders that are mounted at a second place.
    drives,
    /// Every mount, also the system's own and those in memory.
    all,
  };

  /// Looks at the table for the first time and posts nothing. Posts at the centre, or at the default one if
  /// it is null.
  explicit DriveWatcher(std::shared_ptr<NotificationCenter> center = nullptr,
                        Volumes watched = Volumes::drives);
  DriveWatcher(const DriveWatcher&) = delete;
  DriveWatcher& operator=(const DriveWatcher&) = delete;
  ~DriveWatcher();

  /// For an event loop: it has exceptional data (POLLPRI and POLLERR) when a mount came or went since it was
  /// last waited for. There is nothing to read from it, and callers must not close it. -1 where the system
  /// does not tell; then call `update()` on a timer.
  int descriptor() const noexcept;

  /// Compares, and posts on this thread: first what went, then what came. What came and went between two
  /// calls is not told of, nor, before Linux 6.8, a volume that took the device and the mount point of
  /// another; hosts that must know call this whenever the descriptor tells. Returns after which time it wants
  /// to be called even if the descriptor does not tell: the system says nothing when a drive is pulled.
  /// Nothing while there is no such drive. What observers throw comes back as from
  /// `NotificationCenter::post`, after everything was posted.
  std::optional<std::chrono::milliseconds> update();

  /// The volumes of the last look, in the order in which they were mounted.
  std::vector<VolumeChange> volumes() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillonic::host
