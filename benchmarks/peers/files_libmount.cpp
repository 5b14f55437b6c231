#include <cstdlib>
#include <libmount.h>

#include "../files.hpp"

namespace quillonic::benchmarks {
namespace {

std::string rootOf(const std::filesystem::path& item) {
  char* const found = mnt_get_mountpoint(item.c_str());
  std::string root(found);
  std::free(found);
  return root;
}

const bool added =
    addRoots("libmount mnt_get_mountpoint", "less: compares device numbers, knows no bind mount", rootOf);

}  // namespace
}  // namespace quillonic::benchmarks
