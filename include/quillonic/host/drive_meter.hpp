/// The bytes that drives read and write, as the system counts them.
///
///     const auto below = drivesBelow("/media/RAID");     // {"sda", "sdb"}
///     DriveMeter meter;
///     meter.sample();                                    // on a timer of the host
///     for (const auto& name : below.drives)
///       if (const auto* drive = meter.drive(name)) show(*drive);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quillonic::host {

/// Where the contents of a volume are.
enum class StorageKind : std::uint8_t {
  /// On the drives that are named.
  drives,
  /// In memory.
  memory,
  /// On another machine.
  network,
  /// Unknown: with a program that serves the volume, on drives that the system does not tell, or the system
  /// shows no devices.
  unknown,
};

/// What is below a path.
struct DrivesBelow {
  /// Where the contents are.
  StorageKind kind = StorageKind::unknown;
  /// The system's names of the drives, such as "nvme0n1", in byte order: whole drives, not partitions.
  /// Several for a combined device, and their traffic is more than that of the path. A disk image's own
  /// device is not among them, but the drives that the image is on.
  std::vector<std::string> drives;

  friend bool operator==(const DrivesBelow&, const DrivesBelow&) = default;
};

/// The drives that hold an item, found like `MountTable::holding`: through partitions, encrypted and combined
/// devices, disk images, btrfs, and the changes of an overlay. Reads the mount table and a few small files.
QUILLONIC_EXPORT DrivesBelow drivesBelow(const std::filesystem::path& item);

/// The drives below a mount of a table. `root` is the folder that holds the system's "sys".
QUILLONIC_EXPORT DrivesBelow drivesBelowMount(const Mount& mount, const MountTable& table,
                                              const std::filesystem::path& root = "/");

/// One drive or partition.
struct MeasuredDrive {
  /// The system's name, such as "sda" or "sda1".
  std::string name;
  /// Whether it is a part of another one, which counts its bytes too. False where the system shows no
  /// devices.
  bool isPartition = false;
  /// Since the meter's first sample, or since the drive came. Written means that the system has passed it to
  /// the drive, up to half a minute after a program wrote.
  std::uint64_t bytesRead = 0;
  /// See `bytesRead`.
  std::uint64_t bytesWritten = 0;
  /// Requests that have not been answered. A drive can be pulled when there is none and the volume was
  /// synced.
  std::uint64_t requestsInFlight = 0;
  /// The mean over the last few seconds; absent before the second sample.
  std::optional<double> bytesReadPerSecond;
  /// The mean over the last few seconds; absent before the second sample.
  std::optional<double> bytesWrittenPerSecond;
};

/// Counts what drives read and write, by whatever program. Another drive under the name of an earlier one
/// begins anew, and a counter that wraps at 32 bits goes on. Keeps one descriptor open, and one for each
/// drive. One thread at a time.
class QUILLONIC_EXPORT DriveMeter {
 public:
  /// The clock that moments are read from. It stops while the machine sleeps, when drives do too.
  using Clock = std::chrono::steady_clock;

  /// Reads what the system shows below `root`, in "proc" and "sys". `window` is the time over which speeds
  /// are means.
  explicit DriveMeter(const std::filesystem::path& root = "/",
                      std::chrono::milliseconds window = std::chrono::seconds(3));
  DriveMeter(const DriveMeter&) = delete;
  DriveMeter& operator=(const DriveMeter&) = delete;
  ~DriveMeter();

  /// Reads the counts of all drives. The error where the system shows none; the drives are gone then.
  std::error_code sample(Clock::time_point now = Clock::now());

  /// The drives of the last sample in byte order of their names. Valid until the next sample.
  std::span<const MeasuredDrive> drives() const noexcept;
  /// The drive of a name, or null when there is none, or none any more.
  const MeasuredDrive* drive(std::string_view name) const noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillonic::host
