/// The size of a frame.
#pragma once

#include <cstdint>

namespace quillonic {

/// A width and a height in pixels, "960x540" on a command line.
struct FrameSize {
  std::int64_t width = 0;
  std::int64_t height = 0;

  friend bool operator==(const FrameSize&, const FrameSize&) = default;
};

}  // namespace quillonic
