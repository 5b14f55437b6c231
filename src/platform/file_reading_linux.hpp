// Reading files.
#pragma once

#include <quillonic/support/result.hpp>

#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <string>

#include "platform/descriptor_linux.hpp"
#include "platform/items.hpp"

namespace quillonic {

// The folder that a relative path counts from, for system calls.
inline int descriptorOf(const items::Folder* folder) noexcept {
  return folder ? folder->descriptor() : AT_FDCWD;
}

// Opens without a change of the access time, which only the owner may.
Descriptor openedUntouched(int folder, const char* path, int flags) noexcept;

// The rest of an open file, at most `limit` bytes. One of the expected size is read without a copy.
Result<std::string> bytesOf(int file, std::size_t limit, std::size_t expected = 0);

// The whole of a small file of the system's own, which reports no size.
Result<std::string> contentsOfFile(const std::string& path);

// The same without the space around it; nothing for an empty or unreadable file. Ends at a NUL, as the texts
// of some firmware do.
std::optional<std::string> textOfFile(const std::string& path);

}  // namespace quillonic
