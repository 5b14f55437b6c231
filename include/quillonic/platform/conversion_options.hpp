/// The conversion options as stored presets carry them.
#pragma once

#include <cstdint>

namespace quillonic {

/// A stored transcode preset. The stored form numbers its choices; a number that this version does not know
/// is carried on unchanged.
struct Cloud_ConversionOptions {
  /// The part that describes the video.
  struct VideoTranscodeOptions {
    /// The colour space, by its stored number. Only the spaces that the transcoder can be asked for have a
    /// name here; any other number is a valid value and survives.
    enum class ColorSpace : std::int32_t { rec2020 = 2, rec709 = 3, sRgb = 4, smpteC = 7, ebu3213 = 8 };
  };
};

}  // namespace quillonic
