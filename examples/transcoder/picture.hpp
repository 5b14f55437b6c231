// The picture's settings: codec, size, rate, colours.
#pragma once

#include "job.hpp"

namespace transcoder {

const Container& containerFor(const quillonic::TranscodeCliArguments& settings);
const Encoder* encoderFor(const quillonic::TranscodeCliArguments& settings, const Container& container);

// What selects the encoder; settings add to it.
std::vector<std::string> encoderWords(const Job& job);

void web(Job& job);
void videoBitRate(Job& job);
void keyFrames(Job& job);
void profile(Job& job);
void gpuDecoding(Job& job);

void lut(Job& job);
void frameRate(Job& job);
void dimensions(Job& job);
void bitDepth(Job& job);
void colorSpace(Job& job);
// The format of the pixels that the encoder gets, by ffmpeg's name.
std::string pixelFormat(const Job& job);
// Converts to that format, whatever the source has.
void pixels(Job& job);

}  // namespace transcoder
