// The timecode, in the file and in the picture, and the watermarks.
#pragma once

#include "job.hpp"

namespace transcoder {

void timecodeTrack(Job& job);
void timecodeRate(Job& job);
void burnTimecode(Job& job);
void burnImage(Job& job);
void burnText(Job& job);

}  // namespace transcoder
