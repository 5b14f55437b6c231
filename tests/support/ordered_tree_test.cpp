#include <quillonic/support/ordered_tree.hpp>

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <memory_resource>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {
namespace {

// How many comparisons and allocations succeed before one throws; without a limit if negative.
int budget = -1;
std::size_t allocated = 0;

void spend() {
  if (budget == 0) throw std::runtime_error("spent");
  if (budget > 0) --budget;
}

struct Less {
  bool operator()(int a, int b) const {
    spend();
    return a < b;
  }
};

template <class T> struct Frugal {
  using value_type = T;
  Frugal() = default;
  template <class U> Frugal(const Frugal<U>&) {}  // NOLINT(google-explicit-constructor)
  T* allocate(std::size_t count) {
    spend();
    ++allocated;
    return std::allocator<T>().allocate(count);
  }
  void deallocate(T* values, std::size_t count) {
    --allocated;
    std::allocator<T>().deallocate(values, count);
  }
  friend bool operator==(const Frugal&, const Frugal&) = default;
};

using Tree = OrderedMap<int, int, Less, Frugal<std::pair<const int, int>>>;
// Where each element is: it must never move.
using Model = std::map<int, const void*>;

void expectBalance(const detail::TreeLinks* node) {
  if (!node) return;
  const auto [smaller, greater] = node->child;
  ASSERT_LE(std::abs(heightOf(smaller) - heightOf(greater)), 1);
  ASSERT_EQ(heightOf(node), 1 + std::max(heightOf(smaller), heightOf(greater)));
  ASSERT_EQ(nodesOf(node), 1 + nodesOf(smaller) + nodesOf(greater));
  for (const auto* child : node->child) {
    ASSERT_TRUE(!child || child->parent == node);
    expectBalance(child);
  }
}

void expectEqual(const Tree& tree, const Model& model) {
  expectBalance(tree.end().links()->child[0]);
  ASSERT_EQ(tree.size(), model.size());
  std::size_t index = 0;
  auto position = tree.begin();
  for (const auto& [key, place] : model) {
    ASSERT_TRUE(position->first == key && &*position == place);
    ASSERT_TRUE(tree.nth(index) == position && tree.indexOf(position) == index && tree.rank(key) == index);
    ++position, ++index;
  }
  ASSERT_TRUE(position == tree.end() && tree.nth(index) == position && tree.indexOf(position) == index);
  ASSERT_TRUE(std::equal(tree.rbegin(), tree.rend(), model.rbegin(), model.rend(),
                         [](const auto& a, const auto& b) { return a.first == b.first; }));
}

// What throws changes nothing.
TEST(OrderedTree, AgreesWithAMapThroughRandomEdits) {
  std::mt19937 random(5);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  {
    Tree tree;
    Model model;
    for (int edit = 0; edit < 60'000; ++edit) {
      const int keys = edit % 10'000 < 7'000 ? 600 : 20;
      const int key = below(keys), other = below(keys);
      const auto hint = tree.nth(random() % (tree.size() + 1));
      budget = below(4) == 0 ? below(12) : -1;
      try {
        switch (const int kind = below(11)) {
          case 0:
            model.emplace(key, &*tree.insert({key, edit}).first);
            break;
          case 1:
            model.emplace(key, &*tree.emplace(key, edit).first);
            break;
          case 2:
            model.emplace(key, &*tree.try_emplace(hint, key, edit));
            break;
          case 3:
            model.emplace(key, &*tree.insert_or_assign(tree.lower_bound(key), key, edit));
            break;
          case 4:
            if (hint != tree.end()) model.erase(hint->first), tree.erase(hint);
            break;
          case 5:
          case 6:
            tree.erase(key);
            model.erase(key);
            break;
          case 7: {
            budget = -1;
            auto node = tree.extract(key);
            if (!node || !model.emplace(other, model.at(key)).second) node = {}, model.erase(key);
            if (!node) break;
            node.key() = other;
            model.erase(key);
            ASSERT_TRUE(tree.insert(std::move(node)).inserted);
            break;
          }
          default: {
            budget = -1;
            auto others = tree.split(key);
            expectBalance(others.end().links()->child[0]);
            ASSERT_TRUE(others.empty() || others.begin()->first >= key);
            ASSERT_EQ(others.size(), model.size() - tree.size());
            if (kind == 9) others.merge(tree), others.swap(tree);
            if (kind == 10) {
              const Tree copy = others;
              ASSERT_TRUE(copy == others && !(copy < others));
              others = Tree(std::move(others));
            }
            tree.merge(others);
            ASSERT_TRUE(others.empty());
          }
        }
      } catch (const std::runtime_error&) {
      }
      budget = -1;
      const auto count = std::distance(model.lower_bound(key), model.lower_bound(std::max(key, other)));
      ASSERT_EQ(tree.countBetween(key, other), static_cast<std::size_t>(count));
      ASSERT_EQ(tree.contains(key), model.contains(key));
      if (edit % 50 == 0) expectEqual(tree, model);
      if (HasFatalFailure()) return;
    }
    budget = static_cast<int>(tree.size()) / 2;
    EXPECT_THROW(Tree(tree, tree.get_allocator()), std::runtime_error);
    budget = -1;
    EXPECT_EQ(allocated, tree.size());
  }
  EXPECT_EQ(allocated, 0U);
}

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
