#include "host/control_groups.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "platform/file_reading_linux.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic::host {
namespace {

namespace fs = std::filesystem;

std::optional<std::int64_t> numberIn(const fs::path& file) {
  return number_text::read<std::int64_t>(textOfFile(file).value_or(""));
}

template <class T> void lower(std::optional<T>& least, std::optional<T> value) {
  if (value && *value >= 0) least = std::min(least.value_or(*value), *value);
}

std::optional<double> share(std::optional<std::int64_t> quota, std::optional<std::int64_t> period) {
  if (!quota || !period || *quota <= 0 || *period <= 0) return std::nullopt;
  return static_cast<double>(*quota) / static_cast<double>(*period);
}

// Each says "max", or in the first version -1 or a huge number, where there is no limit.
void addLimitsOf(const fs::path& group, ControlGroupLimits& limits) {
  const auto maximum = textOfFile(group / "cpu.max").value_or("");
  auto fields = text::split(maximum, ' ');
  const auto quota = number_text::read<std::int64_t>(fields.next().value_or(""));
  const auto period = number_text::read<std::int64_t>(fields.next().value_or(""));
  lower(limits.processors, share(quota, period));
  lower(limits.processors,
        share(numberIn(group / "cpu.cfs_quota_us"), numberIn(group / "cpu.cfs_period_us")));
  lower(limits.memory, numberIn(group / "memory.max"));
  lower(limits.memory, numberIn(group / "memory.limit_in_bytes"));
}

}  // namespace

ControlGroupLimits controlGroupLimits(const fs::path& root) {
  ControlGroupLimits limits;
  const auto mounted = root / "sys/fs/cgroup";
  const auto groups = contentsOfFile(root / "proc/self/cgroup").value_or({});
  // Each line has a number, the controllers and the group: "4:memory:/service", or "0::/service" for the
  // second version.
  for (auto lines = text::lines(groups); const auto line = lines.next();) {
    const auto first = line->find(':');
    const auto second = line->find(':', first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) continue;
    const std::string controllers(line->substr(first + 1, second - first - 1));
    if (!controllers.empty() && !text::hasPiece(controllers, ',', "cpu") && controllers != "memory") continue;
    const auto hierarchy = controllers.empty() ? mounted : mounted / controllers;
    // In a container the group of the outside may be named, and the mounted root be the group itself.
    for (fs::path group = fs::path(line->substr(second + 1)).relative_path();; group = group.parent_path()) {
      addLimitsOf(hierarchy / group, limits);
      if (group.empty()) break;
    }
  }
  return limits;
}

}  // namespace quillonic::host
