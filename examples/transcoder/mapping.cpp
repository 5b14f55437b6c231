#include "mapping.hpp"

#include <algorithm>

#include "burn_ins.hpp"
#include "picture.hpp"
#include "sound.hpp"

namespace transcoder {
namespace {

using namespace quillonic;
using enum Stage;

// What some flags need to have an effect: one of these.
constexpr Needs timecode{VAVTimecodeAddTrackFlag, VAVTimecodeAddBurnFlag};
constexpr Needs burntTimecode{VAVTimecodeAddBurnFlag};
constexpr Needs burntImage{VAVWatermarkFileBurnFilePathFlag};
constexpr Needs burntText{VAVWatermarkTextAddBurnFlag};

constexpr auto rows = std::to_array<Row>({
    // Commands
    {VAVCliHelpFlag, command, "prints every flag with its sentence"},
    {VAVCliCodecsFlag, command, "prints the values of -vcodec"},
    {VAVCliFormatsFlag, command, "prints the values of -file_format"},
    {VAVCliVersionFlag, command, "prints the version"},
    {VAVCliAcknowledgementFlag, command, "prints what the tool is built on"},
    {VAVCliPresetsFlag, command, "prints the values of -preset"},
    {VAVCliAspectRatioScalingsFlag, command, "prints the values of -aspect_scaling"},
    {VAVCliCropAnchorsFlag, command, "prints the values of -crop_anchor"},
    {VAVCliColorSpacesFlag, command, "prints the values of -c_space"},
    {VAVCliAudioChannelLayoutsFlag, command, "prints the values of -acl"},
    {VAVCliTimecodeBurnAnchorsFlag, command, "prints the values of -tc_burn_anchor"},
    {VAVCliGpuPlatformsFlag, command, "prints the names of GPU platforms"},

    // Files
    {VAVInputPrefixFlag, tool, "-i, under a harmless name; all groups in order make one output"},
    {VAVOutputFileFlag, tool, "written hidden beside its place, and renamed when complete"},
    {VAVProgressFileFlag, tool, "gets the progress lines without their prefix"},
    {VAVProgressOutputPrefixFlag, tool, "before each progress line"},
    {VAVOverwriteExistingFlag, tool, "lets the finished output replace a file"},
    {VAVFileFormatFlag, tool, "-f; without it the output's extension decides"},
    {VAVColorLutFileFlag, bySource,
     "lut3d or lut1d, on the source's picture, by a .cube that the library writes", lut},
    {VAVPrepareForWebFlag, beforeStart, "-movflags +faststart", web},
    {VAVPresetFlag, tool, "settings that apply where the command line has none"},
    {VAVWorkDirectoryFlag, tool, "the folder of the work folder"},

    // Video
    {VAVNoVideoFlag, tool, "-vn"},
    {VAVVideoFormatFlag, tool, "-c:v and the encoder's own words"},
    {VAVVideoFrameRateFlag, bySource, "fps, from 0.01 to 1000; 23.98 means 24000/1001", frameRate},
    {VAVVideoDimensionsFlag, bySource, "scale to square pixels", dimensions},
    {VAVVideoAspectScalingFlag, tool,
     "match: the size that fits; stretch: scale; letterbox (also without the flag): pad; crop", nullptr,
     Needs{VAVVideoDimensionsFlag}},
    {VAVVideoAspectCropAnchorFlag, tool, "the place of crop", nullptr, Needs{VAVVideoAspectScalingFlag}},
    {VAVVideoBitRateFlag, beforeStart, "-b:v, in megabits per second", videoBitRate},
    {VAVVideoBitDepthFlag, bySource, "format: a pixel format of that depth", bitDepth},
    {VAVVideoColorSpaceFlag, bySource, "zscale converts, and the output is tagged", colorSpace},
    {VAVVideoKeyFramesFlag, beforeStart, "-g and -keyint_min, without others at cuts", keyFrames},
    {VAVVideoGPUDecodingFlag, beforeStart, "-hwaccel auto, which falls back to the processor", gpuDecoding},
    {VAVVideoGPUEncodingFlag, notHere, "frames are encoded on the processor"},
    {VAVRedRocketDeviceFlag, notHere, "there is no driver for decoder cards"},
    {VAVVideoProfileFlag, beforeStart, "-profile:v, and pixels of its kind", profile},

    // Audio
    {VAVNoAudioFlag, tool, "-an"},
    {VAVCopyAudioFlag, tool, "-c:a copy"},
    {VAVAudioIgnoreTracksPrefixFlag, tool, "a negative -map"},
    {VAVDiscreteAudioFlag, tool, "pan: each channel becomes a track of its own, not mixed"},
    {VAVAudioFormatFlag, tool, "-c:a"},
    {VAVAudioBitsPerChannelFlag, tool, "the kind of PCM, or the sample format of Apple Lossless"},
    {VAVAudioSampleRateFlag, beforeStart, "-ar", sampleRate},
    {VAVAudioChannelLayoutFlag, tool, "aformat, which mixes; with -adiscrete the number of tracks"},
    {VAVAudioBitRateFlag, beforeStart, "-b:a, in kilobits per second", audioBitRate},

    // Timecode
    {VAVTimecodeAddTrackFlag, bySource, "metadata, from which the container's timecode is written",
     timecodeTrack},
    {VAVTimecodeAddBurnFlag, bySource, "drawtext", burnTimecode},
    {VAVTimecodeBurnAnchorFlag, tool, "drawtext's x and y; bottom centre without it", nullptr, burntTimecode},
    {VAVTimecodeBurnFontSize, tool, "fontsize, in pixels; a twentieth of the height without it", nullptr,
     burntTimecode},
    {VAVTimecodeBurnFontRGB, tool, "fontcolor", nullptr, burntTimecode},
    {VAVTimecodeBurnBoxRGB, tool, "boxcolor, opaque; half-transparent black without it", nullptr,
     burntTimecode},
    {VAVTimecodeMatchSourceFlag, tool, "the first input's timecode", nullptr, timecode},
    {VAVTimecodeFromCreationDateFlag, tool, "the local time at which the first input was made", nullptr,
     timecode},
    {VAVTimecodeCustomFlag, tool, "this timecode", nullptr, timecode},
    {VAVTimecodeFrameRateFlag, bySource, "must be that of the video, because ffmpeg counts frames",
     timecodeRate, timecode},
    {VAVTimecodeIsDropFlag, tool, "\";\" before the frames; refused unless the rate is 29.97 or 59.94",
     nullptr, timecode},

    // Image watermark
    {VAVWatermarkFileBurnAnchorFlag, tool, "overlay's x and y; top right without it", nullptr, burntImage},
    {VAVWatermarkFileBurnFilePathFlag, bySource, "movie and overlay", burnImage},
    {VAVWatermarkFileBurnScaleFlag, tool, "scale", nullptr, burntImage},

    // Text watermark
    {VAVWatermarkTextAddBurnFlag, bySource, "drawtext", burnText},
    {VAVWatermarkTextBurnTextFlag, tool, "a text file for drawtext, without expansion", nullptr, burntText},
    {VAVWatermarkTextBurnFontSizeFlag, tool, "fontsize, in pixels; a twentieth of the height without it",
     nullptr, burntText},
    {VAVWatermarkTextBurnAnchorFlag, tool, "drawtext's x and y; bottom right without it", nullptr, burntText},
    {VAVWatermarkTextBurnFontRGBFlag, tool, "fontcolor", nullptr, burntText},
    {VAVWatermarkTextBurnBoxRGBFlag, tool, "boxcolor, opaque; no box without it", nullptr, burntText},

    // Look
    {VAVArriLookColorSpacePrimaryFlag, notHere, "raw camera files are not developed"},
    {VAVArriLookColorSpaceWhitePointFlag, notHere, "raw camera files are not developed"},
    {VAVArriLookColorSpaceCurveFlag, notHere, "raw camera files are not developed"},
    {VAVArriLookInvalidLookResolutionFlag, notHere, "raw camera files are not developed"},
});

constexpr const Row* rowOf(std::string_view flag) {
  for (const auto& row : rows) {
    if (row.flag == flag) return &row;
  }
  return nullptr;
}

// A new flag needs a row before the tool can be built.
static_assert(std::ranges::all_of(TranscodeCliArguments::allKnownCommandFlags(), rowOf),
              "every flag has a row");
static_assert(rows.size() == TranscodeCliArguments::allKnownCommandFlags().size() + 1,
              "and no other but the burn anchor's");

template <class Family> bool isOf(std::string_view flag) {
  return Family::fromStringValue(flag).has_value();
}

bool isOfPicture(std::string_view flag) {
  return isOf<VAVTranscodeVideoArgumentFlag>(flag) || isOf<VAVTranscodeWatermarkFileArgumentFlag>(flag) ||
         isOf<VAVTranscodeWatermarkTextArgumentFlag>(flag) || flag == VAVColorLutFileFlag ||
         flag.starts_with(VAVTimecodeAddBurnFlag.cliFlag());
}

// Why a flag that is set has no effect in this job; empty if it has one.
std::string reasonAgainst(const Job& job, const Row& row) {
  const auto isAnyOf = [&](std::initializer_list<std::string_view> flags) {
    return std::ranges::find(flags, row.flag) != flags.end();
  };
  if (row.stage == notHere) return std::string(row.becomes);
  if (isAnyOf({VAVNoVideoFlag, VAVNoAudioFlag})) return {};
  if (isOfPicture(row.flag)) {
    if (!job.hasVideo) return "the output has no video";
    if (!job.encoder && !isAnyOf({VAVVideoFormatFlag})) return "copied video stays as it is";
  }
  if (isOf<VAVTranscodeAudioArgumentFlag>(row.flag)) {
    if (!job.hasAudio) return "the output has no audio";
    const bool selectsTracks = isAnyOf({VAVCopyAudioFlag, VAVAudioIgnoreTracksPrefixFlag});
    const bool isCopy = job.settings.argumentFlagValue(row.flag) == VAVCopySourceValue;
    if (job.copiesAudio && !selectsTracks && !isCopy) return "copied audio stays as it is";
  }
  const auto isSet = [&](std::string_view flag) { return !flag.empty() && job.hasFlag(flag); };
  if (row.needs[0].empty() || std::ranges::any_of(row.needs, isSet)) return {};
  const std::string other(row.needs[1]);
  return "it has no effect without " + std::string(row.needs[0]) + (other.empty() ? "" : " or " + other);
}

}  // namespace

std::span<const Row> mapping() noexcept {
  return rows;
}

void mapBeforeStart(Job& job) {
  for (const auto& row : rows) {
    if (!job.hasFlag(row.flag)) continue;
    if (const auto why = reasonAgainst(job, row); !why.empty()) {
      job.cannot(row.flag, why);
    } else if (row.stage == beforeStart) {
      row.map(job);
    }
  }
  soundFormat(job);
}

void mapBySource(Job& job) {
  for (const auto& row : rows) {
    if (row.stage == bySource && job.hasFlag(row.flag) && reasonAgainst(job, row).empty()) row.map(job);
  }
  pixels(job);
}

}  // namespace transcoder
