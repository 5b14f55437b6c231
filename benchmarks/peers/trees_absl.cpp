#include <absl/container/btree_map.h>

#include "../trees.hpp"

namespace quillonic::benchmarks {
namespace {

const bool added = addTree<absl::btree_map<std::uint64_t, std::uint64_t>>(
    "absl::btree_map", "less: counts nothing, and its elements move");

}  // namespace
}  // namespace quillonic::benchmarks
