/// The conversion options as stored presets carry them.
///
///     Cloud_ConversionOptions preset;
///     preset.codecType = Cloud_ConversionOptions::CodecType::h264;
///     FrameRate::fps25.storeIn(preset.videoOptions);
///     VideoDimension::tenEightyP.storeIn(preset.videoOptions);
#pragma once

#include <quillonic/requirements.hpp>

#include <cstdint>

namespace quillonic {

/// A stored transcode preset: what the applications save, without a rule of its own. The stored form numbers
/// its choices; a number that this version does not know is carried on unchanged, and a number of 0 means
/// that nothing was chosen.
struct Cloud_ConversionOptions {
  /// The video codec, by its stored number. Any other number is a valid value and survives.
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

  /// The part that describes the video.
  struct VideoTranscodeOptions {
    /// The colour space, by its stored number. Only the spaces that the transcoder can be asked for have a
    /// name here; any other number is a valid value and survives.
    enum class ColorSpace : std::int32_t { rec2020 = 2, rec709 = 3, sRgb = 4, smpteC = 7, ebu3213 = 8 };

    /// The container of the output, by its stored number. Any other number is a valid value and survives.
    enum class Container : std::int32_t { mov = 1, mp4 = 2 };

    /// Pixels; 0 when the frame is scaled or left as it is.
    double width = 0;
    /// Pixels, like the width.
    double height = 0;
    /// The factor that both sides of the frame are multiplied by; 0 when the size is given in pixels or left
    /// as it is.
    double scale = 0;
    /// Frames per second; 0 keeps the rate of the source, and 0.5 halves it.
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

  /// The part that describes the audio.
  struct AudioTranscodeOptions {
    /// Hertz; 0 keeps the rate of the source.
    std::int64_t sampleRate = 0;
    /// The number of channels; 0 keeps the layout of the source.
    std::int64_t channelCount = 0;

    friend constexpr bool operator==(const AudioTranscodeOptions&, const AudioTranscodeOptions&) = default;
  };

  /// 0 when none was chosen.
  CodecType codecType{};
  /// What was chosen for the video; a new one keeps the source's size and rate.
  VideoTranscodeOptions videoOptions;
  /// What was chosen for the audio; a new one keeps the source's rate and layout.
  AudioTranscodeOptions audioOptions;

  friend constexpr bool operator==(const Cloud_ConversionOptions&, const Cloud_ConversionOptions&) = default;
};

}  // namespace quillonic
