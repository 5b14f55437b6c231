/// The nodes of an `OrderedTree` and how they keep their balance; hosts use the tree.
#pragma once

#include <quillonic/export.hpp>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace quillonic::detail {

// A node without its value. The root is the smaller child of the end, which has no value: thus the way from
// the last node upwards arrives at the end, and the way down from the end at the last node.
struct TreeLinks {
  TreeLinks* parent = nullptr;
  std::array<TreeLinks*, 2> child{};  // the smaller ones and the greater ones
  // The number of nodes from here down, times 256, plus the height, which is 90 at most. In one word, so that
  // a node is as small as one of std::map.
  std::uint64_t weight = oneNode + 1;

  static constexpr std::uint64_t oneNode = 256;
};

inline std::size_t nodesOf(const TreeLinks* node) noexcept {
  return node ? static_cast<std::size_t>(node->weight / TreeLinks::oneNode) : 0;
}
inline int heightOf(const TreeLinks* node) noexcept {
  return node ? static_cast<int>(node->weight % TreeLinks::oneNode) : 0;
}
inline bool isGreaterChild(const TreeLinks* node) noexcept {
  return node->parent->child[1] == node;
}

inline TreeLinks* outermost(TreeLinks* node, bool side) noexcept {
  while (node->child[side]) node = node->child[side];
  return node;
}

// The next node in order, or the one before: on one side. Nothing is before the first one.
inline TreeLinks* neighbour(TreeLinks* node, bool side) noexcept {
  if (node->child[side]) return outermost(node->child[side], !side);
  while (isGreaterChild(node) == side) node = node->parent;
  return node->parent;
}

inline void attach(TreeLinks* parent, bool side, TreeLinks* node) noexcept {
  parent->child[side] = node;
  if (node) node->parent = parent;
}

inline void weigh(TreeLinks* node) noexcept {
  const auto [smaller, greater] = node->child;
  node->weight = (nodesOf(smaller) + nodesOf(greater) + 1) * TreeLinks::oneNode +
                 static_cast<std::uint64_t>(1 + std::max(heightOf(smaller), heightOf(greater)));
}

// Exchanges a node with its child on one side, which is returned.
inline TreeLinks* lift(TreeLinks* node, bool side) noexcept {
  TreeLinks* const top = node->child[side];
  attach(node->parent, isGreaterChild(node), top);
  attach(node, side, top->child[!side]);
  attach(top, !side, node);
  weigh(node);
  weigh(top);
  return top;
}

// Restores weights and balance from a node up to the end. The nodes above are those that gained or lost
// `nodes` nodes, and their children's heights differ by two at most.
inline void retrace(TreeLinks* node, TreeLinks* end, std::uint64_t nodes) noexcept {
  for (auto* above = node; above != end; above = above->parent) above->weight += nodes * TreeLinks::oneNode;
  for (; node != end; node = node->parent) {
    const int before = heightOf(node);
    const int smaller = heightOf(node->child[0]);
    const int greater = heightOf(node->child[1]);
    if (greater - smaller > 1 || smaller - greater > 1) {
      const bool side = greater > smaller;
      TreeLinks* const heavy = node->child[side];
      if (heightOf(heavy->child[!side]) > heightOf(heavy->child[side])) lift(heavy, !side);
      node = lift(node, side);
    } else {
      node->weight += static_cast<std::uint64_t>(1 + std::max(smaller, greater) - before);
    }
    if (heightOf(node) == before) return;
  }
}

// Takes a node out of its tree. Only links change, so that iterators to other nodes stay valid.
inline void unlink(TreeLinks* node, TreeLinks* end) noexcept {
  TreeLinks* lowest = node->parent;
  TreeLinks* heir = node->child[node->child[0] == nullptr];
  if (node->child[0] && node->child[1]) {
    heir = outermost(node->child[1], false);
    lowest = heir->parent == node ? heir : heir->parent;
    attach(heir->parent, isGreaterChild(heir), heir->child[1]);
    attach(heir, false, node->child[0]);
    attach(heir, true, node->child[1]);
    heir->weight = node->weight;
  }
  attach(node->parent, isGreaterChild(node), heir);
  retrace(lowest, end, std::uint64_t{0} - 1);
}

// Makes one tree below the end of two and of a node between them.
inline void join(TreeLinks* end, TreeLinks* smaller, TreeLinks* middle, TreeLinks* greater) noexcept {
  const bool isGreaterHigher = heightOf(greater) > heightOf(smaller);
  TreeLinks* const low = isGreaterHigher ? smaller : greater;
  TreeLinks* parent = end;
  TreeLinks* node = isGreaterHigher ? greater : smaller;
  attach(end, false, node);
  while (heightOf(node) > heightOf(low) + 1) {
    parent = node;
    node = node->child[!isGreaterHigher];
  }
  attach(middle, isGreaterHigher, node);
  attach(middle, !isGreaterHigher, low);
  weigh(middle);
  attach(parent, parent != end && !isGreaterHigher, middle);
  retrace(parent, end, nodesOf(low) + 1);
}

