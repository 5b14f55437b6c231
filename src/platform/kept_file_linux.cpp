#include "platform/kept_file_linux.hpp"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace quillonic {

KeptFile::KeptFile(const std::string& path) : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (!file_) error_ = lastError();
}

std::error_code KeptFile::read(std::string& contents) const {
  if (!file_) return error_;
  // Most are shorter, so that the second call tells the end.
  contents.resize(std::max<std::size_t>(contents.capacity(), 1024));
  std::size_t size = 0;
  for (;;) {
    const auto count = uninterrupted([&] {
      return ::pread(file_.number(), contents.data() + size, contents.size() - size,
                     static_cast<off_t>(size));
    });
    if (count < 0) return lastError();
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
    if (size == contents.size()) contents.resize(2 * size);
  }
  contents.resize(size);
  return {};
}

}  // namespace quillonic
