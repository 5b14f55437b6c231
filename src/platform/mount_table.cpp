#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "platform/path_text.hpp"
#include "text/find_sorted.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic {
namespace {

// Spaces, tabs, line breaks and backslashes are written as "\040".
std::string withoutEscapes(std::string_view field) {
  return text::unescaped(field, "\\", 3, 8);
}

std::optional<Mount> mountFromLine(std::string_view line) {
  auto fields = text::split(line, ' ');
  const auto next = [&] { return fields.next().value_or(std::string_view{}); };
  const auto identifier = number_text::read<std::uint64_t>(next());
  const auto parent = number_text::read<std::uint64_t>(next());
  auto device = text::split(next(), ':');
  const auto major = number_text::read<std::uint32_t>(device.next().value_or(std::string_view{}));
  const auto minor = number_text::read<std::uint32_t>(device.next().value_or(std::string_view{}));
  if (!identifier || !parent || !major || !minor) return std::nullopt;
  const auto root = next();
  const auto mountPoint = next();
  const auto options = next();
  for (auto optional = fields.next(); optional != "-"; optional = fields.next()) {
    if (!optional) return std::nullopt;
  }
  const auto kind = next();
  const auto source = next();
  const auto superOptions = fields.next();
  if (!mountPoint.starts_with('/') || !superOptions) return std::nullopt;
  return Mount{.identifier = *identifier,
               .parentIdentifier = *parent,
               .deviceMajor = *major,
               .deviceMinor = *minor,
               .root = withoutEscapes(root),
               .mountPoint = withoutEscapes(mountPoint),
               .kind = withoutEscapes(kind),
               .source = withoutEscapes(source),
               .isReadOnly = text::hasPiece(options, ',', "ro") || text::hasPiece(*superOptions, ',', "ro"),
               .superOptions = withoutEscapes(*superOptions)};
}

}  // namespace

MountTable MountTable::fromText(std::string_view text) {
  MountTable table;
  for (auto lines = text::lines(text); const auto line = lines.next();) {
    if (auto mount = mountFromLine(*line)) table.mounts_.push_back(std::move(*mount));
  }
  table.byIdentifier_.resize(table.mounts_.size());
  std::iota(table.byIdentifier_.begin(), table.byIdentifier_.end(), std::size_t{0});
  std::ranges::stable_sort(table.byIdentifier_, {},
                           [&](std::size_t position) { return table.mounts_[position].identifier; });
  return table;
}

const Mount* MountTable::withIdentifier(std::uint64_t identifier) const noexcept {
  const auto identifierAt = [&](std::size_t position) { return mounts_[position].identifier; };
  const auto* position = findSorted(byIdentifier_, identifier, identifierAt);
  return position ? &mounts_[*position] : nullptr;
}

const Mount* MountTable::withLongestMountPoint(const std::filesystem::path& resolved) const noexcept {
  const Mount* longest = nullptr;
  for (const auto& mount : mounts_) {
    const auto& point = mount.mountPoint.native();
    if (!path_text::isWithin(resolved.native(), point)) continue;
    if (!longest || point.size() >= longest->mountPoint.native().size()) longest = &mount;
  }
  return longest;
}

}  // namespace quillonic