// Divides a tree at a place where a node could be added, into trees below two empty ends.
inline void split(TreeLinks* place, bool side, const TreeLinks* end, TreeLinks* lower,
                  TreeLinks* upper) noexcept {
  while (place != end) {
    TreeLinks* const node = place;
    const bool isLower = side;
    side = isGreaterChild(node);
    place = node->parent;
    if (isLower) {
      join(lower, node->child[0], node, lower->child[0]);
    } else {
      join(upper, upper->child[0], node, node->child[1]);
    }
  }
}

// What a container holds of its tree. Moving gives the nodes another end.
struct TreeHead {
  TreeLinks end{.weight = 0};
  TreeLinks* first = &end;

  TreeHead() noexcept = default;
  TreeHead(TreeHead&& other) noexcept { *this = std::move(other); }
  // The nodes that were here must be gone.
  TreeHead& operator=(TreeHead&& other) noexcept {
    attach(&end, false, std::exchange(other.end.child[0], nullptr));
    findFirst();
    other.first = &other.end;
    return *this;
  }
  ~TreeHead() = default;

  void findFirst() noexcept { first = outermost(&end, false); }
};

template <class Value> struct TreeNode : TreeLinks {
  TreeNode() noexcept {}  // NOLINT(modernize-use-equals-default): the value has no default
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;
  ~TreeNode() {}  // NOLINT(modernize-use-equals-default)

  // Made and destroyed by the allocator.
  union {
    Value value;
  };
};

template <class Value> Value& valueOf(TreeLinks* node) noexcept {
  return static_cast<TreeNode<Value>*>(node)->value;
}

template <class Value, class Allocator>
using NodeAllocator = typename std::allocator_traits<Allocator>::template rebind_alloc<TreeNode<Value>>;

template <class Value, class Allocator> void freeNode(Allocator& allocator, TreeNode<Value>* node) noexcept {
  using Pointer = typename std::allocator_traits<Allocator>::pointer;
  const auto pointer = std::pointer_traits<Pointer>::pointer_to(*node);
  node->~TreeNode<Value>();
  std::allocator_traits<Allocator>::deallocate(allocator, pointer, 1);
}

template <class Value, class Allocator> void destroyNode(Allocator& allocator, TreeLinks* links) noexcept {
  auto* const node = static_cast<TreeNode<Value>*>(links);
  std::allocator_traits<Allocator>::destroy(allocator, std::addressof(node->value));
  freeNode(allocator, node);
}

template <class Value, class Allocator, class... Arguments>
TreeLinks* makeNode(Allocator& allocator, Arguments&&... arguments) {
  using Traits = std::allocator_traits<Allocator>;
  auto* const node =
      ::new (static_cast<void*>(std::to_address(Traits::allocate(allocator, 1)))) TreeNode<Value>;
  try {
    Traits::construct(allocator, std::addressof(node->value), std::forward<Arguments>(arguments)...);
  } catch (...) {
    freeNode(allocator, node);
    throw;
  }
  return node;
}

// `Value` is constant where the value must not change.
template <class Value> class TreeIterator {
 public:
  using iterator_category = std::bidirectional_iterator_tag;
  using value_type = std::remove_const_t<Value>;
  using difference_type = std::ptrdiff_t;
  using pointer = Value*;
  using reference = Value&;

  TreeIterator() noexcept = default;
  explicit TreeIterator(TreeLinks* links) noexcept : links_(links) {}
  template <class Other>
  requires std::same_as<const Other, Value>
  // NOLINTNEXTLINE(google-explicit-constructor): as pointers do
  TreeIterator(const TreeIterator<Other>& other)
  noexcept : links_(other.links()) {}

  Value& operator*() const noexcept { return valueOf<value_type>(links_); }
  Value* operator->() const noexcept { return std::addressof(**this); }
  TreeIterator& operator++() noexcept { return move(true); }
  TreeIterator& operator--() noexcept { return move(false); }
  TreeIterator operator++(int) noexcept { return std::exchange(*this, TreeIterator(*this).move(true)); }
  TreeIterator operator--(int) noexcept { return std::exchange(*this, TreeIterator(*this).move(false)); }

  TreeLinks* links() const noexcept { return links_; }
  friend bool operator==(const TreeIterator&, const TreeIterator&) noexcept = default;

 private:
  TreeIterator& move(bool side) noexcept {
    links_ = neighbour(links_, side);
    return *this;
  }

  TreeLinks* links_ = nullptr;
};

}  // namespace quillonic::detail
