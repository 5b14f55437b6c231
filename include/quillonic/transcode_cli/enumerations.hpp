/// The types of the transcoder's fixed values. The values are constants in vocabulary_table.hpp;
/// vocabulary.hpp includes both.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/support/text_backed.hpp>
#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/transcode_cli/flags_table.hpp>

#include <concepts>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quillonic {

/// A fixed value of some flag: `cliFlag` is the flag's text, not the value's.
template <class T>
concept CLIArgumentOption = !CliFlag<T> && requires(const T& value) {
  { cliFlag(value) } -> std::convertible_to<std::string_view>;
};

/// A value of a general flag.
template <class T>
concept TranscodeFileCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { fileFlag(value) } -> std::convertible_to<VAVTranscodeArgumentFlag>;
};

/// A value of a video flag.
template <class T>
concept VideoCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { videoFlag(value) } -> std::convertible_to<VAVTranscodeVideoArgumentFlag>;
};

/// A value of an audio flag.
template <class T>
concept AudioCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { audioFlag(value) } -> std::convertible_to<VAVTranscodeAudioArgumentFlag>;
};

/// A value of a timecode flag.
template <class T>
concept TimecodeCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { tcFlag(value) } -> std::convertible_to<VAVTranscodeTimecodeArgumentFlag>;
};

/// A value of an image-watermark flag. The name `tcFlag` is a fixed contract.
template <class T>
concept WatermarkFileCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { tcFlag(value) } -> std::convertible_to<VAVTranscodeWatermarkFileArgumentFlag>;
};

/// Base of the values of one flag: names the flag, through the member for its family.
template <const auto& flag> class ValueOfFlag {
  template <class... Flags> static constexpr bool isA = (std::same_as<decltype(flag), const Flags&> || ...);

 public:
  /// The text of the flag.
  static constexpr std::string_view cliFlag() noexcept { return flag.cliFlag(); }
  /// The flag, when it is a general one.
  static constexpr const auto& fileFlag() noexcept requires isA<VAVTranscodeArgumentFlag> { return flag; }
  /// The flag, when it is a video flag.
  static constexpr const auto& videoFlag() noexcept requires isA<VAVTranscodeVideoArgumentFlag> {
    return flag;
  }
  /// The flag, when it is an audio flag.
  static constexpr const auto& audioFlag() noexcept requires isA<VAVTranscodeAudioArgumentFlag> {
    return flag;
  }
  /// The flag, when it is a timecode or an image-watermark flag; one name for both is a fixed contract.
  static constexpr const auto& tcFlag() noexcept requires
      isA<VAVTranscodeTimecodeArgumentFlag, VAVTranscodeWatermarkFileArgumentFlag> {
    return flag;
  }

  friend constexpr std::string_view cliFlag(const ValueOfFlag&) noexcept { return flag.cliFlag(); }
  friend constexpr const auto& fileFlag(const ValueOfFlag&) noexcept requires isA<VAVTranscodeArgumentFlag> {
    return flag;
  }
  friend constexpr const auto& videoFlag(
      const ValueOfFlag&) noexcept requires isA<VAVTranscodeVideoArgumentFlag> {
    return flag;
  }
  friend constexpr const auto& audioFlag(
      const ValueOfFlag&) noexcept requires isA<VAVTranscodeAudioArgumentFlag> {
    return flag;
  }
  friend constexpr const auto& tcFlag(const ValueOfFlag&) noexcept requires
      isA<VAVTranscodeTimecodeArgumentFlag, VAVTranscodeWatermarkFileArgumentFlag> {
    return flag;
  }
};

/// A fixed value of one flag.
template <const auto& flag>
class TranscodeValue : public TextBacked<TranscodeValue<flag>>, public ValueOfFlag<flag> {
 public:
  using TextBacked<TranscodeValue>::TextBacked;
};

/// Ways to fit a picture into a frame of another aspect ratio.
using VAVTranscodeArgumentAspectRatioValue = TranscodeValue<VAVVideoAspectScalingFlag>;
/// Audio codecs.
using VAVTranscodeArgumentAudioFormatValue = TranscodeValue<VAVAudioFormatFlag>;
/// Channel layouts of the output.
using VAVTranscodeArgumentAudioChannelLayoutValue = TranscodeValue<VAVAudioChannelLayoutFlag>;
/// Names of the presets built into the tool.
using VAVTranscodePresetValue = TranscodeValue<VAVPresetFlag>;

/// Container formats of the output.
class VAVTranscodeArgumentFileFormatValue : public TextBacked<VAVTranscodeArgumentFileFormatValue>,
                                            public ValueOfFlag<VAVFileFormatFlag> {
 public:
  using TextBacked::TextBacked;

  /// The extensions of files in the format, the preferred one first; none for an unlisted format.
  QUILLONIC_EXPORT std::span<const FileExtension> validExtensions() const noexcept;
  /// The first of `validExtensions`; nothing when there is none.
  QUILLONIC_EXPORT std::optional<FileExtension> preferredFileExtension() const noexcept;
};

/// Video codecs. What each accepts is in media/codec.hpp, under the same text.
class VAVTranscodeArgumentVideoCodecValue : public TextBacked<VAVTranscodeArgumentVideoCodecValue>,
                                            public ValueOfFlag<VAVVideoFormatFlag> {
 public:
  using TextBacked::TextBacked;

  /// The extensions of files that the transcoder writes with the codec, the preferred one first; none for a
  /// codec that is neither listed nor in `allProResFormats`. A ProRes codec has them only while it is in that
  /// group.
  QUILLONIC_EXPORT std::span<const FileExtension> permittedExtensions() const;

  /// The DNx codecs: "dnxhd" until a host sets others for the whole process. Setting this group and the two
  /// below is safe while other threads read them; returned lists do not change.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allAvidDNxFormats();
  QUILLONIC_EXPORT static void setAllAvidDNxFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
  /// The codecs for playback in a browser: "h264", "h265" and "mjpeg" until a host sets others.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allWebFormats();
  QUILLONIC_EXPORT static void setAllWebFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
  /// The ProRes codecs: the six listed ones until a host sets others.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allProResFormats();
  QUILLONIC_EXPORT static void setAllProResFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
};

/// Places in the frame. Several flags take them, so they have no flag of their own.
class VAVTranscodeArgumentOverlayAnchorValue : public TextBacked<VAVTranscodeArgumentOverlayAnchorValue> {
 public:
  using TextBacked::TextBacked;

  /// The value's own text; the anchor types have the flag.
  constexpr std::string_view cliFlag() const noexcept { return rawValue(); }
};

/// Colour spaces of the output.
class VAVTranscodeArgumentColorSpaceValue : public TextBacked<VAVTranscodeArgumentColorSpaceValue>,
                                            public ValueOfFlag<VAVVideoColorSpaceFlag> {
 public:
  using TextBacked::TextBacked;

  /// The value for a stored colour space; nothing for a space that the transcoder does not offer.
  QUILLONIC_EXPORT static std::optional<VAVTranscodeArgumentColorSpaceValue> fromColorSpace(
      Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace colorSpace);
};

}  // namespace quillonic
