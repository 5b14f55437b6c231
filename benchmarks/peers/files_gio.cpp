#include <gio/gio.h>
#include <gio/gunixmounts.h>
#include <memory>

#include "../files.hpp"

namespace quillonic::benchmarks::files {
namespace {

struct Free {
  void operator()(GUnixMountEntry* mount) const { g_unix_mount_free(mount); }
  void operator()(GFile* file) const { g_object_unref(file); }
  void operator()(GFileInfo* info) const { g_object_unref(info); }
};
template <class T> using Owned = std::unique_ptr<T, Free>;

constexpr auto asked = "standard::type,standard::size,time::modified,time::created,unix::*";

const bool added =
    addRoots(
        findingRoots, "g_unix_mount_for", "reads the table of mounts for every path",
        [](const std::filesystem::path& item) { return item.native(); },
        [](const std::string& item) {
          return Owned<GUnixMountEntry>(g_unix_mount_for(item.c_str(), nullptr));
        },
        [](const auto& mount) { return std::string(g_unix_mount_get_mount_path(mount.get())); }) &&
    addAttributes(
        "g_file_query_info", "less: names of owner and group not asked for",
        [](const std::filesystem::path& item) {
          return std::shared_ptr<GFile>(g_file_new_for_path(item.c_str()), Free());
        },
        [](const std::shared_ptr<GFile>& item) {
          return Owned<GFileInfo>(
              g_file_query_info(item.get(), asked, G_FILE_QUERY_INFO_NOFOLLOW_SYMLINKS, nullptr, nullptr));
        },
        [](const auto& info) { return g_file_info_get_size(info.get()); });

}  // namespace
}  // namespace quillonic::benchmarks::files
