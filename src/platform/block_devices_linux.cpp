#include "platform/block_devices_linux.hpp"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"

namespace quillonic {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> resolved(const fs::path& path) {
  const auto canonical = items::canonical(path);
  return canonical ? std::optional<fs::path>(*canonical) : std::nullopt;
}

// What the links in a folder point to.
std::vector<fs::path> resolvedEntries(const fs::path& folder) {
  std::vector<fs::path> all;
  const auto opened = items::Folder::open(folder);
  if (!opened) return all;
  for (const auto& entry : items::entries(*opened).value_or({})) {
    if (auto path = resolved(folder / entry.name)) all.push_back(std::move(*path));
  }
  return all;
}

}  // namespace

std::optional<fs::path> BlockDevices::numbered(DeviceNumber number) const {
  return resolved(tree_ / "dev/block" / number.text());
}

std::optional<fs::path> BlockDevices::named(const std::string& name) const {
  return resolved(tree_ / "class/block" / name);
}

bool BlockDevices::isPartition(const fs::path& device) {
  return !items::reach(device / "partition");
}

std::vector<fs::path> BlockDevices::parts(const fs::path& device) {
  return resolvedEntries(device / "slaves");
}

std::optional<fs::path> BlockDevices::imageFile(const fs::path& device) {
  auto file = contentsOfFile(device / "loop/backing_file");
  if (!file) return std::nullopt;
  std::string path = *std::move(file);
  if (path.ends_with('\n')) path.pop_back();
  // What the system adds to the path of a file that was removed.
  constexpr std::string_view removed = " (deleted)";
  if (path.ends_with(removed)) path.resize(path.size() - removed.size());
  return path;
}

std::vector<fs::path> BlockDevices::sharingVolume(const fs::path& device) const {
  const auto volumes = tree_ / "fs/btrfs";
  const auto opened = items::Folder::open(volumes);
  if (!opened) return {};
  for (const auto& volume : items::entries(*opened).value_or({})) {
    auto devices = resolvedEntries(volumes / volume.name / "devices");
    if (std::ranges::find(devices, device) != devices.end()) return devices;
  }
  return {};
}

std::string BlockDevices::sequenceFile(const std::string& name) const {
  return tree_ / "block" / name / "diskseq";
}

}  // namespace quillonic
