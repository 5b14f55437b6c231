#include <quillonic/offload/offload_error.hpp>

#include <array>
#include <string_view>

#include "support/message_category.hpp"
#include "support/never_destroyed.hpp"

namespace quillonic::offload {
namespace {

constexpr std::array<std::string_view, 7> messages{
    "source changed",
    "content differs",
    "name is taken",
    "not held by the volume",
    "target is outside the source",
    "target is missing",
    "kind of item is not copied",
};
static_assert(static_cast<int>(OffloadError::kindIsNotCopied) == messages.size());

}  // namespace

const std::error_category& offloadErrorCategory() noexcept {
  static const NeverDestroyed<MessageCategory> category("quillonic.offload", messages);
  return *category;
}

std::error_code make_error_code(OffloadError error) noexcept {
  return {static_cast<int>(error), offloadErrorCategory()};
}

}  // namespace quillonic::offload
