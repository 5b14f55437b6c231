// Looks for items without mounting anything. Several searches share what was found.
#pragma once

#include <quillonic/platform/mount_table.hpp>
#include <quillonic/support/result.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "platform/volume_names.hpp"

namespace quillonic {

// Lists each folder and follows each link once, so that many searches in the same folders take linear time;
// sees no later changes there.
class LookUps {
 public:
  const MountTable& mounts();
  const VolumeNames& identifiers();
  const VolumeNames& labels();

  // No error when an item exists at an absolute path; does not follow a final link. Wakes no automounter:
  // items below its folder, by the path or through a link in it, count as missing.
  std::error_code reach(const std::string& path);

  // An absolute folder with its links followed; wakes no automounter either.
  Result<std::string> followed(const std::string& folder);
  // Keeps the spelling of an absolute folder without links in its path, whatever takes its place later.
  void keep(std::string_view folder);

  struct Entry {
    std::string folded;
    std::string name;
  };
  // Ascending by folded name, equal ones in byte order.
  struct Listing {
    std::vector<Entry> entries;
    std::error_code error;
  };
  const Listing& listing(const std::string& folder);

 private:
  struct Physical {
    std::string path;
    // The links on the way to it, which are limited as in one look-up of the system.
    int linkCount;
  };
  Result<Physical> physical(std::string_view path, int linksLeft);
  Result<Physical> physicalItem(const std::string& item, const std::string& folder, int linksLeft);
  bool isAutomounted(const std::string& path);
  Listing listed(const std::string& folder);

  std::optional<MountTable> mounts_;
  std::optional<VolumeNames> identifiers_;
  std::optional<VolumeNames> labels_;
  std::unordered_map<std::string, Listing> listings_;
  std::unordered_map<std::string, Result<Physical>> physical_;
};

}  // namespace quillonic
