/// The conversion options in stored presets.
///
///     Cloud_ConversionOptions preset;
///     preset.codecType = Cloud_ConversionOptions::CodecType::h264;
///     FrameRate::fps25.storeIn(preset.videoOptions);
///     VideoDimension::tenEightyP.storeIn(preset.videoOptions);
#pragma once

#include <quillonic/requirements.hpp>

#include <cstdint>

namespace quillonic {

/// A stored transcode preset: what the applications save, without any rules. Choices are stored as numbers;
/// unlisted numbers are kept unchanged, and 0 means that nothing was chosen.
struct Cloud_ConversionOptions {
  /// The video codec, by its stored number. Unlisted numbers are valid and kept.
  enum class CodecType : std::int32_t {
    dnxhd = 1,
    h264 = 2,
    h265 = 3,
    motionJpeg = 4,
    mpeg4 = 5,
    proRes4444 = 6,
    proRes4444XQ = 7,
    proRes422 = 8,
    proRes422HQ = 9,
    proRes422LT = 10,
    proRes422Proxy = 11,
  };

  /// The video settings.
  struct VideoTranscodeOptions {
    /// The colour space, by its stored number. Only the spaces that the transcoder offers have names here;
    /// unlisted numbers are valid and kept.
    enum class ColorSpace : std::int32_t { rec2020 = 2, rec709 = 3, sRgb = 4, smpteC = 7, ebu3213 = 8 };

    /// The output container, by its stored number. Unlisted numbers are valid and kept.
    enum class Container : std::int32_t { mov = 1, mp4 = 2 };

    /// Pixels; 0 when the frame is scaled or unchanged.
    double width = 0;
    /// Pixels, like the width.
    double height = 0;
    /// The factor for both sides of the frame; 0 when the size is given in pixels or unchanged.
    double scale = 0;
    /// Frames per second; 0 keeps the source's rate, and 0.5 halves it.
    double frameRate = 0;
    /// Megabits per second; 0 leaves the choice to the encoder.
    double dataRate = 0;
    /// Bits per pixel component.
    std::int64_t colorDepth = 0;
    /// 0 when none was chosen.
    ColorSpace colorSpace{};
    /// 0 when none was chosen.
    Container container{};

    friend constexpr bool operator==(const VideoTranscodeOptions&, const VideoTranscodeOptions&) = default;
  };

  /// The audio settings.
  struct AudioTranscodeOptions {
    /// Hertz; 0 keeps the source's rate.
    std::int64_t sampleRate = 0;
    /// The number of channels; 0 keeps the source's layout.
    std::int64_t channelCount = 0;

    friend constexpr bool operator==(const AudioTranscodeOptions&, const AudioTranscodeOptions&) = default;
  };

  /// 0 when none was chosen.
  CodecType codecType{};
  /// Chosen for the video; by default the source's size and rate.
  VideoTranscodeOptions videoOptions;
  /// Chosen for the audio; by default the source's rate and layout.
  AudioTranscodeOptions audioOptions;

  friend constexpr bool operator==(const Cloud_ConversionOptions&, const Cloud_ConversionOptions&) = default;
};

}  // namespace quillonic
