// Any bytes as the file of a time zone, and as a rule. What is read has an offset and a first instant for all
// times.
#include <quillonic/time.hpp>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

const sys_seconds first = sys_days(1y / 1 / 1);
const sys_seconds last = sys_days(9999y / 12 / 31);

// Removed at the end of the program.
class File {
 public:
  File() {
    std::string name = std::filesystem::temp_directory_path() / "quillonic-fuzz-XXXXXX";
    const int descriptor = mkstemp(name.data());
    require(descriptor >= 0, "a temporary file can be made");
    close(descriptor);
    path_ = name;
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { unlink(path_.c_str()); }

  const std::string& holding(std::string_view bytes) const {
    // A new one: some file systems wait for the disk when a file is emptied and written again.
    unlink(path_.c_str());
    std::ofstream(path_, std::ios::binary) << bytes;
    return path_;
  }

 private:
  std::string path_;
};

// Times that the bytes may be about: every number in them, and some of each century.
std::vector<sys_seconds> instants(std::string_view bytes) {
  std::vector<sys_seconds> found;
  for (auto t = first; t < last; t += hours(24) * 5003) found.push_back(t);
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(bytes.size(), 4096); ++i) {
    number = number << 8 | static_cast<unsigned char>(bytes[i]);
    for (const auto value :
         {static_cast<std::int64_t>(number), std::int64_t{static_cast<std::int32_t>(number)}}) {
      const sys_seconds t(std::clamp(seconds(value), first.time_since_epoch(), last.time_since_epoch()));
      found.insert(found.end(), {t, t - 1s});
    }
  }
  std::ranges::sort(found);
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

void checkTimes(const TimeZone& zone, const std::vector<sys_seconds>& times) {
  const auto shown = [&](sys_seconds t) { return local_seconds((t + zone.offset(t)).time_since_epoch()); };
  for (const auto t : times) {
    require(abs(zone.offset(t)) <= 26h, "no zone is far from UTC");
    const auto begin = zone.firstInstant(shown(t));
    require(begin <= t && shown(begin) >= shown(t) && shown(begin - 1s) < shown(t),
            "the first instant shows the time or a later one, and none before it does");
  }
}

}  // namespace

void run(std::string_view bytes) {
  static const File file;
  if (const auto zone = TimeZone::fromName(file.holding(bytes))) checkTimes(*zone, instants(bytes));
  // A name with a slash would be that of some other file.
  if (bytes.find('/') == std::string_view::npos || bytes.find(',') != std::string_view::npos) {
    if (const auto zone = TimeZone::fromName(bytes)) checkTimes(*zone, instants({}));
  }
}

}  // namespace quillonic::fuzz
