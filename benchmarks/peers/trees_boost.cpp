#include <boost/container/map.hpp>

#include "../trees.hpp"

namespace quillonic::benchmarks {
namespace {

namespace container = boost::container;

using Map = container::map<std::uint64_t, std::uint64_t, std::less<std::uint64_t>,
                           std::allocator<std::pair<const std::uint64_t, std::uint64_t>>,
                           container::tree_assoc_options<container::tree_type<container::avl_tree>>::type>;

const bool added = addTree<Map>("boost::container::map (AVL)", "less: counts nothing");

}  // namespace
}  // namespace quillonic::benchmarks
