#include <quillonic/support/ordered_tree.hpp>

#include <gtest/gtest.h>
#include <map>
#include <memory_resource>
#include <sstream>
#include <string>
#include <string_view>

namespace quillonic {
namespace {

// What programs do with a map.
template <class Map> std::string used() {
  std::ostringstream told;
  const auto tell = [&](const auto&... values) { ((told << values << ' '), ...); };
  Map map{{"b", 2}, {"a", 1}, {"b", 3}};
  map["c"] += 4;
  map.insert({{"e", 5}, {"d", 6}});
  tell(map.insert(std::pair("a", 9)).second, map.insert_or_assign("a", 7).second,
       map.try_emplace("f", 8).second);
  map.emplace_hint(map.end(), "g", 9);
  map.insert(map.find("b"), {"ab", 1});
  tell(map.at("a"), map.count("b"), map.contains(std::string_view("zz")), map.lower_bound("bb")->first);
  tell(map.upper_bound("c")->first, map.equal_range("d").first->second, map.find("x") == map.end());
  try {
    map.at("x");
  } catch (const std::out_of_range&) {
    tell("absent");
  }
  auto node = map.extract("a");
  node.key() = "z";
  node.mapped() = 26;
  const auto inserted = map.insert(std::move(node));
  tell(inserted.inserted, inserted.position->first, node.empty(), map.extract("none").empty());
  Map copy = map, target{{"q", 1}};
  tell(copy == map, copy < map, copy.erase("z"), copy < map);
  target = std::move(copy);
  target.merge(map);
  swap(target, map);
  tell(map.size(), target.size(), erase_if(map, [](const auto& entry) { return entry.second % 2 == 0; }));
  tell(map.erase(map.begin())->first, std::prev(map.end())->first, map.rbegin()->second,
       map.value_comp()(*map.begin(), *map.rbegin()));
  map.erase(map.begin(), map.find("g"));
  for (const auto& [key, value] : map) tell(key, value);
  return told.str();
}

TEST(OrderedTree, IsUsedAsAMap) {
  const auto expected = used<std::map<std::string, int, std::less<>>>();
  EXPECT_EQ((used<OrderedMap<std::string, int, std::less<>>>()), expected);
}

// Elements move one by one where memory cannot.
TEST(OrderedTree, KeepsItsAllocator) {
  using Texts = OrderedSet<std::string, std::less<>, std::pmr::polymorphic_allocator<std::string>>;
  std::pmr::unsynchronized_pool_resource here, there;
  Texts texts({"b", "a", "c"}, &here);
  Texts moved(std::move(texts), &there);
  EXPECT_TRUE(moved.get_allocator().resource() == &there && texts.empty() && *moved.nth(2) == "c");
  texts = std::move(moved);
  EXPECT_TRUE(texts.get_allocator().resource() == &here && texts.size() == 3);
}

}  // namespace
}  // namespace quillonic
