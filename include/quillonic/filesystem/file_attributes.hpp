/// Dictionaries of file attributes, and their comparison.
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

/// Values of any type by key, in ascending byte order of the keys' texts, contiguous in memory. Look-ups take
/// logarithmic time and accept a key or its text.
class QUILLONIC_EXPORT FileAttributes {
 public:
  /// One attribute.
  struct Entry {
    /// Unique in the dictionary.
    FileAttributeKey key;
    /// The value; may hold nothing.
    AnyValue value;

    friend bool operator==(const Entry&, const Entry&) = default;
  };

  /// Visits the entries in dictionary order. Valid until the dictionary changes.
  using const_iterator = std::vector<Entry>::const_iterator;
  /// Keys, each once.
  using KeyList = std::vector<FileAttributeKey>;

  FileAttributes() = default;
  /// Takes the entries in any order; keeps the last of equal keys.
  FileAttributes(std::initializer_list<Entry> entries) : FileAttributes(std::vector<Entry>(entries)) {}
  /// Takes the entries without a copy.
  explicit FileAttributes(std::vector<Entry> entries);

  /// The value of a key, or null. Valid until the dictionary changes.
  const AnyValue* find(std::string_view key) const noexcept;
  /// Whether the key is present, even if its value holds nothing.
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

  /// The first entry in dictionary order.
  const_iterator begin() const noexcept { return entries_.begin(); }
  /// The position after the last entry.
  const_iterator end() const noexcept { return entries_.end(); }
  /// The number of entries.
  std::size_t size() const noexcept { return entries_.size(); }
  /// Whether there is no entry.
  bool empty() const noexcept { return entries_.empty(); }

  /// The keys that both have; nothing when there are none. Every list of keys is in dictionary order unless
  /// it follows a given list.
  std::optional<KeyList> commonAttributeKeys(const FileAttributes& other) const;

  /// The keys that both have with equal values; nothing when there are none. Here, a value that holds nothing
  /// equals no other.
  std::optional<KeyList> objcAttributesIntersection(const FileAttributes& other) const;

  /// The entries whose key is in the list; may be empty.
  FileAttributes intersection(std::span<const FileAttributeKey> keys) const;

  /// The keys of the list that the dictionary lacks, each once and in list order; nothing when it lacks none.
  std::optional<KeyList> missingEqualityAttributes(std::span<const FileAttributeKey> inList) const;

  /// Receives a common key and both values, which are never null; they live until the block returns. Setting
  /// `stop` ends the walk after the call. A block may change both dictionaries: the walk continues over their
  /// earlier contents. All of this also holds for the two blocks below.
  using CommonEntryBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue* value,
                                            const AnyValue* otherValue, bool& stop)>;

  /// Calls the block once per common key, in dictionary order.
  void correlatedEnumerateCommonKeyValueEntries(const FileAttributes& other, CommonEntryBlock block) const;

  /// Receives a common key with equal values, and this dictionary's value.
  using MatchBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue& value, bool& stop)>;
  /// Receives a common key and its two different values, this dictionary's first.
  using MismatchBlock = FunctionRef<void(const FileAttributeKey& key, const AnyValue& value,
                                         const AnyValue& otherValue, bool& stop)>;

  /// Calls one of the blocks once per common key, in dictionary order: `didMatch` for equal values, else
  /// `didMismatch`. Skips keys that only one dictionary has; `missingEqualityAttributes` finds them.
  void compare(const FileAttributes& other, MatchBlock didMatch, MismatchBlock didMismatch) const;

  /// Equal when both have equal values under the same keys.
  friend bool operator==(const FileAttributes&, const FileAttributes&) = default;

 private:
  std::vector<Entry> entries_;
};

/// Types that compare with another of their kind, attribute by attribute.
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
