#include "platform/file_reading_linux.hpp"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace quillonic {

std::optional<std::string> contentsOfFile(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return std::nullopt;
  std::string contents;
  std::size_t size = 0;
  ssize_t count = 0;
  do {
    size += static_cast<std::size_t>(count);
    contents.resize(std::max<std::size_t>(2 * size, 4096));
    do {
      count = ::read(file, contents.data() + size, contents.size() - size);
    } while (count < 0 && errno == EINTR);
  } while (count > 0);
  ::close(file);
  if (count < 0) return std::nullopt;
  contents.resize(size);
  return contents;
}

}  // namespace quillonic
