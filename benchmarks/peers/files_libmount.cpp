#include <cstdlib>
#include <libmount.h>
#include <memory>

#include "../files.hpp"

namespace quillonic::benchmarks::files {
namespace {

struct Free {
  void operator()(char* text) const { std::free(text); }
};

libmnt_table* table() {
  static libmnt_table* const current = mnt_new_table_from_file("/proc/self/mountinfo");
  return current;
}

const bool added =
    addRoots(
        findingRoots, "libmount mnt_get_mountpoint",
        "less: knows no bind mount, as it compares device numbers",
        [](const std::filesystem::path& item) { return item.native(); },
        [](const std::string& item) { return std::unique_ptr<char, Free>(mnt_get_mountpoint(item.c_str())); },
        [](const auto& root) { return std::string(root.get()); }) &&
    addRoots(
        findingRootsByText, "libmount mnt_table_find_mountpoint",
        "its table is read before the clock runs, as ours is",
        [](const std::filesystem::path& item) { return item.native(); },
        [](const std::string& item) {
          return mnt_table_find_mountpoint(table(), item.c_str(), MNT_ITER_BACKWARD);
        },
        [](libmnt_fs* mount) { return std::string(mnt_fs_get_target(mount)); });

}  // namespace
}  // namespace quillonic::benchmarks::files
