// Small files of the system's own that are read again and again.
#pragma once

#include <string>
#include <system_error>

#include "platform/descriptor_linux.hpp"

namespace quillonic {

// Opened once: opening one takes longer than reading it, and what it tells of stays the same device or
// process even if another takes its name.
class KeptFile {
 public:
  KeptFile() = default;
  explicit KeptFile(const std::string& path);

  bool isOpen() const noexcept { return static_cast<bool>(file_); }
  // Why it could not be opened.
  std::error_code error() const noexcept { return error_; }
  int descriptor() const noexcept { return file_.number(); }

  // The whole contents as of now, in place of those of the text, whose memory is used again.
  std::error_code read(std::string& contents) const;

 private:
  Descriptor file_;
  std::error_code error_;
};

}  // namespace quillonic
