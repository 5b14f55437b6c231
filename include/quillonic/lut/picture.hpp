/// Pixels in memory, as a host holds them.
///
///     auto frame = Picture::interleaved(bytes, SampleType::uint8, 4, {3840, 2160});
#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

namespace quillonic::lut {

/// How a sample is stored, in the byte order of the machine. Integers cover the full range: the greatest code
/// is 1. Depths of 10 and 12 bits have 16 bits each; codes above the greatest act as the greatest. `half` and
/// `single` are floating-point numbers of 16 and 32 bits.
enum class SampleType { uint8, uint10, uint12, uint16, half, single };

/// The bytes of a sample; 0 for an unlisted type.
constexpr std::size_t bytesOf(SampleType type) noexcept {
  switch (type) {
    case SampleType::uint8:
      return 1;
    case SampleType::uint10:
    case SampleType::uint12:
    case SampleType::uint16:
    case SampleType::half:
      return 2;
    case SampleType::single:
      return 4;
  }
  return 0;
}

/// The pixels of a picture.
struct PictureSize {
  /// Pixels in a row.
  std::size_t width = 0;
  /// Rows.
  std::size_t height = 0;
};

/// Where the samples of a picture are. It owns nothing. Samples need no alignment. Blue before red, alpha
/// first or rows from the bottom up need no more than other addresses and strides.
template <class Byte> struct BasicPicture {
  /// A pointer to samples.
  using Pointer = std::conditional_t<std::is_const_v<Byte>, const void*, void*>;

  /// The samples of one channel.
  struct Plane {
    /// The first sample of the first row; null for an alpha that is not there.
    Byte* first = nullptr;
    /// The bytes from a row to the next; may be negative.
    std::ptrdiff_t rowStride = 0;
  };

  /// Red, green, blue and alpha.
  std::array<Plane, 4> planes{};
  /// The bytes from a sample to the next of its channel in a row.
  std::ptrdiff_t pixelStride = 0;
  /// The pixels.
  PictureSize size{};

  /// The same pixels, to be read.
  // NOLINTNEXTLINE(google-explicit-constructor): what can be written can be read
  operator BasicPicture<const Byte>() const noexcept requires(!std::is_const_v<Byte>) {
    BasicPicture<const Byte> picture{.planes = {}, .pixelStride = pixelStride, .size = size};
    for (std::size_t channel = 0; channel < 4; ++channel)
      picture.planes[channel] = {planes[channel].first, planes[channel].rowStride};
    return picture;
  }

  /// RGB (3 channels) or RGBA (4) pixel by pixel. Without a stride of rows, one follows the other.
  static BasicPicture interleaved(Pointer pixels, SampleType type, std::size_t channels, PictureSize size,
                                  std::ptrdiff_t rowStride = 0) noexcept {
    const auto bytes = bytesOf(type);
    BasicPicture picture{
        .planes = {}, .pixelStride = static_cast<std::ptrdiff_t>(channels * bytes), .size = size};
    if (rowStride == 0) rowStride = picture.pixelStride * static_cast<std::ptrdiff_t>(size.width);
    for (std::size_t channel = 0; channel < channels && channel < 4; ++channel)
      picture.planes[channel] = {static_cast<Byte*>(pixels) + channel * bytes, rowStride};
    return picture;
  }

  /// Three or four planes, in the order red, green, blue, alpha. The strides as above, one for all planes.
  static BasicPicture planar(std::array<Pointer, 4> planes, SampleType type, PictureSize size,
                             std::ptrdiff_t rowStride = 0) noexcept {
    BasicPicture picture{
        .planes = {}, .pixelStride = static_cast<std::ptrdiff_t>(bytesOf(type)), .size = size};
    if (rowStride == 0) rowStride = picture.pixelStride * static_cast<std::ptrdiff_t>(size.width);
    for (std::size_t channel = 0; channel < 4; ++channel)
      picture.planes[channel] = {static_cast<Byte*>(planes[channel]), rowStride};
    return picture;
  }
};

/// A picture to be read.
using ConstPicture = BasicPicture<const std::byte>;
/// A picture to be written.
using Picture = BasicPicture<std::byte>;

}  // namespace quillonic::lut
