/// The transcoder's vocabulary: every flag and every fixed value as a constant, and what each can tell of
/// itself.
///
///     VAVVideoFormatFlag.cliFlag();                      // "-vcodec"
///     VAVNoVideoFlag.acceptsArguments();                 // false
///     cliFlag(VAVAvcH264Codec);                          // "-vcodec", the flag that the value belongs to
///     VAVQuickTimeFileFormat.preferredFileExtension();   // FileExtension::mov
///     VAVTranscodeArgumentFileFormatValue::fromStringValue("qt");   // VAVQuickTimeFileFormat
///
/// The constants cost nothing at start-up. Any other text can be wrapped in the same types, so that a value
/// of a newer tool is carried along and not lost.
#pragma once

#include <quillonic/transcode_cli/enumerations.hpp>
#include <quillonic/transcode_cli/vocabulary_table.hpp>

namespace quillonic {

static_assert(CliFlag<VAVTranscodeCliCommand> && CodableRawHashCase<VAVTranscodeCliCommand>);
static_assert(CliFlag<VAVTranscodeArgumentFlag> && CodableRawHashCase<VAVTranscodeArgumentFlag>);
static_assert(CliFlag<VAVTranscodeVideoArgumentFlag> && CodableRawHashCase<VAVTranscodeVideoArgumentFlag>);
static_assert(CliFlag<VAVTranscodeAudioArgumentFlag> && CodableRawHashCase<VAVTranscodeAudioArgumentFlag>);
static_assert(CliFlag<VAVTranscodeTimecodeArgumentFlag> &&
              CodableRawHashCase<VAVTranscodeTimecodeArgumentFlag>);
static_assert(CliFlag<VAVTranscodeWatermarkFileArgumentFlag> &&
              CodableRawHashCase<VAVTranscodeWatermarkFileArgumentFlag>);
static_assert(CliFlag<VAVTranscodeWatermarkTextArgumentFlag> &&
              CodableRawHashCase<VAVTranscodeWatermarkTextArgumentFlag>);
static_assert(CliFlag<VAVTranscodeArriLookArgumentFlag> &&
              CodableRawHashCase<VAVTranscodeArriLookArgumentFlag>);

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
