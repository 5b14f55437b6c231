#include "sound.hpp"

#include <algorithm>

namespace transcoder {
namespace {

using namespace quillonic;

struct Layout {
  std::string_view value;
  std::string_view name;
  std::string_view lossless;  // the layout of Apple Lossless with as many channels
  std::int64_t channels;
};
constexpr Layout layouts[] = {{"mono", "mono", "mono", 1}, {"stereo", "stereo", "stereo", 2},
                              {"quad", "quad", "4.0", 4},  {"pent", "5.0", "5.0", 5},
                              {"hex", "5.1", "5.1", 6},    {"oct", "7.1", "7.1(wide)", 8}};

const Layout* layout(const Job& job) {
  const auto value = job.settings.audioChannelLayout();
  return value ? std::ranges::find(layouts, value->rawValue(), &Layout::value) : nullptr;
}

struct Sample {
  std::int64_t bits;
  std::string_view pcm;
  std::string_view lossless;  // the sample format of Apple Lossless
};
constexpr Sample samples[] = {
    {16, "pcm_s16le", "s16p"}, {24, "pcm_s24le", "s32p"}, {32, "pcm_s32le", ""}, {8, "pcm_u8", ""}};

}  // namespace

std::int64_t discreteChannels(Job& job, const child::AudioTrack& track) {
  return layout(job) ? layout(job)->channels : track.channels;
}

bool copiesAudio(const TranscodeCliArguments& settings) {
  return settings.copyAudio() || settings.argumentFlagValue(VAVAudioFormatFlag) == VAVCopySourceValue;
}

VAVTranscodeArgumentAudioFormatValue audioCodec(const Job& job) {
  const auto* codec = job.encoder ? codecWithText(job.encoder->codec) : nullptr;
  const bool isForPlayback =
      codec && codec->family != CodecFamily::proRes && codec->family != CodecFamily::avidDNx;
  const bool isCompressed = job.container.extension == "mp4" || isForPlayback;
  return job.settings.audioFormat().value_or(isCompressed ? VAVAacAudioFormatValue : VAVLpcmAudioFormatValue);
}

void sampleRate(Job& job) {
  job.add({"-ar", std::to_string(*job.settings.audioSampleRate())});
}

void audioBitRate(Job& job) {
  if (audioCodec(job) != VAVAacAudioFormatValue) return job.cannot(VAVAudioBitRateFlag, "only aac takes one");
  job.add({"-b:a", std::to_string(*job.settings.audioBitRate()) + "k"});
}

void soundFormat(Job& job) {
  if (!job.hasAudio) return;
  if (job.copiesAudio) return job.add({"-c:a", "copy"});
  const auto codec = audioCodec(job);
  const auto extension = job.container.extension;
  if (codec == VAVLpcmAudioFormatValue ? extension == "mp4" : extension == "wav" || extension == "mxf") {
    refuse(std::string(extension) + " files do not hold " + std::string(codec));
  }

  const auto bits = job.settings.audioBitsPerChannel();
  const auto sample = std::ranges::find(samples, bits.value_or(16), &Sample::bits);
  const bool isLossless = codec == VAVAppleLosslessAudioFormatValue;
  const bool isPossible = sample != std::end(samples) && (!isLossless || !sample->lossless.empty());
  if (bits && (!isPossible || codec == VAVAacAudioFormatValue)) {
    job.cannot(VAVAudioBitsPerChannelFlag, "the audio codec does not have that many bits");
  }
  const auto& chosen = isPossible ? *sample : samples[0];
  if (codec == VAVAacAudioFormatValue) job.add({"-c:a", "aac"});
  if (codec == VAVLpcmAudioFormatValue) job.add({"-c:a", std::string(chosen.pcm)});
  if (isLossless) job.add({"-c:a", "alac", "-sample_fmt", std::string(chosen.lossless)});
  // The only rate that mxf files have.
  if (extension == "mxf" && !job.settings.audioSampleRate()) job.add({"-ar", "48000"});
  if (const auto* wanted = layout(job); wanted && !job.settings.discreteAudio()) {
    job.sound = "aformat=channel_layouts=" + std::string(isLossless ? wanted->lossless : wanted->name);
  }
}

}  // namespace transcoder
