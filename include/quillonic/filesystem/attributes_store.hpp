/// Records that describe one file each.
///
///     class Clip : public AttributeBasedStore {                    // name(), fileSize() ... read from these
///       FileAttributes attributes() const override { return attributes_; }
///     };
///     class TapeEntry : public AccessorBasedStore {                // attributes() is made of these
///       std::optional<std::string> name() const override { return name_; }
///       ...
///     };
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/filesystem/file_attributes.hpp>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quillonic {

/// The attributes of one file in two equivalent forms: a dictionary and typed accessors. A record derives
/// from `AttributeBasedStore` or `AccessorBasedStore`, supplies one form and gets the other; a record that
/// supplies neither does not compile.
class QUILLONIC_EXPORT FileSystemAttributesStore {
 public:
  virtual ~FileSystemAttributesStore();

  /// All known attributes of the item, by key.
  virtual FileAttributes attributes() const = 0;

  /// The item's name.
  virtual std::optional<std::string> name() const = 0;
  /// The item's size in bytes.
  virtual std::optional<std::uint64_t> fileSize() const = 0;
  /// When the item was created.
  virtual std::optional<Date> dateCreated() const = 0;
  /// When the item's contents last changed.
  virtual std::optional<Date> dateModified() const = 0;

  /// The attributes that are compared between two stores: name, size, creation date and modification date.
  static std::span<const FileAttributeKey> attributeKeys() noexcept;

 protected:
  FileSystemAttributesStore() = default;
  FileSystemAttributesStore(const FileSystemAttributesStore&) = default;
  FileSystemAttributesStore& operator=(const FileSystemAttributesStore&) = default;
};

/// A store that supplies `attributes`. Each accessor reads its key; a value that is absent or of another kind
/// reads as nothing.
class QUILLONIC_EXPORT AttributeBasedStore : public FileSystemAttributesStore {
 public:
  ~AttributeBasedStore() override;

  std::optional<std::string> name() const override;
  std::optional<std::uint64_t> fileSize() const override;
  std::optional<Date> dateCreated() const override;
  std::optional<Date> dateModified() const override;

 protected:
  AttributeBasedStore() = default;
  AttributeBasedStore(const AttributeBasedStore&) = default;
  AttributeBasedStore& operator=(const AttributeBasedStore&) = default;
};

/// A store that supplies the four accessors. Its `attributes` are those that are present.
class QUILLONIC_EXPORT AccessorBasedStore : public FileSystemAttributesStore {
 public:
  ~AccessorBasedStore() override;

  FileAttributes attributes() const override;

 protected:
  AccessorBasedStore() = default;
  AccessorBasedStore(const AccessorBasedStore&) = default;
  AccessorBasedStore& operator=(const AccessorBasedStore&) = default;
};

}  // namespace quillonic
