#include <quillonic/filesystem/io_error.hpp>

#include <array>
#include <string_view>

#include "support/message_category.hpp"
#include "support/never_destroyed.hpp"

namespace quillonic {
namespace {

constexpr std::array<std::string_view, 12> ioMessages{
    "invalid path type",
    "invalid data type",
    "path does not exist",
    "io has closed",
    "reposition failure",
    "data ignored",
    "file attributes unavailable",
    "invalid replication structure",
    "replicator type not supported",
    "replication resources unavailable",
    "output already processed",
    "verification resources unavailable",
};
static_assert(static_cast<int>(IOError::unavailableVerificationResources) == ioMessages.size());

constexpr std::array<std::string_view, 4> attributeMessages{
    "not an alias file",
    "malformed alias file",
    "alias target not found",
    "symbolic link target not found",
};
static_assert(static_cast<int>(FilePathAttributeGenerationError::symbolicLinkTargetNotFound) ==
              attributeMessages.size());

}  // namespace

const std::error_category& ioErrorCategory() noexcept {
  static const NeverDestroyed<MessageCategory> category("quillonic.io", ioMessages);
  return *category;
}

std::error_code make_error_code(IOError error) noexcept {
  return {static_cast<int>(error), ioErrorCategory()};
}

const std::error_category& filePathAttributeGenerationErrorCategory() noexcept {
  static const NeverDestroyed<MessageCategory> category("quillonic.attributes", attributeMessages);
  return *category;
}

std::error_code make_error_code(FilePathAttributeGenerationError error) noexcept {
  return {static_cast<int>(error), filePathAttributeGenerationErrorCategory()};
}

}  // namespace quillonic
