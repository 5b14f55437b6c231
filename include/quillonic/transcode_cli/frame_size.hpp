/// Frame sizes.
#pragma once

#include <quillonic/support/coding.hpp>

#include <cstdint>
#include <tuple>

namespace quillonic {

/// A width and a height in pixels, written "960x540" on a command line.
struct FrameSize {
  /// Pixels; a negative number cannot be written.
  std::int64_t width = 0;
  /// Pixels; a negative number cannot be written.
  std::int64_t height = 0;

  friend bool operator==(const FrameSize&, const FrameSize&) = default;
};

/// The fields of `FrameSize`, each encoded under its own name.
template <> struct FieldTable<FrameSize> {
  static constexpr std::tuple fields{
      Field{"width", &FrameSize::width},
      Field{"height", &FrameSize::height},
  };
};

}  // namespace quillonic
