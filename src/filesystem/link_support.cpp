#include "platform/link_support.hpp"

#include <quillonic/filesystem/link_support.hpp>

#include "filesystem/locations.hpp"

namespace quillonic {
namespace {

LinkSupport supportAt(const std::filesystem::path& url) {
  return locations::valueOrFail(linkSupportAt(url), "cannot ask the volume", url);
}

}  // namespace

bool fileSystemSupportsSymbolicLinks(const std::filesystem::path& url) {
  return supportAt(url).symbolicLinks;
}

bool fileSystemSupportsHardLinks(const std::filesystem::path& url) {
  return supportAt(url).hardLinks;
}

}  // namespace quillonic
