/// Ordered sets and maps that also know the place of each element.
///
///     OrderedMap<std::uint64_t, std::string> bySize{{700, "a.mov"}, {20, "b.wav"}};
///     bySize.nth(0)->second;               // "b.wav", the smallest
///     bySize.rank(700);                    // 1: so many are smaller
///     bySize.countBetween(0, 500);         // 1, without a walk
#pragma once

#include <quillonic/support/ordered_tree_node.hpp>

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

namespace quillonic {

namespace detail {

template <class Key, class Mapped> struct TreeTypes {
  using mapped_type = Mapped;
  using value_type = std::pair<const Key, Mapped>;
  static const Key& keyOf(const value_type& value) noexcept { return value.first; }
};
template <class Key> struct TreeTypes<Key, void> {
  using value_type = Key;
  static const Key& keyOf(const value_type& value) noexcept { return value; }
};

template <class Compare>
concept Transparent = requires {
  typename Compare::is_transparent;
};

// What can be looked for: with a transparent comparison anything, else what converts to a key.
template <class K, class Key, class Compare>
concept SoughtAs = Transparent<Compare> || std::convertible_to<const K&, const Key&>;

template <class K, class Key, class Compare, class Iterator>
concept SoughtAsNoPosition = SoughtAs<K, Key, Compare> && !std::convertible_to<const K&, Iterator>;

template <class K, class Key>
concept Makes = std::constructible_from<Key, K&&>;

}  // namespace detail

/// An element outside of any tree, to move it from one to another or to change its key. Not copyable; empty
/// after it was inserted.
template <class Key, class Mapped, class Allocator>
class OrderedTreeNode : public detail::TreeTypes<Key, Mapped> {
 public:
  /// The allocator of its tree.
  using allocator_type = Allocator;
  /// The type of its element.
  using value_type = typename detail::TreeTypes<Key, Mapped>::value_type;

  /// An empty one.
  OrderedTreeNode() noexcept = default;
  /// Leaves the other one empty.
  OrderedTreeNode(OrderedTreeNode&& other) noexcept
      : links_(std::exchange(other.links_, nullptr)),
        allocator_(std::exchange(other.allocator_, std::nullopt)) {}
  /// Destroys the present element, and leaves the other one empty.
  OrderedTreeNode& operator=(OrderedTreeNode&& other) noexcept {
    if (this == &other) return *this;
    reset();
    links_ = std::exchange(other.links_, nullptr);
    if (other.allocator_) allocator_.emplace(*other.allocator_);
    other.allocator_.reset();
    return *this;
  }
  ~OrderedTreeNode() { reset(); }

  /// Whether it has no element.
  bool empty() const noexcept { return !links_; }
  /// Whether it has an element.
  explicit operator bool() const noexcept { return links_; }
  /// A copy of the allocator. Callers must not ask an empty one, here and below.
  allocator_type get_allocator() const { return allocator_type(*allocator_); }
  /// The element of a set.
  Key& value() const noexcept requires std::is_void_v<Mapped> { return detail::valueOf<value_type>(links_); }
  /// The key of a map's element; it may be changed while it is outside.
  Key& key() const noexcept requires(!std::is_void_v<Mapped>) {
    return const_cast<Key&>(detail::valueOf<value_type>(links_).first);  // NOLINT: as in std::map
  }
  /// The value of a map's element.
  auto& mapped() const noexcept requires(!std::is_void_v<Mapped>) {
    return detail::valueOf<value_type>(links_).second;
  }

 private:
  using NodeAllocator = detail::NodeAllocator<value_type, Allocator>;
  template <class K, class M, class C, class A> friend class OrderedTree;

  OrderedTreeNode(detail::TreeLinks* links, const NodeAllocator& allocator) noexcept
      : links_(links), allocator_(allocator) {}

  void reset() noexcept {
    if (links_) detail::destroyNode<value_type>(*allocator_, std::exchange(links_, nullptr));
    allocator_.reset();
  }
  detail::TreeLinks* release() noexcept {
    allocator_.reset();
    return std::exchange(links_, nullptr);
  }

