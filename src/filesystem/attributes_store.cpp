#include <quillonic/filesystem/attributes_store.hpp>

#include <utility>
#include <vector>

namespace quillonic {
namespace {

// In the order in which stores report them.
constexpr CaseList comparedKeys{FileAttributeKey::filePathName, FileAttributeKey::NSFileSize,
                                FileAttributeKey::NSFileCreationDate,
                                FileAttributeKey::NSFileModificationDate};

}  // namespace

FileSystemAttributesStore::~FileSystemAttributesStore() = default;
AttributeBasedStore::~AttributeBasedStore() = default;
AccessorBasedStore::~AccessorBasedStore() = default;

std::span<const FileAttributeKey> FileSystemAttributesStore::attributeKeys() noexcept {
  return comparedKeys;
}

std::optional<std::string> AttributeBasedStore::name() const {
  return attributes().value<std::string>(FileAttributeKey::filePathName);
}

std::optional<std::uint64_t> AttributeBasedStore::fileSize() const {
  return attributes().value<std::uint64_t>(FileAttributeKey::NSFileSize);
}

std::optional<Date> AttributeBasedStore::dateCreated() const {
  return attributes().value<Date>(FileAttributeKey::NSFileCreationDate);
}

std::optional<Date> AttributeBasedStore::dateModified() const {
  return attributes().value<Date>(FileAttributeKey::NSFileModificationDate);
}

FileAttributes AccessorBasedStore::attributes() const {
  std::vector<FileAttributes::Entry> entries;
  const auto add = [&](const FileAttributeKey& key, auto value) {
    if (value) entries.push_back({key, *std::move(value)});
  };
  add(FileAttributeKey::filePathName, name());
  add(FileAttributeKey::NSFileSize, fileSize());
  add(FileAttributeKey::NSFileCreationDate, dateCreated());
  add(FileAttributeKey::NSFileModificationDate, dateModified());
  return FileAttributes(std::move(entries));
}

}  // namespace quillonic
