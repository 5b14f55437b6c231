#include "trees.hpp"

#include <quillonic/support/ordered_tree.hpp>

#include <ext/pb_ds/assoc_container.hpp>
#include <ext/pb_ds/tree_policy.hpp>
#include <iterator>
#include <map>

namespace quillonic::benchmarks {
namespace {

using Ours = OrderedMap<std::uint64_t, std::uint64_t>;
using Standard = std::map<std::uint64_t, std::uint64_t>;
using Statistics = __gnu_pbds::tree<std::uint64_t, std::uint64_t, std::less<>, __gnu_pbds::rb_tree_tag,
                                    __gnu_pbds::tree_order_statistics_node_update>;

template <class Map, class Question>
void addPlaces(const std::string& name, const std::string& who, const std::string& note, Question question) {
  addTreeRow<Map>(name, who, note, [=](Map& map, const Keys& keys) {
    std::size_t sum = 0;
    for (const auto key : keys) sum += question(map, key);
    use(sum);
  });
}

const bool added = [] {
  addTree<Ours>(ours);
  addTree<Standard>("std::map", "less: counts nothing");
  addPlaces<Ours>("rank in", ours, "", [](Ours& map, std::uint64_t key) { return map.rank(key); });
  addPlaces<Statistics>("rank in", "libstdc++'s tree_order_statistics", "",
                        [](Statistics& map, std::uint64_t key) { return map.order_of_key(key); });
  addPlaces<Ours>("n-th of", ours, "",
                  [](Ours& map, std::uint64_t key) { return map.nth(key % map.size())->second; });
  addPlaces<Statistics>(
      "n-th of", "libstdc++'s tree_order_statistics", "",
      [](Statistics& map, std::uint64_t key) { return map.find_by_order(key % map.size())->second; });
  add({"n-th of 1,000 keys, each", "std::map, walking", "", 1'000}, []() -> Work {
    const auto keys = randomKeys(1'000);
    return [keys, map = filled<Standard>(keys)] {
      std::uint64_t sum = 0;
      for (const auto key : keys)
        sum += std::next(map->begin(), static_cast<std::ptrdiff_t>(key % 1'000))->second;
      use(sum);
    };
  });
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
