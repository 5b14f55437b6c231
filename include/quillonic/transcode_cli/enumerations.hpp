/// The types of the transcoder's flags and fixed values. The constants themselves stand in
/// vocabulary_table.hpp; include vocabulary.hpp to have both.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/platform/conversion_options.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/text_backed.hpp>
#include <quillonic/tool_cli/flags.hpp>

#include <algorithm>
#include <concepts>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quillonic {

/// Base of the flag enumerations.
template <class Self> class TranscodeFlag : public TextBacked<Self> {
 public:
  using TextBacked<Self>::TextBacked;

  /// The flag as it stands on a command line: its own text.
  constexpr std::string_view cliFlag() const noexcept { return this->rawValue(); }

  /// Whether a value follows the flag. True for a wrapped text that is not listed.
  constexpr bool acceptsArguments() const noexcept {
    return std::ranges::find(CaseTable<Self>::switches, this->rawValue()) == CaseTable<Self>::switches.end();
  }

  friend constexpr std::string_view cliFlag(const Self& flag) noexcept { return flag.cliFlag(); }
  friend constexpr bool acceptsArguments(const Self& flag) noexcept { return flag.acceptsArguments(); }
};

/// Stand-alone commands: each prints something and the tool ends. None takes a value, wrapped texts included.
class VAVTranscodeCliCommand : public TranscodeFlag<VAVTranscodeCliCommand> {
 public:
  using TranscodeFlag::TranscodeFlag;

  /// Never.
  constexpr bool acceptsArguments() const noexcept { return false; }
};

/// General flags: files, file format, preset.
class VAVTranscodeArgumentFlag : public TranscodeFlag<VAVTranscodeArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Video flags.
class VAVTranscodeVideoArgumentFlag : public TranscodeFlag<VAVTranscodeVideoArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Audio flags.
class VAVTranscodeAudioArgumentFlag : public TranscodeFlag<VAVTranscodeAudioArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Flags of the timecode track and of the timecode burnt into the picture.
class VAVTranscodeTimecodeArgumentFlag : public TranscodeFlag<VAVTranscodeTimecodeArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Flags of the image watermark.
class VAVTranscodeWatermarkFileArgumentFlag : public TranscodeFlag<VAVTranscodeWatermarkFileArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Flags of the text watermark.
class VAVTranscodeWatermarkTextArgumentFlag : public TranscodeFlag<VAVTranscodeWatermarkTextArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// Look settings for ARRI camera sources.
class VAVTranscodeArriLookArgumentFlag : public TranscodeFlag<VAVTranscodeArriLookArgumentFlag> {
 public:
  using TranscodeFlag::TranscodeFlag;
};

/// A fixed value of some flag: `cliFlag` is the text of that flag, not the value's own text.
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

/// A value of an image-watermark flag. The property is called `tcFlag` here too; the name is a fixed
/// contract.
template <class T>
concept WatermarkFileCLIArgumentOption = CLIArgumentOption<T> && requires(const T& value) {
  { tcFlag(value) } -> std::convertible_to<VAVTranscodeWatermarkFileArgumentFlag>;
};

/// Base of the value enumerations.
template <class Self> class TranscodeValue : public TextBacked<Self> {
 public:
  using TextBacked<Self>::TextBacked;

  /// The listed value with exactly this text, case included; nothing for any other text.
  static constexpr std::optional<Self> fromStringValue(std::string_view text) { return Self::listed(text); }
};

/// Base of the values that belong to one flag.
template <class Self> class TranscodeFlagValue : public TranscodeValue<Self> {
 public:
  using TranscodeValue<Self>::TranscodeValue;

  /// The text of the flag that the values belong to.
  static constexpr std::string_view cliFlag() noexcept { return CaseTable<Self>::flag.cliFlag(); }

  friend constexpr std::string_view cliFlag(const Self& value) noexcept { return value.cliFlag(); }
};

/// Base of the values of a general flag.
template <class Self> class TranscodeFileValue : public TranscodeFlagValue<Self> {
 public:
  using TranscodeFlagValue<Self>::TranscodeFlagValue;

  /// The flag that the values belong to.
  static constexpr const VAVTranscodeArgumentFlag& fileFlag() noexcept { return CaseTable<Self>::flag; }

  friend constexpr const VAVTranscodeArgumentFlag& fileFlag(const Self& value) noexcept {
    return value.fileFlag();
  }
};

/// Base of the values of a video flag.
template <class Self> class TranscodeVideoValue : public TranscodeFlagValue<Self> {
 public:
  using TranscodeFlagValue<Self>::TranscodeFlagValue;

  /// The flag that the values belong to.
  static constexpr const VAVTranscodeVideoArgumentFlag& videoFlag() noexcept { return CaseTable<Self>::flag; }

  friend constexpr const VAVTranscodeVideoArgumentFlag& videoFlag(const Self& value) noexcept {
    return value.videoFlag();
  }
};

