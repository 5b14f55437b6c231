// Runs ffmpeg for a job.
#pragma once

#include <functional>

#include "job.hpp"

namespace transcoder {

// Transcodes, and calls `onProgress` about four times a second and at the end. Throws CLIExitCodeError, and
// whatever happens leaves no half-written file.
void run(Job& job, const std::function<void(const quillonic::ProgressLine&)>& onProgress);

}  // namespace transcoder
