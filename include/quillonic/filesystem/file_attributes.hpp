/// Dictionaries of file attributes, and how two of them are compared.
///
///     FileAttributes source = *expandedAttributesOfItem("/card/clip.mov");
///     FileAttributes copy = *expandedAttributesOfItem("/backup/clip.mov");
///     auto size = source.value<std::uint64_t>(FileAttributeKey::NSFileSize);
///     source.compare(
///         copy, [&](const auto& key, const AnyValue& value, bool&) { matched.push_back(key); },
///         [](const auto& key, const AnyValue& mine, const AnyValue& other, bool& stop) { stop = true; });
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attribute_key.hpp>
#include <quillonic/support/any_value.hpp>
#include <quillonic/support/function_ref.hpp>

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quillonic {

/// Values of any type by key, in ascending byte order of the keys' texts, contiguous in memory. A look-up
/// takes logarithmic time and accepts a key or its text.
class QUILLONIC_EXPORT FileAttributes {
 public:
  /// One attribute.
  struct Entry {
    /// Unique in its dictionary.
    FileAttributeKey key;
    /// May hold nothing.
    AnyValue value;

    friend bool operator==(const Entry&, const Entry&) = default;
  };

  /// Visits the entries in the dictionary's order. Valid until the dictionary changes.
  using const_iterator = std::vector<Entry>::const_iterator;
  /// Keys, each once.
  using KeyList = std::vector<FileAttributeKey>;

  FileAttributes() = default;
  /// Takes the entries in any order; the last of equal keys stays.
  FileAttributes(std::initializer_list<Entry> entries) : FileAttributes(std::vector<Entry>(entries)) {}
  /// Takes the entries without a copy.
  explicit FileAttributes(std::vector<Entry> entries);

  /// The value of a key, or null. Valid until the dictionary changes.
  const AnyValue* find(std::string_view key) const noexcept;
  /// Whether the key is there, also where its value holds nothing.
  bool contains(std::string_view key) const noexcept { return find(key) != nullptr; }
  /// The value of a key as `T`; nothing when the key is absent or its value is of another kind. A number
  /// reads as any number type that holds it exactly.
  template <class T> std::optional<T> value(std::string_view key) const {
    const AnyValue* found = find(key);
    return found ? found->as<T>() : std::nullopt;
  }

  /// Stores a value, replacing an earlier one.
  void set(const FileAttributeKey& key, AnyValue value);
  /// Removes a key; false when there was none.
  bool remove(std::string_view key);

  /// The first entry in the dictionary's order.
  const_iterator begin() const noexcept { return entries_.begin(); }
  /// The position after the last entry.
  const_iterator end() const noexcept { return entries_.end(); }
  /// The number of entries.
  std::size_t size() const noexcept { return entries_.size(); }
  /// Whether there is no entry.
  bool empty() const noexcept { return entries_.empty(); }

  /// The keys that both have; nothing when there are none. Every list of keys is in the dictionary's order
  /// unless it follows a list that was given.
  std::optional<KeyList> commonAttributeKeys(const FileAttributes& other) const;

  /// The keys that both have with equal values; nothing when there are none. A value that holds nothing
  /// equals no other here.
  std::optional<KeyList> objcAttributesIntersection(const FileAttributes& other) const;

  /// The entries whose key is in the list; empty when there are none.
  FileAttributes intersection(std::span<const FileAttributeKey> keys) const;

  /// The keys of the list that the dictionary lacks, each once and in the list's order; nothing when it lacks
  /// none.
  std::optional<KeyList> missingEqualityAttributes(std::span<const FileAttributeKey> inList) const;

  /// Receives a common key and both values, which are never null; they live until the block returns. Setting
  /// `stop` ends the walk after the call. A block may change both dictionaries: the walk goes on over what
  /// they held before. All of this holds for the two blocks below too.
  using CommonEntryBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue* value,
                                            const AnyValue* otherValue, bool& stop)>;

  /// Calls the block once per key that both have, in the dictionary's order.
  void correlatedEnumerateCommonKeyValueEntries(const FileAttributes& other, CommonEntryBlock block) const;

  /// Receives a common key whose values are equal, with the value of the dictionary that is asked.
  using MatchBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue& value, bool& stop)>;
  /// Receives a common key and its two different values, first that of the dictionary that is asked.
  using MismatchBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue& value,
                                         const AnyValue& otherValue, bool& stop)>;

  /// Calls one of the blocks once per key that both have, in the dictionary's order: `didMatch` where the
  /// values are equal, else `didMismatch`. Skips keys that only one of them has; ask
  /// `missingEqualityAttributes` for them.
  void compare(const FileAttributes& other, MatchBlock didMatch, MismatchBlock didMismatch) const;

  /// Equal when they hold equal values under the same keys.
  friend bool operator==(const FileAttributes&, const FileAttributes&) = default;

 private:
  std::vector<Entry> entries_;
};

/// What can be compared with another of its kind, attribute by attribute.
template <class T>
concept FileSystemAttributeComparison = requires(const T& value, std::span<const FileAttributeKey> keys,
                                                 FileAttributes::CommonEntryBlock block,
                                                 FileAttributes::MatchBlock didMatch,
                                                 FileAttributes::MismatchBlock didMismatch) {
  { value.commonAttributeKeys(value) } -> std::same_as<std::optional<FileAttributes::KeyList>>;
  { value.objcAttributesIntersection(value) } -> std::same_as<std::optional<FileAttributes::KeyList>>;
  { value.intersection(keys) } -> std::same_as<T>;
  { value.missingEqualityAttributes(keys) } -> std::same_as<std::optional<FileAttributes::KeyList>>;
  value.correlatedEnumerateCommonKeyValueEntries(value, block);
  value.compare(value, didMatch, didMismatch);
};

static_assert(FileSystemAttributeComparison<FileAttributes>);

}  // namespace quillonic