  detail::TreeLinks* links_ = nullptr;
  std::optional<NodeAllocator> allocator_;
};

/// What `OrderedSet` and `OrderedMap` are: as std::set and std::map, with the same names and guarantees, and
/// besides the n-th element, the rank of a key, the count of a range and splitting, all in logarithmic time.
///
/// It is an AVL tree whose nodes count what is below them. An element takes as much memory as in std::map.
/// Inserting and erasing take logarithmic time even with a position, because all counts above change.
/// Iterators and references stay valid until their element is erased, also when it moves to another tree.
/// What throws, be it a comparison, an allocation or a constructor, leaves the tree as it was; inserting a
/// range leaves the elements before.
///
/// Threads may read together; a host that writes must exclude others.
template <class Key, class Mapped, class Compare, class Allocator>
class OrderedTree : public detail::TreeTypes<Key, Mapped> {
  using Types = detail::TreeTypes<Key, Mapped>;
  using Links = detail::TreeLinks;
  using NodeAllocator = detail::NodeAllocator<typename Types::value_type, Allocator>;
  using NodeTraits = std::allocator_traits<NodeAllocator>;
  using Types::keyOf;

  static constexpr bool isMap = !std::is_void_v<Mapped>;

 public:
  /// @{
  /// As in std::map and std::set.
  using key_type = Key;
  using value_type = typename Types::value_type;
  using key_compare = Compare;
  using allocator_type = Allocator;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = value_type&;
  using const_reference = const value_type&;
  using pointer = typename std::allocator_traits<Allocator>::pointer;
  using const_pointer = typename std::allocator_traits<Allocator>::const_pointer;
  using const_iterator = detail::TreeIterator<const value_type>;
  using iterator = std::conditional_t<isMap, detail::TreeIterator<value_type>, const_iterator>;
  using reverse_iterator = std::reverse_iterator<iterator>;
  using const_reverse_iterator = std::reverse_iterator<const_iterator>;
  using node_type = OrderedTreeNode<Key, Mapped, Allocator>;
  /// @}

  /// What became of a node: where its key is now, whether it was inserted, and if not, the node.
  struct insert_return_type {
    /// The element with the key; the end for an empty node.
    iterator position;
    /// Whether the node is in the tree.
    bool inserted = false;
    /// The node if its key was there before.
    node_type node;
  };

  /// Compares elements by their keys.
  struct value_compare {
    /// Compares keys.
    Compare compare;
    /// Whether the first one is before the second.
    bool operator()(const value_type& a, const value_type& b) const { return compare(keyOf(a), keyOf(b)); }
  };

