// The sound's settings: codec, tracks, channels.
#pragma once

#include "job.hpp"

namespace transcoder {

bool copiesAudio(const quillonic::TranscodeCliArguments& settings);

void sampleRate(Job& job);
void audioBitRate(Job& job);
// The codec, which depends on the container when no setting names it, and the channel layout.
void soundFormat(Job& job);
// The channels that each track of the output has when they are discrete.
std::int64_t discreteChannels(Job& job, const child::AudioTrack& track);

}  // namespace transcoder
