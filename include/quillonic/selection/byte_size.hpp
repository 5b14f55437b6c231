/// Numbers of bytes as people write them.
///
///     byteSizeFromText("1.5 GB");     // 1,500,000,000
///     byteSizeFromText("700MiB");     // 734,003,200
///     byteSizeText(734'003'200);      // "700 MiB"
#pragma once

#include <quillonic/export.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic::selection {

/// The text with the fewest digits that reads back to exactly the same number: "1.5 GB", "700 MiB", "1025 B".
QUILLONIC_EXPORT std::string byteSizeText(std::uint64_t bytes);

/// Reads a decimal number and a unit in any case, with or without a space between: "B", "kB", "MB", "GB",
/// "TB" and "PB" are powers of 1,000, "KiB" to "PiB" of 1,024; a number alone is bytes. Nothing for another
/// unit, for a part of a byte ("0.1 KiB"), and for what 64 bits do not hold.
QUILLONIC_EXPORT std::optional<std::uint64_t> byteSizeFromText(std::string_view text) noexcept;

}  // namespace quillonic::selection
