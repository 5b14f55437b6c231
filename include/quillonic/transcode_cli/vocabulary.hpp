/// The transcoder's vocabulary: every flag and fixed value as a constant with its properties.
///
///     VAVVideoFormatFlag.cliFlag();                      // "-vcodec"
///     VAVNoVideoFlag.acceptsArguments();                 // false
///     cliFlag(VAVAvcH264Codec);                          // "-vcodec", the flag that the value belongs to
///     VAVQuickTimeFileFormat.preferredFileExtension();   // FileExtension::mov
///     VAVTranscodeArgumentFileFormatValue::fromStringValue("qt");   // VAVQuickTimeFileFormat
///
/// The constants cost nothing at start-up. The same types can wrap any other text, so that values of a newer
/// tool are kept.
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/transcode_cli/enumerations.hpp>
#include <quillonic/transcode_cli/flags.hpp>
#include <quillonic/transcode_cli/flags_table.hpp>
#include <quillonic/transcode_cli/vocabulary_table.hpp>

namespace quillonic {

namespace detail {
template <class... Flags>
inline constexpr bool areFlags = ((CliFlag<Flags> && CodableRawHashCase<Flags>)&&...);
}  // namespace detail

static_assert(detail::areFlags<VAVTranscodeCliCommand, VAVTranscodeArgumentFlag,
                               VAVTranscodeVideoArgumentFlag, VAVTranscodeAudioArgumentFlag,
                               VAVTranscodeTimecodeArgumentFlag, VAVTranscodeWatermarkFileArgumentFlag,
                               VAVTranscodeWatermarkTextArgumentFlag, VAVTranscodeArriLookArgumentFlag>);

static_assert(TranscodeFileCLIArgumentOption<VAVTranscodeArgumentFileFormatValue> &&
              CodableRawHashCase<VAVTranscodeArgumentFileFormatValue>);
static_assert(VideoCLIArgumentOption<VAVTranscodeArgumentVideoCodecValue> &&
              CodableRawHashCase<VAVTranscodeArgumentVideoCodecValue>);
static_assert(VideoCLIArgumentOption<VAVTranscodeArgumentAspectRatioValue> &&
              CodableRawHashCase<VAVTranscodeArgumentAspectRatioValue>);
static_assert(!CLIArgumentOption<VAVTranscodeArgumentOverlayAnchorValue> &&
              CodableRawHashCase<VAVTranscodeArgumentOverlayAnchorValue>);
static_assert(VideoCLIArgumentOption<VAVTranscodeArgumentColorSpaceValue> &&
              CodableRawHashCase<VAVTranscodeArgumentColorSpaceValue>);
static_assert(AudioCLIArgumentOption<VAVTranscodeArgumentAudioFormatValue> &&
              CodableRawHashCase<VAVTranscodeArgumentAudioFormatValue>);
static_assert(AudioCLIArgumentOption<VAVTranscodeArgumentAudioChannelLayoutValue> &&
              CodableRawHashCase<VAVTranscodeArgumentAudioChannelLayoutValue>);
static_assert(TranscodeFileCLIArgumentOption<VAVTranscodePresetValue> &&
              CodableRawHashCase<VAVTranscodePresetValue>);

}  // namespace quillonic
