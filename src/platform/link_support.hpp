// Which links a volume can hold.
#pragma once

#include <filesystem>
#include <optional>
#include <system_error>

namespace quillonic {

struct LinkSupport {
  bool symbolicLinks;
  bool hardLinks;
};

// That of the volume that holds an item, or that of the nearest folder above it that is there; a link counts for
// the volume that holds the link. Reports a failure in
// `error` and by giving nothing.
std::optional<LinkSupport> linkSupportAt(const std::filesystem::path& item, std::error_code& error);

}  // namespace quillonic
