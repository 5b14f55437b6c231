// Runs ffmpeg for a job.
#pragma once

#include <functional>

#include "job.hpp"

namespace transcoder {

struct Progress {
  double fraction = 0;
  std::int64_t frame = 0;
  double speed = 0;  // seconds of the output per second
};

// Transcodes, and calls `onProgress` about four times a second and at the end. Throws CLIExitCodeError, and
// whatever happens leaves no half-written file.
void run(Job& job, const std::function<void(const Progress&)>& onProgress);

}  // namespace transcoder
