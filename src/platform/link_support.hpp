// Which links a volume supports.
#pragma once

#include <quillonic/support/result.hpp>

#include <filesystem>

namespace quillonic {

struct LinkSupport {
  bool symbolicLinks;
  bool hardLinks;
};

// For the volume that holds an item, or its nearest existing parent folder; a link counts for its own volume.
Result<LinkSupport> linkSupportAt(const std::filesystem::path& item);

}  // namespace quillonic
