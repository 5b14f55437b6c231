// The two ends of a copy: a file that is read, and a file that has no name yet.
#pragma once

#include <quillonic/support/result.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <system_error>

#include "platform/items.hpp"

namespace quillonic {

// A regular file that is read. The access time stays if the process owns the file or may act as its owner.
class SourceFile {
 public:
  // Follows no final link. Fails with EINVAL for an item that is not a regular file.
  static Result<SourceFile> open(const std::string& path, const items::Folder* folder = nullptr);
  // Takes the descriptor.
  static Result<SourceFile> ofOpen(int descriptor, const items::Status& status);
  SourceFile(SourceFile&& other) noexcept;
  SourceFile& operator=(SourceFile&&) = delete;
  ~SourceFile();

  int descriptor() const noexcept { return descriptor_; }
  const items::Status& status() const noexcept { return status_; }

  // Bytes at an offset, fewer than asked for only at the end.
  Result<std::size_t> read(std::uint64_t offset, std::span<std::byte> bytes) const;

  struct Extent {
    std::uint64_t begin;
    std::uint64_t end;
  };
  // The next part with data at or after an offset; empty, at the size, when there is none. The whole rest
  // where the volume does not tell.
  Extent nextData(std::uint64_t offset) const;

  bool mayHaveHoles() const noexcept { return status_.allocated < status_.size; }

  // Whether size and modification date are those that the file was opened with.
  bool isUnchanged() const;

  // Asks the system to read the following bytes from the volume, not from its memory.
  void forgetCached() const noexcept;

 private:
  SourceFile(int descriptor, const items::Status& status) : descriptor_(descriptor), status_(status) {}

  int descriptor_;
  items::Status status_;
};

// Gives an open item the owner, extended attributes, permissions and dates of another as far as its volume and
// the user's rights allow. False if it lacks an extended attribute.
bool takeAttributes(int copy, int source, const items::Status& status);

// A new file that gets its name when it is whole: it has none until then, or a hidden one beside its own where
// the volume has no files without names. Removed at the end of its scope unless it was given its name. The
// hidden name follows from the other. A lock on such a file tells other programs that it is being written:
// without one it is what a killed program left, and is replaced.
class PartialFile {
 public:
  // Fails with EBUSY while another program writes under the hidden name.
  static Result<PartialFile> create(const std::string& name, std::shared_ptr<const items::Folder> folder);
  PartialFile(PartialFile&& other) noexcept;
  PartialFile& operator=(PartialFile&&) = delete;
  ~PartialFile();

  // Shares the source's blocks, where the volume does that for the two files. False when it does not.
  bool clone(const SourceFile& source) const noexcept;
  // Has the system copy bytes; a count of 0 when it cannot for these two files.
  Result<std::size_t> copyWithin(const SourceFile& source, std::uint64_t offset, std::size_t count) const;
  std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes) const;
  // What was never written becomes a hole, or zeros where the volume holds no holes.
  std::error_code setSize(std::uint64_t size) const;

  int descriptor() const noexcept { return descriptor_; }
  // The same file, to be read back.
  Result<SourceFile> reading() const;
  std::error_code sync() const;
  const items::Folder& folder() const noexcept { return *folder_; }
  // Gives it a name in its folder. Fails with EEXIST for a taken one, even by a dangling link.
  std::error_code publish(const std::string& name);

 private:
  std::error_code link(const std::string& name) const;
  std::error_code rename(const std::string& name) const;

  PartialFile(int descriptor, std::shared_ptr<const items::Folder> folder, std::string hidden)
      : descriptor_(descriptor), folder_(std::move(folder)), hidden_(std::move(hidden)) {}

  int descriptor_;
  std::shared_ptr<const items::Folder> folder_;
  // Empty for a file without a name.
  std::string hidden_;
};

}  // namespace quillonic
