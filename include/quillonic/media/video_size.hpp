/// The width and height of a frame.
#pragma once

#include <quillonic/requirements.hpp>

#include <cstddef>
#include <string_view>

namespace quillonic {

/// A width and a height, in pixels unless stated otherwise.
struct VideoSize {
  /// The width, or its factor; any number is kept.
  double width = 0;
  /// The height, or its factor; any number is kept.
  double height = 0;

  friend constexpr bool operator==(const VideoSize&, const VideoSize&) = default;
};

}  // namespace quillonic

template <> struct std::hash<quillonic::VideoSize> {
  std::size_t operator()(const quillonic::VideoSize& size) const noexcept {
    constexpr std::size_t oddFactor = 31;
    return std::hash<double>{}(size.width) * oddFactor + std::hash<double>{}(size.height);
  }
};