  /// @{
  /// Makes, copies and moves trees as in std::map. One that was moved from is empty.
  OrderedTree() = default;
  explicit OrderedTree(const Compare& compare, const Allocator& allocator = {})
      : compare_(compare), allocator_(allocator) {}
  explicit OrderedTree(const Allocator& allocator) : allocator_(allocator) {}
  template <std::input_iterator Iterator>
  OrderedTree(Iterator first, Iterator last, const Compare& compare = {}, const Allocator& allocator = {})
      : OrderedTree(compare, allocator) {
    insert(first, last);
  }
  template <std::input_iterator Iterator>
  OrderedTree(Iterator first, Iterator last, const Allocator& allocator)
      : OrderedTree(first, last, Compare(), allocator) {}
  OrderedTree(std::initializer_list<value_type> values, const Compare& compare = {},
              const Allocator& allocator = {})
      : OrderedTree(values.begin(), values.end(), compare, allocator) {}
  OrderedTree(std::initializer_list<value_type> values, const Allocator& allocator)
      : OrderedTree(values, Compare(), allocator) {}
  OrderedTree(const OrderedTree& other)
      : OrderedTree(other, std::allocator_traits<Allocator>::select_on_container_copy_construction(
                               other.get_allocator())) {}
  OrderedTree(const OrderedTree& other, const std::type_identity_t<Allocator>& allocator)
      : OrderedTree(other.compare_, allocator) {
    copyBelow(&head_.end, false, other.root());
    head_.findFirst();
  }
  OrderedTree(OrderedTree&& other) noexcept(std::is_nothrow_copy_constructible_v<Compare>)
      : compare_(other.compare_), allocator_(std::move(other.allocator_)), head_(std::move(other.head_)) {}
  OrderedTree(OrderedTree&& other, const std::type_identity_t<Allocator>& allocator)
      : OrderedTree(other.compare_, allocator) {
    if (allocator_ == other.allocator_) {
      head_ = std::move(other.head_);
    } else {
      for (Links* node = other.head_.first; node != &other.head_.end; node = detail::neighbour(node, true)) {
        emplace_hint(end(), std::move(detail::valueOf<value_type>(node)));
      }
      other.clear();
    }
  }
  OrderedTree& operator=(const OrderedTree& other) {
    if (this == &other) return *this;
    constexpr bool propagates = NodeTraits::propagate_on_container_copy_assignment::value;
    OrderedTree copy(other, propagates ? other.get_allocator() : get_allocator());
    exchange<propagates>(copy);
    return *this;
  }
  OrderedTree& operator=(OrderedTree&& other) noexcept(
      NodeTraits::is_always_equal::value&& std::is_nothrow_swappable_v<Compare>) {
    if (this == &other) return *this;
    constexpr bool propagates = NodeTraits::propagate_on_container_move_assignment::value;
    OrderedTree moved(std::move(other), propagates ? other.get_allocator() : get_allocator());
    exchange<propagates>(moved);
    return *this;
  }
  OrderedTree& operator=(std::initializer_list<value_type> values) {
    OrderedTree made(values, compare_, get_allocator());
    exchange<false>(made);
    return *this;
  }
  ~OrderedTree() { clear(); }
  void swap(OrderedTree& other) noexcept(
      NodeTraits::is_always_equal::value&& std::is_nothrow_swappable_v<Compare>) {
    exchange<NodeTraits::propagate_on_container_swap::value>(other);
  }
  friend void swap(OrderedTree& a, OrderedTree& b) noexcept(noexcept(a.swap(b))) { a.swap(b); }
  /// @}