/// Base of the values of an audio flag.
template <class Self> class TranscodeAudioValue : public TranscodeFlagValue<Self> {
 public:
  using TranscodeFlagValue<Self>::TranscodeFlagValue;

  /// The flag that the values belong to.
  static constexpr const VAVTranscodeAudioArgumentFlag& audioFlag() noexcept { return CaseTable<Self>::flag; }

  friend constexpr const VAVTranscodeAudioArgumentFlag& audioFlag(const Self& value) noexcept {
    return value.audioFlag();
  }
};

/// Container formats of the output.
class VAVTranscodeArgumentFileFormatValue : public TranscodeFileValue<VAVTranscodeArgumentFileFormatValue> {
 public:
  using TranscodeFileValue::TranscodeFileValue;

  /// The extensions that files of the format may bear, the preferred one first; none for an unlisted text.
  QUILLONIC_EXPORT std::span<const FileExtension> validExtensions() const noexcept;
  /// The first of `validExtensions`, or nothing when there is none.
  QUILLONIC_EXPORT std::optional<FileExtension> preferredFileExtension() const noexcept;
};

/// Video codecs.
class VAVTranscodeArgumentVideoCodecValue : public TranscodeVideoValue<VAVTranscodeArgumentVideoCodecValue> {
 public:
  using TranscodeVideoValue::TranscodeVideoValue;

  /// The extensions that files with the codec may bear; none for a codec that is neither listed nor among
  /// `allProResFormats`. The MPEG-4 codec permits only `mov`, on purpose.
  QUILLONIC_EXPORT std::span<const FileExtension> permittedExtensions() const;

  /// The codecs of the DNx family: "dnxhd" until a host sets others. This group and the two below may be set
  /// while other threads read them; what a reader got stays as it was.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allAvidDNxFormats();
  /// Replaces the group for the whole process.
  QUILLONIC_EXPORT static void setAllAvidDNxFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
  /// The codecs for playing in a browser: "h264", "h265" and "mjpeg" until a host sets others.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allWebFormats();
  /// Replaces the group for the whole process.
  QUILLONIC_EXPORT static void setAllWebFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
  /// The codecs of the ProRes family: the six listed ones until a host sets others. `permittedExtensions`
  /// goes by it.
  QUILLONIC_EXPORT static std::vector<VAVTranscodeArgumentVideoCodecValue> allProResFormats();
  /// Replaces the group for the whole process.
  QUILLONIC_EXPORT static void setAllProResFormats(std::vector<VAVTranscodeArgumentVideoCodecValue> formats);
};

/// How a picture is fitted into a frame of another aspect ratio.
class VAVTranscodeArgumentAspectRatioValue
    : public TranscodeVideoValue<VAVTranscodeArgumentAspectRatioValue> {
 public:
  using TranscodeVideoValue::TranscodeVideoValue;
};

/// Where something is placed in the frame. The values belong to several flags, so they have no flag of their
/// own.
class VAVTranscodeArgumentOverlayAnchorValue : public TranscodeValue<VAVTranscodeArgumentOverlayAnchorValue> {
 public:
  using TranscodeValue::TranscodeValue;

  /// The value's own text: the anchor types carry the flag.
  constexpr std::string_view cliFlag() const noexcept { return rawValue(); }
};

/// Colour spaces of the output.
class VAVTranscodeArgumentColorSpaceValue : public TranscodeVideoValue<VAVTranscodeArgumentColorSpaceValue> {
 public:
  using TranscodeVideoValue::TranscodeVideoValue;

  /// The value for a stored colour space; nothing for a space that the transcoder cannot be asked for.
  QUILLONIC_EXPORT static std::optional<VAVTranscodeArgumentColorSpaceValue> fromColorSpace(
      Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace colorSpace);
};

/// Audio codecs.
class VAVTranscodeArgumentAudioFormatValue
    : public TranscodeAudioValue<VAVTranscodeArgumentAudioFormatValue> {
 public:
  using TranscodeAudioValue::TranscodeAudioValue;
};

/// Channel layouts of the output.
class VAVTranscodeArgumentAudioChannelLayoutValue
    : public TranscodeAudioValue<VAVTranscodeArgumentAudioChannelLayoutValue> {
 public:
  using TranscodeAudioValue::TranscodeAudioValue;
};

/// Names of the presets that the tool has built in.
class VAVTranscodePresetValue : public TranscodeFileValue<VAVTranscodePresetValue> {
 public:
  using TranscodeFileValue::TranscodeFileValue;
};

}  // namespace quillonic
