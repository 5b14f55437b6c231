// Any bytes as edits of a tree: after each it agrees with a map, and what throws changes nothing.
#include <quillonic/support/ordered_tree.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "target.hpp"

namespace quillonic::fuzz {
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

void requireBalance(const detail::TreeLinks* node) {
  if (!node) return;
  const auto [smaller, greater] = node->child;
  require(std::abs(heightOf(smaller) - heightOf(greater)) <= 1 &&
              heightOf(node) == 1 + std::max(heightOf(smaller), heightOf(greater)),
          "both sides of a node are about as high");
  require(nodesOf(node) == 1 + nodesOf(smaller) + nodesOf(greater), "a node counts those below it");
  for (const auto* child : node->child) {
    require(!child || child->parent == node, "a node knows its parent");
    requireBalance(child);
  }
}

void requireEqual(const Tree& tree, const Model& model) {
  requireBalance(tree.end().links()->child[0]);
  require(tree.size() == model.size(), "a tree has the size of a map");
  std::size_t index = 0;
  auto position = tree.begin();
  for (const auto& [key, place] : model) {
    require(position->first == key && &*position == place, "elements are in order and where they were");
    require(tree.nth(index) == position && tree.indexOf(position) == index && tree.rank(key) == index,
            "an element is found by its index, and its index by the element and the key");
    ++position, ++index;
  }
  require(position == tree.end() && tree.nth(index) == position && tree.indexOf(position) == index,
          "the end comes after all elements");
  require(std::equal(tree.rbegin(), tree.rend(), model.rbegin(), model.rend(),
                     [](const auto& a, const auto& b) { return a.first == b.first; }),
          "backwards the order is the opposite");
}

void rename(Tree& tree, Model& model, int key, int other) {
  auto node = tree.extract(key);
  require(node.empty() != model.contains(key), "what is there is taken out");
  if (node.empty()) return;
  const auto place = model.extract(key).mapped();
  if (!model.emplace(other, place).second) return;
  node.key() = other;
  require(tree.insert(std::move(node)).inserted, "what was taken out comes back under a free key");
}

// In the order or across it, by a copy or by moves.
void splitAndMerge(Tree& tree, const Model& model, int key, int way) {
  auto others = tree.split(key);
  requireBalance(others.end().links()->child[0]);
  require(others.empty() || others.begin()->first >= key, "the greater ones are split off");
  require(others.size() == model.size() - tree.size(), "a split loses nothing");
  if (way == 1) others.merge(tree), others.swap(tree);
  if (way == 2) {
    const Tree copy = others;
    require(copy == others && !(copy < others), "a copy is equal");
    others = Tree(std::move(others));
  }
  tree.merge(others);
  require(others.empty() && others.begin() == others.end(), "a merge takes all that is free");
}

void edit(Tree& tree, Model& model, int kind, int key, int other) {
  const auto hint = tree.nth(static_cast<std::size_t>(other) % (tree.size() + 1));
  // Some edits run short of memory or comparisons, others of the same kinds do not.
  budget = kind >= 16 && kind % 16 < 7 ? other % 12 : -1;
  switch (kind % 16) {
    case 0:
      model.emplace(key, &*tree.insert({key, other}).first);
      break;
    case 1:
      model.emplace(key, &*tree.emplace(key, other).first);
      break;
    case 2:
      model.emplace(key, &*tree.try_emplace(hint, key, other));
      break;
    case 3:
      model.emplace(key, &*tree.insert_or_assign(tree.lower_bound(key), key, other));
      break;
    case 4:
      if (hint != tree.end()) model.erase(hint->first), tree.erase(hint);
      break;
    case 5:
    case 6:
      tree.erase(key);
      model.erase(key);
      break;
    case 7:
      rename(tree, model, key, other);
      break;
    case 8:
    case 9:
    case 10:
      splitAndMerge(tree, model, key, kind % 16 - 8);
      break;
    default:
      // A run of neighbours makes a deep tree of few bytes.
      for (int i = 0; i < other; ++i) model.emplace(key + i, &*tree.insert({key + i, i}).first);
  }
}

}  // namespace

// Three bytes are an edit: its kind and two keys.
void run(std::string_view bytes) {
  const auto number = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]) - ' '; };
  {
    Tree tree;
    Model model;
    for (std::size_t at = 0; at + 2 < bytes.size(); at += 3) {
      const int key = number(at + 1), other = number(at + 2);
      try {
        edit(tree, model, number(at) & 31, key, std::max(other, 0));
      } catch (const std::runtime_error&) {
        // The map was not changed either.
      }
      budget = -1;
      const auto count = std::distance(model.lower_bound(key), model.lower_bound(std::max(key, other)));
      require(tree.countBetween(key, other) == static_cast<std::size_t>(count),
              "keys between two are counted");
      require(tree.contains(key) == model.contains(key), "a tree contains what a map does");
      if (at % 16 == 0) requireBalance(tree.end().links()->child[0]);
    }
    requireEqual(tree, model);
    budget = static_cast<int>(tree.size()) / 2;
    bool isCopied = true;
    try {
      const Tree copy(tree, tree.get_allocator());
    } catch (const std::runtime_error&) {
      isCopied = false;
    }
    require(isCopied == tree.empty(), "a copy without memory fails");
    budget = -1;
    require(allocated == tree.size(), "an element is one allocation");
  }
  require(allocated == 0, "nothing is left");
}

}  // namespace quillonic::fuzz
