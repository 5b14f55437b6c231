// The two ends of a copy: a file that is read, and a file that has no name yet.
#pragma once

#include <quillonic/platform/unheld.hpp>
#include <quillonic/support/date.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <system_error>

#include "platform/items.hpp"
#include "support/result.hpp"

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

// Gives an open item the owner, permissions and extended attributes of another as far as its volume holds
// them; then what it lacks.
Unheld copyAttributes(int source, int copy);

// A new file under a hidden name beside the one it will have; removed at the end of its scope unless it was
// given its name. The hidden name follows from the other. A lock on the file tells other programs that it is
// being written: without one it is what a killed program left, and is replaced.
class PartialFile {
 public:
  // Fails with EBUSY while another program writes it.
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
  // Gives it dates, last of all: a file with its source's modification date is whole. Returns what the volume
  // holds of that.
  Result<Date> takeDates(Date accessed, Date modified) const;
  const items::Folder& folder() const noexcept { return *folder_; }
  // Gives it a name in its folder. Fails with EEXIST for a taken one, even by a dangling link.
  std::error_code publish(const std::string& name);

 private:
  PartialFile(int descriptor, std::shared_ptr<const items::Folder> folder, std::string hidden)
      : descriptor_(descriptor), folder_(std::move(folder)), hidden_(std::move(hidden)) {}

  int descriptor_;
  std::shared_ptr<const items::Folder> folder_;
  std::string hidden_;
};

// The name that a file has while it is written.
std::string partialNameOf(std::string_view name);

}  // namespace quillonic
