#include <quillonic/host/drive_meter.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "host/rate_window.hpp"
#include "platform/block_devices_linux.hpp"
#include "platform/kept_file_linux.hpp"
#include "text/find_sorted.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic::host {
namespace {

// Whatever a drive's blocks are.
constexpr std::uint64_t bytesInSector = 512;

struct Line {
  std::string_view name;
  std::uint64_t sectorsRead;
  std::uint64_t sectorsWritten;
  std::uint64_t inFlight;
};

// Nothing for a line of another form.
std::optional<Line> lineFrom(std::string_view text) {
  std::array<std::string_view, 12> fields;
  std::size_t count = 0;
  for (auto pieces = text::split(text, ' '); const auto piece = pieces.next();) {
    if (!piece->empty() && count < fields.size()) fields[count++] = *piece;
  }
  const auto read = number_text::read<std::uint64_t>(fields[5]);
  const auto written = number_text::read<std::uint64_t>(fields[9]);
  const auto inFlight = number_text::read<std::uint64_t>(fields[11]);
  if (!read || !written || !inFlight) return std::nullopt;
  return Line{fields[2], *read, *written, *inFlight};
}

// Sectors since the last look; nothing where the counter fell by more than a wrap at 32 bits explains, since
// no drive is faster than 64 GiB a second: then it counts for another drive.
std::optional<std::uint64_t> growth(std::uint64_t before, std::uint64_t now, double seconds) {
  if (now >= before) return now - before;
  constexpr auto beyond32Bits = std::uint64_t{1} << 32U;
  constexpr double fastest = 64.0 * (1U << 30U) / bytesInSector;
  if (before >= beyond32Bits) return std::nullopt;
  const auto wrapped = beyond32Bits - before + now;
  return static_cast<double>(wrapped) <= fastest * seconds ? std::optional(wrapped) : std::nullopt;
}

}  // namespace

namespace detail {

// What is remembered of a drive and not shown.
struct DriveMemory {
  explicit DriveMemory(Clock::duration length) : window(length) {}

  std::uint64_t sectorsRead = 0;
  std::uint64_t sectorsWritten = 0;
  KeptFile sequenceFile;
  std::string sequence;
  RateWindow<2> window;
  bool isKnown = false;
  // In the last sample.
  bool isThere = false;
};

}  // namespace detail

struct DriveMeter::State {
  using Memory = detail::DriveMemory;

  State(const std::filesystem::path& root, Clock::duration window)
      : length(window), devices(root / "sys"), statisticsFile((root / "proc/diskstats").native()) {}

  // The position of the drive, which is added where it is new.
  std::size_t position(std::string_view name) {
    const auto place = std::ranges::lower_bound(drives, name, {}, &MeasuredDrive::name);
    const auto position = place - drives.begin();
    if (place != drives.end() && place->name == name) return static_cast<std::size_t>(position);
    drives.insert(place, MeasuredDrive())->name = name;
    memories.insert(memories.begin() + position, Memory(length));
    return static_cast<std::size_t>(position);
  }

  // Whether the drive of the last sample still has the name. Its file stays without contents when it goes.
  bool isSame(Memory& memory) {
    if (!memory.sequenceFile.isOpen()) return true;
    return !memory.sequenceFile.read(sequence) && sequence == memory.sequence;
  }

  void begin(MeasuredDrive& drive, Memory& memory) {
    const auto device = devices.named(drive.name);
    drive.isPartition = device && BlockDevices::isPartition(*device);
    drive.bytesRead = drive.bytesWritten = 0;
    memory.sequenceFile = KeptFile(devices.sequenceFile(drive.name));
    static_cast<void>(memory.sequenceFile.read(sequence));
    memory.sequence = sequence;
    memory.window.restart();
  }

  void look(const Line& line, Clock::time_point now) {
    const auto at = position(line.name);
    auto& drive = drives[at];
    auto& memory = memories[at];
    memory.isThere = true;
    const auto isKnown = std::exchange(memory.isKnown, true);
    const auto read = growth(memory.sectorsRead, line.sectorsRead, passed);
    const auto written = growth(memory.sectorsWritten, line.sectorsWritten, passed);
    memory.sectorsRead = line.sectorsRead;
    memory.sectorsWritten = line.sectorsWritten;
    if (!isKnown || !read || !written || !isSame(memory)) {
      begin(drive, memory);
    } else {
      drive.bytesRead += *read * bytesInSector;
      drive.bytesWritten += *written * bytesInSector;
    }
    drive.requestsInFlight = line.inFlight;
    memory.window.add(now, {drive.bytesRead, drive.bytesWritten});
    const auto rates = memory.window.rates();
    drive.bytesReadPerSecond = rates ? std::optional((*rates)[0]) : std::nullopt;
    drive.bytesWrittenPerSecond = rates ? std::optional((*rates)[1]) : std::nullopt;
  }

  void forgetAbsent() {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < drives.size(); ++i) {
      if (!memories[i].isThere) continue;
      if (kept != i) {
        drives[kept] = std::move(drives[i]);
        memories[kept] = std::move(memories[i]);
      }
      ++kept;
    }
    drives.erase(drives.begin() + static_cast<std::ptrdiff_t>(kept), drives.end());
    memories.erase(memories.begin() + static_cast<std::ptrdiff_t>(kept), memories.end());
  }

  std::error_code sample(Clock::time_point now) {
    for (auto& memory : memories) memory.isThere = false;
    const auto error = statisticsFile.read(statistics);
    passed = lastSample ? std::chrono::duration<double>(now - *lastSample).count() : 0;
    lastSample = now;
    if (error) statistics.clear();
    for (auto lines = text::lines(statistics); const auto text = lines.next();) {
      if (const auto line = lineFrom(*text)) look(*line, now);
    }
    forgetAbsent();
    return error;
  }

  const Clock::duration length;
  BlockDevices devices;
  KeptFile statisticsFile;
  // By name; the memory of each is at the same position.
  std::vector<MeasuredDrive> drives;
  std::vector<Memory> memories;
  std::optional<Clock::time_point> lastSample;
  // Between the last two samples, in seconds.
  double passed = 0;
  // Used again in each sample.
  std::string statistics;
  std::string sequence;
};

DriveMeter::DriveMeter(const std::filesystem::path& root, std::chrono::milliseconds window)
    : state_(std::make_unique<State>(root, window)) {}

DriveMeter::~DriveMeter() = default;

std::error_code DriveMeter::sample(Clock::time_point now) {
  return state_->sample(now);
}

std::span<const MeasuredDrive> DriveMeter::drives() const noexcept {
  return state_->drives;
}

const MeasuredDrive* DriveMeter::drive(std::string_view name) const noexcept {
  return findSorted(state_->drives, name, &MeasuredDrive::name);
}

}  // namespace quillonic::host
