#include <quillonic/host/drive_meter.hpp>
#include <quillonic/host/drive_watcher.hpp>
#include <quillonic/platform/logging.hpp>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "host/post_all.hpp"
#include "platform/block_devices_linux.hpp"
#include "platform/disk_description_keys.hpp"
#include "platform/file_system_kinds.hpp"
#include "platform/kept_file_linux.hpp"
#include "platform/mount_holding.hpp"

namespace quillonic::host {
namespace {

constexpr std::string_view pulledKey = "wasPulled";
// How soon a pulled drive is noticed.
constexpr std::chrono::seconds pullInterval(2);

// A volume of its own that users know: not the system's tables, nor a folder that is mounted once more.
bool isDrive(const Mount& mount) {
  const bool isWhole = mount.root == "/" || mount.kind == "btrfs";
  if (!isWhole || mount.kind == "fusectl") return false;
  return deviceOf(mount).major != 0 || isNetworkVolume(mount).value_or(true);
}

// Whether two looks saw the same mount; a remounted volume may have other options.
bool isSame(const Mount& a, const Mount& b) {
  const auto identity = [](const Mount& mount) {
    return std::tie(mount.identifier, mount.deviceMajor, mount.deviceMinor, mount.mountPoint, mount.root,
                    mount.kind, mount.source);
  };
  return identity(a) == identity(b);
}

}  // namespace

NotificationPayload VolumeChange::payload() const {
  NotificationPayload values(description);
  values.insert_or_assign(std::string(pulledKey), wasPulled);
  return values;
}

std::optional<VolumeChange> VolumeChange::fromPayload(const NotificationPayload& values) {
  const auto pathEntry = values.find(disk_description_keys::volumePath);
  const auto pulledEntry = values.find(pulledKey);
  if (pathEntry == values.end() || pulledEntry == values.end()) return std::nullopt;
  const auto path = pathEntry->second.as<std::filesystem::path>();
  const auto wasPulled = pulledEntry->second.as<bool>();
  if (!path || !wasPulled) return std::nullopt;
  VolumeChange change{*path, values, *wasPulled};
  change.description.erase(std::string(pulledKey));
  return change;
}

struct DriveWatcher::State {
  struct Volume {
    Mount mount;
    std::optional<std::uint64_t> number;  // tells it from one that was mounted in its place
    std::vector<std::string> drives;
    VolumeChange change;
  };

  State(std::shared_ptr<NotificationCenter> postsAt, Volumes which)
      : center(std::move(postsAt)), watched(which), devices("/sys"), tableFile("/proc/self/mountinfo") {}

  // The mounts to watch; nothing where they cannot be read, which is no reason to call them gone.
  std::optional<MountTable> readTable() {
    if (const auto error = tableFile.read(text)) {
      VantiroLogging::defaultLogger()->logWarning("QLC_DW_U-Failed to read the mount table with error " +
                                                  error.message());
      return std::nullopt;
    }
    return MountTable::fromText(text);
  }

  bool isWatched(const Mount& mount) const { return watched == Volumes::all || isDrive(mount); }

  bool isPulled(const Volume& volume) const {
    return std::ranges::any_of(volume.drives, [&](const auto& name) { return !devices.named(name); });
  }

  // What is to be posted.
  std::vector<Notification> changes() {
    std::vector<Notification> changes;
    const auto noteGone = [&](const VolumeChange& change) {
      changes.push_back({std::string(driveDismount.text), change.payload()});
    };
    const auto table = readTable();
    if (!table) return changes;
    std::vector<Volume> current;
    std::vector<Notification> arrivals;
    for (const auto& mount : table->mounts()) {
      if (!isWatched(mount)) continue;
      // A server that does not answer must not hold the look up.
      const auto number = isNetworkVolume(mount).value_or(true) ? std::nullopt : lastingIdentifier(mount);
      const auto known = std::ranges::find_if(volumes, [&](const auto& v) {
        return isSame(v.mount, mount) && (!number || !v.number || number == v.number);
      });
      if (known == volumes.end()) {
        current.push_back({mount,
                           number,
                           drivesBelowMount(mount, *table).drives,
                           {mount.mountPoint, diskDescriptionOfMount(mount), false}});
        arrivals.push_back({std::string(driveMount.text), current.back().change.payload()});
      } else {
        current.push_back(std::move(*known));
        // A mount that was covered had none.
        if (number) current.back().number = number;
        volumes.erase(known);
      }
    }
    for (const auto& gone : volumes) {
      if (!gone.change.wasPulled) noteGone(gone.change);
    }
    volumes = std::move(current);
    for (auto& volume : volumes) {
      if (volume.change.wasPulled || !isPulled(volume)) continue;
      volume.change.wasPulled = true;
      noteGone(volume.change);
    }
    std::ranges::move(arrivals, std::back_inserter(changes));
    return changes;
  }

  const std::shared_ptr<NotificationCenter> center;
  const Volumes watched;
  const BlockDevices devices;
  const KeptFile tableFile;
  std::vector<Volume> volumes;
  std::string text;
};

DriveWatcher::DriveWatcher(std::shared_ptr<NotificationCenter> center, Volumes watched)
    : state_(std::make_unique<State>(center ? std::move(center) : NotificationCenter::current(), watched)) {
  static_cast<void>(state_->changes());
}

DriveWatcher::~DriveWatcher() = default;

int DriveWatcher::descriptor() const noexcept {
  return state_->tableFile.descriptor();
}

std::optional<std::chrono::milliseconds> DriveWatcher::update() {
  postAll(*state_->center, state_->changes());
  const bool canBePulled = std::ranges::any_of(
      state_->volumes, [](const auto& v) { return !v.drives.empty() && !v.change.wasPulled; });
  return canBePulled ? std::optional<std::chrono::milliseconds>(pullInterval) : std::nullopt;
}

std::vector<VolumeChange> DriveWatcher::volumes() const {
  std::vector<VolumeChange> volumes;
  for (const auto& volume : state_->volumes) volumes.push_back(volume.change);
  return volumes;
}

}  // namespace quillonic::host
