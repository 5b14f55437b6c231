#include <quillonic/host/drive_meter.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>

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

struct DriveMeter::State {
  // A drive and what is remembered of it.
  struct Drive {
    explicit Drive(Clock::duration length) : window(length) {}

    MeasuredDrive shown;
    std::uint64_t sectorsRead = 0;
    std::uint64_t sectorsWritten = 0;
    KeptFile sequenceFile;
    std::string sequence;
    RateWindow<2> window;
    // In the last sample.
    bool isThere = false;
  };

  State(const std::filesystem::path& root, Clock::duration window)
      : length(window), devices(root / "sys"), statisticsFile((root / "proc/diskstats").native()) {}

  // Whether the drive of the last sample still has the name. Its file stays without contents when it goes.
  bool isSame(const Drive& drive) {
    if (!drive.sequenceFile.isOpen()) return true;
    return !drive.sequenceFile.read(sequence) && sequence == drive.sequence;
  }

  void begin(const std::string& name, Drive& drive) {
    const auto device = devices.named(name);
    drive.shown = {};
    drive.shown.name = name;
    drive.shown.isPartition = device && BlockDevices::isPartition(*device);
    drive.sequenceFile = KeptFile(devices.sequenceFile(name));
    static_cast<void>(drive.sequenceFile.read(sequence));
    drive.sequence = sequence;
    drive.window.restart();
  }

  void look(const Line& line, Clock::time_point now) {
    const auto [entry, isNew] = known.try_emplace(std::string(line.name), length);
    auto& [name, drive] = *entry;
    drive.isThere = true;
    const auto read = growth(drive.sectorsRead, line.sectorsRead, passed);
    const auto written = growth(drive.sectorsWritten, line.sectorsWritten, passed);
    drive.sectorsRead = line.sectorsRead;
    drive.sectorsWritten = line.sectorsWritten;
    auto& shown = drive.shown;
    if (isNew || !read || !written || !isSame(drive)) {
      begin(name, drive);
    } else {
      shown.bytesRead += *read * bytesInSector;
      shown.bytesWritten += *written * bytesInSector;
    }
    shown.requestsInFlight = line.inFlight;
    drive.window.add(now, {shown.bytesRead, shown.bytesWritten});
    const auto rates = drive.window.rates();
    shown.bytesReadPerSecond = rates ? std::optional((*rates)[0]) : std::nullopt;
    shown.bytesWrittenPerSecond = rates ? std::optional((*rates)[1]) : std::nullopt;
  }

  std::error_code sample(Clock::time_point now) {
    for (auto& [name, drive] : known) drive.isThere = false;
    const auto error = statisticsFile.read(statistics);
    passed = lastSample ? std::chrono::duration<double>(now - *lastSample).count() : 0;
    lastSample = now;
    if (error) statistics.clear();
    for (auto lines = text::lines(statistics); const auto text = lines.next();) {
      if (const auto line = lineFrom(*text)) look(*line, now);
    }
    std::erase_if(known, [](const auto& entry) { return !entry.second.isThere; });
    drives.clear();
    for (const auto& [name, drive] : known) drives.push_back(drive.shown);
    return error;
  }

  const Clock::duration length;
  BlockDevices devices;
  KeptFile statisticsFile;
  std::map<std::string, Drive> known;
  // Those that are known, by name.
  std::vector<MeasuredDrive> drives;
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
