// Sizes as they are written, with parts of bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillonic::selection {

struct WrittenSize {
  // Rounded down.
  std::uint64_t bytes;
  // Whether nothing was rounded.
  bool isWhole;
};

// Whether a word, which is not empty, is the name of a unit, in any ASCII case.
bool isSizeUnit(std::string_view word) noexcept;

// An empty unit is bytes.
std::optional<WrittenSize> writtenSize(std::string_view number, std::string_view unit) noexcept;

}  // namespace quillonic::selection
