/// The errors of an offload that the system does not have.
#pragma once

#include <quillonic/export.hpp>

#include <system_error>

namespace quillonic::offload {

/// Why an item was not copied or a copy is not good, where the system reports no error of its own.
enum class OffloadError {
  /// The source changed while it was read, or since the plan.
  sourceChanged = 1,
  /// The bytes on the volume are not those that were read from the source.
  contentDiffers,
  /// Another item has the name: another size, date or kind.
  nameIsTaken,
  /// The volume cannot hold the item.
  notHeld,
  /// A link's target is outside the source, and such links are refused.
  targetIsOutside,
  /// A link's target is absent, or was not copied.
  targetIsMissing,
  /// Pipes, sockets and devices are not copied.
  kindIsNotCopied,
};

/// The category of `OffloadError`; its name is "quillonic.offload".
QUILLONIC_EXPORT const std::error_category& offloadErrorCategory() noexcept;
/// Converts an `OffloadError` to an error code.
QUILLONIC_EXPORT std::error_code make_error_code(OffloadError error) noexcept;

}  // namespace quillonic::offload

template <> struct std::is_error_code_enum<quillonic::offload::OffloadError> : std::true_type {};
