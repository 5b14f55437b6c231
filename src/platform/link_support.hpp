// Which links a volume can hold.
#pragma once

#include <filesystem>

#include "support/result.hpp"

namespace quillonic {

struct LinkSupport {
  bool symbolicLinks;
  bool hardLinks;
};

// For the volume that holds an item, or else its nearest existing parent folder; a link counts for the volume
// that holds the link.
Result<LinkSupport> linkSupportAt(const std::filesystem::path& item);

}  // namespace quillonic
