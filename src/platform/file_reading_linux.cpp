#include "platform/file_reading_linux.hpp"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

#include "platform/descriptor_linux.hpp"
#include "text/unicode.hpp"

namespace quillonic {

Descriptor openedUntouched(int folder, const char* path, int flags) noexcept {
  const auto openedWith = [&](int more) {
    return Descriptor(uninterrupted([&] { return ::openat(folder, path, flags | O_CLOEXEC | more); }));
  };
  auto item = openedWith(O_NOATIME);
  return item || errno != EPERM ? std::move(item) : openedWith(0);
}

Result<std::string> bytesOf(int file, std::size_t limit, std::size_t expected) {
  std::string bytes;
  std::size_t size = 0;
  while (size < limit) {
    // One byte more than expected, so that the end is found without growing.
    if (size == bytes.size())
      bytes.resize(std::min(limit, std::max({2 * size, expected + 1, std::size_t{4096}})));
    const auto count = uninterrupted([&] { return ::read(file, bytes.data() + size, bytes.size() - size); });
    if (count < 0) return lastError();
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
  }
  bytes.resize(size);
  return bytes;
}

Result<std::string> contentsOfFile(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return file ? bytesOf(file.number(), std::string().max_size() / 2) : lastError();
}

std::optional<std::string> textOfFile(const std::string& path) {
  const auto contents = contentsOfFile(path).value_or({});
  const auto text = text::trimmed(std::string_view(contents).substr(0, contents.find('\0')));
  return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace quillonic
