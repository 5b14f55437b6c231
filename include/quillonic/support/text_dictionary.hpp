/// A dictionary from text to text that always iterates in the same order.
///
///     TextDictionary lookup{{"-vcodec", "h264"}, {VAVNoVideoFlag, ""}};
///     lookup.set("-web", "");
///     for (const auto& [flag, value] : lookup) { ... }          // "-vcodec", "-vn", "-web"
///     if (const auto* codec = lookup.find("-vcodec")) use(codec->value);
#pragma once

#include <quillonic/export.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <ranges>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic {

/// Texts by text, in ascending byte order of the keys, so that the same content reads the same in every
/// process. Entries lie side by side in one block: a dictionary costs one allocation and what its longer
/// texts need. Looking up takes logarithmic time; adding or removing a single key moves the entries behind
/// it. Only running out of memory makes an operation throw, and the dictionary is then as it was.
class QUILLONIC_EXPORT TextDictionary {
 public:
  /// One key and its value.
  struct Entry {
    Entry() = default;
    /// Takes any two texts: literals, views, or constants such as flags. A `std::string` that is given away is not
    /// copied.
    template <std::convertible_to<std::string_view> Key, std::convertible_to<std::string_view> Value>
    Entry(Key&& itsKey, Value&& itsValue)
        : key(owned(std::forward<Key>(itsKey))), value(owned(std::forward<Value>(itsValue))) {}

    /// Any bytes; no two entries of a dictionary have the same.
    std::string key;
    /// Any bytes; empty for a key that stands alone.
    std::string value;

    friend bool operator==(const Entry&, const Entry&) = default;

   private:
    template <class Text> static std::string owned(Text&& text) {
      if constexpr (std::same_as<Text, std::string>) {
        return std::forward<Text>(text);
      } else {
        return std::string(std::string_view(text));
      }
    }
  };

  /// Visits the entries in ascending byte order of their keys. Valid until the dictionary changes.
  using const_iterator = std::vector<Entry>::const_iterator;

  TextDictionary() = default;

  /// Takes the entries in any order; of equal keys the last one stays.
  TextDictionary(std::initializer_list<Entry> entries) : TextDictionary(std::vector<Entry>(entries)) {}

  /// As above, without a copy.
  explicit TextDictionary(std::vector<Entry> entries);

  /// Says that entries are in ascending byte order of their keys already, and no two of these equal.
  struct SortedUnique {
    /// Only by name, so that a bare `{}` promises nothing.
    explicit SortedUnique() = default;
  };

  /// Takes entries of which that is true, and does not look.
  TextDictionary(SortedUnique /*promise*/, std::vector<Entry> entries) noexcept
      : entries_(std::move(entries)) {}

  /// Copies any map or list of pairs of texts; of equal keys the last one stays.
  template <std::ranges::input_range Pairs>
  requires std::convertible_to<decltype(std::declval<std::ranges::range_reference_t<Pairs>>().first),
                               std::string_view>
  explicit TextDictionary(const Pairs& pairs) : TextDictionary(copied(pairs)) {}

  /// The entry of a key, or null. Valid until the dictionary changes.
  const Entry* find(std::string_view key) const noexcept;
  /// Whether there is an entry for exactly this key, case included.
  bool contains(std::string_view key) const noexcept { return find(key) != nullptr; }

  /// Stores a value, replacing an earlier one.
  void set(std::string_view key, std::string_view value);
  /// Stores every entry of another dictionary; the other's values win.
  void merge(const TextDictionary& other);
  /// Removes a key; false when there was none.
  bool remove(std::string_view key);
  /// Removes every key that begins with a text.
  void removePrefixed(std::string_view prefix);

  /// The entries whose key begins with a text, in order. Valid until the dictionary changes.
  std::span<const Entry> prefixed(std::string_view prefix) const noexcept;

  /// The entry with the least key.
  const_iterator begin() const noexcept { return entries_.begin(); }
  /// Behind the entry with the greatest key.
  const_iterator end() const noexcept { return entries_.end(); }
  /// The number of entries.
  std::size_t size() const noexcept { return entries_.size(); }
  /// Whether there is no entry.
  bool empty() const noexcept { return entries_.empty(); }

  /// How often a key was added or removed, so that who keeps positions of entries can tell that they still hold. A copy
  /// has the number of its original; merging always counts.
  std::uint64_t keyChanges() const noexcept { return keyChanges_; }

  /// Whether both hold the same, however they came to it.
  friend bool operator==(const TextDictionary& a, const TextDictionary& b) {
    return a.entries_ == b.entries_;
  }

 private:
  template <class Pairs> static std::vector<Entry> copied(const Pairs& pairs) {
    std::vector<Entry> entries;
    for (const auto& [key, value] : pairs) entries.emplace_back(key, value);
    return entries;
  }

  std::vector<Entry> entries_;
  std::uint64_t keyChanges_ = 0;
};

}  // namespace quillonic