  /// @{
  /// Tells what the tree is made of, and walks, as in std::map.
  allocator_type get_allocator() const noexcept { return allocator_type(allocator_); }
  key_compare key_comp() const { return compare_; }
  value_compare value_comp() const { return {compare_}; }
  iterator begin() noexcept { return iterator(head_.first); }
  const_iterator begin() const noexcept { return const_iterator(head_.first); }
  const_iterator cbegin() const noexcept { return begin(); }
  iterator end() noexcept { return iterator(&head_.end); }
  const_iterator end() const noexcept { return const_iterator(&head_.end); }
  const_iterator cend() const noexcept { return end(); }
  reverse_iterator rbegin() noexcept { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const noexcept { return const_reverse_iterator(end()); }
  const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  reverse_iterator rend() noexcept { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const noexcept { return const_reverse_iterator(begin()); }
  const_reverse_iterator crend() const noexcept { return rend(); }
  bool empty() const noexcept { return !root(); }
  size_type size() const noexcept { return detail::nodesOf(root()); }
  size_type max_size() const noexcept {
    return std::min<size_type>(NodeTraits::max_size(allocator_), std::numeric_limits<difference_type>::max());
  }
  /// @}

  /// The element that has so many before it; the end for the size and beyond. Logarithmic, as all below.
  iterator nth(size_type index) noexcept { return iterator(nthLinks(index)); }
  /// The same, not to be changed.
  const_iterator nth(size_type index) const noexcept { return const_iterator(nthLinks(index)); }

  /// The number of elements before a position of this tree; the size for its end.
  size_type indexOf(const_iterator position) const noexcept {
    const Links* node = position.links();
    if (node == &head_.end) return size();
    size_type index = detail::nodesOf(node->child[0]);
    for (; node->parent != &head_.end; node = node->parent) {
      if (detail::isGreaterChild(node)) index += detail::nodesOf(node->parent->child[0]) + 1;
    }
    return index;
  }

  /// @{
  /// Looks up as in std::map and std::set. With a comparison that is transparent, such as std::less<>,
  /// anything that compares with keys can be looked for, also to erase or extract it. Else it must convert to
  /// a key.
  template <detail::SoughtAs<Key, Compare> K = Key> iterator find(const K& key) {
    return iterator(found(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> const_iterator find(const K& key) const {
    return const_iterator(found(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> bool contains(const K& key) const {
    return found(sought(key)) != &head_.end;
  }
  template <detail::SoughtAs<Key, Compare> K = Key> size_type count(const K& key) const {
    const auto wanted = equal_range(key);
    return static_cast<size_type>(std::distance(wanted.first, wanted.second));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> iterator lower_bound(const K& key) {
    return iterator(lower(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> const_iterator lower_bound(const K& key) const {
    return const_iterator(lower(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> iterator upper_bound(const K& key) {
    return iterator(upper(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> const_iterator upper_bound(const K& key) const {
    return const_iterator(upper(sought(key)));
  }
  template <detail::SoughtAs<Key, Compare> K = Key> std::pair<iterator, iterator> equal_range(const K& key) {
    return equalRange<iterator>(sought(key));
  }
  template <detail::SoughtAs<Key, Compare> K = Key>
  std::pair<const_iterator, const_iterator> equal_range(const K& key) const {
    return equalRange<const_iterator>(sought(key));
  }
  /// @}

  /// The number of keys before this one, whether or not it is there.
  template <detail::SoughtAs<Key, Compare> K = Key> size_type rank(const K& key) const {
    const auto& wanted = sought(key);
    size_type before = 0;
    for (const Links* node = root(); node;) {
      if (compare_(keyOf(node), wanted)) {
        before += detail::nodesOf(node->child[0]) + 1;
        node = node->child[1];
      } else {
        node = node->child[0];
      }
    }
    return before;
  }

  /// The number of keys from the first one on and before the second; zero if the second is not greater.
  template <detail::SoughtAs<Key, Compare> From = Key, detail::SoughtAs<Key, Compare> To = Key>
  size_type countBetween(const From& from, const To& to) const {
    const auto before = rank(from);
    return std::max(rank(to), before) - before;
  }

  /// @{
  /// Inserts as in std::map and std::set. A key that is there keeps its element; with a position that the key
  /// belongs directly before, no search is needed.
  template <class... Arguments> std::pair<iterator, bool> emplace(Arguments&&... arguments) {
    auto made = insert(node_type(make(std::forward<Arguments>(arguments)...), allocator_));
    return {made.position, made.inserted};
  }
  template <class... Arguments> iterator emplace_hint(const_iterator hint, Arguments&&... arguments) {
    return insert(hint, node_type(make(std::forward<Arguments>(arguments)...), allocator_));
  }
  template <detail::Makes<value_type> V = value_type> std::pair<iterator, bool> insert(V&& value) {
    if constexpr (std::same_as<std::remove_cvref_t<V>, value_type>) {
      return fill(placeOf(keyOf(value)), std::forward<V>(value));
    } else {
      return emplace(std::forward<V>(value));
    }
  }
  template <detail::Makes<value_type> V = value_type> iterator insert(const_iterator hint, V&& value) {
    if constexpr (std::same_as<std::remove_cvref_t<V>, value_type>) {
      return fill(placeOf(hint, keyOf(value)), std::forward<V>(value)).first;
    } else {
      return emplace_hint(hint, std::forward<V>(value));
    }
  }
  template <std::input_iterator Iterator> void insert(Iterator first, Iterator last) {
    for (; first != last; ++first) insert(cend(), *first);
  }
  void insert(std::initializer_list<value_type> values) { insert(values.begin(), values.end()); }
  insert_return_type insert(node_type&& node) {
    if (node.empty()) return {end(), false, {}};
    const auto place = placeOf(keyOf(node.links_));
    if (place.equal) return {iterator(place.equal), false, std::move(node)};
    return {link(place, node.release()), true, {}};
  }
  iterator insert(const_iterator hint, node_type&& node) {
    if (node.empty()) return end();
    const auto place = placeOf(hint, keyOf(node.links_));
    return place.equal ? iterator(place.equal) : link(place, node.release());
  }
  template <detail::Makes<Key> K = Key, class... Arguments>
  std::pair<iterator, bool> try_emplace(K&& key, Arguments&&... arguments) {
    const auto place = placeOf(sought(key));
    return fill(place, std::piecewise_construct, std::forward_as_tuple(std::forward<K>(key)),
                std::forward_as_tuple(std::forward<Arguments>(arguments)...));
  }
  template <detail::Makes<Key> K = Key, class... Arguments>
  iterator try_emplace(const_iterator hint, K&& key, Arguments&&... arguments) {
    const auto place = placeOf(hint, sought(key));
    return fill(place, std::piecewise_construct, std::forward_as_tuple(std::forward<K>(key)),
                std::forward_as_tuple(std::forward<Arguments>(arguments)...))
        .first;
  }
  template <detail::Makes<Key> K = Key, class M>
  std::pair<iterator, bool> insert_or_assign(K&& key, M&& mapped) {
    const auto result = try_emplace(std::forward<K>(key), std::forward<M>(mapped));
    if (!result.second) result.first->second = std::forward<M>(mapped);
    return result;
  }
  template <detail::Makes<Key> K = Key, class M>
  iterator insert_or_assign(const_iterator hint, K&& key, M&& mapped) {
    const auto before = size();
    const auto position = try_emplace(hint, std::forward<K>(key), std::forward<M>(mapped));
    if (size() == before) position->second = std::forward<M>(mapped);
    return position;
  }
  template <detail::Makes<Key> K = Key> auto& operator[](K&& key) {
    return try_emplace(std::forward<K>(key)).first->second;
  }
  template <detail::SoughtAs<Key, Compare> K = Key> auto& at(const K& key) {
    return existing(find(key))->second;
  }
  template <detail::SoughtAs<Key, Compare> K = Key> const auto& at(const K& key) const {
    return existing(find(key))->second;
  }
  /// @}

  /// @{
  /// Removes as in std::map and std::set.
  iterator erase(const_iterator position) noexcept {
    Links* const next = detail::neighbour(position.links(), true);
    remove(position.links());
    detail::destroyNode<value_type>(allocator_, position.links());
    return iterator(next);
  }
  iterator erase(const_iterator first, const_iterator last) noexcept {
    while (first != last) first = erase(first);
    return iterator(last.links());
  }
  template <detail::SoughtAsNoPosition<Key, Compare, const_iterator> K = Key> size_type erase(const K& key) {
    // Keys of other types may equal several.
    const auto before = size();
    const auto wanted = equal_range(key);
    erase(wanted.first, wanted.second);
    return before - size();
  }
  node_type extract(const_iterator position) noexcept {
    remove(position.links());
    return node_type(position.links(), allocator_);
  }
  template <detail::SoughtAsNoPosition<Key, Compare, const_iterator> K = Key>
  node_type extract(const K& key) {
    const auto position = find(key);
    return position == end() ? node_type() : extract(const_iterator(position));
  }
  void clear() noexcept {
    destroyBelow(std::exchange(head_.end.child[0], nullptr));
    head_.findFirst();
  }
  /// @}

  /// Takes over the elements whose keys are not here, as in std::map; equal allocators are needed. If all
  /// these keys are after those that are here, it costs no more than one insertion.
  template <class OtherCompare> void merge(OrderedTree<Key, Mapped, OtherCompare, Allocator>& source) {
    if (static_cast<const void*>(this) == &source || source.empty()) return;
    if constexpr (std::same_as<Compare, OtherCompare>) {
      if (empty() || compare_(keyOf(detail::neighbour(&head_.end, false)), keyOf(source.head_.first))) {
        Links* const middle = source.extract(source.begin()).release();
        detail::join(&head_.end, root(), middle, std::exchange(source.head_.end.child[0], nullptr));
        source.head_.findFirst();
        return head_.findFirst();
      }
    }
    for (auto next = source.begin(); next != source.end();) {
      const auto position = next++;
      const auto place = placeOf(keyOf(position.links()));
      if (!place.equal) link(place, source.extract(position).release());
    }
  }
  /// The same.
  template <class OtherCompare> void merge(OrderedTree<Key, Mapped, OtherCompare, Allocator>&& source) {
    merge(source);
  }

  /// Keeps the elements before a key, and gives the others. The opposite is `merge()`.
  template <detail::SoughtAs<Key, Compare> K = Key> OrderedTree split(const K& key) {
    OrderedTree others(compare_, get_allocator());
    const auto place = placeFor(sought(key));
    Links lower{.weight = 0}, upper{.weight = 0};
    detail::split(place.parent, place.side, &head_.end, &lower, &upper);
    detail::attach(&head_.end, false, lower.child[0]);
    detail::attach(&others.head_.end, false, upper.child[0]);
    head_.findFirst();
    others.head_.findFirst();
    return others;
  }

  /// Equal sizes and elements.
  friend bool operator==(const OrderedTree& a, const OrderedTree& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
  }
  /// By the elements in order, which need no more than "<".
  friend auto operator<=>(const OrderedTree& a, const OrderedTree& b) {
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(),
                                                  [](const value_type& x, const value_type& y) {
                                                    if constexpr (std::three_way_comparable<value_type>) {
                                                      return x <=> y;
                                                    } else {
                                                      return x < y   ? std::weak_ordering::less
                                                             : y < x ? std::weak_ordering::greater
                                                                     : std::weak_ordering::equivalent;
                                                    }
                                                  });
  }
  /// Erases the elements that a predicate is true for, and gives their number.
  template <class Predicate> friend size_type erase_if(OrderedTree& tree, Predicate predicate) {
    const auto before = tree.size();
    for (auto next = tree.begin(); next != tree.end();) {
      const auto position = next++;
      if (predicate(*position)) tree.erase(position);
    }
    return before - tree.size();
  }

 private:
  template <class K, class M, class C, class A> friend class OrderedTree;

  // Where a key is, or where a node with it can be added: below a node, on one side of it.
  struct Place {
    Links* parent;
    bool side;
    Links* equal = nullptr;
  };

  Links* root() const noexcept { return head_.end.child[0]; }
  static const Key& keyOf(const Links* node) noexcept {
    return keyOf(static_cast<const detail::TreeNode<value_type>*>(node)->value);
  }
  // The key itself where it compares with keys, or else a key.
  template <class K>
  using Sought = std::conditional_t<detail::Transparent<Compare> || std::same_as<K, Key>, const K&, Key>;
  template <class K> static Sought<K> sought(const K& key) { return static_cast<Sought<K>>(key); }

  // Branches rather than a computed index: the processor loads the next node before it has compared this one.
  template <class K> Links* lower(const K& key) const {
    Links* bound = &head_.end;
    for (Links* node = root(); node;) {
      if (compare_(keyOf(node), key)) {
        node = node->child[1];
      } else {
        bound = node;
        node = node->child[0];
      }
    }
    return bound;
  }
  template <class K> Links* upper(const K& key) const {
    Links* bound = &head_.end;
    for (Links* node = root(); node;) {
      if (compare_(key, keyOf(node))) {
        bound = node;
        node = node->child[0];
      } else {
        node = node->child[1];
      }
    }
    return bound;
  }
  template <class K> Links* found(const K& key) const {
    Links* const bound = lower(key);
    return bound == &head_.end || compare_(key, keyOf(bound)) ? &head_.end : bound;
  }
  Links* nthLinks(size_type index) const noexcept {
    if (index >= size()) return &head_.end;
    Links* node = root();
    for (;;) {
      const auto before = detail::nodesOf(node->child[0]);
      if (index == before) return node;
      const bool isAfter = index > before;
      if (isAfter) index -= before + 1;
      node = node->child[isAfter];
    }
  }
  template <class Iterator, class K> std::pair<Iterator, Iterator> equalRange(const K& key) const {
    // Only keys of other types may equal several.
    if constexpr (detail::Transparent<Compare>) return {Iterator(lower(key)), Iterator(upper(key))};
    Links* const first = found(key);
    return {Iterator(first), Iterator(first == &head_.end ? first : detail::neighbour(first, true))};
  }
  template <class Iterator> Iterator existing(Iterator position) const {
    if (position == end()) throw std::out_of_range("no element has this key");
    return position;
  }

  // Before all that is not less. Without branches, which nothing predicts; there is a node to add anyway.
  template <class K> Place placeFor(const K& key) const {
    Place place{&head_.end, false};
    for (Links* node = root(); node; node = node->child[place.side]) {
      place.parent = node;
      place.side = compare_(keyOf(node), key);
      if (!place.side) place.equal = node;
    }
    return place;
  }
  template <class K> Place placeOf(const K& key) const {
    auto place = placeFor(key);
    if (place.equal && compare_(key, keyOf(place.equal))) place.equal = nullptr;
    return place;
  }
  template <class K> Place placeOf(const_iterator hint, const K& key) const {
    Links* const next = hint.links();
    if (next != &head_.end && !compare_(key, keyOf(next))) return placeOf(key);
    if (next == head_.first) return {next, false};
    Links* const before = detail::neighbour(next, false);
    if (!compare_(keyOf(before), key)) return placeOf(key);
    return before->child[1] ? Place{next, false} : Place{before, true};
  }

  template <class... Arguments> Links* make(Arguments&&... arguments) {
    return detail::makeNode<value_type>(allocator_, std::forward<Arguments>(arguments)...);
  }
  iterator link(const Place& place, Links* node) noexcept {
    if (place.parent == head_.first && !place.side) head_.first = node;
    *node = Links{};
    detail::attach(place.parent, place.side, node);
    detail::retrace(place.parent, &head_.end, 1);
    return iterator(node);
  }
  void remove(Links* node) noexcept {
    if (head_.first == node) head_.first = detail::neighbour(node, true);
    detail::unlink(node, &head_.end);
  }
  template <class... Arguments> std::pair<iterator, bool> fill(const Place& place, Arguments&&... arguments) {
    if (place.equal) return {iterator(place.equal), false};
    return {link(place, make(std::forward<Arguments>(arguments)...)), true};
  }

  // Attaches every node at once, so that what is there can be destroyed if a copy fails.
  void copyBelow(Links* parent, bool side, const Links* original) {
    for (; original; original = original->child[1], side = true) {
      Links* const node = make(static_cast<const detail::TreeNode<value_type>*>(original)->value);
      node->weight = original->weight;
      detail::attach(parent, side, node);
      copyBelow(node, false, original->child[0]);
      parent = node;
    }
  }
  void destroyBelow(Links* node) noexcept {
    while (node) {
      destroyBelow(node->child[0]);
      detail::destroyNode<value_type>(allocator_, std::exchange(node, node->child[1]));
    }
  }
  template <bool propagates>
  void exchange(OrderedTree& other) noexcept(std::is_nothrow_swappable_v<Compare>) {
    using std::swap;
    swap(compare_, other.compare_);
    if constexpr (propagates) swap(allocator_, other.allocator_);
    swap(head_, other.head_);
  }

  [[no_unique_address]] Compare compare_{};
  [[no_unique_address]] NodeAllocator allocator_{};
  // Iterators of a constant tree hold a link that is not constant.
  mutable detail::TreeHead head_;
};

/// A set of unique keys in ascending order.
template <class Key, class Compare = std::less<Key>, class Allocator = std::allocator<Key>>
using OrderedSet = OrderedTree<Key, void, Compare, Allocator>;

/// Values by unique keys, in ascending order of these.
template <class Key, class Mapped, class Compare = std::less<Key>,
          class Allocator = std::allocator<std::pair<const Key, Mapped>>>
using OrderedMap = OrderedTree<Key, Mapped, Compare, Allocator>;

}  // namespace quillonic
