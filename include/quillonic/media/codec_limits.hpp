/// What the video codecs accept: the one table behind every list of settings that a codec allows.
///
///     static_assert(!codecLimits(Cloud_ConversionOptions::CodecType::dnxhd).anyFrameRate);
#pragma once

#include <quillonic/platform/conversion_options.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// What one codec accepts, as the standard behind it has it. What the transcoder writes can be narrower
/// still: see `VAVTranscodeArgumentVideoCodecValue::permittedExtensions`.
struct CodecLimits {
  /// The codec that is spoken of; 0 where any unknown one is.
  Cloud_ConversionOptions::CodecType codec{};
  /// The least and the greatest number of bits per pixel component; every colour depth between them is
  /// accepted.
  std::int64_t leastDepth = 0;
  /// As above; equal to the least where the codec has one depth only.
  std::int64_t greatestDepth = 0;
  /// Whether an mp4 file can hold it. A mov file holds each of them.
  bool livesInMp4 = false;
  /// Whether it takes every frame rate, rather than the few of the broadcast standards.
  bool anyFrameRate = false;
  /// Whether it takes every frame size, rather than those of high definition.
  bool anyFrameSize = false;
  /// Whether its data rate can be asked for, rather than following from size, frame rate and quality class.
  bool restrictableDataRate = false;
};

namespace detail {

inline constexpr auto codecLimitRows = [] {
  using enum Cloud_ConversionOptions::CodecType;
  // The columns: codec, least and greatest depth, mp4, any frame rate, any frame size, data rate on request.
  return std::to_array<CodecLimits>({
      // SMPTE ST 2019-1 (VC-3): 8 or 10 bits, a closed list of compression identifiers, each of one frame
      // size and one number of bytes per frame. The DNxHD white paper lists the frame rates that they are
      // for. QuickTime files hold it, mp4 files do not.
      {dnxhd, 8, 10, false, false, false, false},
      // ITU-T H.264, High profile: 8 bits. ISO/IEC 14496-15 defines its samples in mp4 files, and mov files
      // use the same.
      {h264, 8, 8, true, true, true, true},
      // ITU-T H.265, profiles Main and Main 10: 8 or 10 bits. ISO/IEC 14496-15 again.
      {h265, 8, 10, true, true, true, true},
      // ITU-T T.81, baseline process: 8 bits. The QuickTime file format defines its sample entries.
      {motionJpeg, 8, 8, false, true, true, true},
      // ISO/IEC 14496-2, Advanced Simple profile: 8 bits. ISO/IEC 14496-14 stores it in mp4.
      {mpeg4, 8, 8, true, true, true, true},
      // SMPTE RDD 36 and the ProRes white paper: mov but not mp4, any size and rate, target data rates that
      // follow from both. The 4444 family carries up to 12 bits, the 422 family 10.
      {proRes4444, 10, 12, false, true, true, false},
      {proRes4444XQ, 10, 12, false, true, true, false},
      {proRes422, 10, 10, false, true, true, false},
      {proRes422HQ, 10, 10, false, true, true, false},
      {proRes422LT, 10, 10, false, true, true, false},
      {proRes422Proxy, 10, 10, false, true, true, false},
  });
}();

// Nothing is ruled out for a codec that this version does not know: a newer tool may well accept it.
inline constexpr CodecLimits unknownCodecLimits{{}, 8, 16, true, true, true, true};

}  // namespace detail

/// The row of a codec; for a number without a name, 0 included, one that rules nothing out.
constexpr const CodecLimits& codecLimits(Cloud_ConversionOptions::CodecType codec) noexcept {
  for (const auto& row : detail::codecLimitRows) {
    if (row.codec == codec) return row;
  }
  return detail::unknownCodecLimits;
}

}  // namespace quillonic
