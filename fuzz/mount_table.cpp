// Any text as a table of mounts. What is read is written with every byte escaped, and reads back.
#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

std::string escaped(std::string_view text) {
  std::string all;
  for (const char c : text) {
    const unsigned byte = static_cast<unsigned char>(c);
    all.push_back('\\');
    for (const unsigned digit : {byte >> 6, byte >> 3 & 7U, byte & 7U}) all += std::to_string(digit);
  }
  return all;
}

std::string lineOf(const Mount& mount) {
  std::string line;
  for (const auto number : {mount.identifier, mount.parentIdentifier}) line += std::to_string(number) + ' ';
  line += std::to_string(mount.deviceMajor) + ':' + std::to_string(mount.deviceMinor) + ' ';
  line += escaped(mount.root.native()) + " /" + escaped(mount.mountPoint.native().substr(1));
  line += mount.isReadOnly ? " ro shared:1 - " : " rw - ";
  for (const auto& text : {mount.kind, mount.source}) line += escaped(text) + ' ';
  return line + escaped(mount.superOptions) + '\n';
}

}  // namespace

void run(std::string_view bytes) {
  const auto table = MountTable::fromText(bytes);
  const auto mounts = table.mounts();
  require(mounts.size() <= lines(bytes).size(), "a mount takes a line");

  std::string text;
  for (const auto& mount : mounts) text += lineOf(mount);
  const auto again = MountTable::fromText(text);
  require(std::ranges::equal(again.mounts(), mounts), "a table reads back");

  for (const auto& mount : mounts) {
    const auto isSame = [&](const Mount& other) { return other.identifier == mount.identifier; };
    require(table.withIdentifier(mount.identifier) == &*std::ranges::find_if(mounts, isSame),
            "a mount is found by its identifier, the first of equal ones");

    const auto& point = mount.mountPoint.native();
    for (const auto& path : {point, point + "/clip.mov", point + "clip.mov"}) {
      const auto* holder = table.withLongestMountPoint(path);
      // The simplest method: tries the path and each parent folder in turn.
      const Mount* expected = nullptr;
      for (std::size_t size = path.size(); size > 0 && !expected; --size) {
        const bool isFolder = size == path.size() || path[size] == '/' || path[size - 1] == '/';
        for (const auto& candidate : mounts) {
          if (isFolder && candidate.mountPoint.native() == path.substr(0, size)) expected = &candidate;
        }
      }
      require(holder == expected, "the longest mount point holds a path, the last of equal ones");
    }
  }
}

}  // namespace quillonic::fuzz
